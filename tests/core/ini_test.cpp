#include "store/ini.h"

#include <gtest/gtest.h>

#include <vector>

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
        {odd, "Jeu", "nom", "demo"},
        {odd, "Jeu", ";nom", "not this"},
        {odd, "Jeu", "", "nothing"},
        {odd, "Open", "nom", "x"},
        {odd, " Jeu ", "nom", ""}, // a name counts as it is given
        {"[a]\rk=v\r", "a", "k", ""},
        {"\xEF\xBB\xBF[Jeu]\nnom=demo", "Jeu", "nom", "demo"},
    };
    for (const auto& [text, section, key, value] : cases) {
        EXPECT_EQ(IniValue(text, section, key), value) << text;
    }
}

TEST(IniText, AValueIsTrimmedAndItsEnclosingQuotesAreTakenAndCutAt254Bytes)
{
    const std::string longest(254, 'v');
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {"  a b\t ", "a b"},
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
        {"", "a\nb", "c\rd", "e\r\nf\n\rg", "[a b]\r\nc d=e f  g\r\n"},
    };
    for (const auto& [text, section, key, value, result] : cases) {
        EXPECT_EQ(WithIniValue(text, section, key, value), result) << text;
    }
    for (const std::string_view utf16 : {"\xFF\xFE[", "\xFE\xFF"}) {
        EXPECT_EQ(WithIniValue(utf16, "a", "k", "v"), std::nullopt) << "is not touched";
    }
    EXPECT_NE(WithIniValue("\xFF", "a", "k", "v"), std::nullopt);
}
