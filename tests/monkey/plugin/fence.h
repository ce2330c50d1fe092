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

    /// report: called with each path written that should not be, at that moment. Failure: throws when the
    /// library that tells of writes was not loaded.
    Fence(Path appDir, std::function<void(const std::string&)> report);
    ~Fence();
    Fence(const Fence&) = delete;
    Fence& operator=(const Fence&) = delete;

    /// Between two events of the program: notes which project it may make next.
    void note();
    /// While it is open, all is allowed: the random user writes files by itself.
    void setOpen(bool open) { open_ = open; }

private:
    static void judge(const char* path);
    bool allows(const Path& path) const;
    bool isBootScript(const Path& path) const;

    Path appDir_;
    std::function<void(const std::string&)> report_;
    Path beingMade_; ///< folder that the new-project view would make
    bool open_ = false;
};
