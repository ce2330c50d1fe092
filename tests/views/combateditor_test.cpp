#include "program.h"

#include "toolkit/scrollbar.h"

#include <QGroupBox>

class Fights : public Program
{
protected:
    Fights()
    {
        app.makeProject();
        openProject("demo");
    }

    void setCount(const std::string& count) const { WriteIni("Jeu", "combats", count, Descriptor()); }
    QWidget& open() const
    {
        chooseEntry(0);
        return view("combateditor");
    }
    /// Moves the selector and tells where it is then and the name shown.
    static std::string moved(const QWidget& fights, Qt::Key key)
    {
        keys(control(fights, "HScroll1"), {key});
        const int at = control<ScrollBar>(fights, "HScroll1").value();
        return std::to_string(at) + " " + text(fights, "Text1");
    }
};

TEST_F(Fights, WithoutAFightTheSelectorGoesBackAndOffersANewOne)
{
    for (const char* count : {"0", "", "abc", "-1", "40000"}) {
        setCount(count);
        const QWidget& fights = open();
        EXPECT_EQ(text(fights, "Text1"), "");
        EXPECT_EQ(moved(fights, Qt::Key_Right), "0 Nouveau combat") << count;
        if (*count == '\0') {
            setCount("0"); // or the control panel would tell
        }
        activate(view("Controlpanel"));
    }
}

TEST_F(Fights, TheSelectorShowsTheNamesAndEndsAtTheLast)
{
    setCount("2");
    WriteIni("Combat1", "nom", "Wolves", Descriptor());
    WriteIni("Combat2", "nom", "Évêque", Descriptor());
    const QWidget& fights = open();
    EXPECT_EQ(moved(fights, Qt::Key_Right), "1 Wolves");
    EXPECT_EQ(text(fights, "Label2"), "1");
    moved(fights, Qt::Key_Right);
    moved(fights, Qt::Key_Right);
    EXPECT_EQ(moved(fights, Qt::Key_End).substr(0, 2), "2 ");
    EXPECT_EQ(moved(fights, Qt::Key_Home), "0 "); // there is no fight 0
}

TEST_F(Fights, AShrunkenCountBringsTheSelectorDown)
{
    setCount("3");
    WriteIni("Combat1", "nom", "Wolves", Descriptor());
    const QWidget& fights = open();
    for (int step = 0; step < 3; ++step) {
        moved(fights, Qt::Key_Right);
    }
    setCount("1");
    EXPECT_EQ(moved(fights, Qt::Key_Left), "1 Wolves");
}

TEST_F(Fights, EditorsAreIndependent)
{
    setCount("2");
    const QWidget& first = open();
    moved(first, Qt::Key_Right);
    activate(view("Controlpanel"));
    const QWidget& second = open();
    EXPECT_NE(&first, &second);
    EXPECT_EQ(control<ScrollBar>(second, "HScroll1").value(), 0);
    EXPECT_EQ(control<ScrollBar>(first, "HScroll1").value(), 1);
}

TEST_F(Fights, HeroAndAttackFieldsAreThereAndWriteNothing)
{
    const Snapshot before = app.snapshot();
    const QWidget& fights = open();
    EXPECT_EQ(fights.windowTitle().toStdString(), "Fight Editor");
    std::string captions;
    for (const QGroupBox* frame : fights.findChildren<QGroupBox*>()) {
        if (!frame->findChildren<QGroupBox*>().isEmpty()) {
            captions += frame->title().toStdString() + "|" + text(*frame, "hactive") + "|" +
                        text(*frame, "h1vie") + "|" + text(*frame, "hnom") + "|";
            EXPECT_EQ(control<ScrollBar>(*frame, "HScroll2").value(), 100);
            click(*frame, "hactive");
            click(*frame, "Command2");
            moveBar(*frame, "HScroll2", 10000);
            EXPECT_EQ(text(*frame, "h1vie"), "100"); // bar and field are not linked
        }
    }
    EXPECT_EQ(captions, "   Hero 1|Check1|100||    Hero 2|Check2|100||    Hero 3|Check2|100||");
    click(fights, "Command1");
    setText(fights, "Text1", "typed");
    settle();
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}
