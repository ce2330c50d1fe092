#include "inproject.h"

#include "build/scripts.h"
#include "events/eventlines.h"
#include "events/eventstore.h"
#include "store/codepage.h"
#include "variables/variables.h"

#include <vector>

namespace
{

using Texts = std::vector<std::string>;
using Events = InProject;
using Scripts = InProject;
using Variables = InProject;

/// The block of a map whose events are `event` in one cell and nothing in all others.
std::string map(const std::string& number, int eventRow = 0, int eventColumn = 0,
                const std::string& event = "")
{
    std::string block = "if map == \"" + number + "\" then\r\n";
    for (int row = 1; row <= 9; ++row) {
        for (int column = 1; column <= 17; ++column) {
            block += "\r\n    if ligne == " + std::to_string(row) +
                     " and colonne == " + std::to_string(column) + " then\r\n    " +
                     (row == eventRow && column == eventColumn ? event : "") + "\r\n    end\r\n\r\n";
        }
    }
    return block + "end\r\n";
}

/// A script made of these maps.
std::string script(const std::string& maps)
{
    return "function runev(colonne,ligne,map)\r\n" + maps + "\r\nend";
}

} // namespace

TEST_F(Events, EachEntryIsSavedAfterACrLfAndEmptyOnesAreDropped)
{
    const std::vector<std::pair<Texts, std::string_view>> cases = {
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
    const std::vector<std::pair<std::string, Texts>> cases = {
        {"\r\na\r\nlast", {"a"}},
        {"abc\r\nde\r\n", {"c", "de"}},
        {"x\r\n", {}}, // the pair ends at the third character, before the first that is looked at
        {"\r\n\r\n\r\n", {"", ""}},
        {"\r\na\nb\rc\r\n", {"a\nb\rc"}},
        {"\r\na\r\n\n\r\n", {"a", "\n"}},
        {std::string("\r\n\0\r\n", 5), {std::string("\0", 1)}},
    };
    for (const auto& [text, entries] : cases) {
        EXPECT_EQ(EventEntries(text), entries) << testing::PrintToString(text);
    }
    EXPECT_TRUE(loadevent(app.at("missing")).empty());
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
    ClearEvents("03"); // has no folder, and gets none
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

TEST_F(Variables, AVariableIsAddedInTwoStepsAndItsStartValueIsReplacedAlone)
{
    std::string text = app.read("projets/demo/projet.ini") + "[Variable1]\r\nnumero=1\r\n";
    BeginVariable(1);
    EXPECT_EQ(app.read("projets/demo/projet.ini"), text);
    FinishVariable(1, "abc");
    text.replace(text.find("nombre=0"), 8, "nombre=1");
    EXPECT_EQ(app.read("projets/demo/projet.ini"), text + "valeur=abc\r\n");
    SetStartValue(1, "");
    EXPECT_EQ(app.read("projets/demo/projet.ini"), text + "valeur=\r\n");
    SetStartValue(11, "last");
    WriteIni("variable2", "VALEUR", "two", Descriptor());
    EXPECT_EQ(StartValues(11), (Texts{"", "two", "", "", "", "", "", "", "", "", "last"}));
}

TEST_F(Variables, VariablesAreAsManyAsTheCountSaysAndTheNextFollowsIt)
{
    struct Case {
        std::string_view count;
        int variables;
        int next; // 0: none
    };
    const std::vector<Case> cases = {{"", 0, 0},         {"-1", 0, 0}, {"32768", 0, 0},
                                     {"0", 0, 1},        {"01", 1, 2}, {"32766", 32766, 32767},
                                     {"32767", 32767, 0}};
    for (const auto& [count, variables, next] : cases) {
        WriteIni("Variables", "nombre", count, Descriptor());
        EXPECT_EQ(VariableCountText(), count);
        EXPECT_EQ(VariableCount(), variables) << count;
        EXPECT_EQ(StartValues().size(), static_cast<std::size_t>(variables)) << count;
        EXPECT_EQ(VariableAfter(count).number, next) << count;
        EXPECT_EQ(VariableAfter(count).failure.empty(), next != 0) << count;
    }
    EXPECT_NE(VariableAfter("32767").failure, BadVariableCount());
}

TEST_F(Scripts, TheEventScriptHasABlockForEachMapAndEachEventInItsBranchAsItStands)
{
    WriteEventScript(1);
    EXPECT_EQ(app.read("projets/demo/ev.lua"), script(map("01")) + "\r\n");
    EXPECT_EQ(EventScript(0), script(""));
    EXPECT_TRUE(EventScript(10).ends_with(map("09") + map("10") + "\r\nend"));
    for (const std::string& text : {std::string("\r\na\r\nb \xE9\r\n"), std::string("\n\0\r", 3)}) {
        app.write("projets/demo/ev/map01/ev312", text);
        EXPECT_EQ(EventScript(1), script(map("01", 3, 12, text)));
    }
    app.write("projets/demo/ev/map02/ev111", "first row");
    app.write("projets/demo/ev/map01/ev312", "");
    EXPECT_EQ(EventScript(2), script(map("01") + map("02", 1, 11, "first row")));
}

TEST_F(Scripts, WhatIsNoCellsEventFileIsNotCompiled)
{
    for (const std::string name : {"ev00", "ev10", "ev118", "ev011", onWindows ? "ev" : "EV11", "ev11.bak"}) {
        app.write("projets/demo/ev/map01/" + name, "not an event");
    }
    std::filesystem::create_directory(app.at("projets/demo/ev/map01/ev11"));
    EXPECT_EQ(EventScript(1), script(map("01")));
    app.remove("projets/demo/ev");
    EXPECT_EQ(EventScript(1), script(map("01")));
}

TEST_F(Scripts, TheVariablesScriptHoldsTheStartValuesAsStrings)
{
    FinishVariable(1, "");
    FinishVariable(2, "a\"\\\xE9");
    WriteVariablesScript();
    EXPECT_EQ(app.read("projets/demo/variables.lua"),
              "--Variables du jeu\r\nvar = {}\r\nvar[1] = \"\"\r\nvar[2] = \"a\"\\\xE9\"\r\n\r\n");
    WriteIni("Variables", "nombre", "x", Descriptor());
    EXPECT_EQ(VariablesScript(), "--Variables du jeu\r\nvar = {}\r\n");
}
