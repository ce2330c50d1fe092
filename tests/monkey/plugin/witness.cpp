// Loaded ahead of all libraries: tells the random user of each file and folder that its program opened for
// writing, made, renamed or removed, once that succeeded.
#include "witness.h"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

WriteListener listener = nullptr;

/// The function that would have been called without this library.
template <class Function> Function* real(Function*, const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

std::string whole(int folder, const char* path)
{
    if (path[0] == '/') {
        return path;
    }
    const std::string link =
        folder == AT_FDCWD ? "/proc/self/cwd" : "/proc/self/fd/" + std::to_string(folder);
    std::string place(PATH_MAX, '\0');
    const ssize_t length = ::readlink(link.c_str(), place.data(), place.size());
    place.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
    return place + '/' + path;
}

/// Tells of a call by its result and answers that.
int told(int result, int folder, const char* path)
{
    if (result >= 0 && listener != nullptr) {
        const int error = errno;
        listener(whole(folder, path).c_str());
        errno = error;
    }
    return result;
}

bool canWrite(int flags)
{
    return (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
}

int toldIf(bool written, int result, int folder, const char* path)
{
    return written ? told(result, folder, path) : result;
}

mode_t modeOf(int flags, std::va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

void listenToWrites(WriteListener newListener)
{
    listener = newListener;
}

int open(const char* path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return toldIf(canWrite(flags), real(open, "open")(path, flags, mode), AT_FDCWD, path);
}

int open64(const char* path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return toldIf(canWrite(flags), real(open64, "open64")(path, flags, mode), AT_FDCWD, path);
}

int openat(int folder, const char* path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return toldIf(canWrite(flags), real(openat, "openat")(folder, path, flags, mode), folder, path);
}

std::FILE* fopen(const char* path, const char* mode)
{
    std::FILE* file = real(fopen, "fopen")(path, mode);
    toldIf(std::string(mode).find_first_of("wa+") != std::string::npos, file == nullptr ? -1 : 0, AT_FDCWD,
           path);
    return file;
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return told(real(mkdir, "mkdir")(path, mode), AT_FDCWD, path);
}

int rename(const char* from, const char* to) noexcept
{
    return told(told(real(rename, "rename")(from, to), AT_FDCWD, from), AT_FDCWD, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept
{
    const int result = real(renameat2, "renameat2")(fromFolder, from, toFolder, to, flags);
    return told(told(result, fromFolder, from), toFolder, to);
}

int unlink(const char* path) noexcept
{
    return told(real(unlink, "unlink")(path), AT_FDCWD, path);
}

int unlinkat(int folder, const char* path, int flags) noexcept
{
    return told(real(unlinkat, "unlinkat")(folder, path, flags), folder, path);
}

int remove(const char* path) noexcept
{
    return told(real(remove, "remove")(path), AT_FDCWD, path);
}

int rmdir(const char* path) noexcept
{
    return told(real(rmdir, "rmdir")(path), AT_FDCWD, path);
}

int symlink(const char* target, const char* path) noexcept
{
    return told(real(symlink, "symlink")(target, path), AT_FDCWD, path);
}

int truncate(const char* path, off_t length) noexcept
{
    return told(real(truncate, "truncate")(path, length), AT_FDCWD, path);
}

} // extern "C"
