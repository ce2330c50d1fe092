// What helps an author at the grid: marks, words, the palette of tiles, keys, and what screen readers hear.
#include "program.h"

#include "maps/tilepalette.h"
#include "toolkit/scrollbar.h"

#include <functional>
#include <QAccessible>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

class Grid : public Program
{
protected:
    Grid()
    {
        addTiles("01", 7);
        addTiles("02", 60);
        app.makeProject();
        app.write("projets/demo/map01.map", savedMap("1508", grid({{2, 5, '3'}})));
        app.write("projets/demo/map01.ev", savedBlocks(grid({{2, 5, '1'}})));
        app.write("projets/demo/ev/map01/ev25", "\r\nline\r\n");
        app.write("projets/demo/ev/map01/ev26", "\r\n");
        openProject("demo");
        map = &view("mapeditor");
        picture = &control(*map, "CarteImg");
    }

    static QPoint middleOf(int row, int column) { return {column * 28 - 14, row * 29 - 14}; }
    void point(int row, int column) const { QTest::mouseMove(picture, middleOf(row, column)); }
    /// A cell as the author sees it, with the marks.
    QImage seen(int row, int column) const
    {
        const QRect place((column - 1) * 28, (row - 1) * 29, 28, 29);
        return picture->parentWidget()->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
    }
    bool isMarked(int row, int column) const { return seen(row, column) != cell(*map, row, column); }
    std::string foot() const { return text(*map, "FootLine"); }
    std::string savedTiles() const { return app.read("projets/demo/map01.map"); }
    void walk(std::initializer_list<Qt::Key> pressed) const
    {
        picture->setFocus();
        keys(*picture, pressed);
    }
    TilePalette& palette() const { return control<TilePalette>(*map, "Palette"); }
    void pickTile(int tile) const
    {
        QTest::mouseClick(palette().viewport(), Qt::LeftButton, {}, palette().placeOf(tile).center());
    }

    QWidget* map = nullptr;
    QWidget* picture = nullptr;
};

TEST_F(Grid, MarksLieOverThePictureAndNeverInIt)
{
    struct Case {
        const char* what;
        int row, column;
        std::function<void()> mark, unmark;
    };
    const std::vector<Case> cases = {
        {"pointer", 3, 4, [&] { point(3, 4); }, [&] { point(4, 4); }},
        {"event", 2, 5, [&] { click(*map, "Option1_2"); }, [&] { click(*map, "Option1_0"); }},
        {"keys", 2, 2,
         [&] {
             walk({Qt::Key_Right, Qt::Key_Down});
         },
         [&] { control(*map, "Choixtext").setFocus(); }},
        {"open cell", 5, 6,
         [&] {
             click(*map, "Option1_2");
             pressCell(*map, 5, 6);
             control(*map, "Option1_0").setFocus();
         },
         [&] { click(*map, "Command20"); }}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        awaitRedraw(*map);
        const QImage before = cell(*map, each.row, each.column);
        EXPECT_FALSE(isMarked(each.row, each.column));
        each.mark();
        awaitRedraw(*map);
        EXPECT_TRUE(isMarked(each.row, each.column));
        EXPECT_EQ(cell(*map, each.row, each.column), before);
        each.unmark();
        EXPECT_FALSE(isMarked(each.row, each.column));
    }
}

TEST_F(Grid, TheHerosStartIsMarkedWhereTheLabelsSay)
{
    EXPECT_TRUE(isMarked(8, 15));
    answers.message("Click the box to the starting position of the hero on this map");
    click(*map, "Command9");
    EXPECT_EQ(mainform->focusWidget(), picture);
    pressCell(*map, 1, 1);
    EXPECT_FALSE(isMarked(8, 15));
    EXPECT_TRUE(isMarked(1, 1));
}

