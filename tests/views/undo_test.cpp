// Ctrl+Z and Ctrl+Y in a map view; what they do to files is tested in the core.
#include "mapview.h"

#include <QDialog>
#include <QShortcut>
#include <QTest>

class UndoKeys : public MapView
{
protected:
    UndoKeys() { open(); }

    void undo() const { press(Qt::Key_Z); }
    void redo() const { press(Qt::Key_Y); }
    void press(Qt::Key key) const
    {
        QWidget& picture = control(*map, "CarteImg");
        QWidget& there = picture.isEnabled() ? picture : control(*map, "listev");
        mainform->activateWindow(); // without a window manager a closed box leaves no window active
        ASSERT_TRUE(QTest::qWaitForWindowActive(mainform.get()));
        there.setFocus();
        QTest::keyClick(&there, key, Qt::ControlModifier);
    }
    void paintFirstCell() const
    {
        chooseTile(3);
        pressCell(*map, 1, 1);
    }

    /// Files, labels and the picture.
    Snapshot everything() const
    {
        awaitRedraw(*map);
        Snapshot found = app.snapshot();
        found["labels"] = start() + ' ' + text(*map, "Text1");
        const QImage picture = control(*map, "CarteImg").grab().toImage();
        found["picture"] = std::to_string(qHash(QByteArrayView(picture.constBits(), picture.sizeInBytes())));
        return found;
    }
};

TEST_F(UndoKeys, TakeBackAndDoAgainOneClickAtATime)
{
    app.write("projets/demo/ev/map01/ev11", "\r\nline\r\n");
    std::vector<Snapshot> states = {everything()};
    const auto note = [&] { states.push_back(everything()); };
    paintFirstCell();
    note();
    setText(*map, "Text1", "Cave");
    saveMap(); // the name alone
    note();
    click(*map, "Option1_1");
    pressCell(*map, 2, 2);
    note();
    askForStart();
    pressCell(*map, 3, 3);
    note();
    reset();
    note();
    click(*map, "Option1_2");
    pressCell(*map, 1, 1); // saves the map
    note();
    click(*map, "Command15");
    click(*map, "Command2");
    note();
    const std::size_t last = states.size() - 1;
    for (std::size_t step = last; step > 0; --step) {
        undo();
        EXPECT_EQ(Changes(states[step - 1], everything()), "") << step;
    }
    undo();
    EXPECT_EQ(foot(), "There is nothing to be undone.");
    for (std::size_t step = 1; step <= last; ++step) {
        redo();
        EXPECT_EQ(Changes(states[step], everything()), "") << step;
    }
}

TEST_F(UndoKeys, AMapThatWasChangedElsewhereIsLeftAsItIs)
{
    paintFirstCell();
    app.write("projets/demo/map01.ev", savedBlocks(grid({{4, 4, '1'}})));
    EXPECT_EQ(changes([&] { undo(); }), "");
    EXPECT_EQ(foot(),
              "Not undone: this map's files were changed elsewhere. \"Load map\" shows what they hold.");
    EXPECT_EQ(cell(*map, 1, 1), tile("01", 3));
    app.write("projets/demo/map01.ev", savedBlocks(grid()));
    undo();
    EXPECT_EQ(foot(), "Row 1, column 1: undone.");
    app.write("projets/demo/map01.ev", savedBlocks(grid({{4, 4, '1'}})));
    paintFirstCell(); // over what is not shown
    undo();
    EXPECT_EQ(blocks(), savedBlocks(grid({{4, 4, '1'}})));
    EXPECT_EQ(foot(), "Row 1, column 1: undone. The map's files hold something else. \"Load map\" shows it.");
}

TEST_F(UndoKeys, NothingIsTakenBackBehindAnEventOrABox)
{
    paintFirstCell();
    click(*map, "Option1_2");
    pressCell(*map, 1, 1);
    EXPECT_EQ(changes([&] { undo(); }), "");
    EXPECT_EQ(foot(), "Not undone: save or cancel the event first.");
    click(*map, "Command20");
    auto* undoKeys = map->findChild<QShortcut*>();
    QDialog box(mainform.get());
    box.setModal(true);
    box.show();
    EXPECT_EQ(changes([&] { Q_EMIT undoKeys->activated(); }), ""); // it came before the box had the focus
    box.hide();
    EXPECT_NE(changes([&] { Q_EMIT undoKeys->activated(); }), "");
}

TEST_F(UndoKeys, TheOldestStepsAreNotForgottenSilently)
{
    for (const char* told : {"", "The oldest steps can no longer be undone.", ""}) {
        app.write("projets/demo/ev/map01/ev11", std::string(3'000'000, 'x'));
        reset();
        EXPECT_EQ(foot(), told);
    }
}

TEST_F(UndoKeys, TheHistoryBelongsToItsMap)
{
    saveMap();
    const std::string before = tiles();
    paintFirstCell();
    newMap();
    EXPECT_EQ(changes([&] { undo(); }), "");
    moveBar(*map, "HScroll1", 2);
    moveBar(*map, "HScroll1", 1);
    load();
    undo();
    EXPECT_EQ(tiles(), before);
}
