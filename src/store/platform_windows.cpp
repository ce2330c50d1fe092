#include "store/leftovers.h"
#include "store/platform.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace platform
{
namespace
{

constexpr DWORD everySharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::error_code errorOf(DWORD number)
{
    return {static_cast<int>(number), std::system_category()};
}

std::error_code lastError()
{
    return errorOf(::GetLastError());
}

/// A handle that is closed when it goes out of sight.
class Handle
{
public:
    explicit Handle(HANDLE handle)
        : handle_(handle)
    {
    }
    ~Handle() { close(); }
    Handle(Handle&& other) noexcept
        : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE))
    {
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE get() const { return handle_; }
    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    bool isOnDisk() const { return ::GetFileType(handle_) == FILE_TYPE_DISK; }
    /// Failure: false.
    bool close()
    {
        const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
        return handle == INVALID_HANDLE_VALUE || ::CloseHandle(handle) != 0;
    }

private:
    HANDLE handle_;
};

HANDLE openThere(const Path& path, DWORD access, DWORD flags = FILE_ATTRIBUTE_NORMAL)
{
    return ::CreateFileW(path.c_str(), access, everySharing, nullptr, OPEN_EXISTING, flags, nullptr);
}

/// Where an opened file or folder lies, links followed and with its name's own case. Failure: the given path.
Path placeOf(HANDLE handle, const Path& otherwise)
{
    std::wstring place(32768, L'\0');
    const DWORD length = ::GetFinalPathNameByHandleW(handle, place.data(), static_cast<DWORD>(place.size()),
                                                     FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
    if (length == 0 || length >= place.size()) {
        return otherwise;
    }
    place.resize(length);
    return place;
}

std::wstring lowered(std::wstring name)
{
    ::CharLowerBuffW(name.data(), static_cast<DWORD>(name.size()));
    return name;
}

/// A file's name; half of a surrogate pair, which a name may hold, becomes a replacement character.
std::string utf8From(const std::wstring& name)
{
    const int length = static_cast<int>(name.size());
    std::string utf8(3 * name.size(), '\0');
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, name.data(), length, utf8.data(),
                                           static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(size));
    return utf8;
}

bool readAll(HANDLE file, std::string& content)
{
    std::size_t done = 0;
    while (done < content.size()) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(content.size() - done); // the largest file fits
        if (::ReadFile(file, content.data() + done, wanted, &count, nullptr) == 0) {
            return false;
        }
        if (count == 0) {
            break;
        }
        done += count;
    }
    content.resize(done);
    return true;
}

bool writeAll(HANDLE file, std::string_view content)
{
    while (!content.empty()) {
        DWORD count = 0;
        const auto size = static_cast<DWORD>(content.size()); // the largest file fits
        if (::WriteFile(file, content.data(), size, &count, nullptr) == 0) {
            return false;
        }
        if (count == 0) {
            ::SetLastError(ERROR_WRITE_FAULT); // nothing taken and no reason given
            return false;
        }
        content.remove_prefix(count);
    }
    return true;
}

/// Makes an empty file beside the target and opens it. A name that is taken is passed over: a program that
/// had the same number before may have been ended.
Handle makeBeside(const Path& target, Path& beside)
{
    constexpr int attempts = 1000;
    static unsigned count = 0;
    HANDLE file = INVALID_HANDLE_VALUE;
    for (int i = 0;
         i < attempts && file == INVALID_HANDLE_VALUE && (i == 0 || ::GetLastError() == ERROR_FILE_EXISTS);
         ++i) {
        beside = target.parent_path() / LeftoverName(ownProcess(), ++count);
        file = ::CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                             nullptr);
    }
    return Handle(file);
}

/// The size of an open file, in bytes. Failure: the reason.
std::error_code sizeOf(const Handle& file, std::size_t& size)
{
    LARGE_INTEGER told = {};
    if (::GetFileSizeEx(file.get(), &told) == 0) {
        return lastError();
    }
    size = static_cast<std::size_t>(told.QuadPart);
    return size > largestFile ? std::make_error_code(std::errc::file_too_large) : std::error_code();
}

/// Finds where the bytes belong. Failure: the reason why they may not be written there.
std::error_code findTarget(const Path& path, Path& target, bool& exists)
{
    const Handle old(openThere(path, GENERIC_WRITE));
    exists = old.isOpen();
    const std::error_code failure = lastError();
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (!exists) {
        target = path;
        // A link to nothing has attributes and cannot be opened; a rename would replace it.
        const bool free = failure.value() == ERROR_FILE_NOT_FOUND && attributes == INVALID_FILE_ATTRIBUTES;
        return free ? std::error_code() : failure;
    }
    target = placeOf(old.get(), path);
    std::size_t size = 0;
    if (const std::error_code refused = sizeOf(old, size)) {
        return refused;
    }
    // Asked of the mark too, since an emulator that runs as the administrator opens such a file for writing.
    const bool marked = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    return marked ? std::make_error_code(std::errc::permission_denied) : std::error_code();
}

/// Gives a new file the attributes and access rights of the one that it will replace. Who may write a file
/// but not say who else may leaves the folder's rights on it.
void keepRights(const Path& old, const Path& made)
{
    const DWORD attributes = ::GetFileAttributesW(old.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        ::SetFileAttributesW(made.c_str(), attributes);
    }
    DWORD size = 0;
    ::GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::string rights(size, '\0');
    if (::GetFileSecurityW(old.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) != 0) {
        ::SetFileSecurityW(made.c_str(), DACL_SECURITY_INFORMATION, rights.data());
    }
}

