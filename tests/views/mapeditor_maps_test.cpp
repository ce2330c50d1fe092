#include "program.h"

#include "toolkit/scrollbar.h"

#include <QLabel>

class MapFrames : public Program
{
protected:
    MapFrames()
    {
        for (const char* tileset : {"01", "02", "03", "04"}) {
            addTiles(tileset, 4);
        }
        app.makeProject();
        openProject("demo");
        map = &view("mapeditor");
    }

    void setCount(const std::string& count) const { WriteIni("Jeu", "cartes", count, Descriptor()); }
    void newMap() const
    {
        click(*map, "Command4");
        click(*map, "Command5");
    }
    int upperBound(const char* bar) const { return control<ScrollBar>(*map, bar).maximum(); }
    QImage preview(int number) const
    {
        const std::string name = "Image" + std::to_string(number);
        const QPixmap picture = control<QLabel>(*map, name.c_str()).pixmap();
        return picture.toImage().convertToFormat(QImage::Format_RGB32);
    }

    QWidget* map = nullptr;
};

TEST_F(MapFrames, ButtonsShowAndHideTheirFrames)
{
    for (const bool shown : {true, false, true}) {
        click(*map, "Command4");
        EXPECT_EQ(isVisible(*map, "Frame3"), shown);
    }
    for (const bool shown : {true, false, true}) {
        click(*map, "Command6");
        EXPECT_EQ(isVisible(*map, "Frame1"), shown);
    }
    pressGrid(*map, 7150, 100); // a save hides the one
    EXPECT_FALSE(isVisible(*map, "Frame3"));
    EXPECT_TRUE(isVisible(*map, "Frame1"));
    click(*map, "Command4");
    click(*map, "Command1"); // a load both
    EXPECT_FALSE(isVisible(*map, "Frame3"));
    EXPECT_FALSE(isVisible(*map, "Frame1"));
}

TEST_F(MapFrames, NewMapAddsAMapAndLoadsIt)
{
    Snapshot expected = app.snapshot();
    newMap();
    expected["projets/demo/images/map02"] = expected["projets/demo/ev/map02"] = "folder";
    expected["projets/demo/images/map02/terrain.png"] = "sheet 01";
    expected["projets/demo/map02.map"] = app.read("data/ftgmma.dat") + "\r\n";
    expected["projets/demo/map02.ev"] = app.read("data/ftgmev.dat") + "\r\n";
    std::string& descriptor = expected["projets/demo/projet.ini"];
    descriptor.replace(descriptor.find("cartes=1"), 8, "cartes=02");
    descriptor += "[Carte02]\r\ntexture=01\r\nnom=Carte 1\r\n";
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
    EXPECT_EQ(text(*map, "Label1"), "02");
    EXPECT_FALSE(isVisible(*map, "Frame3"));
    moveBar(*map, "Choixtext", 3);
    pressCell(*map, 1, 1);
    EXPECT_EQ(app.read("projets/demo/map02.map"), savedMap("0101", grid({{1, 1, '2'}})));

    setCount("9");
    newMap();
    EXPECT_EQ(text(*map, "Label1"), "10");
    EXPECT_EQ(ReadIni("Jeu", "cartes", Descriptor()), "10");
}

TEST_F(MapFrames, ANewMapThatCannotBeMadeLeavesTheCountAndSaysWhy)
{
    app.write("projets/demo/images/map02", "a file in the way");
    answers.stop("No map was made.\nFile exists (map02)");
    newMap();
    answers.allCame();
    app.remove("projets/demo/images/map02");
    app.remove("data/images/terrains/terrain01/terrain01.png");
    answers.stop("No map was made.\nNo such file or directory (terrain01.png)");
    newMap();
    answers.allCame();
    setCount("32767");
    answers.stop("No map was made.\nThe project holds as many maps as it can.");
    newMap();
    EXPECT_EQ(ReadIni("Jeu", "cartes", Descriptor()), "32767");
    EXPECT_EQ(text(*map, "Label1"), "01");
}

