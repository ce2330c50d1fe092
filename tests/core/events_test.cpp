#include "appdir.h"

#include "events/eventlines.h"
#include "events/eventstore.h"
#include "store/codepage.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using Entries = std::vector<std::string>;

class Events : public testing::Test
{
protected:
    Events() { app.makeProject(); }

    /// The bytes of a file saved from these entries.
    std::string saved(const Entries& entries) const
    {
        saveevent(eventpath("01", 3, 12), entries);
        return app.read("projets/demo/ev/map01/ev312");
    }

    TemporaryAppDir app;
};

} // namespace

TEST_F(Events, ACellsFileIsNamedRowFirstWithoutPadding)
{
    EXPECT_EQ(eventpath("01", 3, 12), app.at("projets/demo/ev/map01/ev312"));
    EXPECT_EQ(eventpath("10", 9, 17), app.at("projets/demo/ev/map10/ev917"));
    EXPECT_EQ(EventFileName(1, 12), EventFileName(11, 2));
}

TEST_F(Events, EachEntryIsSavedAfterACrLfAndEmptyOnesAreDropped)
{
    EXPECT_EQ(saved({}), "\r\n");
    EXPECT_EQ(saved({"", ""}), "\r\n");
    EXPECT_EQ(saved({"a", "", "b"}), "\r\na\r\nb\r\n");
    EXPECT_EQ(saved({std::string("héro"_ansi), " "}), "\r\nh\xE9ro\r\n \r\n");
}

TEST_F(Events, WhatIsSavedIsLoadedUnchangedAgainAndAgain)
{
    const Entries entries = {"a", "  if x then", "\"\\\"", "end", std::string("é€"_ansi)};
    Entries loaded = entries;
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(saved(loaded), "\r\na\r\n  if x then\r\n\"\\\"\r\nend\r\n\xE9\x80\r\n");
        loaded = loadevent(eventpath("01", 3, 12));
        EXPECT_EQ(loaded, entries);
    }
}

TEST_F(Events, AnyTextIsCutAtItsPairsOfCrLf)
{
    const std::vector<std::pair<std::string, Entries>> cases = {
        {"", {}},
        {"\r\n", {}},
        {"\r\nlast", {}},
        {"\r\na\r\nlast", {"a"}},
        {"abc\r\nde\r\n", {"c", "de"}},
        {"x\r\n", {}}, // the pair ends at the third character, before the first that is looked at
        {"xy\r\n", {""}},
        {"\r\n\r\n", {""}},
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

TEST_F(Events, EveryTruncationLoadsTheLinesThatAreWhole)
{
    const std::string text = "\r\none\r\ntwo\r\n";
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const Entries entries = length < 7 ? Entries{} : length < 12 ? Entries{"one"} : Entries{"one", "two"};
        EXPECT_EQ(EventEntries(text.substr(0, length)), entries) << length;
    }
}

TEST_F(Events, AMissingFileHasNoEntriesAndAMissingFolderIsNotMade)
{
    const Snapshot before = app.snapshot();
    EXPECT_TRUE(loadevent(eventpath("01", 1, 1)).empty());
    EXPECT_TRUE(loadevent(EventFolder("01")).empty());
    saveevent(eventpath("02", 1, 1), {"a"});
    ClearEvents("02");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(Events, ClearingEmptiesTheCellsOfEightRows)
{
    for (const std::string kept : {"ev91", "ev917", "ev118", "ev00"}) {
        app.write("projets/demo/ev/map01/" + kept, "kept");
    }
    app.write("projets/demo/ev/map02/ev11", "kept");
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
        {DisplayTextLine(""), "affichertexte(\"\")"},
        {PauseLine(30), "screen.waitVblankStart(30)"},
        {PauseLine(-3), "screen.waitVblankStart(-3)"},
        {PauseLine(-32768), "screen.waitVblankStart(-32768)"},
        {HpLine(HpChange::Remove, "10"), "hero.vie = hero.vie - 10 -- Retrait de 10 de vie au h\xE9ro"},
        {HpLine(HpChange::Add, "10"), "hero.vie = hero.vie + 10 -- Ajout de 10 de vie au h\xE9ro"},
        {HpLine(HpChange::Replace, "10"), "hero.vie = 10 -- Changement de la vie du h\xE9ro"},
        {HpLine(HpChange::Remove, ""), "hero.vie = hero.vie -  -- Retrait de  de vie au h\xE9ro"},
        {HeroMoveLines(17, 8)[0], "hero.x = 17 -- D\xE9placement du h\xE9ro(vertical)"},
        {HeroMoveLines(17, 8)[1], "hero.y = 8 -- D\xE9placelement du h\xE9ro(horizontal)"},
        {ChangeMapLine("02"), "runmap(\"02\")"},
        {ConditionLine(2, Comparison::Equal, "abc"), "if var[2] == \"abc\" then"},
        {ConditionLine(2, Comparison::Different, "abc"), "if var[2] ~= abc then"},
        {ConditionLine(12, Comparison::Equal, ""), "if var[12] == \"\" then"},
        {ConditionLine(12, Comparison::Different, ""), "if var[12] ~=  then"},
        {CloseConditionLine(), "end"},
        {AssignLine(3, "7"), "var[3] = \"7\""},
        {AssignLine(12, "\xE9\""), "var[12] = \"\xE9\"\""},
    };
    for (const auto& [line, bytes] : cases) {
        EXPECT_EQ(line, bytes);
    }
}
