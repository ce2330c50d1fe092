#include "program.h"

#include "toolkit/scrollbar.h"

#include <QLabel>
#include <QRadioButton>
#include <QTest>

class Painting : public Program
{
protected:
    Painting()
    {
        addTiles("01", 5);
        app.makeProject();
        openProject("demo");
        map = &view("mapeditor");
    }

    std::string savedTiles() const { return app.read("projets/demo/map01.map"); }
    std::string savedFlags() const { return app.read("projets/demo/map01.ev"); }
    bool isChosen(const char* mode) const { return control<QRadioButton>(*map, mode).isChecked(); }
    int upperBound(const char* bar) const { return control<ScrollBar>(*map, bar).maximum(); }
    QImage chosenTile() const
    {
        return control<QLabel>(*map, "Image5").pixmap().toImage().convertToFormat(QImage::Format_RGB32);
    }

    QWidget* map = nullptr;
};

TEST_F(Painting, AClickSetsTheChosenTileAndSaves)
{
    EXPECT_EQ(upperBound("Choixtext"), 5); // without a first move
    moveBar(*map, "Choixtext", 3);
    pressGrid(*map, 850, 100);
    EXPECT_EQ(savedTiles(), savedMap("0101", grid({{1, 3, '2'}})));
    EXPECT_EQ(cell(*map, 1, 3), tile("01", 3)); // redrawn at once
}