TEST_F(MapFrames, TheChooserNamesAMapAndOkLoadsIt)
{
    setCount("5");
    WriteIni("Carte03", "nom", "Cave", Descriptor());
    app.write("projets/demo/map03.map", savedMap("0704", grid()));
    click(*map, "Command4");
    click(*map, "Command6");
    EXPECT_EQ(text(*map, "Label3"), "Unnamed");
    keys(control(*map, "HScroll1"), {Qt::Key_Right, Qt::Key_Right});
    EXPECT_EQ(text(*map, "Label3"), "Cave");
    EXPECT_EQ(text(*map, "Label1"), "03");
    EXPECT_EQ(text(*map, "Label4"), "01"); // nothing is loaded yet
    click(*map, "Command1");
    EXPECT_EQ(text(*map, "Label4"), "07");
    EXPECT_EQ(text(*map, "Text1"), "Cave");
}

TEST_F(MapFrames, AFirstMoveBeyondTheLastMapLeavesAMapFieldThatCannotBeLoaded)
{
    setCount("2");
    click(*map, "Command4");
    click(*map, "Command6");
    moveBar(*map, "HScroll1", 3);
    EXPECT_EQ(upperBound("HScroll1"), 2);
    EXPECT_EQ(control<ScrollBar>(*map, "HScroll1").value(), 2);
    EXPECT_EQ(text(*map, "Label1"), "03");
    EXPECT_EQ(text(*map, "Label3"), "");
    answers.stop(invalidMap);
    click(*map, "Command1");
}

TEST_F(MapFrames, AChooserWithoutACountStaysAtTheFirstMap)
{
    for (const char* count : {"", "-1", "abc", "40000", "1000000000"}) {
        setCount(count);
        control<ScrollBar>(*map, "HScroll1").setMaximum(9);
        moveBar(*map, "HScroll1", 2);
        EXPECT_EQ(upperBound("HScroll1"), 1) << count;
    }
}

TEST_F(MapFrames, ChangeTextureCountsTheTilesetsUpToTheFirstGap)
{
    addTiles("06", 1); // behind the gap
    click(*map, "Command11");
    EXPECT_TRUE(isVisible(*map, "Frame4"));
    EXPECT_EQ(upperBound("HScroll2"), 4);
    addTiles("05", 1);
    click(*map, "Command11"); // hides the frame and counts again
    EXPECT_FALSE(isVisible(*map, "Frame4"));
    EXPECT_EQ(upperBound("HScroll2"), 6);
    app.write("data/images/terrains/terrain02/texture.ini", "[texture]\r\nnbimg=\r\n");
    click(*map, "Command11");
    EXPECT_EQ(upperBound("HScroll2"), 1);
}

TEST_F(MapFrames, AChosenTilesetShowsItsFirstFourTiles)
{
    app.remove("data/images/terrains/terrain03/terrain02.JPG");
    click(*map, "Command11");
    EXPECT_EQ(preview(1), tile("01", 1)); // before a first move
    for (const int tileset : {2, 3}) {
        moveBar(*map, "HScroll2", tileset);
        for (int number = 1; number <= 4; ++number) {
            EXPECT_EQ(preview(number), tile("0" + std::to_string(tileset), number)) << tileset << number;
        }
    }
    EXPECT_TRUE(preview(2).isNull());
}

TEST_F(MapFrames, OkGivesTheMapItsTileset)
{
    click(*map, "Command11");
    moveBar(*map, "HScroll2", 2);
    Snapshot expected = app.snapshot();
    click(*map, "Command14");
    std::string& descriptor = expected["projets/demo/projet.ini"];
    descriptor.replace(descriptor.find("texture=01"), 10, "texture=02");
    expected["projets/demo/images/map01/terrain.png"] = "sheet 02";
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
    EXPECT_FALSE(isVisible(*map, "Frame4"));
    EXPECT_EQ(cell(*map, 1, 1), tile("02", 1));
}

TEST_F(MapFrames, ASheetThatCannotBeCopiedIsToldAndTheTilesetTaken)
{
    app.remove("data/images/terrains/terrain02/terrain01.png");
    click(*map, "Command11");
    moveBar(*map, "HScroll2", 2);
    answers.stop(
        "The tileset's picture was not copied for the game.\nNo such file or directory (terrain01.png)");
    click(*map, "Command14");
    EXPECT_EQ(ReadIni("Carte01", "texture", Descriptor()), "02");
    EXPECT_EQ(app.read("projets/demo/images/map01/terrain.png"), "sheet 01");
    EXPECT_EQ(cell(*map, 1, 1), tile("02", 1));
}
