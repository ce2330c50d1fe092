#include "store/codepage.h"
#include "store/leftovers.h"
#include "store/platform.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform
{
namespace
{

// Not to wait for the other end when somebody laid a pipe where a file belongs.
constexpr int readFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;

std::error_code lastError()
{
    return {errno, std::system_category()};
}

/// A file descriptor that is closed when it goes out of sight.
class Descriptor
{
public:
    explicit Descriptor(int number)
        : number_(number)
    {
    }
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1))
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }
    /// Failure: false; a write that was put off may only be refused here.
    bool close()
    {
        const int number = number_;
        number_ = -1;
        return number < 0 || ::close(number) == 0;
    }

private:
    int number_;
};

bool readAll(int descriptor, std::string& content)
{
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t count = ::read(descriptor, content.data() + done, content.size() - done);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return false;
        }
        if (count == 0) {
            break;
        }
        done += static_cast<std::size_t>(count);
    }
    content.resize(done);
    return true;
}

bool isTooLarge(const struct stat& state)
{
    return static_cast<std::uintmax_t>(state.st_size) > largestFile;
}

/// Reads a whole file that was just opened; the last error tells why it could not be.
std::error_code readOpened(const Descriptor& file, std::string& content)
{
    content.clear();
    struct stat state = {};
    if (!file.isOpen() || ::fstat(file.number(), &state) != 0) {
        return lastError();
    }
    if (!S_ISREG(state.st_mode)) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    if (isTooLarge(state)) {
        return std::make_error_code(std::errc::file_too_large);
    }
    content.resize(static_cast<std::size_t>(state.st_size));
    if (!readAll(file.number(), content)) {
        const std::error_code failure = lastError();
        content.clear();
        return failure;
    }
    return {};
}

bool writeAll(int descriptor, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t count = ::write(descriptor, content.data(), content.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            errno = count == 0 ? EIO : errno; // nothing taken and no reason given
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Where a chain of links ends; the path itself when it is no link. A circle ends where the count does.
Path linkTarget(Path path)
{
    std::error_code failure;
    for (int links = 0; links < 40 && std::filesystem::is_symlink(path, failure); ++links) {
        const Path next = std::filesystem::read_symlink(path, failure);
        if (failure) {
            break;
        }
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return path;
}

/// Makes an empty file beside the target and opens it. A name that is taken is passed over: a program that
/// had the same number before may have been killed.
Descriptor makeBeside(const Path& target, mode_t mode, Path& beside)
{
    constexpr int attempts = 1000;
    static unsigned count = 0;
    int number = -1;
    for (int i = 0; i < attempts && number < 0 && (i == 0 || errno == EEXIST); ++i) {
        beside = target.parent_path() / LeftoverName(ownProcess(), ++count);
        number = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    }
    return Descriptor(number);
}

std::error_code refusal(const Path& target, const struct stat& old)
{
    if (!S_ISREG(old.st_mode)) {
        return std::make_error_code(std::errc::operation_not_permitted);
    }
    if (isTooLarge(old)) {
        return std::make_error_code(std::errc::file_too_large);
    }
    // Asked of the mode too, since the administrator may write whatever the mode says.
    if ((old.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) {
        return std::make_error_code(std::errc::permission_denied);
    }
    return ::access(target.c_str(), W_OK) == 0 ? std::error_code() : lastError();
}

/// What a disk does not let us keep is no reason to lose the content: a stranger's file in a shared folder
/// then becomes ours, and the mode is no wider than it was, since the file was made with it.
void keepOwnerAndMode(int descriptor, const struct stat& old)
{
    [[maybe_unused]] int ignored = 0;
    if (old.st_uid != ::geteuid() || old.st_gid != ::getegid()) {
        ignored = ::fchown(descriptor, old.st_uid, old.st_gid);
    }
    ignored = ::fchmod(descriptor, old.st_mode & 07777);
}

} // namespace

void failOversizedWrites()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

std::error_code readFile(const Path& path, std::string& content)
{
    return readOpened(Descriptor(::open(path.c_str(), readFlags)), content);
}

std::error_code replaceFile(const Path& path, std::string_view content)
{
    if (content.size() > largestFile) {
        return std::make_error_code(std::errc::file_too_large);
    }
    const Path target = linkTarget(path);
    struct stat old = {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) {
        return lastError(); // a circle of links among others, which a rename would replace
    }
    if (exists) {
        if (const std::error_code refused = refusal(target, old)) {
            return refused;
        }
    }
    Path beside;
    Descriptor file = makeBeside(target, exists ? old.st_mode & 0777 : 0666, beside);
    if (!file.isOpen()) {
        return lastError();
    }
    if (exists) {
        keepOwnerAndMode(file.number(), old);
    }
    if (writeAll(file.number(), content) && file.close() && ::rename(beside.c_str(), target.c_str()) == 0) {
        return {};
    }
    const std::error_code failure = lastError();
    ::unlink(beside.c_str());
    return failure;
}

FolderLock::FolderLock(const Path& folder)
    : descriptor_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    constexpr int attempts = 1500;           // together far below what an author notices
    constexpr timespec pause = {0, 100'000}; // nanoseconds
    for (int i = 0; i < attempts && ::flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
         ++i) {
        ::nanosleep(&pause, nullptr);
    }
}

FolderLock::~FolderLock()
{
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

int ownProcess()
{
    return ::getpid();
}

bool isRunning(int process)
{
    return ::kill(process, 0) == 0 || errno == EPERM;
}

std::string systemWords(const std::error_code& failure)
{
    return AnsiFromUtf8(failure.message());
}

std::error_code makeFolder(const Path& path)
{
    return ::mkdir(path.c_str(), 0777) == 0 ? std::error_code() : lastError();
}

// Opened as a mere place: a folder may let its files be read and yet not tell their names.
Folder::Folder(const Path& path)
    : descriptor_(::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC))
{
}

Folder::~Folder()
{
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

std::error_code Folder::list(std::vector<std::string>& names) const
{
    names.clear();
    const int listing = ::openat(descriptor_, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(listing < 0 ? nullptr : ::fdopendir(listing),
                                                      ::closedir);
    if (!entries) {
        const std::error_code failure = lastError();
        ::close(listing);
        return failure;
    }
    errno = 0; // the end of the list is told from a failure by this alone
    while (const dirent* entry = ::readdir(entries.get())) {
        names.emplace_back(entry->d_name);
        errno = 0;
    }
    const std::error_code failure = lastError();
    if (failure) {
        names.clear();
    }
    return failure;
}

std::error_code Folder::readFile(const std::string& name, std::string& content) const
{
    return readOpened(Descriptor(::openat(descriptor_, name.c_str(), readFlags)), content);
}

} // namespace platform
