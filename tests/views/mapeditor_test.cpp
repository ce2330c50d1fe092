#include "program.h"

class MapEditor : public Program
{
protected:
    MapEditor()
    {
        addTiles("01", 4);
        app.makeProject();
    }

    /// Opens map 01 of the project and gives its view.
    QWidget& editor()
    {
        openProject("demo");
        return view("mapeditor");
    }
    void writeMap(const std::string& number, const std::string& map, const std::string& blocks) const
    {
        app.write("projets/demo/map" + number + ".map", map);
        app.write("projets/demo/map" + number + ".ev", blocks);
    }
};

TEST_F(MapEditor, OpensWithItsMapBesideTheControlPanel)
{
    writeMap("01", savedMap("0305", grid()), savedBlocks(grid()));
    const QWidget& map = editor();
    EXPECT_EQ(map.windowTitle().toStdString(), "Map editor");
    EXPECT_EQ(map.parentWidget()->pos(), QPoint(view("Controlpanel").parentWidget()->width(), 0));
    EXPECT_EQ(control(map, "CarteImg").geometry(), QRect(0, 0, 481, 249));
    EXPECT_EQ(text(map, "Text1"), "Carte 1");
    EXPECT_EQ(text(map, "Label4"), "03");
    EXPECT_EQ(text(map, "Label5"), "05");
    EXPECT_EQ(text(map, "Frame2"), "Configuration");
    for (const char* frame : {"Frame1", "Frame3", "Frame4", "Frame6"}) {
        EXPECT_FALSE(isVisible(map, frame)) << frame;
    }
}

TEST_F(MapEditor, SavesWhatItLoadedAndANewlyMadeMapTo162And156Bytes)
{
    const std::string map = savedMap("0305", grid({{1, 1, '2'}, {8, 17, '3'}}));
    const std::string blocks = savedBlocks(grid({{2, 5, '1'}}));
    writeMap("01", map, blocks);
    pressGrid(editor(), 7150, 100); // beside the cells: saves, changes nothing
    EXPECT_EQ(app.read("projets/demo/map01.map"), map);
    EXPECT_EQ(app.read("projets/demo/map01.ev"), blocks);
    EXPECT_EQ(map.size(), 162U);
    EXPECT_EQ(blocks.size(), 156U);
}

TEST_F(MapEditor, SavesUnderTheNumberAndNameOfTheMapItHolds)
{
    WriteIni("Jeu", "cartes", "2", Descriptor());
    writeMap("02", savedMap("0101", grid()), savedBlocks(grid()));
    openProject("demo");
    doubleClickLine(view("Controlpanel"), "List1", 1);
    const QWidget& map = view("mapeditor");
    EXPECT_EQ(text(map, "Text1"), "");
    setText(map, "Text1", "For\xC3\xAAt");
    Snapshot expected = app.snapshot();
    pressGrid(map, 7150, 100);
    expected["projets/demo/projet.ini"] += "[Carte02]\r\nnom=For\xEAt\r\n";
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
}

TEST_F(MapEditor, WritesThePastedNameOnOneLine)
{
    const QWidget& map = editor();
    setText(map, "Text1", "two\nlines\r\n[Jeu]");
    pressGrid(map, 7150, 100);
    const std::string name = ReadIni("Carte01", "nom", Descriptor());
    EXPECT_EQ(name.find_first_of("\r\n"), std::string::npos);
    EXPECT_EQ(name.substr(0, 3) + name.substr(name.size() - 5), "two[Jeu]");
    EXPECT_EQ(ReadIni("Jeu", "cartes", Descriptor()), "1");
}

TEST_F(MapEditor, AnEmptyMapFileIsReportedAtEveryLoadAndNeverSaved)
{
    for (const char* content : {"", "missing"}) {
        SCOPED_TRACE(content);
        app.write("projets/demo/map01.map", content);
        if (*content != '\0') {
            app.remove("projets/demo/map01.map");
        }
        for (int load = 0; load < 3; ++load) { // twice while it opens, once for its creator
            answers.stop(invalidMap);
        }
        const QWidget& map = editor();
        answers.allCame();
        EXPECT_EQ(text(map, "Label4"), "");
        EXPECT_EQ(text(map, "Label5"), "");
        EXPECT_EQ(text(map, "Text1"), "Carte 1");
        const Snapshot before = app.snapshot();
        pressCell(map, 2, 2);
        EXPECT_EQ(Changes(before, app.snapshot()), "");
    }
}

