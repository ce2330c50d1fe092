// A map editor loads and saves its map, and belongs to the project that this was loaded from.
#include "mapview.h"

#include <QComboBox>

using MapEditor = MapView;

TEST_F(MapEditor, OpensWithItsMapBesideTheControlPanel)
{
    open();
    EXPECT_EQ(map->windowTitle().toStdString(), "Map editor");
    EXPECT_EQ(map->parentWidget()->pos(), QPoint(view("Controlpanel").parentWidget()->width(), 0));
    EXPECT_EQ(control(*map, "CarteImg").geometry(), QRect(0, 0, 481, 249));
}

TEST_F(MapEditor, SavesUnderTheNumberAndNameOfTheMapItHolds)
{
    setCount("2");
    app.write("projets/demo/map02.map", savedMap("-1ab", grid()));
    app.write("projets/demo/map02.ev", savedBlocks(grid()));
    open();
    doubleClickLine(view("Controlpanel"), "List1", 1);
    map = &view("mapeditor");
    EXPECT_EQ(text(*map, "Text1"), "");
    setText(*map, "Text1", "For\xC3\xAAt");
    Snapshot expected = app.snapshot();
    saveMap();
    expected["projets/demo/projet.ini"] += "[Carte02]\r\nnom=For\xEAt\r\n";
    expected["projets/demo/map02.map"] = savedMap("0101", grid()); // a start that is no number is saved as 1
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}

TEST_F(MapEditor, AnEmptyMapFileIsReportedAtEveryLoadAndNeverSaved)
{
    app.write("projets/demo/map01.map", "");
    for (int time = 0; time < 3; ++time) { // twice while it opens, once for its creator
        answers.stop(invalidMap);
    }
    open();
    answers.allCame();
    EXPECT_EQ(start(), " ");
    EXPECT_EQ(text(*map, "Text1"), "Carte 1");
    EXPECT_EQ(changes([&] { pressCell(*map, 2, 2); }), "");
    EXPECT_EQ(foot(),
              "Not saved: the file of this map is missing or empty. \"Change\" the hero's start to make "
              "it anew.");
    askForStart();
    pressCell(*map, 5, 4);
    pressCell(*map, 2, 2);
    EXPECT_EQ(tiles().substr(0, 4), "0405");
}

TEST_F(MapEditor, AMapWithAFileThatCannotBeReadIsNotSaved)
{
    // A folder in place of the block file: no flags are read, and what lies there is not known.
    app.remove("projets/demo/map01.ev");
    std::filesystem::create_directory(app.at("projets/demo/map01.ev"));
    open();
    EXPECT_EQ(changes([&] { pressCell(*map, 2, 2); }), "");
    EXPECT_EQ(foot(), "Not saved: a file of this map cannot be read. Mend it and load the map again.");
    app.remove("projets/demo/map01.ev");
    load();
    pressCell(*map, 2, 2);
    EXPECT_NE(blocks(), "");
}

TEST_F(MapEditor, AnEventThatCannotBeReadOrIsNoneThatAPersonWroteIsNotOpened)
{
    std::filesystem::create_directory(app.at("projets/demo/ev/map01/ev11"));
    app.write("projets/demo/ev/map01/ev12", "");
    std::filesystem::resize_file(app.at("projets/demo/ev/map01/ev12"), (16 << 20) + 1);
    open();
    click(*map, "Option1_2");
    for (const int column : {1, 2}) {
        EXPECT_EQ(changes([&] { pressCell(*map, 1, column); }), "");
        EXPECT_FALSE(isVisible(*map, "Frame6"));
        EXPECT_EQ(foot(),
                  "The event of this cell cannot be opened: its file cannot be read, or holds more than "
                  "16 MB.");
    }
}

TEST_F(MapEditor, AFailedLoadKeepsTheGridAndTheNextGoodOneReplacesIt)
{
    const std::string second = savedMap("0202", grid({}, '2'));
    setCount("2");
    WriteIni("Carte02", "texture", "01", Descriptor());
    app.write("projets/demo/map01.map", savedMap("0101", grid({}, '1')));
    open();
    moveBar(*map, "HScroll1", 2);
    answers.stop(invalidMap);
    load();
    answers.allCame();
    EXPECT_EQ(changes([&] { saveMap(); }), "");
    EXPECT_EQ(cell(*map, 8, 17), tile("01", 2));
    app.write("projets/demo/map02.map", second);
    load();
    EXPECT_EQ(cell(*map, 8, 17), tile("01", 3));
    saveMap();
    EXPECT_EQ(tiles("02"), second);
}

