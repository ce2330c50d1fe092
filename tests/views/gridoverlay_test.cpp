// What helps an author at the grid: marks, words, the palette of tiles, keys, and what screen readers hear.
#include "mapview.h"

#include "maps/tilepalette.h"

#include <QAccessible>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;

class Grid : public MapView
{
protected:
    Grid()
    {
        addTiles("01", 7);
        app.write("projets/demo/map01.map", savedMap("1508", grid({{2, 5, '3'}})));
        app.write("projets/demo/map01.ev", savedBlocks(grid({{2, 5, '1'}})));
        app.write("projets/demo/ev/map01/ev25", "\r\nline\r\n");
        app.write("projets/demo/ev/map01/ev26", "\r\n");
        open();
        picture = &control(*map, "CarteImg");
    }

    void point(int row, int column) const { QTest::mouseMove(picture, {column * 28 - 14, row * 29 - 14}); }
    /// Whether a cell as the author sees it differs from its picture.
    bool isMarked(int row, int column) const
    {
        const QRect place((column - 1) * 28, (row - 1) * 29, 28, 29);
        const QImage seen = picture->parentWidget()->grab(place).toImage();
        return seen.convertToFormat(QImage::Format_RGB32) != cell(*map, row, column);
    }
    void walk(std::initializer_list<Qt::Key> pressed) const
    {
        picture->setFocus();
        keys(*picture, pressed);
    }
    /// Gives a cell an event, from any view.
    static void addEvent(const QWidget& editor, int row, int column)
    {
        click(editor, "Option1_2");
        pressCell(editor, row, column);
        click(editor, "Command15");
        click(editor, "Command2");
    }
    TilePalette& palette() const { return control<TilePalette>(*map, "Palette"); }
    void pickTile(int tile) const
    {
        QTest::mouseClick(palette().viewport(), Qt::LeftButton, {}, palette().placeOf(tile).center());
    }
    int chosen() const { return control<ScrollBar>(*map, "Choixtext").value(); }

    QWidget* picture = nullptr;
};

TEST_F(Grid, MarksLieOverThePictureAndNeverInIt)
{
    awaitRedraw(*map);
    const QImage before = picture->grab().toImage();
    point(3, 4);
    EXPECT_TRUE(isMarked(3, 4));
    point(4, 4);
    EXPECT_FALSE(isMarked(3, 4));
    walk({Qt::Key_Right});
    EXPECT_TRUE(isMarked(1, 2));
    control(*map, "Choixtext").setFocus();
    EXPECT_FALSE(isMarked(1, 2));
    EXPECT_FALSE(isMarked(2, 5));
    click(*map, "Option1_2");
    EXPECT_TRUE(isMarked(2, 5)); // an event
    pressCell(*map, 3, 6);
    EXPECT_TRUE(isMarked(3, 6)); // the open cell
    awaitRedraw(*map);
    EXPECT_EQ(picture->grab().toImage(), before);
    click(*map, "Command20");
    EXPECT_FALSE(isMarked(3, 6));
    click(*map, "Option1_0");
    EXPECT_FALSE(isMarked(2, 5));
}

TEST_F(Grid, TheHerosStartIsTheNextCellClickedAndMarked)
{
    EXPECT_TRUE(isMarked(8, 15));
    askForStart();
    EXPECT_EQ(mainform->focusWidget(), picture);
    click(*map, "Option1_2");
    saveMap(); // a click beside the cells leaves it pending
    EXPECT_EQ(start(), "15 08");
    EXPECT_EQ(changes([&] { pressCell(*map, 2, 15); }), "");
    EXPECT_EQ(start(), "15 2");
    EXPECT_FALSE(isVisible(*map, "Frame6")); // the mode's action did not run
    EXPECT_FALSE(isMarked(8, 15));
    EXPECT_TRUE(isMarked(2, 15));
}

TEST_F(Grid, EventsAreMarkedAnewAfterTheyAreSavedOrReset)
{
    click(*map, "Option1_2");
    EXPECT_FALSE(isMarked(2, 6)); // an event file without an entry
    addEvent(*map, 2, 6);
    EXPECT_TRUE(isMarked(2, 6));
    reset();
    EXPECT_FALSE(isMarked(2, 5));
    app.write("projets/demo/ev/map01/ev33", "\r\nline\r\n");
    click(*map, "Option1_0");
    click(*map, "Option1_2");
    EXPECT_TRUE(isMarked(3, 3));
    doubleClickLine(view("Controlpanel"), "List1", 0);
    addEvent(view("mapeditor"), 4, 4);
    activate(*map);
    EXPECT_TRUE(isMarked(4, 4));
}

