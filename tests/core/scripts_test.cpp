#include "appdir.h"

#include "build/scripts.h"
#include "events/eventstore.h"
#include "store/codepage.h"
#include "variables/variables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

class Scripts : public testing::Test
{
protected:
    Scripts() { app.makeProject(); }

    void expectBranch(std::string_view branch) const
    {
        EXPECT_NE(EventScript(1).find(branch), std::string::npos) << branch << "\n"
                                                                  << EventScript(1).substr(0, 400);
    }

    TemporaryAppDir app;
};

/// The branch of a cell without an event.
std::string emptyBranch(int row, int column)
{
    return "\r\n    if ligne == " + std::to_string(row) + " and colonne == " + std::to_string(column) +
           " then\r\n    \r\n    end\r\n\r\n";
}

/// The block of a map without events.
std::string emptyMap(const std::string& number)
{
    std::string block = "if map == \"" + number + "\" then\r\n";
    for (int row = 1; row <= 9; ++row) {
        for (int column = 1; column <= 17; ++column) {
            block += emptyBranch(row, column);
        }
    }
    return block + "end\r\n";
}

} // namespace

TEST_F(Scripts, TheEventScriptHasABranchForEachCell)
{
    WriteEventScript(1);
    const std::string script = app.read("projets/demo/ev.lua");
    EXPECT_EQ(script.size(), 9320u);
    EXPECT_EQ(std::count(script.begin(), script.end(), '\n'), 770);
    EXPECT_EQ(script, "function runev(colonne,ligne,map)\r\n" + emptyMap("01") + "\r\nend\r\n");
}

TEST_F(Scripts, TheEventScriptHasABlockForEachMap)
{
    EXPECT_EQ(EventScript(0), "function runev(colonne,ligne,map)\r\n\r\nend");
    EXPECT_EQ(EventScript(2),
              "function runev(colonne,ligne,map)\r\n" + emptyMap("01") + emptyMap("02") + "\r\nend");
    EXPECT_EQ(EventScript(2).size() + 2, 18598u);
    EXPECT_TRUE(EventScript(10).ends_with(emptyMap("09") + emptyMap("10") + "\r\nend"));
}

TEST_F(Scripts, AnEventStandsInItsBranchAsItStands)
{
    const std::string head = "    if ligne == 3 and colonne == 12 then\r\n    ";
    const std::string tail = "\r\n    end\r\n\r\n" + emptyBranch(3, 13);
    const std::string texts[] = {"\r\n", "\r\na\r\nb \xE9\r\n", "no line end", std::string("\n\0\r", 3)};
    for (const std::string& text : texts) {
        app.write("projets/demo/ev/map01/ev312", text);
        expectBranch(head + text + tail);
        EXPECT_EQ(EventScript(1).size(), 9318 + text.size());
    }
}

TEST_F(Scripts, AnEventFileIsReadForOneCellOfOneMap)
{
    app.write("projets/demo/ev/map01/ev111", "first");
    app.write("projets/demo/ev/map10/ev917", "tenth");
    const std::string script = EventScript(10);
    const std::size_t tenthMap = script.find("if map == \"10\" then");
    const std::size_t first = script.find("ligne == 1 and colonne == 11 then\r\n    first\r\n");
    const std::size_t tenth = script.find("ligne == 9 and colonne == 17 then\r\n    tenth\r\n");
    EXPECT_LT(first, script.find("if map == \"02\" then"));
    EXPECT_GT(tenth, tenthMap);
    EXPECT_EQ(script.size(), EventScript(9).size() + emptyMap("10").size() + 5); // each stands there once
    EXPECT_NE(tenth, std::string::npos);
}

TEST_F(Scripts, FilesThatAreNoCellsEventAreNotCompiled)
{
    const std::string before = EventScript(1);
    for (const std::string name :
         {"ev00", "ev01", "ev10", "ev118", "ev101", "ev011", onWindows ? "ev" : "EV11", "ev11.bak"}) {
        app.write("projets/demo/ev/map01/" + name, "not an event");
    }
    app.write("projets/demo/ev/map02/ev11", "a later map");
    std::filesystem::create_directory(app.at("projets/demo/ev/map01/ev11"));
    EXPECT_EQ(EventScript(1), before);
    app.remove("projets/demo/ev");
    EXPECT_EQ(EventScript(1), before);
}

TEST_F(Scripts, AScriptThatCannotBeWrittenStays)
{
    namespace fs = std::filesystem;
    for (const std::string name : {"projets/demo/ev.lua", "projets/demo/variables.lua", "index.lua"}) {
        app.write(name, "older");
        fs::permissions(app.at(name), fs::perms(0444));
    }
    const Snapshot before = app.snapshot();
    WriteEventScript(1);
    WriteVariablesScript();
    WriteBootScript();
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(Scripts, TheVariablesScriptHoldsTheStartValuesAsStrings)
{
    WriteVariablesScript();
    EXPECT_EQ(app.read("projets/demo/variables.lua"), "--Variables du jeu\r\nvar = {}\r\n\r\n");
    FinishVariable(1, "0");
    FinishVariable(2, "abc");
    WriteVariablesScript();
    EXPECT_EQ(app.read("projets/demo/variables.lua"),
              "--Variables du jeu\r\nvar = {}\r\nvar[1] = \"0\"\r\nvar[2] = \"abc\"\r\n\r\n");
    FinishVariable(1, "");
    FinishVariable(3, "a\"\\\xE9");
    EXPECT_EQ(VariablesScript(), "--Variables du jeu\r\nvar = {}\r\nvar[1] = \"\"\r\nvar[2] = \"abc\"\r\n"
                                 "var[3] = \"a\"\\\xE9\"\r\n");
    WriteIni("Variables", "nombre", "x", Descriptor());
    EXPECT_EQ(VariablesScript(), "--Variables du jeu\r\nvar = {}\r\n");
}

TEST_F(Scripts, TheBootScriptNamesTheCurrentProject)
{
    WriteBootScript();
    EXPECT_EQ(app.read("index.lua"),
              "System.currentDirectory(\"projets/demo\")\r\ndofile(\"index.lua\")\r\n");
    EXPECT_EQ(app.read("index.lua").size(), 62u);
    app.makeProject(std::string("Épée 2"_ansi));
    WriteBootScript();
    EXPECT_TRUE(app.read("index.lua")
                    .starts_with("System.currentDirectory(\"projets/\xC9p\xE9"
                                 "e 2\")\r\n"));
}
