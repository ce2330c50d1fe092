#pragma once

#include "player/host.h"

#include <filesystem>
#include <ostream>
#include <string_view>

namespace player
{

/// Plays a game until it ends or is closed. An error of its scripts is written to `errors` and shown until
/// the display is closed, or Escape or circle is pressed.
///
/// folder: where the game is started; script: a path in it, Windows-1252.
/// Returns the exit code: 1 after an error, else 0.
int play(Host& host, const std::filesystem::path& folder, std::string_view script, std::ostream& errors);

} // namespace player
