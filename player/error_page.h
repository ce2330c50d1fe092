#pragma once

#include "player/error_report.h"
#include "player/image.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace player
{

/// A text in lines of at most `width` characters, broken at blanks where there are any; `width` at least 1.
std::vector<std::string> wrapped(std::string_view text, std::size_t width);

/// Draws the report over the whole image; what does not fit is left out at the bottom.
void drawErrorPage(Image& image, const ErrorReport& report);

/// Writes the report as UTF-8 lines.
void writeError(std::ostream& out, const ErrorReport& report);

} // namespace player
