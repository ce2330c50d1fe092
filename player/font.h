#pragma once

#include "player/image.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace player
{

/// Width and height of every character, in pixels.
constexpr int characterSide = 8;

/// The eight rows of a Windows-1252 character, from the top; the highest bit is the leftmost pixel. Bytes
/// without a letter are blank.
std::array<std::uint8_t, characterSide> glyphOf(char character);

/// Draws Windows-1252 text with its first character's top left corner at x, y. A line end starts again at x,
/// one character lower.
void drawText(Image& image, int x, int y, std::string_view text, Pixel color);

} // namespace player