TEST_F(Grid, TheFootTellsTheCellUnderThePointer)
{
    point(2, 5);
    EXPECT_EQ(foot(), "Row 2, column 5: tile 4, blocked, event");
    point(8, 15);
    EXPECT_EQ(foot(), "Row 8, column 15: tile 1, start of the hero");
    QTest::mouseMove(picture, QPoint(479, 100)); // right of the cells
    EXPECT_EQ(foot(), "");
}

TEST_F(Grid, ATileOfThePaletteIsChosenAsByTheChooser)
{
    for (int time = 0; time < 2; ++time) { // the second picks the one that is chosen
        click(*map, "Option1_1");
        pickTile(6);
        EXPECT_EQ(chosen(), 6);
        EXPECT_TRUE(control<QRadioButton>(*map, "Option1_0").isChecked());
    }
    pickTile(8); // there is none
    EXPECT_EQ(chosen(), 6);
    keys(palette(), {Qt::Key_Home, Qt::Key_Right, Qt::Key_Right, Qt::Key_Up});
    EXPECT_EQ(chosen(), 3);
    keys(palette(), {Qt::Key_Left, Qt::Key_Left, Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(chosen(), 6);
    keys(palette(), {Qt::Key_End, Qt::Key_Up});
    EXPECT_EQ(chosen(), 2);
}

TEST_F(Grid, ThePaletteFollowsTheTilesetAndTheChooser)
{
    addTiles("02", 60);
    WriteIni("Carte01", "texture", "02", Descriptor());
    awaitRedraw(*map);
    chooseTile(60); // which was out of sight
    const QPixmap shown = palette().viewport()->grab(palette().placeOf(60));
    EXPECT_EQ(shown.toImage().convertToFormat(QImage::Format_RGB32), tile("02", 60));
    pickTile(58);
    EXPECT_EQ(chosen(), 58);
}

TEST_F(Grid, KeysWalkTheGridAndClickTheirCell)
{
    chooseTile(2);
    walk({Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left, Qt::Key_Space});
    EXPECT_EQ(tiles(), savedMap("1508", grid({{2, 1, '1'}, {2, 5, '3'}})));
    click(*map, "Option1_1");
    pressCell(*map, 8, 16);
    walk({Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(foot(), "Row 9, column 17: tile 1, blocked");
    EXPECT_TRUE(isMarked(9, 17));
}

TEST_F(Grid, IsATableOfCellsForScreenReaders)
{
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(picture);
    ASSERT_EQ(table->role(), QAccessible::Table);
    ASSERT_EQ(table->childCount(), 153);
    QAccessibleInterface* second = table->child(17 + 4);
    EXPECT_EQ(second->text(QAccessible::Name), u"Row 2, column 5: tile 4, blocked, event"_s);
    EXPECT_EQ(second->rect(), QRect(picture->mapToGlobal(QPoint(4 * 28, 29)), QSize(28, 29)));
    EXPECT_EQ(table->childAt(second->rect().center().x(), second->rect().center().y()), second);
    EXPECT_EQ(table->indexOfChild(second), 17 + 4);
    walk({Qt::Key_Down});
    EXPECT_EQ(table->focusChild(), table->child(17));
    EXPECT_TRUE(table->child(17)->state().focused);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(tiles(), savedMap("1508", grid()));
    EXPECT_TRUE(table->rect().contains(table->child(152)->rect()));
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&control(*map, "GridMarks"))->state().invisible);
}

TEST_F(Grid, ThePaletteIsAValueForScreenReaders)
{
    QAccessibleValueInterface* value = QAccessible::queryAccessibleInterface(&palette())->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->maximumValue(), 7);
    for (const auto& [wanted, found] : {std::pair{6, 6}, {8, 6}, {0, 6}, {1, 1}}) {
        value->setCurrentValue(wanted);
        EXPECT_EQ(value->currentValue(), found);
    }
}
