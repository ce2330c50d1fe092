#include "program.h"

#include "toolkit/paths.h"

#include <QDir>
#include <QTest>

class TestGame : public Program
{
protected:
    TestGame()
    {
        app.makeProject();
        app.write("projets/demo/ev/map01/ev11", "\r\nend_of_test()\r\n");
        openProject("demo");
        activate(view("Controlpanel"));
    }
    ~TestGame() override { QDir::setCurrent(folderBefore); }

    /// Starts a player that writes down how it was started; gives folder, number of arguments and these.
    std::string started() const
    {
        app.write("luaplayer.exe", "#!/bin/sh\nprintf '%s\\n' \"$PWD\" \"$#\" \"$@\" > started.tmp\n"
                                   "mv started.tmp started\n");
        std::filesystem::permissions(app.at("luaplayer.exe"), std::filesystem::perms::owner_all);
        chooseEntry(3);
        const bool ran = QTest::qWaitFor([this] { return app.has("started"); });
        return ran ? app.read("started") : "not started";
    }

    const QString folderBefore = QDir::currentPath();
};

TEST_F(TestGame, StartsThePlayerBesideTheTool)
{
    EXPECT_EQ(started(), app.path().string() + "\n1\nindex.lua\n");
    EXPECT_EQ(app.read("index.lua"),
              "System.currentDirectory(\"projets/demo\")\r\ndofile(\"index.lua\")\r\n");
    EXPECT_EQ(QDir::currentPath(), qtPath(app.path()));
}

TEST_F(TestGame, RefreshesTheValuesAndWritesTheScriptsFirst)
{
    WriteIni("Jeu", "auteur", "", Descriptor()); // of which a test run says nothing
    WriteIni("Jeu", "cartes", "2", Descriptor());
    WriteIni("Variables", "nombre", "1", Descriptor());
    started();
    EXPECT_EQ(text(view("Controlpanel"), "Label6"), "");
    EXPECT_EQ(text(view("Controlpanel"), "Label7"), "2");
    EXPECT_NE(app.read("projets/demo/variables.lua").find("var[1] ="), std::string::npos);
    const std::string events = app.read("projets/demo/ev.lua");
    EXPECT_NE(events.find("end_of_test()"), std::string::npos);
    EXPECT_NE(events.find("if map == \"02\" then"), std::string::npos);
}

TEST_F(TestGame, AMissingPlayerIsNamed)
{
    const auto expectNamed = [this] {
        answers.stop("The game cannot be started: the player is missing or is no program.\n" +
                     app.at("luaplayer.exe").string());
        chooseEntry(3);
        answers.allCame();
    };
    expectNamed();
    EXPECT_TRUE(app.has("index.lua"));
    app.write("luaplayer.exe", "no program");
    expectNamed();
}
