#include "store/codepage.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

TEST(CodePage, EveryByteSurvivesTheRoundTripThroughUtf8)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const std::string utf8 = Utf8FromAnsi(bytes);
    EXPECT_EQ(utf8.size(), 128u + 2 * 128u + 17u); // seventeen of the upper bytes need three
    EXPECT_EQ(AnsiFromUtf8(utf8), bytes);
}

TEST(CodePage, CharactersHaveTheBytesOfWindows1252)
{
    const std::vector<std::pair<std::string_view, std::string_view>> cases = {
        {"é", "\xE9"}, {"ÿ", "\xFF"},      {"€", "\x80"}, {"Ÿ", "\x9F"},
        {"œ", "\x9C"}, {"“”", "\x93\x94"}, {"…", "\x85"},
    };
    for (const auto& [utf8, ansi] : cases) {
        EXPECT_EQ(AnsiFromUtf8(utf8), ansi) << utf8;
        EXPECT_EQ(Utf8FromAnsi(ansi), utf8);
    }
    EXPECT_EQ("Déjà à 5 €"_ansi, "D\xE9j\xE0 \xE0 5 \x80");
}

TEST(CodePage, WhatItLacksBecomesAQuestionMark)
{
    const std::vector<std::pair<std::string_view, std::string_view>> cases = {
        {"aδb", "a?b"},
        {"日本", "??"},
        {"\U0001F600", "?"},
        {"a\xE9", "a?"},
        {"\xE9z", "?z"},
        {"\xE2\x82", "??"},
        {"\x80\x80", "??"},
        {"\xF5\x80\x80\x80", "????"},
        {"\xC0\xAF", "??"},
        {"\xE0\x80\xAF", "???"}, // "/" spelled too long
        {"\xF0\x80\x80\xAF", "????"},
    };
    for (const auto& [utf8, ansi] : cases) {
        EXPECT_EQ(AnsiFromUtf8(utf8), ansi);
    }
    EXPECT_EQ(AnsiFromUtf8(std::string_view("€").substr(0, 2)), "??"); // whatever follows the text
}

TEST(CodePage, OneLineTurnsEachLineBreakIntoOneBlank)
{
    EXPECT_EQ(OneLine("a\r\nb\nc\rd\n\re\r\n"), "a b c d  e ");
    EXPECT_EQ(OneLine("\r"), " ");
}
