#include "player/code_page.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace player::testing
{
namespace
{

TEST(CodePage, KeepsEveryByteThereAndBack)
{
    std::set<std::string> letters;
    for (int value = 0; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        const std::string letter = utf8From1252(byte);
        EXPECT_EQ(cp1252FromUtf8(letter), byte) << value;
        letters.insert(letter);
    }
    EXPECT_EQ(letters.size(), 256U);
    EXPECT_EQ(utf8From1252("\x80 \x85 \x8C\x9C \x92 \x9F \xE9 \x81"), "€ … Œœ ’ Ÿ é \u0081");
}

TEST(CodePage, ReplacesWhatItLacks)
{
    const std::pair<std::string, std::string> cases[] = {
        {"日本", "??"},    {"😀!", "?!"},       {"\xC3", "?"},           {"\xE9t\xE9", "?t?"},
        {"a\x80z", "a?z"}, {"\xE2\x82", "??"}, {"\xF8\x88\x80", "???"}, {"\u0080", "?"},
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(cp1252FromUtf8(text), bytes) << text;
    }
    // What follows a cut is not looked at.
    EXPECT_EQ(cp1252FromUtf8(std::string_view("€").substr(0, 2)), "??");
}

} // namespace
} // namespace player::testing
