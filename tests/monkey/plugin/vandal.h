/// Spoils and mends the files under the running program, as other programs, failing disks and curious authors
/// do.
#pragma once

#include "chance.h"
#include <filesystem>
#include <string>
#include <vector>

class Vandal
{
public:
    using Path = std::filesystem::path;

    /// appDir: the program's folder; whole: one with an unspoilt copy of what ships there.
    Vandal(Path appDir, Path whole)
        : appDir_(std::move(appDir))
        , whole_(std::move(whole))
    {
    }

    /// Does one thing to a project, mostly to the one whose folder is called `open`, or to the shipped files.
    /// Answers what it did, for the log.
    std::string strike(Chance& chance, const Path& open) const;

    /// Brings back the shipped files and removes all projects.
    void startOver() const;

private:
    void bringBack() const;
    std::string damageShipped(Chance& chance) const;
    std::vector<Path> projects() const;

    Path appDir_;
    Path whole_;
};