/// Renames over the target. Whoever looks into each new file (a virus scanner, an indexer) lets go of it
/// soon, so a refusal counts only when it lasts.
std::error_code renameOver(const Path& beside, const Path& target)
{
    constexpr int tries = 50;
    constexpr DWORD pause = 10; // milliseconds
    for (int i = 1;; ++i) {
        if (::MoveFileExW(beside.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0) {
            return {};
        }
        const DWORD failure = ::GetLastError();
        if (i == tries || (failure != ERROR_SHARING_VIOLATION && failure != ERROR_ACCESS_DENIED)) {
            return errorOf(failure);
        }
        ::Sleep(pause);
    }
}

} // namespace

void failOversizedWrites()
{
    // No such limit here.
}

std::error_code readFile(const Path& path, std::string& content)
{
    content.clear();
    const Handle file(openThere(path, GENERIC_READ));
    std::size_t size = 0;
    if (!file.isOpen()) {
        return lastError();
    }
    if (!file.isOnDisk()) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    if (const std::error_code failure = sizeOf(file, size)) {
        return failure;
    }
    content.resize(size);
    if (!readAll(file.get(), content)) {
        const std::error_code failure = lastError();
        content.clear();
        return failure;
    }
    return {};
}

std::error_code replaceFile(const Path& path, std::string_view content)
{
    if (content.size() > largestFile) {
        return std::make_error_code(std::errc::file_too_large);
    }
    Path target;
    bool exists = false;
    if (const std::error_code refused = findTarget(path, target, exists)) {
        return refused;
    }
    Path beside;
    Handle file = makeBeside(target, beside);
    if (!file.isOpen()) {
        return lastError();
    }
    if (exists) {
        keepRights(target, beside);
    }
    const bool written = writeAll(file.get(), content) && file.close();
    const std::error_code failure = written ? renameOver(beside, target) : lastError();
    file.close();
    if (failure) {
        ::DeleteFileW(beside.c_str());
    }
    return failure;
}

// Named after the folder, by as much of its path as such a name may hold: two folders that share it wait for
// each other needlessly, no more.
FolderLock::FolderLock(const Path& folder)
    : descriptor_(-1)
{
    constexpr std::size_t longestName = 200;
    constexpr DWORD patience = 1000; // milliseconds
    const Handle opened(openThere(folder, 0, FILE_FLAG_BACKUP_SEMANTICS));
    const std::wstring place = lowered(placeOf(opened.get(), folder).generic_wstring());
    const std::wstring name = place.substr(place.size() - std::min(place.size(), longestName));
    if (const HANDLE lock = ::CreateMutexW(nullptr, FALSE, (L"Global\\questforge:" + name).c_str())) {
        ::WaitForSingleObject(lock, patience);
        descriptor_ = ::HandleToLong(lock);
    }
}

FolderLock::~FolderLock()
{
    if (descriptor_ >= 0) {
        ::ReleaseMutex(::LongToHandle(descriptor_));
        ::CloseHandle(::LongToHandle(descriptor_));
    }
}

int ownProcess()
{
    return static_cast<int>(::GetCurrentProcessId());
}

bool isRunning(int process)
{
    const HANDLE found = ::OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
    if (found == nullptr) {
        return ::GetLastError() == ERROR_ACCESS_DENIED;
    }
    const bool running = ::WaitForSingleObject(found, 0) == WAIT_TIMEOUT;
    ::CloseHandle(found);
    return running;
}

std::string systemWords(const std::error_code& failure)
{
    return failure.message(); // already in the system's code page
}

std::error_code makeFolder(const Path& path)
{
    return ::CreateDirectoryW(path.c_str(), nullptr) != 0 ? std::error_code() : lastError();
}

// A handle fits an int: only its lower half counts, so that programs of both widths can exchange them. Opened
// without any right, since a folder may let its files be read and yet not tell their names.
Folder::Folder(const Path& path)
    : descriptor_(::HandleToLong(openThere(path, 0, FILE_FLAG_BACKUP_SEMANTICS)))
{
    BY_HANDLE_FILE_INFORMATION state = {};
    const HANDLE handle = ::LongToHandle(descriptor_);
    if (isOpen() && (::GetFileInformationByHandle(handle, &state) == 0 ||
                     (state.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)) {
        ::CloseHandle(handle);
        descriptor_ = -1;
    }
}

Folder::~Folder()
{
    if (isOpen()) {
        ::CloseHandle(::LongToHandle(descriptor_));
    }
}

std::error_code Folder::list(std::vector<std::string>& names) const
{
    names.clear();
    const Path folder = placeOf(::LongToHandle(descriptor_), {});
    if (folder.empty()) {
        return errorOf(ERROR_INVALID_HANDLE);
    }
    WIN32_FIND_DATAW entry = {};
    const HANDLE listing = ::FindFirstFileW((folder / "*").c_str(), &entry);
    if (listing == INVALID_HANDLE_VALUE) {
        return lastError();
    }
    do {
        names.push_back(utf8From(lowered(entry.cFileName)));
    } while (::FindNextFileW(listing, &entry) != 0);
    const DWORD end = ::GetLastError();
    ::FindClose(listing);
    if (end != ERROR_NO_MORE_FILES) {
        names.clear();
        return errorOf(end);
    }
    return {};
}

std::error_code Folder::readFile(const std::string& name, std::string& content) const
{
    const Path folder = placeOf(::LongToHandle(descriptor_), {});
    if (folder.empty()) {
        content.clear();
        return errorOf(ERROR_INVALID_HANDLE);
    }
    return platform::readFile(folder / std::u8string(name.begin(), name.end()), content);
}

} // namespace platform
