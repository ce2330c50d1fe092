// Ctrl+Z and Ctrl+Y in a map view; what they do to files is tested in the core.
#include "program.h"

#include <functional>
#include <QDialog>
#include <QShortcut>
#include <QTest>

class UndoKeys : public Program
{
protected:
    UndoKeys()
    {
        addTiles("01", 5);
        app.makeProject();
        openProject("demo");
        map = &view("mapeditor");
    }

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
    std::string foot() const { return text(*map, "FootLine"); }
    void reset()
    {
        answers.question(" Are you sure you want to return the card to zero?", Reply::Yes);
        click(*map, "Command10");
    }

    /// Each of which is a step of its own.
    std::vector<std::function<void()>> everyKindOfClick()
    {
        return {[this] {
                    moveBar(*map, "Choixtext", 3);
                    pressCell(*map, 1, 1);
                },
                [this] { pressCell(*map, 9, 2); },
                [this] {
                    setText(*map, "Text1", "Cave");
                    pressGrid(*map, 7150, 100); // saves the name alone
                },
                [this] {
                    click(*map, "Option1_1");
                    pressCell(*map, 2, 2);
                },
                [this] {
                    answers.message("Click the box to the starting position of the hero on this map");
                    click(*map, "Command9");
                    pressCell(*map, 3, 3);
                },
                [this] { pressCell(*map, 2, 3); },
                [this] { reset(); },
                [this] {
                    click(*map, "Option1_2");
                    pressCell(*map, 1, 1);
                },
                [this] {
                    click(*map, "Command15");
                    click(*map, "Command2");
                }};
    }

    QWidget* map = nullptr;
};

TEST_F(UndoKeys, TakeBackAndDoAgainOneClickAtATime)
{
    app.write("projets/demo/ev/map01/ev11", "\r\nline\r\n");
    app.remove("projets/demo/ev/map01/ev12");
    const auto clicks = everyKindOfClick();
    const auto state = [&] {
        Snapshot found = app.snapshot();
        found["labels"] = text(*map, "Label4") + text(*map, "Label5") + text(*map, "Text1");
        return found;
    };
    std::vector<Snapshot> states = {state()};
    std::vector<QImage> pictures = {control(*map, "CarteImg").grab().toImage()};
    for (const auto& each : clicks) {
        each();
        awaitRedraw(*map);
        states.push_back(state());
        pictures.push_back(control(*map, "CarteImg").grab().toImage());
    }
    const auto expectState = [&](std::size_t step) {
        SCOPED_TRACE(step);
        EXPECT_EQ(Changes(states[step], state()), "");
        awaitRedraw(*map);
        if (step > 0) { // before the first click the marks stand as a load draws them
            EXPECT_EQ(control(*map, "CarteImg").grab().toImage(), pictures[step]);
        }
    };
    for (std::size_t step = clicks.size(); step > 0; --step) {
        undo();
        expectState(step - 1);
    }
    undo();
    EXPECT_EQ(foot(), "There is nothing to be undone.");
    for (std::size_t step = 1; step <= clicks.size(); ++step) {
        redo();
        expectState(step);
    }
    undo();
    moveBar(*map, "Choixtext", 5);
    pressCell(*map, 8, 8); // the map that was brought back is the one that is saved
    undo();
    expectState(clicks.size() - 1);
}

TEST_F(UndoKeys, AMapThatWasChangedElsewhereIsLeftAsItIs)
{
    moveBar(*map, "Choixtext", 3);
    pressCell(*map, 1, 1);
    EXPECT_EQ(foot(), "");
    app.write("projets/demo/map01.ev", savedBlocks(grid({{4, 4, '1'}})));
    const Snapshot found = app.snapshot();
    undo();
    EXPECT_EQ(foot(), "Not undone: this map was changed elsewhere. Load it again to see it.");
    EXPECT_EQ(Changes(found, app.snapshot()), "");
    EXPECT_EQ(cell(*map, 1, 1), tile("01", 3));
    app.write("projets/demo/map01.ev", savedBlocks(grid()));
    undo();
    EXPECT_EQ(foot(), "Row 1, column 1: undone.");
    EXPECT_EQ(cell(*map, 1, 1), tile("01", 1));
}

TEST_F(UndoKeys, NothingIsTakenBackWhileAnEventIsOpen)
{
    app.write("projets/demo/ev/map01/ev11", "\r\nline\r\n");
    reset();
    click(*map, "Option1_2");
    pressCell(*map, 1, 1);
    undo();
    EXPECT_EQ(foot(), "Not undone: save or cancel the event first.");
    click(*map, "Command20");
    undo();
    undo();
    EXPECT_EQ(app.read("projets/demo/ev/map01/ev11"), "\r\nline\r\n");
}

TEST_F(UndoKeys, NothingIsTakenBackBehindABox)
{
    moveBar(*map, "Choixtext", 3);
    pressCell(*map, 1, 1);
    const std::string painted = app.read("projets/demo/map01.map");
    auto* undoKeys = map->findChild<QShortcut*>();
    ASSERT_EQ(undoKeys->key(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    QDialog box(mainform.get());
    box.setModal(true);
    box.show();
    Q_EMIT undoKeys->activated(); // the key came before the box had the focus
    EXPECT_EQ(app.read("projets/demo/map01.map"), painted);
    box.hide();
    Q_EMIT undoKeys->activated();
    EXPECT_NE(app.read("projets/demo/map01.map"), painted);
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
    moveBar(*map, "Choixtext", 3);
    pressCell(*map, 1, 1);
    const std::string painted = app.read("projets/demo/map01.map");
    click(*map, "Command4");
    click(*map, "Command5");
    const Snapshot second = app.snapshot();
    undo();
    EXPECT_EQ(foot(), "There is nothing to be undone.");
    EXPECT_EQ(Changes(second, app.snapshot()), "");
    click(*map, "Command4");
    click(*map, "Command6");
    moveBar(*map, "HScroll1", 2);
    moveBar(*map, "HScroll1", 1);
    click(*map, "Command1");
    EXPECT_EQ(app.read("projets/demo/map01.map"), painted);
    undo();
    EXPECT_NE(app.read("projets/demo/map01.map"), painted);
    EXPECT_EQ(cell(*map, 1, 1), tile("01", 1));
}
