#include "program.h"

#include <QRect>

class MapPicture : public Program
{
protected:
    MapPicture()
    {
        addTiles("01", 10);
        addTiles("02", 2);
        app.makeProject();
    }

    const QWidget& editor(const std::string& rows, const std::string& blocks = grid())
    {
        app.write("projets/demo/map01.map", savedMap("0101", rows));
        app.write("projets/demo/map01.ev", savedBlocks(blocks));
        openProject("demo");
        return view("mapeditor");
    }
};

namespace
{

/// The part of two pictures of one size in which they differ.
QRect difference(const QImage& one, const QImage& other)
{
    QRect part;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            part |= one.pixel(x, y) == other.pixel(x, y) ? QRect() : QRect(x, y, 1, 1);
        }
    }
    return part;
}

int brightest(const QImage& picture)
{
    int value = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            value = std::max(value, qGray(picture.pixel(x, y)));
        }
    }
    return value;
}

} // namespace

TEST_F(MapPicture, ShowsEachCellsTileInItsPlace)
{
    const QWidget& map = editor(grid({{1, 1, '2'}, {1, 17, '9'}, {4, 6, '1'}, {8, 1, '3'}, {8, 17, '8'}}));
    for (const auto& [row, column, number] :
         {std::array{1, 1, 3}, {1, 17, 10}, {4, 6, 2}, {8, 1, 4}, {8, 17, 9}, {1, 2, 1}, {7, 17, 1}}) {
        EXPECT_EQ(cell(map, row, column), tile("01", number)) << row << ' ' << column;
    }
}

TEST_F(MapPicture, ACellWhoseTileCannotBeDrawnKeepsWhatItShowed)
{
    app.write("data/images/terrains/terrain01/terrain06.JPG", "");
    app.write("data/images/terrains/terrain01/terrain07.JPG", "no picture");
    app.remove("data/images/terrains/terrain01/terrain08.JPG");
    const QWidget& map = editor(grid({}, '1'));
    app.write("projets/demo/map01.map",
              savedMap("0101", grid({{1, 1, '5'}, {1, 2, '6'}, {1, 3, '7'}, {1, 4, 'x'}, {1, 5, '-'}}, '2')));
    click(map, "Command4");
    click(map, "Command6");
    click(map, "Command1");
    for (int column = 1; column <= 5; ++column) {
        EXPECT_EQ(cell(map, 1, column), tile("01", 2)) << column;
    }
    EXPECT_EQ(cell(map, 1, 6), tile("01", 3));
}

TEST_F(MapPicture, TheMarkOfABlockedCellStandsInsetExceptRightAfterALoad)
{
    const QWidget& map = editor(grid(), grid({{1, 1, '1'}, {3, 2, '1'}, {3, 3, '2'}}));
    awaitRedraw(map);
    for (const auto& [row, column] : {std::pair{1, 1}, {3, 2}}) {
        const QRect inset = difference(cell(map, row, column), tile("01", 1));
        EXPECT_GE(inset.left(), 5); // 75 twips
        EXPECT_GT(brightest(cell(map, row, column)), 200);
        click(map, "Command4");
        click(map, "Command6");
        click(map, "Command1");
        EXPECT_EQ(difference(cell(map, row, column), tile("01", 1)), inset.translated(-5, 0));
        awaitRedraw(map);
        EXPECT_EQ(difference(cell(map, row, column), tile("01", 1)), inset);
    }
    EXPECT_EQ(cell(map, 3, 3), tile("01", 1)); // only "1" blocks
}

TEST_F(MapPicture, AMarkTakenAwayVanishesUnderTheTile)
{
    const QWidget& map = editor(grid(), grid({{2, 2, '1'}}));
    awaitRedraw(map);
    EXPECT_NE(cell(map, 2, 2), tile("01", 1));
    click(map, "Option1_1");
    pressCell(map, 2, 2);
    EXPECT_EQ(cell(map, 2, 2), tile("01", 1));
}

TEST_F(MapPicture, EveryRedrawReadsTheTilesetAnew)
{
    const QWidget& map = editor(grid({{1, 2, '1'}, {1, 3, '2'}}));
    EXPECT_EQ(cell(map, 1, 1), tile("01", 1));
    WriteIni("Carte01", "texture", "02", Descriptor());
    awaitRedraw(map);
    EXPECT_EQ(cell(map, 1, 1), tile("02", 1));
    EXPECT_EQ(cell(map, 1, 2), tile("02", 2));
    EXPECT_EQ(cell(map, 1, 3), tile("01", 3)); // tileset 02 has no third tile
    moveBar(map, "Choixtext", 9);
    EXPECT_EQ(control(map, "Choixtext").property("maximum").toInt(), 2);
    for (const char* broken : {"", "99", "../terrain01", "01/../02"}) {
        WriteIni("Carte01", "texture", broken, Descriptor());
        awaitRedraw(map);
        EXPECT_EQ(cell(map, 1, 1), tile("02", 1)) << broken;
    }
}

TEST_F(MapPicture, TheMapFieldGivesTheTilesetAndTheHeldMapTheFile)
{
    WriteIni("Jeu", "cartes", "3", Descriptor());
    WriteIni("Carte03", "texture", "02", Descriptor());
    const QWidget& map = editor(grid());
    click(map, "Command4");
    click(map, "Command6");
    moveBar(map, "HScroll1", 3);
    EXPECT_EQ(text(map, "Label1"), "03");
    awaitRedraw(map);
    EXPECT_EQ(cell(map, 1, 1), tile("02", 1));
    click(map, "Option1_1");
    pressCell(map, 1, 1);
    EXPECT_EQ(app.read("projets/demo/map01.ev"), savedBlocks(grid({{1, 1, '1'}})));
    EXPECT_FALSE(app.has("projets/demo/map03.ev"));
}

TEST_F(MapPicture, TheStripsBesideTheCellsTakeTheDesktopsColour)
{
    QWidget& picture = control(editor(grid()), "CarteImg");
    for (const QColor colour : {QColor(20, 20, 20), QColor(240, 240, 200)}) {
        QPalette dressed = picture.palette();
        dressed.setColor(QPalette::Window, colour);
        picture.setPalette(dressed);
        EXPECT_EQ(picture.grab().toImage().pixelColor(478, 10), colour);
        EXPECT_EQ(picture.grab().toImage().pixelColor(10, 240), colour);
    }
}

TEST_F(MapPicture, TheRowBelowTheEighthIsNeverDrawn)
{
    const QWidget& map = editor(grid());
    const QImage before = control(map, "CarteImg").grab(QRect(0, 232, 476, 17)).toImage();
    click(map, "Option1_1");
    pressGrid(map, 210, 3600);
    awaitRedraw(map);
    EXPECT_EQ(control(map, "CarteImg").grab(QRect(0, 232, 476, 17)).toImage(), before);
}
