// What a click on the grid does, the configuration beside it, and the picture that is drawn of the map.
#include "mapview.h"

#include <QBitmap>
#include <QLabel>
#include <QRadioButton>
#include <QRegion>
#include <QTest>
#include <sys/stat.h>

class Painting : public MapView
{
protected:
    Painting() { open(); }

    bool paintsTiles() const { return control<QRadioButton>(*map, "Option1_0").isChecked(); }
};

TEST_F(Painting, AClickSetsTheChosenTileAndSavesEvenBelowTheGrid)
{
    EXPECT_EQ(bound("Choixtext"), 10); // without a first move
    chooseTile(3);
    pressGrid(*map, 850, 100);
    EXPECT_EQ(cell(*map, 1, 3), tile("01", 3)); // redrawn at once
    pressGrid(*map, 0, 3480);                   // the strip below the grid is a ninth row
    EXPECT_EQ(tiles(), "0101\r\n" + grid({{1, 3, '2'}}) + "2\r\n\r\n");
}

TEST_F(Painting, EveryMouseButtonAndTheSecondPressOfAPairToggleABlock)
{
    click(*map, "Option1_1");
    QWidget& picture = control(*map, "CarteImg");
    QTest::mousePress(&picture, Qt::RightButton, {}, {5, 5});
    EXPECT_EQ(blocks(), savedBlocks(grid({{1, 1, '1'}})));
    QTest::mouseDClick(&picture, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(blocks(), savedBlocks(grid()));
}

TEST_F(Painting, TheChooserShowsItsTileAndSelectsThePictureMode)
{
    click(*map, "Option1_1");
    keys(control(*map, "Choixtext"), {Qt::Key_Right});
    EXPECT_TRUE(paintsTiles());
    const QImage shown = control<QLabel>(*map, "Image5").pixmap().toImage();
    EXPECT_EQ(shown.convertToFormat(QImage::Format_RGB32), tile("01", 2));
    click(*map, "Option1_2");
    click(*map, "Image5");
    EXPECT_TRUE(paintsTiles());
}

TEST_F(Painting, ResetAsksAndEmptiesTheEventsAndTheMap)
{
    app.write("projets/demo/ev/map01/ev11", "\r\nline\r\n");
    chooseTile(3);
    pressCell(*map, 1, 3);
    const std::string painted = tiles();
    EXPECT_EQ(changes([&] { reset(Reply::No); }), "");
    reset();
    EXPECT_EQ(app.read("projets/demo/ev/map01/ev11"), "\r\n");
    EXPECT_EQ(tiles(), painted); // until the next click saves it
    saveMap();
    const std::string ninth = std::string(17, '0') + "\r\n\r\n";
    EXPECT_EQ(tiles(), "0101\r\n" + grid() + ninth);
    EXPECT_EQ(blocks(), grid() + ninth);
}

TEST_F(Painting, TheSizeBarsShowTheirValuesAndBoundTheBarsOfThePicture)
{
    EXPECT_EQ(text(*map, "Label15") + ", " + text(*map, "Label16"), "Width : 17, Height : 8");
    keys(control(*map, "HScroll5"), {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right});
    keys(control(*map, "HScroll6"), {Qt::Key_End});
    EXPECT_EQ(text(*map, "Label15") + ", " + text(*map, "Label16"), "Largeur = 20, Hauteur = 50");
    EXPECT_EQ(bound("HScroll4"), 4);
    EXPECT_EQ(bound("VScroll1"), 43);
}

class MapPicture : public MapView
{
protected:
    void show(const std::string& rows, const std::string& blockRows = grid())
    {
        app.write("projets/demo/map01.map", savedMap("0101", rows));
        app.write("projets/demo/map01.ev", savedBlocks(blockRows));
        open();
    }

    /// The part of a cell that is white: its mark.
    QRect mark(int row, int column) const
    {
        const QImage white =
            cell(*map, row, column).createMaskFromColor(qRgb(255, 255, 255), Qt::MaskOutColor);
        return QRegion(QBitmap::fromImage(white)).boundingRect();
    }
};

TEST_F(MapPicture, ACellWhoseTileCannotBeDrawnKeepsWhatItShowed)
{
    app.write("data/images/terrains/terrain01/terrain06.JPG", "");
    app.write("data/images/terrains/terrain01/terrain07.JPG", "no picture");
    app.remove("data/images/terrains/terrain01/terrain08.JPG");
    app.remove("data/images/terrains/terrain01/terrain09.JPG");
    ASSERT_EQ(::mkfifo(app.at("data/images/terrains/terrain01/terrain09.JPG").c_str(), 0600), 0);
    show(grid({}, '1'));
    app.write("projets/demo/map01.map", "0101\r\n5678x-" + std::string(11, '2') + "\r\n");
    load();
    for (int column = 1; column <= 7; ++column) {
        EXPECT_EQ(cell(*map, 1, column), tile("01", column == 7 ? 3 : 2)) << column;
    }
}

TEST_F(MapPicture, TheMarkOfABlockedCellStandsInsetExceptRightAfterALoad)
{
    show(grid(), grid({{3, 2, '1'}, {3, 3, '2'}}));
    EXPECT_TRUE(mark(3, 3).isEmpty()); // only "1" blocks
    const QRect atLoad = mark(3, 2);
    EXPECT_GT(atLoad.height(), 5);
    awaitRedraw(*map);
    EXPECT_EQ(mark(3, 2), atLoad.translated(5, 0)); // 75 twips
}

TEST_F(MapPicture, EveryRedrawReadsTheTilesetOfTheMapThatTheFieldNames)
{
    addTiles("02", 2);
    setCount("3");
    WriteIni("Carte03", "texture", "02", Descriptor());
    show(grid({{1, 2, '1'}, {1, 3, '2'}}));
    EXPECT_EQ(cell(*map, 1, 1), tile("01", 1));
    moveBar(*map, "HScroll1", 3);
    awaitRedraw(*map);
    EXPECT_EQ(bound("Choixtext"), 2);
    for (const char* noTileset : {"02", "", "99", "../terrain01"}) {
        WriteIni("Carte03", "texture", noTileset, Descriptor());
        awaitRedraw(*map);
        EXPECT_EQ(cell(*map, 1, 1), tile("02", 1)) << noTileset;
        EXPECT_EQ(cell(*map, 1, 2), tile("02", 2)) << noTileset;
        EXPECT_EQ(cell(*map, 1, 3), tile("01", 3)) << noTileset; // there is no third tile
    }
    click(*map, "Option1_1");
    pressCell(*map, 1, 1);
    EXPECT_EQ(blocks(), savedBlocks(grid({{1, 1, '1'}}))); // the map that it holds
    EXPECT_FALSE(app.has("projets/demo/map03.ev"));
}
