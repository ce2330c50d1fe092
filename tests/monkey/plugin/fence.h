/// Watches where the program writes: the folder of the open project and the boot script are its places, all
/// others are not.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

/// There is one at a time.
class Fence
{
public:
    using Path = std::filesystem::path;

    /// report: called with each path written that should not be, at that moment. Failure: crashes
    /// when the library that tells of writes was not loaded ahead.
    explicit Fence(std::function<void(const std::string&)> report);
    ~Fence();
    Fence(const Fence&) = delete;
    Fence& operator=(const Fence&) = delete;

private:
    static void judge(const char* path);
    bool allows(const Path& path);

    Path appDir_;
    std::function<void(const std::string&)> report_;
    Path made_; ///< name of the project that the new-project view made last
};
