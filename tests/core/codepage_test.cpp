#include "store/codepage.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using Texts = std::vector<std::pair<std::string_view, std::string_view>>;

TEST(CodePage, EveryByteSurvivesTheRoundTripThroughUtf8)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const std::string utf8 = Utf8FromAnsi(bytes);
    EXPECT_EQ(utf8.size(), 128u + 2 * 128u + 17u); // seventeen of the upper bytes need three
    EXPECT_EQ(AnsiFromUtf8(utf8), bytes);
    EXPECT_EQ("é ÿ € Ÿ œ “” …"_ansi, "\xE9 \xFF \x80 \x9F \x9C \x93\x94 \x85");
    EXPECT_EQ(Utf8FromAnsi("é ÿ € Ÿ œ “” …"_ansi), "é ÿ € Ÿ œ “” …");
}

TEST(CodePage, WhatItLacksBecomesAQuestionMark)
{
    const Texts cases = {
        {"aδb", "a?b"},
        {"日本", "??"},
        {"\U0001F600", "?"},
        {"a\xE9", "a?"},
        {"\xE9z", "?z"},
        {"\x80\x80", "??"},
        {"\xF5\x80\x80\x80", "????"},
        {"\xC0\xAF", "??"},
        {"\xE0\x80\xAF", "???"},                    // "/" spelled too long
        {std::string_view("€").substr(0, 2), "??"}, // whatever follows the text
    };
    for (const auto& [utf8, ansi] : cases) {
        EXPECT_EQ(AnsiFromUtf8(utf8), ansi);
    }
}

TEST(CodePage, OneLineTurnsEachLineBreakIntoOneBlank)
{
    EXPECT_EQ(OneLine("a\r\nb\nc\rd\n\re\r\n\r"), "a b c d  e  ");
}
