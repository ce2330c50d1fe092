#include "player/font.h"

#include <cstddef>

namespace player
{

namespace
{

// Eight characters side by side, a blank between them, in eight rows of text; from the blank (20) to FF.
constexpr std::string_view drawnRows[] = {
#include "player/glyphs.inc"
};

constexpr unsigned firstDrawn = 0x20;
constexpr std::size_t inABand = 8;
constexpr std::size_t drawnCharacters = 256 - firstDrawn;
constexpr std::size_t rowLength = inABand * (characterSide + 1) - 1;

using Glyph = std::array<std::uint8_t, characterSide>;

static_assert(std::size(drawnRows) == drawnCharacters / inABand * characterSide);

constexpr std::uint8_t bitsOf(std::string_view drawn)
{
    unsigned bits = 0;
    for (const char mark : drawn) {
        bits = bits << 1U | (mark == '#' ? 1U : 0U);
    }
    return static_cast<std::uint8_t>(bits);
}

constexpr Glyph readGlyph(std::size_t index)
{
    Glyph glyph{};
    for (std::size_t line = 0; line < glyph.size(); ++line) {
        const std::string_view drawn = drawnRows[index / inABand * characterSide + line];
        glyph[line] = bitsOf(drawn.substr(index % inABand * (characterSide + 1), characterSide));
    }
    return glyph;
}

constexpr std::array<Glyph, drawnCharacters> readGlyphs()
{
    std::array<Glyph, drawnCharacters> glyphs{};
    for (std::size_t index = 0; index < glyphs.size(); ++index) {
        glyphs[index] = readGlyph(index);
    }
    return glyphs;
}

constexpr bool rowsAreWhole()
{
    for (const std::string_view row : drawnRows) {
        if (row.size() != rowLength || row.find_first_not_of("#. ") != std::string_view::npos) {
            return false;
        }
    }
    return true;
}

static_assert(rowsAreWhole());

constexpr std::array<Glyph, drawnCharacters> glyphs = readGlyphs();

void drawGlyph(Image& image, int x, int y, const Glyph& glyph, Pixel color)
{
    for (int line = 0; line < characterSide; ++line) {
        const unsigned bits = glyph[static_cast<std::size_t>(line)];
        for (int column = 0; column < characterSide; ++column) {
            if ((bits << static_cast<unsigned>(column) & 0x80U) != 0) {
                image.blendPixel(x + column, y + line, color);
            }
        }
    }
}

} // namespace

Glyph glyphOf(char character)
{
    const auto code = static_cast<unsigned char>(character);
    return code < firstDrawn ? Glyph{} : glyphs[code - firstDrawn];
}

void drawText(Image& image, int x, int y, std::string_view text, Pixel color)
{
    int left = x;
    for (const char character : text) {
        if (character == '\n') {
            left = x;
            y += characterSide;
            continue;
        }
        if (left > -characterSide && left < image.width()) {
            drawGlyph(image, left, y, glyphOf(character), color);
        }
        left += characterSide;
    }
}

} // namespace player
