// The letters of Windows-1252: as bytes, as UTF-8 and as shapes.
#include "player/code_page.h"
#include "player/font.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

namespace player::testing
{
namespace
{

std::string between(int first, int last)
{
    std::string text;
    for (int byte = first; byte <= last; ++byte) {
        text += static_cast<char>(byte);
    }
    return text;
}

TEST(CodePage, KeepsEveryByteThereAndBackAndReplacesWhatItLacks)
{
    EXPECT_EQ(cp1252FromUtf8(utf8From1252(between(0, 255))), between(0, 255));
    const std::pair<std::string_view, std::string> cases[] = {
        {"€ … Œœ ’ Ÿ é \u0081", "\x80 \x85 \x8C\x9C \x92 \x9F \xE9 \x81"},
        {"日😀\u0080", "???"},
        {"\xE9t\xE9", "?t?"},
        {"a\x80z", "a?z"},
        {"\xF8\x88\x80", "???"},
        {"\xC0\xAF\xE0\x80\xAF", "?????"},          // a "/" spelled longer than it is
        {std::string_view("€").substr(0, 2), "??"}, // what follows a cut is not looked at
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(cp1252FromUtf8(text), bytes) << text;
    }
    EXPECT_EQ(utf8From1252(cases[0].second), cases[0].first);
}

TEST(Font, HasADifferentShapeForEachLetterAndNoneForBlanks)
{
    const std::string letters = between('0', '9') + between('A', 'Z') + between('a', 'z') +
                                between(0xC0, 0xFF) + cp1252FromUtf8("ŒœŠšŽžŸ€«»?!.,;:'\"()");
    std::map<std::array<std::uint8_t, 8>, std::string> shapes;
    for (const char letter : letters) {
        const std::string shown = utf8From1252(std::string(1, letter));
        const auto [other, isNew] = shapes.emplace(glyphOf(letter), shown);
        EXPECT_TRUE(isNew) << shown << " looks like " << other->second;
    }
    const std::string blanks = between(0, 0x20) + "\x7F\x81\x8D\x8F\x90\x9D\xA0";
    for (const char letter : between(0, 255)) {
        const bool isBlank = glyphOf(letter) == std::array<std::uint8_t, 8>{};
        EXPECT_EQ(isBlank, blanks.find(letter) != std::string::npos)
            << (static_cast<unsigned>(letter) & 255U);
    }
}

TEST(Font, DrawsEachCharacterInItsCellAndCutsTextAtTheEdges)
{
    Image image(24, 24);
    const Pixel colour = makePixel(9, 9, 9);
    const auto isSet = [&](int x, int y) { return image.pixel(x, y) == colour; };
    drawText(image, 8, 8, "_\n_", colour);
    // The underline fills the last row of its cell.
    EXPECT_TRUE(isSet(8, 15) && isSet(15, 15) && isSet(8, 23));
    EXPECT_FALSE(isSet(7, 15) || isSet(16, 15) || isSet(8, 14));
    drawText(image, -20, 0, "______", colour);
    EXPECT_TRUE(isSet(0, 7) && isSet(23, 7));
    drawText(image, coordinate(-1e300), coordinate(1e300), "____", colour);
    drawText(image, coordinate(1e300), coordinate(-1e300), "____", colour);
    EXPECT_FALSE(isSet(0, 0));
}

} // namespace
} // namespace player::testing
