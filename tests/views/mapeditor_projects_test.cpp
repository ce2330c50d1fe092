// A map editor view belongs to the project whose map it loaded.
#include "program.h"

#include "toolkit/scrollbar.h"

#include <QComboBox>

class MapOfAProject : public Program
{
protected:
    MapOfAProject()
    {
        addTiles("01", 4);
        addTiles("02", 4);
        for (const char* name : {"theirs", "ours"}) {
            app.makeProject(name);
            WriteIni("Jeu", "cartes", "3", Descriptor());
            WriteIni("Carte02", "nom", name, Descriptor());
            WriteIni("Variables", "nombre", "2", Descriptor());
        }
        openProject("ours");
        map = &view("mapeditor");
    }

    /// Another project becomes current, or none.
    void leaveTo(const std::string& project)
    {
        if (project.empty()) {
            closePanel(Reply::Yes);
        } else {
            openProject(project);
        }
        activate(*map);
    }

    /// Works through everything in the view that reads or writes, its own loads aside.
    void workThrough()
    {
        for (const char* mode : {"Option1_0", "Option1_1", "Option1_2"}) {
            click(*map, mode);
            pressCell(*map, 2, 2);
            pressGrid(*map, 7150, 100);
        }
        moveBar(*map, "Choixtext", 3);
        answers.question(" Are you sure you want to return the card to zero?", Reply::Yes);
        click(*map, "Command10");
        click(*map, "Command11");
        moveBar(*map, "HScroll2", 2);
        click(*map, "Command14");
        click(*map, "Command4");
        click(*map, "Command6");
        moveBar(*map, "HScroll1", 2);
        awaitRedraw(*map);
    }

    QWidget* map = nullptr;
};

TEST_F(MapOfAProject, ReadsAndWritesNothingWhileItsProjectIsNotCurrent)
{
    for (const char* project : {"theirs", ""}) {
        SCOPED_TRACE(project);
        leaveTo(project);
        WriteIni("Carte01", "texture", "02", app.at("projets/ours/projet.ini"));
        const QImage before = control(*map, "CarteImg").grab().toImage();
        const Snapshot files = app.snapshot();
        workThrough();
        EXPECT_EQ(Changes(files, app.snapshot()), "");
        EXPECT_EQ(control(*map, "CarteImg").grab().toImage(), before);
        EXPECT_EQ(text(*map, "Label3"), "Unnamed");
        EXPECT_FALSE(isVisible(*map, "Frame6"));
        WriteIni("Carte01", "texture", "01", app.at("projets/ours/projet.ini"));
        openProject("ours");
        map = &view("mapeditor");
    }
}

TEST_F(MapOfAProject, WorksAgainOnceItsProjectIsOpenAgain)
{
    setText(*map, "Text1", "Kept name");
    leaveTo("");
    awaitRedraw(*map);
    click(*map, "Option1_1");
    pressCell(*map, 1, 1);
    click(*map, "Command4");
    click(*map, "Command6");
    answers.stop(invalidMap);
    click(*map, "Command1"); // while no project is open there is nothing to load
    QWidget* first = map;
    openProject("ours");
    pressCell(*first, 1, 2);
    EXPECT_EQ(app.read("projets/ours/map01.ev"), savedBlocks(grid({{1, 2, '1'}})));
    EXPECT_EQ(ReadIni("Carte01", "nom", Descriptor()), "Kept name");
}

TEST_F(MapOfAProject, ItsOwnLoadMakesItAViewOfTheCurrentProject)
{
    click(*map, "Option1_1");
    pressGrid(*map, 0, 3600); // the ninth row, which no load replaces
    leaveTo("theirs");
    const Snapshot before = app.snapshot();
    click(*map, "Command4");
    click(*map, "Command6");
    click(*map, "Command1");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    pressCell(*map, 1, 1);
    EXPECT_EQ(app.read("projets/theirs/map01.ev"), savedBlocks(grid({{1, 1, '1'}})));

    openProject("ours");
    const std::string theirs = app.read("projets/theirs/projet.ini");
    click(*map, "Command4");
    click(*map, "Command5"); // as "New Map" does
    EXPECT_TRUE(app.has("projets/ours/map04.map"));
    EXPECT_EQ(text(*map, "Label1"), "04");
    EXPECT_EQ(app.read("projets/theirs/projet.ini"), theirs);
}

TEST_F(MapOfAProject, AnOpenEventKeepsItsListAndIsWrittenNowhere)
{
    click(*map, "Option1_2");
    pressCell(*map, 3, 12);
    click(*map, "Command15");
    click(*map, "Command13");
    const std::vector<std::string> list = lines(*map, "listev");
    for (const char* project : {"theirs", ""}) {
        SCOPED_TRACE(project);
        leaveTo(project);
        const Snapshot before = app.snapshot();
        click(*map, "Command19"); // "Change map": no fatal error, there is just no folder
        click(*map, "Command13");
        click(*map, "Command18");
        EXPECT_EQ(control<QComboBox>(*map, "Combo1").count(), 2);
        EXPECT_EQ(lines(*map, "List1").size(), 0U);
        EXPECT_EQ(text(*map, "Label14"), "Unnamed");
        EXPECT_EQ(lines(*map, "listev"), list);
        EXPECT_EQ(Changes(before, app.snapshot()), "");
        QWidget* ours = map;
        openProject("ours");
        map = ours;
    }
    leaveTo("theirs");
    const Snapshot before = app.snapshot();
    answers.message("Nothing was saved: the project of this map is not open.");
    click(*map, "Command2");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    EXPECT_TRUE(isVisible(*map, "Frame6"));
    QWidget* ours = map;
    openProject("ours");
    click(*ours, "Command2");
    EXPECT_EQ(app.read("projets/ours/ev/map01/ev312"), "\r\nend\r\n");
}
