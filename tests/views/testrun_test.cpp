#include "program.h"

#include "toolkit/paths.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestGame : public Program
{
protected:
    TestGame()
    {
        app.makeProject();
        app.write("projets/demo/ev/map01/ev11", "\r\nend_of_test()\r\n");
        openProject("demo");
    }

    /// Lays a player beside the tool that writes down how it was started, the last line last.
    void layPlayer() const
    {
        app.write("luaplayer.exe", "#!/bin/sh\nprintf '%s\\n' \"$PWD\" \"$#\" \"$@\" > started.tmp\n"
                                   "mv started.tmp started\n");
        std::filesystem::permissions(app.at("luaplayer.exe"), std::filesystem::perms::owner_all);
    }

    std::string started() const
    {
        const bool ran = QTest::qWaitFor([this] { return app.has("started"); });
        return ran ? app.read("started") : "not started";
    }

    std::string missing() const
    {
        return "The game cannot be started: the player is missing or is no program.\n" +
               app.at("luaplayer.exe").string();
    }

    const QString folderBefore = QDir::currentPath();
    void TearDown() override
    {
        QDir::setCurrent(folderBefore);
        Program::TearDown();
    }
};

TEST_F(TestGame, StartsThePlayerBesideTheTool)
{
    layPlayer();
    chooseEntry(3);
    EXPECT_EQ(started(), app.path().string() + "\n1\nindex.lua\n");
    EXPECT_EQ(app.read("index.lua"),
              "System.currentDirectory(\"projets/demo\")\r\ndofile(\"index.lua\")\r\n");
    EXPECT_EQ(QDir::currentPath(), qtPath(app.path()));
}

TEST_F(TestGame, RefreshesTheValuesAndWritesTheScriptsFirst)
{
    layPlayer();
    activate(view("Controlpanel"));
    WriteIni("Jeu", "auteur", "", Descriptor()); // of which a test run says nothing
    WriteIni("Jeu", "cartes", "2", Descriptor());
    WriteIni("Variables", "nombre", "1", Descriptor());
    WriteIni("Variable1", "valeur", "5", Descriptor());
    chooseEntry(3);
    started();
    EXPECT_EQ(text(view("Controlpanel"), "Label6"), "");
    EXPECT_EQ(text(view("Controlpanel"), "Label7"), "2");
    EXPECT_EQ(app.read("projets/demo/variables.lua"),
              "--Variables du jeu\r\nvar = {}\r\nvar[1] = \"5\"\r\n\r\n");
    const std::string events = app.read("projets/demo/ev.lua");
    EXPECT_EQ(events.size(), 18598U + std::string("\r\nend_of_test()\r\n").size());
    EXPECT_EQ(events.substr(0, events.find("    end\r\n")),
              "function runev(colonne,ligne,map)\r\nif map == \"01\" then\r\n\r\n"
              "    if ligne == 1 and colonne == 1 then\r\n    \r\nend_of_test()\r\n\r\n");
}

TEST_F(TestGame, TheBootScriptNamesTheProjectTestedLast)
{
    layPlayer();
    chooseEntry(3);
    started();
    app.makeProject("b \xE9");
    SetCurrentProject("demo");
    openProject("b é");
    chooseEntry(3);
    EXPECT_EQ(app.read("index.lua"),
              "System.currentDirectory(\"projets/b \xE9\")\r\ndofile(\"index.lua\")\r\n");
}

TEST_F(TestGame, AMissingPlayerIsNamed)
{
    answers.stop(missing());
    chooseEntry(3);
    EXPECT_TRUE(app.has("index.lua"));
}

TEST_F(TestGame, APlayerThatIsNoProgramIsNamed)
{
    app.write("luaplayer.exe", "no program");
    answers.stop(missing());
    chooseEntry(3);
    app.remove("luaplayer.exe");
    std::filesystem::create_directory(app.at("luaplayer.exe"));
    answers.stop(missing());
    chooseEntry(3);
}
