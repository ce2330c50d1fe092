#include "program.h"

#include <QMdiArea>
#include <QTest>

class ControlPanel : public Program
{
protected:
    ControlPanel()
    {
        app.makeProject();
        set("Jeu", "auteur", "Zo\xEB <b>");
        set("Jeu", "combats", "7");
        openProject("demo");
        panel = &view("Controlpanel");
    }

    static void set(const char* section, const char* key, const std::string& value)
    {
        WriteIni(section, key, value, Descriptor());
    }
    std::vector<std::string> maps() const { return lines(*panel, "List1"); }
    /// Leaves the panel for another view and comes back.
    void comeBack() const
    {
        mainform->showGameoptions();
        activate(*panel);
    }

    QWidget* panel = nullptr;
};

TEST_F(ControlPanel, AnEmptyValueIsReportedAndTheRestIsShown)
{
    EXPECT_EQ(text(*panel, "Label6") + ' ' + text(*panel, "Label8"), "Zoë <b> 7");
    for (const char* key : {"auteur", "cartes", "combats"}) {
        set("Jeu", key, "");
        answers.message(emptyValue);
        comeBack();
        EXPECT_EQ(text(*panel, "Label5"), "demo") << key;
        set("Jeu", key, "7");
    }
}

TEST_F(ControlPanel, ReadsAnewInTheCornerWheneverItBecomesActive)
{
    const std::pair<const char*, std::size_t> cases[] = {
        {"03", 3}, {"abc", 0}, {"40000", 0}, {"32767", 32767}};
    panel->parentWidget()->move(40, 40);
    for (const auto& [count, expected] : cases) {
        set("Jeu", "cartes", count);
        comeBack();
        EXPECT_EQ(text(*panel, "Label7"), count);
        EXPECT_EQ(maps().size(), expected) << count;
    }
    EXPECT_EQ(panel->parentWidget()->pos(), QPoint(0, 0));
    set("Jeu", "cartes", "3");
    set("Carte03", "nom", "Fin");
    EXPECT_EQ(maps().size(), 32767U);
    comeBack();
    EXPECT_EQ(maps(), (std::vector<std::string>{"1Carte 1", "2", "3Fin"}));
}

TEST_F(ControlPanel, ADoubleClickOpensTheMapOfItsLineAndBesideTheLinesNone)
{
    auto& list = control<QAbstractScrollArea>(*panel, "List1");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.viewport()->rect().bottomLeft());
    EXPECT_EQ(views("mapeditor").size(), 1U);
    set("Jeu", "cartes", "12");
    comeBack();
    app.write("projets/demo/map12.map", savedMap("0101", grid()));
    doubleClickLine(*panel, "List1", 11);
    EXPECT_EQ(text(view("mapeditor"), "Label1"), "12");
    EXPECT_EQ(views("mapeditor").size(), 2U);
}

TEST_F(ControlPanel, ComingBackFromAnotherProgramIsNoActivation)
{
    activate(*panel);
    set("Jeu", "auteur", "");
    auto& area = control<QMdiArea>(*mainform, "WorkArea"); // reports it where windows leave the screen
    Q_EMIT area.subWindowActivated(nullptr);
    Q_EMIT area.subWindowActivated(area.currentSubWindow());
    EXPECT_EQ(text(*panel, "Label6"), "Zoë <b>");
}

TEST_F(ControlPanel, MenuEntriesLeadToTheirViewsAndPublishingToAMessage)
{
    EXPECT_EQ(text(*panel, "Label9_3"), "Test Game");
    for (const auto& [index, name] : {std::pair{0, "combateditor"}, {1, "var"}, {2, "gameoptions"}}) {
        chooseEntry(index);
        activate(*panel);
        chooseEntry(index);
        EXPECT_TRUE(isShown(name));
        EXPECT_EQ(views(name).size(), index == 0 ? 2U : 1U) << name;
    }
    const Snapshot before = app.snapshot();
    answers.message("Creation ...");
    chooseEntry(4);
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(ControlPanel, TheProjectEndsOnlyAfterYesWhicheverWindowIsClosed)
{
    answers.question("Quitter Questforge ?", Reply::No);
    EXPECT_FALSE(mainform->close());
    EXPECT_TRUE(mainform->isVisible());
    closePanel(Reply::No);
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(CurrentProject(), "demo");
    closePanel(Reply::Yes);
    EXPECT_EQ(findView("Controlpanel"), nullptr);
    EXPECT_EQ(CurrentProject(), "");
    EXPECT_TRUE(isShown("mapeditor"));
    EXPECT_TRUE(mainform->close()) << "without the panel it asks nothing";
}