TEST_F(MapEditor, AProjectWithoutMapsGetsItsFirst)
{
    setCount("0");
    app.remove("projets/demo/map01.map");
    app.remove("projets/demo/map01.ev");
    answers.message("There is no map, a new map will be automatically created");
    open();
    EXPECT_EQ(ReadIni("Jeu", "cartes", Descriptor()), "01");
    EXPECT_EQ(tiles(), app.read("data/ftgmma.dat") + "\r\n");
    EXPECT_EQ(start(), "01 01");
}

class MapOfAProject : public MapView
{
protected:
    MapOfAProject()
    {
        addTiles("02", 4);
        app.makeProject("theirs");
        WriteIni("Carte01", "texture", "02", Descriptor());
        WriteIni("Carte02", "nom", "named", Descriptor());
        WriteIni("Variables", "nombre", "2", Descriptor());
        open();
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
            EXPECT_EQ(foot(), "Not changed: the project of this map is not open.");
            saveMap();
        }
        chooseTile(3);
        reset();
        EXPECT_EQ(foot(), "Not reset: the project of this map is not open.");
        click(*map, "Command11");
        moveBar(*map, "HScroll2", 2);
        click(*map, "Command14");
        EXPECT_EQ(foot(), "Not changed: the project of this map is not open.");
        moveBar(*map, "HScroll1", 2);
        awaitRedraw(*map);
    }
};

TEST_F(MapOfAProject, ReadsAndWritesNothingUntilItsProjectIsCurrentAgain)
{
    setText(*map, "Text1", "Kept name");
    for (const char* project : {"theirs", ""}) {
        SCOPED_TRACE(project);
        leaveTo(project);
        const QImage before = control(*map, "CarteImg").grab().toImage();
        EXPECT_EQ(changes([&] { workThrough(); }), "");
        EXPECT_EQ(control(*map, "CarteImg").grab().toImage(), before);
        EXPECT_EQ(text(*map, "Label3"), "Unnamed");
        EXPECT_FALSE(isVisible(*map, "Frame6"));
    }
    answers.stop(invalidMap);
    load(); // while no project is open there is nothing to load
    openProject("demo");
    click(*map, "Option1_1");
    pressCell(*map, 1, 2);
    EXPECT_EQ(blocks(), savedBlocks(grid({{1, 2, '1'}})));
    EXPECT_EQ(ReadIni("Carte01", "nom", Descriptor()), "Kept name");
}

TEST_F(MapOfAProject, ItsOwnLoadMakesItAViewOfTheCurrentProject)
{
    click(*map, "Option1_1");
    pressGrid(*map, 0, 3600); // the ninth row, which no load replaces
    leaveTo("theirs");
    EXPECT_EQ(changes([&] { load(); }), "");
    EXPECT_EQ(cell(*map, 1, 1), tile("02", 1));
    pressCell(*map, 1, 1);
    EXPECT_EQ(app.read("projets/theirs/map01.ev"), savedBlocks(grid({{1, 1, '1'}})));
}

TEST_F(MapOfAProject, AnOpenEventKeepsItsListAndIsWrittenNowhere)
{
    click(*map, "Option1_2");
    pressCell(*map, 3, 12);
    click(*map, "Command15");
    for (const char* project : {"theirs", ""}) {
        SCOPED_TRACE(project);
        leaveTo(project);
        for (const char* frame : {"Command19", "Command13", "Command18"}) { // no fatal error, just no folder
            click(*map, frame);
        }
        EXPECT_EQ(control<QComboBox>(*map, "Combo1").count(), 0);
        EXPECT_EQ(lines(*map, "List1").size(), 0U);
        EXPECT_EQ(text(*map, "Label14"), "Unnamed");
        answers.message("Nothing was saved: the project of this map is not open.");
        EXPECT_EQ(changes([&] { click(*map, "Command2"); }), "");
        EXPECT_TRUE(isVisible(*map, "Frame6"));
    }
    leaveTo("theirs");
    for (const bool asNew : {false, true}) { // the list would become theirs
        answers.message("The open event belongs to another project. \"Cancel\" it first, or open that "
                        "project and \"Save\" it.");
        EXPECT_EQ(changes([&] { asNew ? newMap() : load(); }), "");
        answers.allCame();
    }
    openProject("demo");
    click(*map, "Command2");
    EXPECT_EQ(app.read("projets/demo/ev/map01/ev312"), "\r\nend\r\n");
}
