// What a click on the grid does, the configuration beside it, and the picture that is drawn of the map.
#include "mapview.h"

#include <QLabel>
#include <QRadioButton>
#include <QRect>
#include <QTest>
#include <sys/stat.h>

class Painting : public MapView
{
protected:
    Painting() { open(); }

    bool isChosen(const char* mode) const { return control<QRadioButton>(*map, mode).isChecked(); }
};

TEST_F(Painting, AClickSetsTheChosenTileAndSaves)
{
    EXPECT_EQ(bound("Choixtext"), 10); // without a first move
    chooseTile(3);
    pressGrid(*map, 850, 100);
    EXPECT_EQ(tiles(), savedMap("0101", grid({{1, 3, '2'}})));
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
    EXPECT_TRUE(isChosen("Option1_0"));
    const QImage shown = control<QLabel>(*map, "Image5").pixmap().toImage();
    EXPECT_EQ(shown.convertToFormat(QImage::Format_RGB32), tile("01", 2));
    click(*map, "Option1_2");
    click(*map, "Image5");
    EXPECT_TRUE(isChosen("Option1_0"));
    app.addTileset("01", "4");
    chooseTile(3);
    EXPECT_EQ(bound("Choixtext"), 4);
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
    awaitRedraw(*map);
    EXPECT_EQ(cell(*map, 1, 3), tile("01", 1));
    saveMap();
    const std::string ninth = std::string(17, '0') + "\r\n\r\n";
    EXPECT_EQ(tiles(), "0101\r\n" + grid() + ninth);
    EXPECT_EQ(blocks(), grid() + ninth);
}

TEST_F(Painting, TheSizeBarsShowTheirValuesAndBoundTheBarsOfThePicture)
{
    EXPECT_EQ(text(*map, "Label15"), "Width : 17");
    EXPECT_EQ(text(*map, "Label16"), "Height : 8");
    keys(control(*map, "HScroll5"), {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right});
    keys(control(*map, "HScroll6"), {Qt::Key_End});
    EXPECT_EQ(text(*map, "Label15"), "Largeur = 20");
    EXPECT_EQ(text(*map, "Label16"), "Hauteur = 50");
    EXPECT_EQ(bound("HScroll4"), 4);
    EXPECT_EQ(bound("VScroll1"), 43);
}

class MapPicture : public MapView
{
protected:
    MapPicture() { addTiles("02", 2); }

    void show(const std::string& rows, const std::string& blockRows = grid())
    {
        app.write("projets/demo/map01.map", savedMap("0101", rows));
        app.write("projets/demo/map01.ev", savedBlocks(blockRows));
        open();
    }

    /// The part of a cell that is bright: its mark.
    QRect mark(int row, int column) const
    {
        const QImage seen = cell(*map, row, column);
        QRect part;
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                part |= qGray(seen.pixel(x, y)) > 200 ? QRect(x, y, 1, 1) : QRect();
            }
        }
        return part;
    }
};

TEST_F(MapPicture, ShowsEachCellsTileInItsPlace)
{
    show(grid({{1, 1, '2'}, {1, 17, '9'}, {4, 6, '1'}, {8, 1, '3'}, {8, 17, '8'}}));
    for (const auto& [row, column, number] :
         {std::array{1, 1, 3}, {1, 17, 10}, {4, 6, 2}, {8, 1, 4}, {8, 17, 9}, {1, 2, 1}, {7, 17, 1}}) {
        EXPECT_EQ(cell(*map, row, column), tile("01", number)) << row << ' ' << column;
    }
}

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
    for (int column = 1; column <= 6; ++column) {
        EXPECT_EQ(cell(*map, 1, column), tile("01", 2)) << column;
    }
    EXPECT_EQ(cell(*map, 1, 7), tile("01", 3));
}

TEST_F(MapPicture, TheMarkOfABlockedCellStandsInsetExceptRightAfterALoad)
{
    show(grid(), grid({{1, 1, '1'}, {3, 2, '1'}, {3, 3, '2'}}));
    EXPECT_TRUE(mark(3, 3).isEmpty()); // only "1" blocks
    for (const auto& [row, column] : {std::pair{1, 1}, {3, 2}}) {
        awaitRedraw(*map);
        const QRect inset = mark(row, column);
        EXPECT_GE(inset.left(), 5); // 75 twips
        EXPECT_GT(inset.height(), 5);
        load();
        EXPECT_EQ(mark(row, column), inset.translated(-5, 0));
    }
    click(*map, "Option1_1");
    pressCell(*map, 1, 1);
    EXPECT_TRUE(mark(1, 1).isEmpty());
}

TEST_F(MapPicture, EveryRedrawReadsTheTilesetAnew)
{
    show(grid({{1, 2, '1'}, {1, 3, '2'}}));
    EXPECT_EQ(cell(*map, 1, 1), tile("01", 1));
    WriteIni("Carte01", "texture", "02", Descriptor());
    awaitRedraw(*map);
    EXPECT_EQ(bound("Choixtext"), 2);
    for (const char* noTileset : {"02", "", "99", "../terrain01"}) {
        WriteIni("Carte01", "texture", noTileset, Descriptor());
        awaitRedraw(*map);
        EXPECT_EQ(cell(*map, 1, 1), tile("02", 1)) << noTileset;
        EXPECT_EQ(cell(*map, 1, 2), tile("02", 2)) << noTileset;
        EXPECT_EQ(cell(*map, 1, 3), tile("01", 3)) << noTileset; // there is no third tile
    }
}

TEST_F(MapPicture, TheMapFieldGivesTheTilesetAndTheHeldMapTheFile)
{
    setCount("3");
    WriteIni("Carte03", "texture", "02", Descriptor());
    show(grid());
    moveBar(*map, "HScroll1", 3);
    awaitRedraw(*map);
    EXPECT_EQ(cell(*map, 1, 1), tile("02", 1));
    click(*map, "Option1_1");
    pressCell(*map, 1, 1);
    EXPECT_EQ(blocks(), savedBlocks(grid({{1, 1, '1'}})));
    EXPECT_FALSE(app.has("projets/demo/map03.ev"));
}

TEST_F(MapPicture, TheStripsBesideTheCellsTakeTheDesktopsColourWhateverTheNinthRowHolds)
{
    show(grid());
    click(*map, "Option1_1");
    pressGrid(*map, 210, 3600);
    awaitRedraw(*map);
    QWidget& picture = control(*map, "CarteImg");
    const QColor colour(20, 60, 20);
    QPalette dressed = picture.palette();
    dressed.setColor(QPalette::Window, colour);
    picture.setPalette(dressed);
    EXPECT_EQ(picture.grab().toImage().pixelColor(478, 10), colour);
    EXPECT_EQ(picture.grab().toImage().pixelColor(10, 240), colour);
}
