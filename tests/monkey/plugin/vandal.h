/// Spoils and mends files under the running program, as other programs, failing disks and curious authors do.
#pragma once

#include "chance.h"

#include <filesystem>
#include <string>

/// The program's folder, and an unspoilt copy of its folder of data.
struct Places {
    std::filesystem::path appDir;
    std::filesystem::path data;
};

/// Does one thing to a project, mostly to the one of the name `open`, or to the shipped files. Answers what
/// it did, for the log.
std::string spoilSomething(Chance& chance, const Places& places, const std::filesystem::path& open);

/// Brings back the shipped files and removes all projects.
void startOver(const Places& places);
