#include "program.h"

#include <QListView>
#include <QTest>

namespace
{

const std::string deleteThis = "Are you sure want to delete this line?\n";

} // namespace

class EventPanelOfACell : public Program
{
protected:
    EventPanelOfACell()
    {
        addTiles("01", 4);
        app.makeProject();
        openProject("demo");
        map = &view("mapeditor");
        click(*map, "Option1_2");
    }

    std::vector<std::string> event() const { return lines(*map, "listev"); }
    void writeEvent(const std::string& cell, const std::string& bytes) const
    {
        app.write("projets/demo/ev/map01/ev" + cell, bytes);
    }
    std::string readEvent(const std::string& cell) const
    {
        return app.read("projets/demo/ev/map01/ev" + cell);
    }

    QWidget* map = nullptr;
};

TEST_F(EventPanelOfACell, IsShownOnlyWhileACellIsOpen)
{
    EXPECT_FALSE(isVisible(*map, "Frame6"));
    EXPECT_EQ(event(), std::vector<std::string>{"-- Evenements"});
    EXPECT_EQ(text(*map, "ln") + text(*map, "co"), "00");
    for (const char* leave : {"Command2", "Command20"}) {
        pressCell(*map, 3, 12);
        EXPECT_TRUE(isVisible(*map, "Frame6"));
        EXPECT_FALSE(control(*map, "CarteImg").isEnabled());
        EXPECT_GE(map->parentWidget()->height(), control(*map, "Frame6").geometry().bottom());
        click(*map, leave);
        EXPECT_FALSE(isVisible(*map, "Frame6"));
        EXPECT_TRUE(control(*map, "CarteImg").isEnabled());
    }
}

TEST_F(EventPanelOfACell, OpeningACellLoadsItsLinesAndSavesTheMap)
{
    writeEvent("312", "\r\nhero.x = 5 -- D\xE9placement\r\nend\r\nunended");
    writeEvent("11", "abc\r\nde\r\n");
    app.remove("projets/demo/map01.map");
    pressCell(*map, 3, 12);
    EXPECT_EQ(text(*map, "ln"), "3");
    EXPECT_EQ(text(*map, "co"), "12");
    EXPECT_EQ(event(), (std::vector<std::string>{"hero.x = 5 -- Déplacement", "end"}));
    EXPECT_EQ(app.read("projets/demo/map01.map"), savedMap("0101", grid()));
    pressCell(*map, 1, 1); // the picture takes no clicks meanwhile
    EXPECT_EQ(text(*map, "co"), "12");
    click(*map, "Command20");
    pressCell(*map, 1, 1);
    EXPECT_EQ(event(), (std::vector<std::string>{"c", "de"})); // as its first pair is never tested
    click(*map, "Command20");
    pressCell(*map, 1, 2);
    EXPECT_EQ(event(), std::vector<std::string>{});
}

TEST_F(EventPanelOfACell, SaveWritesTheListByteForByteAndCancelNothing)
{
    const std::string saved = "\r\nhero.x = 5 -- D\xE9placement\r\nend\r\n";
    writeEvent("312", saved);
    pressCell(*map, 3, 12);
    click(*map, "Command15");
    click(*map, "Command20");
    EXPECT_EQ(readEvent("312"), saved);
    pressCell(*map, 3, 12);
    EXPECT_EQ(event().size(), 2U);
    click(*map, "Command15");
    Snapshot expected = app.snapshot();
    click(*map, "Command2");
    expected["projets/demo/ev/map01/ev312"] = saved + "end\r\n";
    EXPECT_EQ(Changes(expected, app.snapshot()), "");
    pressCell(*map, 9, 1);
    click(*map, "Command2");
    EXPECT_EQ(readEvent("91"), "\r\n");
}

TEST_F(EventPanelOfACell, SaveGoesToTheMapHeldByThen)
{
    WriteIni("Jeu", "cartes", "2", Descriptor());
    app.write("projets/demo/map02.map", savedMap("0101", grid()));
    std::filesystem::create_directories(app.at("projets/demo/ev/map02"));
    pressCell(*map, 3, 12);
    click(*map, "Command15");
    click(*map, "Command4");
    click(*map, "Command6");
    moveBar(*map, "HScroll1", 2);
    click(*map, "Command1");
    click(*map, "Command2");
    EXPECT_FALSE(app.has("projets/demo/ev/map01/ev312"));
    EXPECT_EQ(app.read("projets/demo/ev/map02/ev312"), "\r\nend\r\n");
}

TEST_F(EventPanelOfACell, ALineIsDeletedByDoubleClickAndYes)
{
    writeEvent("11", "\r\none\r\ntwo\r\nthree\r\n");
    pressCell(*map, 1, 1);
    for (const Reply reply : {Reply::No, Reply::Escape, Reply::CloseBox}) {
        answers.question(deleteThis + "two", reply);
        doubleClickLine(*map, "listev", 1);
        EXPECT_EQ(event().size(), 3U);
    }
    answers.question(deleteThis + "two", Reply::Yes);
    doubleClickLine(*map, "listev", 1);
    EXPECT_EQ(event(), (std::vector<std::string>{"one", "three"}));
    EXPECT_EQ(readEvent("11"), "\r\none\r\ntwo\r\nthree\r\n"); // until it is saved
    click(*map, "Command2");
    EXPECT_EQ(readEvent("11"), "\r\none\r\nthree\r\n");
}

TEST_F(EventPanelOfACell, EnterOnALineAsksTooAndWithoutASelectionNothingIsRemoved)
{
    writeEvent("11", "\r\none\r\ntwo\r\n");
    pressCell(*map, 1, 1);
    auto& list = control<QListView>(*map, "listev");
    keys(list, {Qt::Key_Return});
    answers.question(deleteThis, Reply::Yes);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.viewport()->rect().bottomLeft());
    EXPECT_EQ(event().size(), 2U);
    keys(list, {Qt::Key_Down, Qt::Key_Down});
    answers.question(deleteThis + "two", Reply::Yes);
    keys(list, {Qt::Key_Return});
    EXPECT_EQ(event(), std::vector<std::string>{"one"});
}

TEST_F(EventPanelOfACell, ALineOfAMegabyteIsShownShortAndKeptWhole)
{
    const std::string bytes = "\r\n" + std::string(1 << 20, 'x') + "\r\nend\r\n";
    writeEvent("11", bytes);
    pressCell(*map, 1, 1);
    ASSERT_EQ(event().size(), 2U);
    EXPECT_EQ(event().front(), std::string(500, 'x') + "…");
    answers.question(deleteThis + std::string(500, 'x') + "…", Reply::No);
    doubleClickLine(*map, "listev", 0);
    click(*map, "Command2");
    EXPECT_TRUE(readEvent("11") == bytes);
}

TEST_F(EventPanelOfACell, ASaveThatCannotWriteClosesThePanelSilently)
{
    app.remove("projets/demo/ev/map01");
    pressCell(*map, 1, 1);
    const Snapshot before = app.snapshot();
    click(*map, "Command2");
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    EXPECT_FALSE(isVisible(*map, "Frame6"));
    EXPECT_TRUE(control(*map, "CarteImg").isEnabled());
}
