#include "diskcalls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

Faults* planInFile()
{
    const char* path = std::getenv("TORTURE_FAULTS");
    const int file = path == nullptr ? -1 : ::open(path, O_RDWR | O_CLOEXEC);
    void* memory = ::mmap(nullptr, sizeof(Faults), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    return memory == MAP_FAILED ? nullptr : static_cast<Faults*>(memory);
}

Faults* plan = planInFile();
WriteListener toldOfWrites = nullptr;
std::array<bool, 65536> countedFiles = {}; // by number: opened for writing below the plan's folder
bool nextWriteFails = false;

bool& isCounted(int file)
{
    return countedFiles[static_cast<std::uint16_t>(file)];
}

/// The function that would have been called without this library.
template <class Function> Function* real(Function*, const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool counts(const char* path)
{
    return plan != nullptr && plan->strikeAt > 0 && std::string_view(path).starts_with(plan->below.data());
}

/// Counts a call that concerns the folder and tells what becomes of it.
bool isStruck()
{
    const int calls = ++plan->calls;
    const int strikeAt = plan->strikeAt;
    return strikeAt > 0 && (calls == strikeAt || (calls > strikeAt && plan->kind == Faults::FailAll));
}

/// The same for all calls but write: true when the call must fail.
bool fails()
{
    if (!isStruck()) {
        return false;
    }
    if (plan->kind == Faults::Kill) {
        ::raise(SIGKILL);
    }
    errno = plan->error;
    return true;
}

/// Tells of a call by its result and answers that.
int told(int result, const char* path)
{
    if (result >= 0 && toldOfWrites != nullptr) {
        const int error = errno;
        toldOfWrites(path);
        errno = error;
    }
    return result;
}

int noteOpened(int file, const char* path, bool writes, bool counted)
{
    if (file >= 0) {
        isCounted(file) = counted;
    }
    return writes ? told(file, path) : file;
}

} // namespace

void follow(Faults* newPlan)
{
    plan = newPlan;
    nextWriteFails = false;
}

extern "C" {

void listenToWrites(WriteListener listener)
{
    toldOfWrites = listener;
}

int open(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    const bool writes = (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
    const bool counted = writes && counts(path);
    return counted && fails() ? -1 : noteOpened(real(open, "open")(path, flags, mode), path, writes, counted);
}

std::FILE* fopen(const char* path, const char* mode)
{
    const bool writes = std::strpbrk(mode, "wa+") != nullptr;
    const bool counted = writes && counts(path);
    std::FILE* file = counted && fails() ? nullptr : real(fopen, "fopen")(path, mode);
    noteOpened(file == nullptr ? -1 : ::fileno(file), path, writes, counted);
    return file;
}

// Files of any size, which on this system is the same.
[[gnu::alias("open")]] int open64(const char* path, int flags, ...);
[[gnu::alias("fopen")]] std::FILE* fopen64(const char* path, const char* mode);

ssize_t write(int file, const void* bytes, size_t count)
{
    const auto realWrite = real(write, "write");
    if (!isCounted(file)) {
        return realWrite(file, bytes, count);
    }
    const bool struck = isStruck();
    if (std::exchange(nextWriteFails, false) || (struck && count < 2)) {
        errno = plan->error;
        return -1;
    }
    if (!struck) {
        return realWrite(file, bytes, count);
    }
    const ssize_t half = realWrite(file, bytes, count / 2);
    if (plan->kind == Faults::Kill) {
        ::raise(SIGKILL);
    }
    nextWriteFails = true;
    return half;
}

int fchmod(int file, mode_t mode)
{
    return isCounted(file) && fails() ? -1 : real(fchmod, "fchmod")(file, mode);
}

int close(int file)
{
    const bool failing = isCounted(file) && fails();
    const int error = errno;
    isCounted(file) = false;
    if (failing) {
        [[maybe_unused]] const int lost = ::ftruncate(file, 0); // what was put off until now
    }
    const int result = real(close, "close")(file);
    errno = failing ? error : errno;
    return failing ? -1 : result;
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return counts(path) && fails() ? -1 : told(real(mkdir, "mkdir")(path, mode), path);
}

int rename(const char* from, const char* to) noexcept
{
    return counts(to) && fails() ? -1 : told(told(real(rename, "rename")(from, to), from), to);
}

int unlink(const char* path) noexcept
{
    return told(real(unlink, "unlink")(path), path);
}

int remove(const char* path) noexcept
{
    return told(real(remove, "remove")(path), path);
}
}
