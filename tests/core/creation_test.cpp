#include "appdir.h"

#include <gtest/gtest.h>

namespace
{

class Creation : public testing::Test
{
protected:
    /// What lies in the tool folder once project demo is made from its templates.
    Snapshot withProject() const
    {
        Snapshot files = app.snapshot();
        for (const std::string folder : {"", "/images", "/images/System", "/images/personnages",
                                         "/images/personnages/hero", "/images/map01", "/ev", "/ev/map01"}) {
            files["projets/demo" + folder] = "folder";
        }
        const auto add = [&files](const std::string& name, const std::string& content) {
            files["projets/demo/" + name] = content;
        };
        add("projet.ini", "[Jeu]\r\nnom=demo\r\nauteur=Kestrel\r\nver=3.0.0\r\ncartes=1\r\ncombats=0\r\n"
                          "[Carte01]\r\ntexture=01\r\nnom=Carte 1\r\n[Variables]\r\nnombre=0\r\n");
        add("variables.lua", "--Variables du jeu\r\n");
        add("ram.lua", "-- ftgr\r\n");
        add("map.lua", "-- ftgm\r\n");
        add("index.lua", "-- ftgi\r\n");
        add("menustart.lua", "-- ftgms\r\n");
        add("ev.lua", "-- ftgev\r\n");
        add("map01.ev", app.read("data/ftgmev.dat") + "\r\n");
        add("map01.map", app.read("data/ftgmma.dat") + "\r\n");
        add("images/map01/terrain.png", "sheet 01");
        for (const std::string name : TemporaryAppDir::heroPictures) {
            add("images/personnages/hero/" + name + ".png", "picture " + name);
        }
        for (const std::string name : TemporaryAppDir::systemPictures) {
            add("images/System/" + name + ".png", "picture " + name);
        }
        return files;
    }

    TemporaryAppDir app;
};

} // namespace

TEST_F(Creation, LaysOutTheWholeProjectWhateverScriptsAreMissingAndMakesItCurrent)
{
    const std::string bytes("\0\r\n\n\x1A\x80\xFF\r", 8);
    Snapshot expected = withProject();
    for (const std::string missing : {"data/ftgr.dat", "data/ftgmev.dat"}) {
        app.remove(missing);
        expected.erase(missing);
    }
    expected["projets/demo/ram.lua"] = expected["projets/demo/map01.ev"] = "\r\n";
    app.write("data/ftgm.dat", bytes);
    expected["data/ftgm.dat"] = bytes;
    expected["projets/demo/map.lua"] = bytes + "\r\n";
    EXPECT_EQ(CreateProject("demo", "Kestrel"), std::nullopt);
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
    EXPECT_EQ(CurrentProject(), "demo");
}

TEST_F(Creation, AMissingPictureEndsItAndWhatWasMadeStays)
{
    app.remove("data/images/system/theme01/parler.png");
    SetCurrentProject("before");
    Snapshot expected = withProject();
    for (const std::string file :
         {"images/System/parler.png", "images/map01/terrain.png", "map01.ev", "map01.map", "variables.lua",
          "ram.lua", "map.lua", "index.lua", "menustart.lua", "ev.lua"}) {
        expected.erase("projets/demo/" + file);
    }
    const auto failure = CreateProject("demo", "Kestrel");
    EXPECT_NE(failure.value_or("").find("parler.png"), std::string::npos);
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
    EXPECT_EQ(CurrentProject(), "before");
}

TEST_F(Creation, ANameThatIsTakenOrNotAllowedMakesNothing)
{
    app.makeProject();
    SetCurrentProject("before");
    const Snapshot before = app.snapshot();
    for (const std::string& name : {std::string("demo"), std::string(), std::string("../a"),
                                    std::string("a\0b", 3), std::string(300, 'n'), std::string("demo/")}) {
        EXPECT_TRUE(CreateProject(name, "Kestrel")) << name;
        EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
    }
    EXPECT_EQ(CurrentProject(), "before");
}
