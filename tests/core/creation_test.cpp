#include "appdir.h"

#include "store/codepage.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

class Creation : public testing::Test
{
protected:
    TemporaryAppDir app;
};

/// What the folder of project demo holds, by names relative to it.
Snapshot demoProject(const TemporaryAppDir& app)
{
    constexpr std::string_view prefix = "projets/demo/";
    Snapshot result;
    for (const auto& [path, bytes] : app.snapshot()) {
        if (path.starts_with(prefix)) {
            result[path.substr(prefix.size())] = bytes;
        }
    }
    return result;
}

constexpr std::string_view demoDescriptor = "[Jeu]\r\nnom=demo\r\nauteur=Kestrel\r\nver=3.0.0\r\ncartes=1\r\n"
                                            "combats=0\r\n[Carte01]\r\ntexture=01\r\nnom=Carte 1\r\n"
                                            "[Variables]\r\nnombre=0\r\n";

/// A new project, made from the templates of TemporaryAppDir.
Snapshot newProject(const TemporaryAppDir& app)
{
    Snapshot project = {
        {"projet.ini", std::string(demoDescriptor)},
        {"variables.lua", "--Variables du jeu\r\n"},
        {"ram.lua", "-- ftgr\r\n"},
        {"map.lua", "-- ftgm\r\n"},
        {"index.lua", "-- ftgi\r\n"},
        {"menustart.lua", "-- ftgms\r\n"},
        {"ev.lua", "-- ftgev\r\n"},
        {"map01.ev", app.read("data/ftgmev.dat") + "\r\n"},
        {"map01.map", app.read("data/ftgmma.dat") + "\r\n"},
        {"images/map01/terrain.png", "sheet 01"},
    };
    for (const std::string folder : {"images", "images/System", "images/personnages",
                                     "images/personnages/hero", "images/map01", "ev", "ev/map01"}) {
        project[folder] = "folder";
    }
    for (const std::string name : TemporaryAppDir::heroPictures) {
        project["images/personnages/hero/" + name + ".png"] = "picture " + name;
    }
    for (const std::string name : TemporaryAppDir::systemPictures) {
        project["images/System/" + name + ".png"] = "picture " + name;
    }
    return project;
}

} // namespace

TEST_F(Creation, LaysOutTheWholeProjectWhateverScriptsAreMissingAndMakesItCurrent)
{
    const std::string bytes("\0\r\n\n\x1A\x80\xFF\r", 8);
    app.write("data/ftgm.dat", bytes);
    app.write("data/images/personnages/perso01/mort.png", bytes);
    Snapshot expected = newProject(app);
    expected["map.lua"] = bytes + "\r\n";
    app.remove("data/ftgr.dat");
    app.remove("data/ftgmev.dat");
    expected["ram.lua"] = expected["map01.ev"] = "\r\n";
    expected["images/personnages/hero/mort.png"] = bytes;
    EXPECT_EQ(CreateProject("demo", "Kestrel"), std::nullopt);
    EXPECT_EQ(Changes(expected, demoProject(app)), "");
    EXPECT_EQ(CurrentProject(), "demo");
}

TEST_F(Creation, NamesWithAccentsAreBytesInFilesAndCharactersOnDisk)
{
    app.makeProject(std::string("Épée €"_ansi), "");
    EXPECT_TRUE(app.read("projets/Épée €/projet.ini")
                    .starts_with("[Jeu]\r\nnom=\xC9p\xE9\x65 \x80\r\nauteur=\r\nver="));
    EXPECT_EQ(CurrentProject(), "\xC9p\xE9\x65 \x80");
}

TEST_F(Creation, AMissingPictureEndsItAndWhatWasMadeStays)
{
    // Each missing picture with what is then made no more, in the order in which it is made.
    const std::vector<std::pair<std::string, std::vector<std::string>>> stages = {
        {"images/terrains/terrain01/terrain01.png",
         {"images/map01/terrain.png", "map01.ev", "map01.map", "variables.lua"}},
        {"images/system/theme01/parler.png",
         {"images/System/parler.png", "ram.lua", "map.lua", "index.lua", "menustart.lua", "ev.lua"}},
        {"images/personnages/perso01/mort.png",
         {"images/personnages/hero/mort.png", "images/System/imgprinc.png", "images/System/menuingame.png",
          "images/System/menuprinc.png"}}};
    SetCurrentProject("before");
    Snapshot expected = newProject(app);
    for (const auto& [missing, notMade] : stages) {
        for (const std::string& file : notMade) {
            expected.erase(file);
        }
        app.remove("data/" + missing);
        const auto failure = CreateProject("demo", "Kestrel");
        EXPECT_NE(failure.value_or("").find(missing), std::string::npos);
        EXPECT_EQ(Changes(expected, demoProject(app)), "") << missing;
        EXPECT_EQ(CurrentProject(), "before");
        app.remove("projets/demo");
    }
}

TEST_F(Creation, ANameThatIsTakenOrNotAllowedMakesNothing)
{
    app.makeProject();
    SetCurrentProject("before");
    for (const bool withFolder : {true, false}) {
        if (!withFolder) {
            app.remove("projets");
        }
        const Snapshot before = app.snapshot();
        for (const std::string& name :
             {std::string("demo"), std::string(), std::string(".."), std::string("a/b"),
              std::string("/tmp/a"), std::string("../a"), std::string("a\0b", 3), std::string(300, 'n'),
              std::string("demo/")}) {
            EXPECT_TRUE(CreateProject(name, "Kestrel")) << name;
            EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
        }
    }
    EXPECT_EQ(CurrentProject(), "before");
}
