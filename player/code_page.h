#pragma once

#include <string>
#include <string_view>

namespace player
{

/// Windows-1252 bytes as UTF-8. The five bytes without a letter (81, 8D, 8F, 90, 9D) become the control
/// characters of the same number, as on Windows, so that no two names fall together.
std::string utf8From1252(std::string_view bytes);

/// UTF-8 as Windows-1252. What the code page lacks, and what is not UTF-8, becomes "?".
std::string cp1252FromUtf8(std::string_view text);

} // namespace player
