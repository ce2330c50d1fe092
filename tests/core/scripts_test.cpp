#include "inproject.h"

#include "build/scripts.h"
#include "events/eventstore.h"
#include "store/codepage.h"
#include "variables/variables.h"

namespace
{

using Scripts = InProject;

/// The branch of a cell with this event.
std::string branch(int row, int column, std::string_view event)
{
    return "\r\n    if ligne == " + std::to_string(row) + " and colonne == " + std::to_string(column) +
           " then\r\n    " + std::string(event) + "\r\n    end\r\n\r\n";
}

/// The block of a map whose events are `event` in one cell and nothing in all others.
std::string map(const std::string& number, int eventRow = 0, int eventColumn = 0, std::string_view event = "")
{
    std::string block = "if map == \"" + number + "\" then\r\n";
    for (int row = 1; row <= 9; ++row) {
        for (int column = 1; column <= 17; ++column) {
            block += branch(row, column, row == eventRow && column == eventColumn ? event : "");
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

TEST_F(Scripts, TheEventScriptHasABlockForEachMapAndABranchForEachCell)
{
    WriteEventScript(1);
    EXPECT_EQ(app.read("projets/demo/ev.lua"), script(map("01")) + "\r\n");
    EXPECT_EQ(app.read("projets/demo/ev.lua").size(), 9320u);
    EXPECT_EQ(EventScript(0), script(""));
    EXPECT_TRUE(EventScript(10).ends_with(map("09") + map("10") + "\r\nend"));
}

TEST_F(Scripts, AnEventStandsInItsBranchAsItStands)
{
    for (const std::string& text : {std::string("\r\n"), std::string("\r\na\r\nb \xE9\r\n"),
                                    std::string("no end"), std::string("\n\0\r", 3)}) {
        app.write("projets/demo/ev/map01/ev312", text);
        EXPECT_EQ(EventScript(1), script(map("01", 3, 12, text)));
    }
    app.write("projets/demo/ev/map02/ev111", "first row");
    app.write("projets/demo/ev/map01/ev312", "");
    EXPECT_EQ(EventScript(2), script(map("01") + map("02", 1, 11, "first row")));
}

TEST_F(Scripts, FilesThatAreNoCellsEventAreNotCompiled)
{
    for (const std::string name :
         {"ev00", "ev01", "ev10", "ev118", "ev101", "ev011", onWindows ? "ev" : "EV11", "ev11.bak"}) {
        app.write("projets/demo/ev/map01/" + name, "not an event");
    }
    std::filesystem::create_directory(app.at("projets/demo/ev/map01/ev11"));
    EXPECT_EQ(EventScript(1), script(map("01")));
    app.remove("projets/demo/ev");
    EXPECT_EQ(EventScript(1), script(map("01")));
}

TEST_F(Scripts, AnEventScriptBeyondTheLargestFileIsNotBuiltToItsEnd)
{
    WriteEventScript(1);
    const std::string before = ReadWholeFile(ProjectFile("ev.lua"));
    for (const int column : {1, 2, 3}) {
        WriteWholeFile("", eventpath("01", 1, column));
        std::filesystem::resize_file(eventpath("01", 1, column), platform::largestFile * 2 / 3);
    }
    EXPECT_LT(EventScript(1).size(), platform::largestFile / 3 * 5);
    WriteEventScript(1);
    EXPECT_EQ(ReadWholeFile(ProjectFile("ev.lua")), before);
}

TEST_F(Scripts, TheVariablesScriptHoldsTheStartValuesAsStrings)
{
    FinishVariable(1, "");
    FinishVariable(2, "abc");
    FinishVariable(3, "a\"\\\xE9");
    WriteVariablesScript();
    EXPECT_EQ(app.read("projets/demo/variables.lua"),
              "--Variables du jeu\r\nvar = {}\r\nvar[1] = \"\"\r\nvar[2] = \"abc\"\r\nvar[3] = "
              "\"a\"\\\xE9\"\r\n\r\n");
    WriteIni("Variables", "nombre", "x", Descriptor());
    EXPECT_EQ(VariablesScript(), "--Variables du jeu\r\nvar = {}\r\n");
}

TEST_F(Scripts, TheBootScriptNamesTheCurrentProject)
{
    app.makeProject(std::string("Épée 2"_ansi));
    WriteBootScript();
    EXPECT_EQ(app.read("index.lua"),
              "System.currentDirectory(\"projets/\xC9p\xE9\x65 2\")\r\ndofile(\"index.lua\")\r\n");
}