TEST_F(Painting, EveryMouseButtonAndTheSecondPressOfAPairPaint)
{
    control<QRadioButton>(*map, "Option1_1").click();
    QWidget& picture = control(*map, "CarteImg");
    QTest::mousePress(&picture, Qt::RightButton, {}, {5, 5});
    EXPECT_EQ(savedFlags(), savedBlocks(grid({{1, 1, '1'}})));
    QTest::mouseDClick(&picture, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(savedFlags(), savedBlocks(grid()));
}

TEST_F(Painting, BlocksTurnOneIntoZeroAndAllElseIntoOne)
{
    app.write("projets/demo/map01.ev", grid({{1, 2, 'x'}}));
    openProject("demo");
    map = &view("mapeditor");
    click(*map, "Option1_1");
    for (const char flag : {'1', '0', '1'}) {
        pressCell(*map, 8, 17);
        EXPECT_EQ(savedFlags(), savedBlocks(grid({{1, 2, 'x'}, {8, 17, flag}})));
    }
    pressCell(*map, 1, 2);
    EXPECT_EQ(savedFlags(), savedBlocks(grid({{1, 2, '1'}, {8, 17, '1'}})));
}

TEST_F(Painting, TheStripBelowTheGridIsANinthRow)
{
    click(*map, "Option1_1");
    pressGrid(*map, 6725, 3600);
    EXPECT_EQ(savedFlags(), grid() + "1\r\n\r\n");
    click(*map, "Option1_0");
    pressGrid(*map, 0, 3480);
    EXPECT_EQ(savedTiles(), "0101\r\n" + grid() + "0\r\n\r\n");
}

TEST_F(Painting, AClickBesideTheCellsChangesNothingAndSaves)
{
    moveBar(*map, "Choixtext", 3);
    app.remove("projets/demo/map01.map");
    app.remove("projets/demo/map01.ev");
    pressGrid(*map, 7150, 100);
    EXPECT_EQ(savedTiles(), savedMap("0101", grid()));
    EXPECT_EQ(savedFlags(), savedBlocks(grid()));
}

TEST_F(Painting, TheChooserShowsItsTileAndSelectsThePictureMode)
{
    click(*map, "Option1_1");
    keys(control(*map, "Choixtext"), {Qt::Key_Right});
    EXPECT_TRUE(isChosen("Option1_0"));
    EXPECT_EQ(chosenTile(), tile("01", 2));
    click(*map, "Option1_2");
    click(*map, "Image5");
    EXPECT_TRUE(isChosen("Option1_0"));
    WriteIni("texture", "nbimg", "4", app.at("data/images/terrains/terrain01/texture.ini"));
    moveBar(*map, "Choixtext", 5);
    EXPECT_EQ(upperBound("Choixtext"), 4);
}

TEST_F(Painting, ABrokenTileCountLeavesTheFirstTile)
{
    for (const char* count : {"", "0", "-1", "abc", "1000000000"}) {
        WriteIni("texture", "nbimg", count, app.at("data/images/terrains/terrain01/texture.ini"));
        openProject("demo");
        map = &view("mapeditor");
        EXPECT_EQ(upperBound("Choixtext"), 1) << count;
        moveBar(*map, "Choixtext", 2);
        pressCell(*map, 1, 1);
        EXPECT_EQ(savedTiles(), savedMap("0101", grid())) << count;
    }
}

TEST_F(Painting, TheHerosStartIsTheNextCellClicked)
{
    const Snapshot before = app.snapshot();
    answers.message("Click the box to the starting position of the hero on this map");
    click(*map, "Command9");
    click(*map, "Option1_2");
    pressCell(*map, 2, 15);
    EXPECT_EQ(text(*map, "Label4"), "15");
    EXPECT_EQ(text(*map, "Label5"), "2");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    EXPECT_FALSE(isVisible(*map, "Frame6")); // the mode's action did not run
    click(*map, "Option1_1");
    pressCell(*map, 1, 1);
    EXPECT_EQ(savedTiles(), savedMap("1502", grid()));
}

TEST_F(Painting, AClickBesideTheCellsLeavesTheHerosStartPending)
{
    answers.message("Click the box to the starting position of the hero on this map");
    click(*map, "Command9");
    pressGrid(*map, 7150, 100);
    EXPECT_EQ(text(*map, "Label4"), "01");
    pressCell(*map, 9, 17);
    EXPECT_EQ(text(*map, "Label4"), "17");
    EXPECT_EQ(text(*map, "Label5"), "9");
}

TEST_F(Painting, ResetAsksAndEmptiesTheEventsOfTheEightRows)
{
    for (const char* name : {"ev11", "ev817", "ev91"}) {
        app.write(std::string("projets/demo/ev/map01/") + name, "\r\nline\r\n");
    }
    moveBar(*map, "Choixtext", 3);
    pressCell(*map, 1, 3);
    const Snapshot before = app.snapshot();
    answers.question(" Are you sure you want to return the card to zero?", Reply::No);
    click(*map, "Command10");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    awaitRedraw(*map);
    EXPECT_EQ(cell(*map, 1, 3), tile("01", 3));

    answers.question(" Are you sure you want to return the card to zero?", Reply::Yes);
    click(*map, "Command10");
    Snapshot expected = before;
    for (int row = 1; row <= 8; ++row) {
        for (int column = 1; column <= 17; ++column) {
            expected["projets/demo/ev/map01/ev" + std::to_string(row) + std::to_string(column)] = "\r\n";
        }
    }
    EXPECT_EQ(Changes(expected, app.snapshot()), ""); // the map's files among them
    awaitRedraw(*map);
    EXPECT_EQ(cell(*map, 1, 3), tile("01", 1));
    pressGrid(*map, 7150, 100);
    const std::string ninth = std::string(17, '0') + "\r\n\r\n";
    EXPECT_EQ(savedTiles(), "0101\r\n" + grid() + ninth);
    EXPECT_EQ(savedFlags(), grid() + ninth);
}

TEST_F(Painting, TheSizeBarsShowTheirValuesAndBoundTheBarsOfThePicture)
{
    EXPECT_EQ(text(*map, "Label15"), "Width : 17");
    EXPECT_EQ(text(*map, "Label16"), "Height : 8");
    keys(control(*map, "HScroll5"), {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right});
    EXPECT_EQ(text(*map, "Label15"), "Largeur = 20");
    EXPECT_EQ(upperBound("HScroll4"), 4);
    keys(control(*map, "HScroll6"), {Qt::Key_End});
    EXPECT_EQ(text(*map, "Label16"), "Hauteur = 50");
    EXPECT_EQ(upperBound("VScroll1"), 43);
    const Snapshot before = app.snapshot();
    keys(control(*map, "HScroll4"), {Qt::Key_End});
    awaitRedraw(*map);
    EXPECT_EQ(cell(*map, 1, 1), tile("01", 1));
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}
