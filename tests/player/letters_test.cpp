#include "player/code_page.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace player::testing
{
namespace
{

TEST(CodePage, KeepsEveryByteThereAndBackAndReplacesWhatItLacks)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    EXPECT_EQ(cp1252FromUtf8(utf8From1252(bytes)), bytes);
    const std::pair<std::string_view, std::string> cases[] = {
        {"€ … Œœ ’ Ÿ é \u0081", "\x80 \x85 \x8C\x9C \x92 \x9F \xE9 \x81"},
        {"日😀\u0080", "???"},
        {"\xE9t\xE9", "?t?"},
        {"a\x80z", "a?z"},
        {"\xF8\x88\x80", "???"},
        {"\xC0\xAF\xE0\x80\xAF", "?????"},          // a "/" spelled longer than it is
        {std::string_view("€").substr(0, 2), "??"}, // what follows a cut is not looked at
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(cp1252FromUtf8(text), expected) << text;
    }
    EXPECT_EQ(utf8From1252(cases[0].second), cases[0].first);
}

} // namespace
} // namespace player::testing
