#include "inirules.h"
#include "store/ini.h"

#include "store/codepage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace
{

constexpr std::string_view newDescriptor = "[Jeu]\r\nnom=demo\r\nauteur=Kestrel\r\nver=3.0.0\r\ncartes=1\r\n"
                                           "combats=0\r\n[Carte01]\r\ntexture=01\r\nnom=Carte 1\r\n"
                                           "[Variables]\r\nnombre=0\r\n";

struct Read {
    std::string_view text, section, key, value;
};

void expectReads(const std::vector<Read>& cases)
{
    for (const Read& c : cases) {
        EXPECT_EQ(IniValue(c.text, c.section, c.key), c.value) << c.text;
    }
}

struct Write {
    std::string_view text, section, key, value, result;
};

void expectWrites(const std::vector<Write>& cases)
{
    for (const Write& c : cases) {
        EXPECT_EQ(WithIniValue(c.text, c.section, c.key, c.value), c.result) << c.text;
    }
}

} // namespace

TEST(IniText, NamesMatchWhateverTheirCaseAndTheFirstOfTwoCounts)
{
    constexpr std::string_view text =
        "nom=none\r\n[Carte1]\r\nnom=one\r\nnom=two\r\n[Carte]\r\nnoms=plural\r\n"
        "[carte1]\r\nnom=three\r\nver=3\r\n";
    expectReads({
        {newDescriptor, "JEU", "Auteur", "Kestrel"},
        {"[Az]\r\nzA=x\r\n", "aZ", "Za", "x"},
        {"[@`Z]\r\na{=x\r\n", "`@z", "a[", ""}, // neighbours of the letters are no letters
        {text, "Carte1", "nom", "one"},
        {text, "Carte", "nom", ""},  // neither a longer key nor a later section
        {text, "Carte1", "ver", ""}, // nor a second section of that name
        {text, "", "nom", ""},
        {"", "Carte", "nom", ""},
    });
}

TEST(IniText, AValueIsTrimmedAndItsEnclosingQuotesAreTakenAndCutAt254Bytes)
{
    const std::string longest(254, 'v');
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {"  a b\t ", "a b"},
        {"a=b", "a=b"},
        {"'a'", "a"},
        {" \" a \" ", " a "},
        {"\"\"a\"\"", "\"a\""},
        {"\"\"", ""},
        {"\"", "\""},
        {"\"a'", "\"a'"},
        {"say \"a\"", "say \"a\""},
        {"a ; b", "a ; b"},
        {longest, longest},
        {longest + "v", longest},
        {'"' + longest + "v\"", longest},
    };
    for (const auto& [written, value] : cases) {
        const std::string text = "[s]\r\nk = " + written;
        const std::string continued = text + "\r\nk=later\r\n";
        expectReads({{text, "s", "k", value}, {continued, "s", "k", value}});
    }
}

TEST(IniText, HandMadeFilesAreReadPastTheirOddLines)
{
    constexpr std::string_view text =
        "\xEF\xBB\xBF; [Jeu]\n\n [ Jeu ] ; the [game]\nno equals sign\n;nom=not this\n"
        "=nothing\n nom =demo\n[Open\nnom=x";
    expectReads({
        {text, "Jeu", "nom", "demo"},
        {text, "Jeu", ";nom", "not this"},
        {text, "Jeu", "", "nothing"},
        {text, "Open", "nom", "x"},
        {"\xEF\xBB\xBF[Jeu]\nnom=demo", "Jeu", "nom", "demo"},
        {"[a=b]\r\nk=v\r\n", "a=b", "k", "v"},
    });
}

TEST(IniText, AKeyIsReplacedInPlace)
{
    std::string expected(newDescriptor);
    expected.replace(expected.find("cartes=1"), 8, "cartes=2");
    expectWrites({
        {newDescriptor, "Jeu", "cartes", "2", expected},
        {"[a]\r\nK = 1\r\nk=2\r\n[A]\r\nk=3\r\n", "A", "k", "9", "[a]\r\nk=9\r\nk=2\r\n[A]\r\nk=3\r\n"},
        {"[a]\r\nk", "a", "k", "1", "[a]\r\nk\r\nk=1\r\n"},
    });
}

TEST(IniText, ANewKeyFollowsTheLastLineOfItsSectionThatIsNotBlankOrANewSectionAtTheEnd)
{
    const std::string expected = std::string(newDescriptor) + "[Variable1]\r\nvaleur=0\r\n";
    expectWrites({
        {"[a]\r\nx=1\r\n\r\n \t\r\n[b]\r\n", "A", "k", "v", "[a]\r\nx=1\r\nk=v\r\n\r\n \t\r\n[b]\r\n"},
        {"[a]\r\n\r\n; end\r\n\r\n", "a", "k", "v", "[a]\r\n\r\n; end\r\nk=v\r\n\r\n"},
        {"[a]\r\nx=1", "a", "k", "v", "[a]\r\nx=1\r\nk=v\r\n"},
        {"[a]\r\n[a]\r\nk=1\r\n", "a", "k", "v", "[a]\r\nk=v\r\n[a]\r\nk=1\r\n"},
        {"\xEF\xBB\xBF[a]", "a", "k", "v", "\xEF\xBB\xBF[a]\r\nk=v\r\n"},
        {newDescriptor, "Variable1", "valeur", "0", expected},
        {"", "a", "k", "", "[a]\r\nk=\r\n"},
        {"k=1\n\n", "a", "k", "v", "k=1\r\n\r\n[a]\r\nk=v\r\n"},
        {"\xEF\xBB\xBF", "a", "k", "v", "\xEF\xBB\xBF\r\n[a]\r\nk=v\r\n"},
    });
}

TEST(IniText, OtherLinesStayAndEndInCrLfAndNamesAndValuesStayOnTheirLine)
{
    expectWrites({
        {"; c\n\n[a]\nno equals\nk=1\n =2\r\n[a]\nk=3", "a", "k", "v",
         "; c\r\n\r\n[a]\r\nno equals\r\nk=v\r\n =2\r\n[a]\r\nk=3\r\n"},
        {std::string_view("\0\x01\n[a]\r\r\n\x80\xFF", 11), "b", "k", "v",
         std::string_view("\0\x01\r\n[a]\r\r\n\x80\xFF\r\n[b]\r\nk=v\r\n", 24)},
        {"", "a\nb", "c\rd", "e\r\nf\ng", "[a b]\r\nc d=e f g\r\n"},
    });
}

TEST(IniText, Utf16IsNotTouched)
{
    EXPECT_EQ(WithIniValue("\xFF\xFE[", "a", "k", "v"), std::nullopt);
    EXPECT_EQ(WithIniValue("\xFE\xFF", "a", "k", "v"), std::nullopt);
    EXPECT_NE(WithIniValue("\xFF", "a", "k", "v"), std::nullopt);
}

// A fixed run of pseudo-random texts made of what the format is made of.
TEST(IniText, WhatIsWrittenIntoAnyTextIsReadBackAndChangesNoOtherLine)
{
    constexpr std::string_view pieces[] = {
        "[s]",  "[S",  "[t]", "k=", "K =", "j=1", "\n", "\r\n",
        "\r\n", "\n ", "\r",  "\"", "'",   ";",   "=",  std::string_view("\0", 1)};
    const std::string longest(254, 'v');
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
