#include "inirules.h"
#include "store/ini.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace
{

const std::string longest(254, 'v');

} // namespace

TEST(IniText, AKeyIsReadFromTheFirstSectionOfItsNameWhateverTheirCaseAndPastOddLines)
{
    constexpr std::string_view twice = "nom=none\n[Carte1]\nnom=one\nnom=two\n[Carte]\nnoms=plural\n"
                                       "[carte1]\nnom=three\nver=3\n";
    constexpr std::string_view odd = "\xEF\xBB\xBF; [Jeu]\n\n [ Jeu ] ; the [game]\nno equals sign\n"
                                     ";nom=not this\n=nothing\n nom =demo\n[Open\nnom=x";
    struct Case {
        std::string_view text, section, key, value;
    };
    const std::vector<Case> cases = {
        {"[Jeu]\r\nauteur=Zo\xE9\r\n", "JEU", "Auteur", "Zo\xE9"},
        {"[@`Z]\na{=x\n", "`@z", "a[", ""}, // neighbours of the letters are no letters
        {twice, "Carte1", "nom", "one"},
        {twice, "Carte", "nom", ""},  // neither a longer key nor a later section
        {twice, "Carte1", "ver", ""}, // nor a second section of that name
        {twice, "", "nom", ""},
        {odd, "Jeu", "nom", "demo"},
        {odd, "Jeu", ";nom", "not this"},
        {odd, "Jeu", "", "nothing"},
        {odd, "Open", "nom", "x"},
        {"\xEF\xBB\xBF[Jeu]\nnom=demo", "Jeu", "nom", "demo"},
        {"[a=b]\nk=v\n", "a=b", "k", "v"},
    };
    for (const auto& [text, section, key, value] : cases) {
        EXPECT_EQ(IniValue(text, section, key), value) << text;
    }
}

TEST(IniText, AValueIsTrimmedAndItsEnclosingQuotesAreTakenAndCutAt254Bytes)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {"  a b\t ", "a b"},
        {"a=b", "a=b"},
        {"'a'", "a"},
        {" \" a \" ", " a "},
        {"\"\"a\"\"", "\"a\""},
        {"\"", "\""},
        {"\"a'", "\"a'"},
        {"say \"a\"", "say \"a\""},
        {"a ; b", "a ; b"},
        {'"' + longest + "v\"", longest},
    };
    for (const auto& [written, value] : cases) {
        EXPECT_EQ(IniValue("[s]\r\nk = " + written, "s", "k"), value) << written;
        EXPECT_EQ(IniValue("[s]\nk = " + written + "\nk=later\n", "s", "k"), value) << written;
    }
}

