/// What a killed program may leave behind: the file beside the one that it was about to replace.
#pragma once

#include "store/platform.h"

#include <string>

/// The name of the file beside, which no project file has: it tells the program that makes it, and counts.
std::string LeftoverName(int process, unsigned number);

/// Removes the files of such names in a folder and in those below it, down to `depth`, whose program is gone,
/// or which are older than any write lasts; no link is followed below the folder. A file that cannot be
/// removed stays.
void SweepLeftovers(const Path& folder, int depth);
