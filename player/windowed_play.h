#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>

namespace player
{

/// As play(), in a window of its own. Once somebody asks to close the window, the call returns or the process
/// ends within two seconds, whatever the game does; a file that the game was writing at the end is then as
/// far as it had got.
///
/// title: UTF-8. Failure: std::runtime_error if there is no display.
int playInWindow(const std::string& title, const std::filesystem::path& folder, std::string_view script,
                 std::ostream& errors);

} // namespace player
