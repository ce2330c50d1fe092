#include "faults.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
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
    void* memory =
        file < 0 ? MAP_FAILED : ::mmap(nullptr, sizeof(Faults), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    return memory == MAP_FAILED ? nullptr : static_cast<Faults*>(memory);
}

Faults* plan = nullptr;
std::array<bool, 4096> written = {}; // which descriptors were opened for writing below the folder
bool nextWriteFails = false;

[[gnu::constructor]] void begin()
{
    if (plan == nullptr) {
        plan = planInFile();
    }
}

template <class Function> Function* original(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool counts(const char* path)
{
    return plan != nullptr && plan->strikeAt > 0 && std::string_view(path).starts_with(plan->below.data());
}

bool counts(int file)
{
    return plan != nullptr && plan->strikeAt > 0 && file >= 0 &&
           static_cast<std::size_t>(file) < written.size() && written[static_cast<std::size_t>(file)];
}

/// Counts a call that concerns the folder and tells what becomes of it.
bool isStruck()
{
    const int call = ++plan->calls;
    return call == plan->strikeAt || (call > plan->strikeAt && plan->kind == Faults::FailAll);
}

void killHere()
{
    ::kill(::getpid(), SIGKILL);
}

/// The same for all calls but write: true when the call must fail.
bool fails()
{
    if (!isStruck()) {
        return false;
    }
    if (plan->kind == Faults::Kill) {
        killHere();
    }
    errno = plan->error;
    return true;
}

int noteOpened(int file, bool counted)
{
    if (file >= 0 && static_cast<std::size_t>(file) < written.size()) {
        written[static_cast<std::size_t>(file)] = counted;
    }
    return file;
}

template <class Open> int openWith(const Open& open, const char* path, int flags)
{
    const bool counted = (flags & (O_WRONLY | O_RDWR)) != 0 && counts(path);
    return counted && fails() ? -1 : noteOpened(open(), counted);
}

mode_t modeIn(int flags, va_list more)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
}

} // namespace

void follow(Faults* newPlan)
{
    plan = newPlan;
    nextWriteFails = false;
}

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = modeIn(flags, more);
    va_end(more);
    static auto* const real = original<int(const char*, int, ...)>("open");
    return openWith([&] { return real(path, flags, mode); }, path, flags);
}

int open64(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = modeIn(flags, more);
    va_end(more);
    static auto* const real = original<int(const char*, int, ...)>("open64");
    return openWith([&] { return real(path, flags, mode); }, path, flags);
}

ssize_t write(int file, const void* bytes, size_t count)
{
    static auto* const real = original<ssize_t(int, const void*, size_t)>("write");
    if (!counts(file)) {
        return real(file, bytes, count);
    }
    const bool struck = isStruck();
    if (std::exchange(nextWriteFails, false) || (struck && count < 2)) {
        errno = plan->error;
        return -1;
    }
    if (!struck) {
        return real(file, bytes, count);
    }
    const ssize_t half = real(file, bytes, count / 2);
    if (plan->kind == Faults::Kill) {
        killHere();
    }
    nextWriteFails = true;
    return half;
}

int fchmod(int file, mode_t mode)
{
    static auto* const real = original<int(int, mode_t)>("fchmod");
    return counts(file) && fails() ? -1 : real(file, mode);
}

int fchown(int file, uid_t owner, gid_t group)
{
    static auto* const real = original<int(int, uid_t, gid_t)>("fchown");
    return counts(file) && fails() ? -1 : real(file, owner, group);
}

int close(int file)
{
    static auto* const real = original<int(int)>("close");
    const bool failing = counts(file) && fails();
    const int error = errno;
    noteOpened(file, false);
    if (failing) {
        [[maybe_unused]] const int lost = ::ftruncate(file, 0); // what was put off until now
    }
    const int result = real(file);
    errno = failing ? error : errno;
    return failing ? -1 : result;
}

int rename(const char* from, const char* to) noexcept
{
    static auto* const real = original<int(const char*, const char*)>("rename");
    return counts(to) && fails() ? -1 : real(from, to);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    static auto* const real = original<int(const char*, mode_t)>("mkdir");
    return counts(path) && fails() ? -1 : real(path, mode);
}
}
