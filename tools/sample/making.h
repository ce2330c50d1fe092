/// Turning a sample game into a project.
#pragma once

#include "source.h"

/// Makes the game's project below AppDir/projets by what the program's views call, unless a folder of its
/// name is there. It is made under a name of its own and gets the game's at the very end, so that a half-made
/// project is never taken for the game; what an earlier, broken run left is cleared away first.
/// Failure: std::runtime_error; nothing is left then.
void MakeSample(const SampleGame& game);
