// The frames with which a view changes its map and the tileset of this.
#include "mapview.h"

#include <QLabel>

class MapFrames : public MapView
{
protected:
    MapFrames()
    {
        addTiles("02", 4);
        addTiles("03", 4);
        open();
    }

    QImage preview(int number) const
    {
        const std::string name = "Image" + std::to_string(number);
        const QPixmap picture = control<QLabel>(*map, name.c_str()).pixmap();
        return picture.toImage().convertToFormat(QImage::Format_RGB32);
    }
};

TEST_F(MapFrames, TheChooserNamesAMapAndOkLoadsIt)
{
    setCount("5");
    WriteIni("Carte03", "nom", "Cave", Descriptor());
    app.write("projets/demo/map03.map", savedMap("0704", grid()));
    EXPECT_EQ(text(*map, "Label3"), "Unnamed");
    keys(control(*map, "HScroll1"), {Qt::Key_Right, Qt::Key_Right});
    EXPECT_EQ(text(*map, "Label1") + text(*map, "Label3"), "03Cave");
    EXPECT_EQ(start(), "01 01"); // nothing is loaded yet
    load();
    EXPECT_EQ(start(), "07 04");
    EXPECT_EQ(text(*map, "Text1"), "Cave");
    EXPECT_FALSE(isVisible(*map, "Frame1"));
}

TEST_F(MapFrames, AMoveOfTheChooserBeyondTheLastMapNamesAMapThatCannotBeLoaded)
{
    for (const auto& [count, last] : {std::pair{"2", 2}, {"", 1}, {"40000", 1}}) {
        SCOPED_TRACE(count);
        setCount(count);
        control<ScrollBar>(*map, "HScroll1").setMaximum(9);
        moveBar(*map, "HScroll1", 3);
        EXPECT_EQ(bound("HScroll1"), last);
        EXPECT_EQ(text(*map, "Label1") + text(*map, "Label3"), "03");
        answers.stop(invalidMap);
        load();
        answers.allCame();
    }
}

TEST_F(MapFrames, ChangeTextureOffersTheTilesetsByTheirFirstFourTiles)
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
    EXPECT_EQ(bound("HScroll2"), 3);
    addTiles("04", 1);
    click(*map, "Command11"); // hides the frame and counts again
    EXPECT_FALSE(isVisible(*map, "Frame4"));
    EXPECT_EQ(bound("HScroll2"), 4);
}

TEST_F(MapFrames, ATilesetWhosePictureIsMissingIsTakenAllTheSameAndSaysSo)
{
    app.remove("data/images/terrains/terrain03/terrain01.png");
    click(*map, "Command11");
    moveBar(*map, "HScroll2", 3);
    Snapshot expected = app.snapshot();
    answers.stop(
        "The tileset's picture was not copied for the game.\nNo such file or directory (terrain01.png)");
    click(*map, "Command14");
    std::string& descriptor = expected["projets/demo/projet.ini"];
    descriptor.replace(descriptor.find("texture=01"), 10, "texture=03");
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
    EXPECT_EQ(cell(*map, 1, 1), tile("03", 1));
}