TEST_F(Grid, EventsAreMarkedAnewAfterTheyAreSavedOrReset)
{
    click(*map, "Option1_2");
    EXPECT_FALSE(isMarked(2, 6)); // an event file without an entry
    pressCell(*map, 2, 6);
    click(*map, "Command15");
    click(*map, "Command2");
    EXPECT_TRUE(isMarked(2, 6));
    answers.question(" Are you sure you want to return the card to zero?", Reply::Yes);
    click(*map, "Command10");
    EXPECT_FALSE(isMarked(2, 5));
    EXPECT_FALSE(isMarked(2, 6));
    app.write("projets/demo/ev/map01/ev33", "\r\nline\r\n"); // by another view
    click(*map, "Option1_0");
    click(*map, "Option1_2");
    EXPECT_TRUE(isMarked(3, 3));
    doubleClickLine(view("Controlpanel"), "List1", 0);
    QWidget& other = view("mapeditor");
    click(other, "Option1_2");
    pressCell(other, 4, 4);
    click(other, "Command15");
    click(other, "Command2");
    EXPECT_FALSE(isMarked(4, 4));
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
    click(*map, "Option1_1");
    pickTile(6);
    EXPECT_EQ(control<ScrollBar>(*map, "Choixtext").value(), 6);
    EXPECT_TRUE(control<QRadioButton>(*map, "Option1_0").isChecked());
    pressCell(*map, 1, 1);
    EXPECT_EQ(savedTiles(), savedMap("1508", grid({{1, 1, '5'}, {2, 5, '3'}})));

    click(*map, "Option1_1");
    pickTile(6); // the one that is chosen
    EXPECT_TRUE(control<QRadioButton>(*map, "Option1_0").isChecked());
    pickTile(8); // there is none
    EXPECT_EQ(control<ScrollBar>(*map, "Choixtext").value(), 6);

    for (const auto& [key, tile] : {std::pair{Qt::Key_Left, 5},
                                    {Qt::Key_Home, 1},
                                    {Qt::Key_Left, 1},
                                    {Qt::Key_Down, 6},
                                    {Qt::Key_Down, 6},
                                    {Qt::Key_End, 7},
                                    {Qt::Key_Up, 2}}) {
        keys(palette(), {key});
        EXPECT_EQ(control<ScrollBar>(*map, "Choixtext").value(), tile);
    }
}

TEST_F(Grid, ThePaletteFollowsTheTilesetAndTheChooser)
{
    const auto shownAt = [&](int tile) {
        const QPixmap shown = palette().viewport()->grab(palette().placeOf(tile));
        return shown.toImage().convertToFormat(QImage::Format_RGB32);
    };
    EXPECT_EQ(shownAt(7), tile("01", 7));
    WriteIni("Carte01", "texture", "02", Descriptor());
    awaitRedraw(*map);
    EXPECT_EQ(shownAt(7), tile("02", 7));
    EXPECT_FALSE(palette().viewport()->rect().contains(palette().placeOf(60)));
    moveBar(*map, "Choixtext", 60);
    EXPECT_TRUE(palette().viewport()->rect().contains(palette().placeOf(60)));
    EXPECT_EQ(shownAt(60), tile("02", 60));
    pickTile(58);
    EXPECT_EQ(control<ScrollBar>(*map, "Choixtext").value(), 58);
}

TEST_F(Grid, KeysWalkTheGridAndClickTheirCell)
{
    keys(palette(), {Qt::Key_Right});
    walk({Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left, Qt::Key_Space});
    EXPECT_EQ(savedTiles(), savedMap("1508", grid({{2, 1, '1'}, {2, 5, '3'}})));
    for (int step = 0; step < 9; ++step) {
        keys(*picture, {Qt::Key_Down});
    }
    EXPECT_EQ(foot(), "Row 9, column 1: tile 1");
    EXPECT_TRUE(isMarked(9, 1));
    walk({Qt::Key_Up});
    click(*map, "Option1_1");
    walk({Qt::Key_End, Qt::Key_Right, Qt::Key_Return});
    EXPECT_EQ(app.read("projets/demo/map01.ev"), savedBlocks(grid({{2, 5, '1'}, {8, 17, '1'}})));
    EXPECT_EQ(foot(), "Row 8, column 17: tile 1, blocked");
    click(*map, "Option1_2");
    walk({Qt::Key_Enter});
    EXPECT_EQ(text(*map, "co"), "17");
    keys(control(*map, "Command20"), {Qt::Key_Space});
    EXPECT_TRUE(picture->hasFocus()); // to go on from there
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
    EXPECT_EQ(second->parent(), table);
    walk({Qt::Key_Down});
    EXPECT_EQ(table->focusChild(), table->child(17));
    EXPECT_TRUE(table->child(17)->state().focused);
    EXPECT_FALSE(second->state().focused);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(savedTiles(), savedMap("1508", grid()));
    QAccessibleInterface* last = table->child(152);
    EXPECT_EQ(last->text(QAccessible::Name), u"Row 9, column 17: tile 1"_s);
    EXPECT_TRUE(table->rect().contains(last->rect()));
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&control(*map, "GridMarks"))->state().invisible);
}

TEST_F(Grid, ThePaletteIsAValueForScreenReaders)
{
    QAccessibleInterface* tiles = QAccessible::queryAccessibleInterface(&palette());
    QAccessibleValueInterface* value = tiles->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->maximumValue(), 7);
    for (const auto& [wanted, found] : {std::pair{6, 6}, {8, 6}, {0, 6}, {1, 1}}) {
        value->setCurrentValue(wanted);
        EXPECT_EQ(value->currentValue(), found);
        EXPECT_EQ(control<ScrollBar>(*map, "Choixtext").value(), found);
    }
}
