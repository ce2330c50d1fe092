#include "appdir.h"

#include "store/codepage.h"

#include <gtest/gtest.h>

#include <algorithm>
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

TEST_F(Creation, LaysOutTheWholeProjectAndMakesItCurrent)
{
    EXPECT_EQ(CreateProject("demo", "Kestrel"), std::nullopt);
    EXPECT_EQ(Changes(newProject(app), demoProject(app)), "");
    EXPECT_EQ(CurrentProject(), "demo");
}

TEST_F(Creation, NamesWithAccentsAreBytesInFilesAndCharactersOnDisk)
{
    app.makeProject(std::string("Épée €"_ansi), "Zoé"_ansi);
    EXPECT_TRUE(app.read("projets/Épée €/projet.ini")
                    .starts_with("[Jeu]\r\nnom=\xC9p\xE9"
                                 "e \x80\r\nauteur=Zo\xE9\r\n"));
    EXPECT_EQ(CurrentProject(), "\xC9p\xE9"
                                "e \x80");
    EXPECT_EQ(ReadIni("Jeu", "nom", Descriptor()), CurrentProject());
}

TEST_F(Creation, AnEmptyAuthorIsWrittenAsAnEmptyValue)
{
    app.makeProject("demo", "");
    EXPECT_NE(app.read("projets/demo/projet.ini").find("\r\nauteur=\r\nver="), std::string::npos);
}

TEST_F(Creation, TemplatesAreCopiedByteForByte)
{
    const std::string bytes("\0\r\n\n\x1A\x80\xFF\r", 8);
    app.write("data/ftgm.dat", bytes);
    app.write("data/images/personnages/perso01/mort.png", bytes);
    app.makeProject();
    EXPECT_EQ(app.read("projets/demo/map.lua"), bytes + "\r\n");
    EXPECT_EQ(app.read("projets/demo/images/personnages/hero/mort.png"), bytes);
}

TEST_F(Creation, AMissingScriptTemplateGivesJustCrLf)
{
    Snapshot expected = newProject(app);
    for (const std::string name : {"ftgr", "ftgm", "ftgi", "ftgms", "ftgev", "ftgmev", "ftgmma"}) {
        app.remove("data/" + name + ".dat");
    }
    app.makeProject();
    for (const std::string name :
         {"ram.lua", "map.lua", "index.lua", "menustart.lua", "ev.lua", "map01.ev", "map01.map"}) {
        expected[name] = "\r\n";
    }
    EXPECT_EQ(Changes(expected, demoProject(app)), "");
}

TEST_F(Creation, AMissingPictureEndsItAndWhatWasMadeStays)
{
    // In the order in which they are made.
    const std::vector<std::string> files = {"images/personnages/hero/mort.png",
                                            "images/System/imgprinc.png",
                                            "images/System/menuingame.png",
                                            "images/System/menuprinc.png",
                                            "images/System/parler.png",
                                            "ram.lua",
                                            "map.lua",
                                            "index.lua",
                                            "menustart.lua",
                                            "ev.lua",
                                            "images/map01/terrain.png",
                                            "map01.ev",
                                            "map01.map",
                                            "variables.lua"};
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"images/personnages/perso01/mort.png", files[0]},
        {"images/system/theme01/parler.png", files[4]},
        {"images/terrains/terrain01/terrain01.png", files[10]}};
    for (const auto& [missing, firstNotMade] : cases) {
        const TemporaryAppDir folder;
        SetCurrentProject("before");
        Snapshot expected = newProject(folder);
        for (auto file = std::find(files.begin(), files.end(), firstNotMade); file != files.end(); ++file) {
            expected.erase(*file);
        }
        folder.remove("data/" + missing);
        const auto failure = CreateProject("demo", "Kestrel");
        EXPECT_NE(failure.value_or("").find(missing), std::string::npos);
        EXPECT_EQ(Changes(expected, demoProject(folder)), "") << missing;
        EXPECT_EQ(CurrentProject(), "before");
    }
}

TEST_F(Creation, AnExistingFolderIsLeftUntouched)
{
    app.makeProject();
    SetCurrentProject("before");
    const Snapshot before = app.snapshot();
    EXPECT_TRUE(CreateProject("demo", "Other"));
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    EXPECT_EQ(CurrentProject(), "before");
}

TEST_F(Creation, ANameThatIsNotAllowedMakesNothing)
{
    for (const bool withFolder : {true, false}) {
        if (!withFolder) {
            app.remove("projets");
        }
        const Snapshot before = app.snapshot();
        for (const std::string& name :
             {std::string(), std::string("."), std::string(".."), std::string("a/b"), std::string("/tmp/a"),
              std::string("../a"), std::string("a\0b", 3), std::string(300, 'n'), std::string("demo/")}) {
            EXPECT_TRUE(CreateProject(name, "Kestrel")) << name;
            EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
        }
    }
    EXPECT_EQ(CurrentProject(), "");
}

TEST_F(Creation, AMissingFolderOfProjectsIsAFailure)
{
    app.remove("projets");
    const Snapshot before = app.snapshot();
    EXPECT_TRUE(CreateProject("demo", "Kestrel"));
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}
