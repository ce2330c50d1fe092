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
        openProject("demo");
        activate(view("Controlpanel"));
    }
    ~TestGame() override { QDir::setCurrent(folderBefore); }

    const QString folderBefore = QDir::currentPath();
};

TEST_F(TestGame, WritesTheScriptsAndStartsThePlayerBesideTheTool)
{
    WriteIni("Jeu", "auteur", "", Descriptor()); // of which a test run says nothing
    WriteIni("Jeu", "cartes", "2", Descriptor());
    WriteIni("Variables", "nombre", "1", Descriptor());
    app.write("luaplayer.exe", "#!/bin/sh\nprintf '%s\\n' \"$PWD\" \"$#\" \"$@\" > started.tmp\n"
                               "mv started.tmp started\n");
    std::filesystem::permissions(app.at("luaplayer.exe"), std::filesystem::perms::owner_all);
    chooseEntry(3);
    EXPECT_TRUE(QTest::qWaitFor([this] { return app.has("started"); }));
    EXPECT_EQ(app.read("started"), app.path().string() + "\n1\nindex.lua\n");
    EXPECT_EQ(app.read("index.lua"),
              "System.currentDirectory(\"projets/demo\")\r\ndofile(\"index.lua\")\r\n");
    EXPECT_EQ(QDir::currentPath(), qtPath(app.path()));
    EXPECT_EQ(text(view("Controlpanel"), "Label6") + text(view("Controlpanel"), "Label7"), "2");
    EXPECT_NE(app.read("projets/demo/variables.lua").find("var[1] ="), std::string::npos);
    EXPECT_NE(app.read("projets/demo/ev.lua").find("if map == \"02\" then"), std::string::npos);
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
    app.write("luaplayer.exe", "no program");
    expectNamed();
}
