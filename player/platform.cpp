#include "player/platform.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace player
{

namespace
{

constexpr std::array<const char*, 6> modeTexts = {"rb", "wb", "ab", "r+b", "w+b", "a+b"};

const char* textOf(FileMode mode)
{
    return modeTexts.at(static_cast<std::size_t>(mode));
}

constexpr std::array<int, 6> modeFlags = {O_RDONLY, O_WRONLY | O_CREAT, O_WRONLY | O_CREAT | O_APPEND,
                                          O_RDWR,   O_RDWR | O_CREAT,   O_RDWR | O_CREAT | O_APPEND};

bool startsEmpty(FileMode mode)
{
    return mode == FileMode::Write || mode == FileMode::WriteAndRead;
}

// Only a file that proved to be regular is emptied.
bool prepare(int descriptor, FileMode mode)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) {
        return false;
    }
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EACCES;
        return false;
    }
    // By a second name the file may lie anywhere.
    if (mode != FileMode::Read && status.st_nlink > 1) {
        errno = EACCES;
        return false;
    }
    return !startsEmpty(mode) || ::ftruncate(descriptor, 0) == 0;
}

} // namespace

FileHandle openRegularFile(const std::filesystem::path& path, FileMode mode)
{
    // Without O_NONBLOCK the opening of a pipe waits for its other end.
    const int flags =
        modeFlags.at(static_cast<std::size_t>(mode)) | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
    const int descriptor = ::open(path.c_str(), flags, 0666);
    if (descriptor < 0) {
        return nullptr;
    }
    std::FILE* const file = prepare(descriptor, mode) ? ::fdopen(descriptor, textOf(mode)) : nullptr;
    if (file == nullptr) {
        const int reason = errno;
        ::close(descriptor);
        errno = reason;
    }
    return FileHandle(file);
}

std::filesystem::path pathFromUtf8(const std::string& name)
{
    return std::u8string(name.begin(), name.end());
}

std::string utf8FromPath(const std::filesystem::path& path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

} // namespace player
