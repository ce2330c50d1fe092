#include "store/platform.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace platform
{
namespace
{

constexpr off_t largestFile = off_t{256} * 1024 * 1024;
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
    if (state.st_size > largestFile) {
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

/// A name that no project file has and that tells whose it is, should the program be killed before the
/// rename.
Path besideName(const Path& target)
{
    static unsigned count = 0;
    std::array<char, 64> name = {};
    std::snprintf(name.data(), name.size(), ".questforge-%ld-%u.tmp", static_cast<long>(::getpid()), ++count);
    return target.parent_path() / name.data();
}

std::error_code refusal(const Path& target, const struct stat& old)
{
    if (!S_ISREG(old.st_mode)) {
        return std::make_error_code(std::errc::operation_not_permitted);
    }
    // Asked of the mode too, since the administrator may write whatever the mode says.
    if ((old.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) {
        return std::make_error_code(std::errc::permission_denied);
    }
    return ::access(target.c_str(), W_OK) == 0 ? std::error_code() : lastError();
}

bool keepOwnerAndMode(int descriptor, const struct stat& old)
{
    if (old.st_uid != ::geteuid() || old.st_gid != ::getegid()) {
        // A stranger's file in a shared folder becomes ours when the system does not let us give it back.
        [[maybe_unused]] const int ignored = ::fchown(descriptor, old.st_uid, old.st_gid);
    }
    return ::fchmod(descriptor, old.st_mode & 07777) == 0;
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
    const Path beside = besideName(target);
    Descriptor file(::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen()) {
        return lastError();
    }
    if (writeAll(file.number(), content) && (!exists || keepOwnerAndMode(file.number(), old)) &&
        file.close() && ::rename(beside.c_str(), target.c_str()) == 0) {
        return {};
    }
    const std::error_code failure = lastError();
    ::unlink(beside.c_str());
    return failure;
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
        return lastError();
    }
    while (const dirent* entry = ::readdir(entries.get())) {
        names.emplace_back(entry->d_name);
    }
    return {};
}

std::error_code Folder::readFile(const std::string& name, std::string& content) const
{
    return readOpened(Descriptor(::openat(descriptor_, name.c_str(), readFlags)), content);
}

} // namespace platform
