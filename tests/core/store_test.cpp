#include "appdir.h"

#include "events/eventstore.h"
#include "maps/maplist.h"
#include "store/codepage.h"
#include "variables/variables.h"

#include "build/scripts.h"

#include <gtest/gtest.h>

namespace
{

class Store : public testing::Test
{
protected:
    TemporaryAppDir app;
};

} // namespace

TEST_F(Store, MapNumbersHaveTwoDigitsBelowTen)
{
    EXPECT_EQ(MapNumberText(9), "09");
    EXPECT_EQ(MapNumberText(10), "10");
}

TEST_F(Store, AProjectLiesBelowTheFolderOfProjectsByTheCharactersOfItsBytes)
{
    SetCurrentProject(std::string("Épée à 5 €"_ansi));
    EXPECT_EQ(ProjectDir(), app.at("projets/Épée à 5 €"));
    EXPECT_EQ(Descriptor(), app.at("projets/Épée à 5 €/projet.ini"));
    EXPECT_EQ(ProjectFile("ev/map01"), app.at("projets/Épée à 5 €/ev/map01"));
    EXPECT_EQ(DiskName("\xE9\x81"), Path(u8"\u00E9\u0081"));
}

TEST_F(Store, OnlyAPlainComponentNamesAFolder)
{
    for (const std::string_view name : {"a", "a b", "..a", ".hidden", "*?"}) {
        EXPECT_EQ(ProjectFolder(name).parent_path(), app.at("projets")) << name;
    }
    // Windows finds another folder by these.
    for (const std::string_view name : {" ", "...", ". .", "a\\b", "\\a", "C:", "C:a"}) {
        EXPECT_EQ(ProjectFolder(name).empty(), onWindows) << name;
    }
    for (const std::string_view name : {"", ".", "..", "/", "/a", "a/", "a/b", "../a"}) {
        EXPECT_EQ(ProjectFolder(name), Path()) << name;
    }
    EXPECT_EQ(ProjectFolder(std::string_view("a\0b", 3)), Path());
}

TEST_F(Store, AProjectWithoutAFolderReadsEmptyAndIsNotWritten)
{
    // What a mistaken path would find: the same files where an empty folder or the folder of projects leads.
    app.makeProject();
    for (const std::string place : {"", "projets/", "projets/demo/"}) {
        app.write(place + "projet.ini", "[Jeu]\r\ncartes=3\r\n[Variables]\r\nnombre=1\r\n");
        app.write(place + "ev/map01/ev11", "\r\nx\r\n");
    }
    const Path home = std::filesystem::current_path();
    std::filesystem::current_path(app.path());
    for (const std::string name : {"", ".", "..", "demo/", "../projets/demo"}) {
        SetCurrentProject(name);
        const Snapshot before = app.snapshot();
        EXPECT_EQ(MapCount(), std::nullopt) << name;
        EXPECT_EQ(VariableCountText(), "") << name;
        EXPECT_TRUE(loadevent(eventpath("01", 1, 1)).empty()) << name;
        EXPECT_EQ(EventScript(1).find('x'), std::string::npos) << name;
        WriteIni("Jeu", "nom", "new", Descriptor());
        WriteWholeFile("new", MapFile("01"));
        CopyWholeFile(app.at("data/ftgi.dat"), MapSheet("01"));
        saveevent(eventpath("01", 1, 1), {"new"});
        ClearEvents("01");
        SetStartValue(1, "new");
        WriteEventScript(1);
        WriteVariablesScript();
        EXPECT_FALSE(NewMap().failure.empty()) << name;
        EXPECT_EQ(Changes(before, app.snapshot()), "") << name;
    }
    std::filesystem::current_path(home);
}

TEST_F(Store, IniFilesAreMadeAndChangedOneKeyAtATime)
{
    const Path file = app.at("x.ini");
    WriteIni("Carte01", "nom", "Carte 1", file);
    WriteIni("Jeu", "auteur", "Zoé"_ansi, file);
    WriteIni("carte01", "NOM", "Autre", file);
    EXPECT_EQ(app.read("x.ini"), "[Carte01]\r\nNOM=Autre\r\n[Jeu]\r\nauteur=Zo\xE9\r\n");
    EXPECT_EQ(ReadIni("Jeu", "Auteur", file), "Zo\xE9");
    const std::string utf16("\xFF\xFE[\0a\0]\0", 8);
    app.write("x.ini", utf16);
    WriteIni("a", "k", "v", file);
    EXPECT_EQ(app.read("x.ini"), utf16) << "left alone";
}