TEST(IniText, AKeyIsReplacedInPlaceOrFollowsItsSectionAndAllLinesEndInCrLf)
{
    struct Case {
        std::string_view text, section, key, value, result;
    };
    const std::vector<Case> cases = {
        {"[a]\r\nK = 1\r\nk=2\r\n[A]\r\nk=3\r\n", "A", "k", "9", "[a]\r\nk=9\r\nk=2\r\n[A]\r\nk=3\r\n"},
        {"[a]\r\nk", "a", "k", "1", "[a]\r\nk\r\nk=1\r\n"},
        // A new one stands behind the last line that is not blank, a new section at the end.
        {"[a]\r\nx=1\r\n\r\n \t\r\n[b]\r\n", "A", "k", "v", "[a]\r\nx=1\r\nk=v\r\n\r\n \t\r\n[b]\r\n"},
        {"[a]\r\n\r\n; end\r\n\r\n", "a", "k", "v", "[a]\r\n\r\n; end\r\nk=v\r\n\r\n"},
        {"[a]\r\n[a]\r\nk=1\r\n", "a", "k", "v", "[a]\r\nk=v\r\n[a]\r\nk=1\r\n"},
        {"\xEF\xBB\xBF[a]", "a", "k", "v", "\xEF\xBB\xBF[a]\r\nk=v\r\n"},
        {"", "a", "k", "", "[a]\r\nk=\r\n"},
        {"k=1\n\n", "a", "k", "v", "k=1\r\n\r\n[a]\r\nk=v\r\n"},
        {"\xEF\xBB\xBF", "a", "k", "v", "\xEF\xBB\xBF\r\n[a]\r\nk=v\r\n"},
        // Other lines stay as they are but for their ends.
        {"; c\n\n[a]\nno equals\nk=1\n =2\r\n[a]\nk=3", "a", "k", "v",
         "; c\r\n\r\n[a]\r\nno equals\r\nk=v\r\n =2\r\n[a]\r\nk=3\r\n"},
        {std::string_view("\0\x01\n[a]\r\r\n\x80\xFF", 11), "b", "k", "v",
         std::string_view("\0\x01\r\n[a]\r\r\n\x80\xFF\r\n[b]\r\nk=v\r\n", 24)},
        {"", "a\nb", "c\rd", "e\r\nf\ng", "[a b]\r\nc d=e f g\r\n"},
    };
    for (const auto& [text, section, key, value, result] : cases) {
        EXPECT_EQ(WithIniValue(text, section, key, value), result) << text;
    }
    for (const std::string_view utf16 : {"\xFF\xFE[", "\xFE\xFF"}) {
        EXPECT_EQ(WithIniValue(utf16, "a", "k", "v"), std::nullopt) << "is not touched";
    }
    EXPECT_NE(WithIniValue("\xFF", "a", "k", "v"), std::nullopt);
}

// A fixed run of pseudo-random texts made of what the format is made of.
TEST(IniText, WhatIsWrittenIntoAnyTextIsReadBackAndChangesNoOtherLine)
{
    constexpr std::string_view pieces[] = {
        "[s]",  "[S",  "[t]", "k=", "K =", "j=1", "\n", "\r\n",
        "\r\n", "\n ", "\r",  "\"", "'",   ";",   "=",  std::string_view("\0", 1)};
    const std::vector<std::pair<std::string, std::string>> values = {
        {"new", "new"}, {" a b\t", "a b"}, {"\"q\"", "q"}, {"'", "'"}, {"", ""}, {longest + "v", longest}};
    std::uint32_t state = 1;
    for (std::size_t round = 0; round < 6000; ++round) {
        std::string text;
        for (std::size_t i = 0; i < round % 24; ++i) {
            state = state * 1664525u + 1013904223u;
            text += pieces[state >> 28];
        }
        const auto& [value, read] = values[round % values.size()];
        ASSERT_EQ(BrokenIniRule(text, "s", "k", value, read), "") << testing::PrintToString(text);
        for (const auto& [section, key] : {std::pair("s", "j"), std::pair("t", "k"), std::pair("t", "j")}) {
            ASSERT_EQ(IniValue(*WithIniValue(text, "s", "k", value), section, key),
                      IniValue(text, section, key));
        }
    }
}

TEST(IniText, NumberedValuesAreThoseOfTheFirstSectionOfEachNumber)
{
    constexpr std::string_view text =
        "valeur=none\r\n[VARIABLE2]\r\nnumero=2\r\nValeur = 'two' \r\nvaleur=later\r\n"
        "[Variable01]\r\nvaleur=padded\r\n[Variable]\r\nvaleur=bare\r\n[Variable4]\r\n"
        "[Variable1]\r\nvaleur=one\r\n[Variable4]\r\nvaleur=second\r\n[Variables]\r\nvaleur=many\r\n"
        "[Variable6]\r\nvaleur=six\r\n[Variable3x]\r\nvaleur=x\r\n[Variable 3]\r\nvaleur=y\r\n";
    const auto decimal = +[](int number) { return std::to_string(number); };
    EXPECT_EQ(NumberedIniValues(text, "Variable", decimal, "valeur", 5),
              (std::vector<std::string>{"one", "two", "", "", ""}));
}
