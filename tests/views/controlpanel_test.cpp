#include "program.h"

#include <QAccessible>
#include <QMdiArea>
#include <QTest>

using namespace Qt::StringLiterals;

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

TEST_F(ControlPanel, ShowsTheProjectsValuesAndTheMenu)
{
    const std::pair<const char*, const char*> texts[] = {{"Label5", "demo"},
                                                         {"Label6", "Zoë <b>"},
                                                         {"Label7", "1"},
                                                         {"Label8", "7"},
                                                         {"Label9_0", "Fight Editor"},
                                                         {"Label9_1", "Editor of variables"},
                                                         {"Label9_2", "Game Setup"},
                                                         {"Label9_3", "Test Game"},
                                                         {"Label9_4", "Finalize and publish"}};
    for (const auto& [name, expected] : texts) {
        EXPECT_EQ(text(*panel, name), expected);
    }
}

TEST_F(ControlPanel, AnEmptyValueIsReportedAndTheRestIsShown)
{
    for (const char* key : {"auteur", "cartes", "combats"}) {
        set("Jeu", key, "");
        answers.message(emptyValue);
        comeBack();
        EXPECT_EQ(text(*panel, "Label5"), "demo") << key;
        set("Jeu", key, "1");
    }
}

TEST_F(ControlPanel, ReadsAnewInTheCornerWheneverItBecomesActive)
{
    const struct {
        const char* count;
        std::size_t lines;
    } cases[] = {{"03", 3}, {"abc", 0}, {"40000", 0}, {"32767", 32767}};
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
    app.makeProject("other");
    openProject("other");
    EXPECT_EQ(views("Controlpanel").size(), 1U);
    EXPECT_EQ(text(*panel, "Label5"), "other");
}

TEST_F(ControlPanel, ADoubleClickOpensTheMapOfItsLineAndBesideTheLinesNone)
{
    auto& list = control(*panel, "List1");
    QTest::mouseDClick(list.findChild<QWidget*>("qt_scrollarea_viewport"_L1), Qt::LeftButton, {},
                       QPoint(20, list.height() - 10));
    EXPECT_EQ(views("mapeditor").size(), 1U);
    set("Jeu", "cartes", "12");
    comeBack();
    for (const auto& [row, number] : {std::pair{8, "09"}, {11, "12"}}) {
        app.write("projets/demo/map" + std::string(number) + ".map", savedMap("0101", grid()));
        doubleClickLine(*panel, "List1", row);
        EXPECT_EQ(text(view("mapeditor"), "Label1"), number);
    }
    EXPECT_EQ(views("mapeditor").size(), 3U);
}

TEST_F(ControlPanel, ComingBackFromAnotherProgramIsNoActivation)
{
    activate(*panel);
    set("Jeu", "auteur", "");
    auto& area = control<QMdiArea>(*mainform, "WorkArea"); // reports it where windows leave the screen
    Q_EMIT area.subWindowActivated(nullptr);
    Q_EMIT area.subWindowActivated(area.currentSubWindow());
    settle();
    EXPECT_EQ(text(*panel, "Label6"), "Zoë <b>");
}

TEST_F(ControlPanel, MenuEntriesLeadToTheirViewsAndPublishingToAMessage)
{
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

TEST_F(ControlPanel, AnEntrysIconOnlyMovesAlong)
{
    QWidget& icon = control(*panel, "Image1_0");
    QWidget& label = control(*panel, "Label9_0");
    const QPoint before = label.pos();
    QTest::mousePress(&icon, Qt::LeftButton);
    EXPECT_EQ(label.pos(), before + QPoint(1, 1));
    QTest::mouseRelease(&icon, Qt::LeftButton);
    EXPECT_EQ(label.pos(), before);
    EXPECT_EQ(findView("combateditor"), nullptr);
    EXPECT_EQ(label.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(icon.cursor().shape(), Qt::ArrowCursor); // it promises nothing, nor to screen readers
    auto* told = QAccessible::queryAccessibleInterface(&icon)->actionInterface();
    EXPECT_EQ(told->actionNames(), QStringList());
}

TEST_F(ControlPanel, ClosesOnlyAfterYesAndEndsTheProject)
{
    closePanel(Reply::No);
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(CurrentProject(), "demo");
    closePanel(Reply::Yes);
    EXPECT_EQ(findView("Controlpanel"), nullptr);
    EXPECT_EQ(CurrentProject(), "");
    EXPECT_TRUE(isShown("mapeditor"));
    EXPECT_TRUE(mainform->close()) << "without the panel it asks nothing";
}

TEST_F(ControlPanel, ClosingTheMainWindowAsksItsQuestionFirst)
{
    for (const Reply reply : {Reply::No, Reply::Yes}) {
        answers.question("Quitter Questforge ?", reply);
        EXPECT_EQ(mainform->close(), reply == Reply::Yes);
        EXPECT_EQ(mainform->isVisible(), reply == Reply::No);
    }
}
