#include "inproject.h"

#include "events/eventlines.h"
#include "events/eventstore.h"
#include "store/codepage.h"

#include <vector>

namespace
{

using Entries = std::vector<std::string>;
using Events = InProject;

} // namespace

TEST_F(Events, ACellsFileIsNamedRowFirstWithoutPadding)
{
    EXPECT_EQ(eventpath("01", 3, 12), app.at("projets/demo/ev/map01/ev312"));
    EXPECT_EQ(EventFileName(1, 12), EventFileName(11, 2));
}

TEST_F(Events, EachEntryIsSavedAfterACrLfAndEmptyOnesAreDropped)
{
    const std::vector<std::pair<Entries, std::string_view>> cases = {
        {{}, "\r\n"},
        {{"", ""}, "\r\n"},
        {{"a", "", "b"}, "\r\na\r\nb\r\n"},
        {{std::string("héro"_ansi), " "}, "\r\nh\xE9ro\r\n \r\n"},
    };
    for (const auto& [entries, bytes] : cases) {
        saveevent(eventpath("01", 3, 12), entries);
        EXPECT_EQ(app.read("projets/demo/ev/map01/ev312"), bytes);
    }
    EXPECT_EQ(loadevent(eventpath("01", 3, 12)), cases.back().first);
}

TEST_F(Events, AnyTextIsCutAtItsPairsOfCrLf)
{
    const std::vector<std::pair<std::string, Entries>> cases = {
        {"", {}},
        {"\r\n", {}},
        {"\r\na\r\nlast", {"a"}},
        {"\r\na\r\nlast\r", {"a"}},
        {"abc\r\nde\r\n", {"c", "de"}},
        {"x\r\n", {}}, // the pair ends at the third character, before the first that is looked at
        {"xy\r\n", {""}},
        {"\r\n\r\n\r\n", {"", ""}},
        {"\r\na\nb\rc\r\n", {"a\nb\rc"}},
        {"\r\na\r\r\n", {"a\r"}},
        {"\r\na\r\n\n\r\n", {"a", "\n"}},
        {"\n\ra\r\n", {"a"}},
        {std::string("\r\n\0\r\n", 5), {std::string("\0", 1)}},
    };
    for (const auto& [text, entries] : cases) {
        EXPECT_EQ(EventEntries(text), entries) << testing::PrintToString(text);
    }
}

TEST_F(Events, AMissingFileHasNoEntriesAndAMissingFolderIsNotMade)
{
    const Snapshot before = app.snapshot();
    EXPECT_TRUE(loadevent(eventpath("01", 1, 1)).empty());
    EXPECT_TRUE(loadevent(EventFolder("01")).empty());
    ClearEvents("02");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(Events, ClearingEmptiesTheCellsOfEightRows)
{
    for (const std::string kept : {"map01/ev91", "map01/ev917", "map01/ev118", "map02/ev11"}) {
        app.write("projets/demo/ev/" + kept, "kept");
    }
    app.write("projets/demo/ev/map01/ev11", "\r\na\r\n");
    Snapshot expected = app.snapshot();
    for (int row = 1; row <= 8; ++row) {
        for (int column = 1; column <= 17; ++column) {
            expected["projets/demo/ev/map01/" + EventFileName(row, column)] = "\r\n";
        }
    }
    ClearEvents("01");
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}

TEST(EventLines, AreWrittenByteForByte)
{
    const std::vector<std::pair<std::string, std::string_view>> cases = {
        {DisplayTextLine("Salut \x80 \"\\"), "affichertexte(\"Salut \x80 \"\\\")"},
        {PauseLine(-32768), "screen.waitVblankStart(-32768)"},
        {HpLine(HpChange::Remove, "10"), "hero.vie = hero.vie - 10 -- Retrait de 10 de vie au h\xE9ro"},
        {HpLine(HpChange::Add, "10"), "hero.vie = hero.vie + 10 -- Ajout de 10 de vie au h\xE9ro"},
        {HpLine(HpChange::Replace, ""), "hero.vie =  -- Changement de la vie du h\xE9ro"},
        {HeroMoveLines(17, 8)[0], "hero.x = 17 -- D\xE9placement du h\xE9ro(vertical)"},
        {HeroMoveLines(17, 8)[1], "hero.y = 8 -- D\xE9placelement du h\xE9ro(horizontal)"},
        {ChangeMapLine("02"), "runmap(\"02\")"},
        {ConditionLine(2, Comparison::Equal, "abc"), "if var[2] == \"abc\" then"},
        {ConditionLine(12, Comparison::Different, "abc"), "if var[12] ~= abc then"},
        {CloseConditionLine(), "end"},
        {AssignLine(12, "\xE9\""), "var[12] = \"\xE9\"\""},
    };
    for (const auto& [line, bytes] : cases) {
        EXPECT_EQ(line, bytes);
    }
}