TEST_F(MapEditor, AMapWithAFileThatCannotBeReadIsNotSaved)
{
    // A folder in place of the block file: no flags are read, and what lies there is not known.
    app.remove("projets/demo/map01.ev");
    std::filesystem::create_directory(app.at("projets/demo/map01.ev"));
    QWidget& map = editor();
    const Snapshot before = app.snapshot();
    pressCell(map, 2, 2);
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    EXPECT_EQ(text(map, "FootLine"),
              "Not saved: a file of this map cannot be read. Mend it and load the map again.");

    std::filesystem::remove(app.at("projets/demo/map01.ev"));
    click(map, "Command4");
    click(map, "Command6");
    click(map, "Command1");
    pressCell(map, 2, 2);
    EXPECT_NE(app.read("projets/demo/map01.ev"), "");
}

TEST_F(MapEditor, AFailedLoadKeepsTheGridAndTheNextGoodOneReplacesIt)
{
    WriteIni("Jeu", "cartes", "2", Descriptor());
    writeMap("01", savedMap("0101", grid({}, '1')), savedBlocks(grid()));
    const QWidget& map = editor();
    WriteIni("Carte02", "texture", "01", Descriptor());
    click(map, "Command4");
    click(map, "Command6");
    moveBar(map, "HScroll1", 2);
    answers.stop(invalidMap);
    click(map, "Command1");
    answers.allCame();
    awaitRedraw(map);
    EXPECT_EQ(cell(map, 8, 17), tile("01", 2));

    writeMap("02", savedMap("0202", grid({}, '2')), savedBlocks(grid()));
    click(map, "Command4");
    click(map, "Command6");
    click(map, "Command1");
    EXPECT_EQ(cell(map, 8, 17), tile("01", 3));
    pressGrid(map, 7150, 100);
    EXPECT_EQ(app.read("projets/demo/map02.map"), savedMap("0202", grid({}, '2')));
    EXPECT_EQ(app.read("projets/demo/map01.map"), savedMap("0101", grid({}, '1')));
}

TEST_F(MapEditor, AMissingBlockFileLoadsFreeCells)
{
    app.remove("projets/demo/map01.ev");
    const QWidget& map = editor();
    EXPECT_EQ(cell(map, 1, 1), tile("01", 1)); // no mark
    pressGrid(map, 7150, 100);
    std::string emptyRows;
    for (int row = 1; row <= 10; ++row) {
        emptyRows += "\r\n";
    }
    EXPECT_EQ(app.read("projets/demo/map01.ev"), emptyRows);
}

TEST_F(MapEditor, AProjectWithoutMapsGetsItsFirst)
{
    WriteIni("Jeu", "cartes", "0", Descriptor());
    app.remove("projets/demo/map01.map");
    app.remove("projets/demo/map01.ev");
    answers.message("There is no map, a new map will be automatically created");
    const QWidget& map = editor();
    EXPECT_EQ(ReadIni("Jeu", "cartes", Descriptor()), "01");
    EXPECT_EQ(app.read("projets/demo/map01.map"), app.read("data/ftgmma.dat") + "\r\n");
    EXPECT_EQ(text(map, "Label4"), "01");
}

TEST_F(MapEditor, OnlyACountOfZeroMeansThatThereIsNoMap)
{
    for (const char* count : {"-1", "abc", "40000", "1000000000"}) {
        SCOPED_TRACE(count);
        WriteIni("Jeu", "cartes", count, Descriptor());
        const QWidget& map = editor(); // unasked
        const Snapshot before = app.snapshot();
        click(map, "Command4");
        answers.stop(noMapMade);
        click(map, "Command5");
        answers.allCame();
        EXPECT_FALSE(isVisible(map, "Frame3"));
        EXPECT_EQ(text(map, "Label1"), "01");
        EXPECT_EQ(Changes(before, app.snapshot()), "");
    }
}
