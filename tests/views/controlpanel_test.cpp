#include "program.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

using namespace Qt::StringLiterals;

class ControlPanel : public Program
{
protected:
    ControlPanel() { app.makeProject(); }

    void set(const char* section, const char* key, const std::string& value) const
    {
        WriteIni(section, key, value, app.at("projets/demo/projet.ini"));
    }
    std::vector<std::string> maps() const { return lines(view("Controlpanel"), "List1"); }
    /// Leaves the panel for another view and comes back.
    void comeBack() const
    {
        mainform->showGameoptions();
        settle();
        activate(view("Controlpanel"));
    }
};

TEST_F(ControlPanel, ShowsTheProjectsValues)
{
    set("Jeu", "auteur", "Zo\xEB <b>");
    set("Jeu", "combats", "7");
    openProject("demo");
    const QWidget& panel = view("Controlpanel");
    EXPECT_EQ(panel.windowTitle().toStdString(), "Control Panel");
    EXPECT_EQ(text(panel, "Label5"), "demo");
    EXPECT_EQ(text(panel, "Label6"), "Zoë <b>");
    EXPECT_EQ(text(panel, "Label7"), "1");
    EXPECT_EQ(text(panel, "Label8"), "7");
    EXPECT_EQ(panel.parentWidget()->pos(), QPoint(0, 0));
    const char* captions[] = {"Fight Editor", "Editor of variables", "Game Setup", "Test Game",
                              "Finalize and publish"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(text(panel, ("Label9_" + std::to_string(i)).c_str()), captions[i]);
    }
}

TEST_F(ControlPanel, AnEmptyValueIsReportedAndTheRestIsShown)
{
    openProject("demo");
    for (const char* key : {"auteur", "cartes", "combats"}) {
        SCOPED_TRACE(key);
        const std::string before = ReadIni("Jeu", key, Descriptor());
        set("Jeu", key, "");
        answers.message(emptyValue);
        comeBack();
        answers.allCame();
        EXPECT_EQ(text(view("Controlpanel"), "Label5"), "demo");
        EXPECT_EQ(maps().size(), std::string(key) == "cartes" ? 0U : 1U);
        set("Jeu", key, before);
    }
}

TEST_F(ControlPanel, ListsAsManyMapsAsTheCountSays)
{
    const struct {
        const char* count;
        std::size_t lines;
    } cases[] = {{"3", 3},  {"02", 2},    {"0", 0},          {"-1", 0},       {"abc", 0},
                 {"2x", 0}, {"40000", 0}, {"1000000000", 0}, {"32767", 32767}};
    openProject("demo");
    for (const auto& [count, expected] : cases) {
        SCOPED_TRACE(count);
        set("Jeu", "cartes", count);
        comeBack();
        EXPECT_EQ(text(view("Controlpanel"), "Label7"), count);
        EXPECT_EQ(maps().size(), expected);
    }
    set("Jeu", "cartes", "3");
    set("Carte03", "nom", "Fin");
    comeBack();
    EXPECT_EQ(maps(), (std::vector<std::string>{"1Carte 1", "2", "3Fin"}));
}

TEST_F(ControlPanel, ADoubleClickOpensTheMapOfTheLine)
{
    set("Jeu", "cartes", "12");
    app.write("projets/demo/map09.map", savedMap("0909", grid()));
    app.write("projets/demo/map12.map", savedMap("1208", grid()));
    openProject("demo");
    for (const auto& [row, number] : {std::pair{8, "09"}, {11, "12"}}) {
        const std::size_t before = views("mapeditor").size();
        doubleClickLine(view("Controlpanel"), "List1", row);
        EXPECT_EQ(views("mapeditor").size(), before + 1);
        EXPECT_EQ(text(view("mapeditor"), "Label1"), number);
        EXPECT_EQ(text(view("mapeditor"), "Label4"), std::string(number));
        activate(view("Controlpanel"));
    }
}

TEST_F(ControlPanel, ADoubleClickBesideTheLinesOpensNothing)
{
    openProject("demo");
    auto& list = control<QWidget>(view("Controlpanel"), "List1");
    QTest::mouseDClick(list.findChild<QWidget*>("qt_scrollarea_viewport"_L1), Qt::LeftButton, {},
                       QPoint(20, list.height() - 10));
    EXPECT_EQ(views("mapeditor").size(), 1U);
}

TEST_F(ControlPanel, ReadsAnewWhenItBecomesActive)
{
    openProject("demo");
    set("Jeu", "auteur", "somebody else");
    set("Jeu", "cartes", "02");
    EXPECT_EQ(text(view("Controlpanel"), "Label6"), "Kestrel");
    view("Controlpanel").parentWidget()->move(40, 40);
    activate(view("Controlpanel"));
    EXPECT_EQ(text(view("Controlpanel"), "Label6"), "somebody else");
    EXPECT_EQ(maps(), (std::vector<std::string>{"1Carte 1", "2"}));
    EXPECT_EQ(view("Controlpanel").parentWidget()->pos(), QPoint(0, 0));
}

TEST_F(ControlPanel, ComingBackFromAnotherProgramIsNoActivation)
{
    openProject("demo");
    activate(view("Controlpanel"));
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
    set("Jeu", "auteur", "");
    mainform->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(mainform.get()));
    auto& area = control<QMdiArea>(*mainform, "WorkArea"); // reports it where windows leave the screen
    Q_EMIT area.subWindowActivated(nullptr);
    Q_EMIT area.subWindowActivated(area.currentSubWindow());
    settle();
    EXPECT_EQ(text(view("Controlpanel"), "Label6"), "Kestrel");
}

TEST_F(ControlPanel, MenuEntriesLeadToTheirViews)
{
    openProject("demo");
    chooseEntry(0);
    activate(view("Controlpanel"));
    chooseEntry(0);
    EXPECT_EQ(views("combateditor").size(), 2U);
    for (const auto& [index, name] : {std::pair{1, "var"}, {2, "gameoptions"}}) {
        for (int time = 0; time < 2; ++time) {
            activate(view("Controlpanel"));
            chooseEntry(index);
            EXPECT_TRUE(isShown(name));
            EXPECT_EQ(views(name).size(), 1U);
        }
    }
    EXPECT_EQ(view("gameoptions").windowTitle().toStdString(), "Game Options");
}

TEST_F(ControlPanel, PublishingShowsItsMessageAndTouchesNoFile)
{
    openProject("demo");
    const Snapshot before = app.snapshot();
    answers.message("Creation ...");
    chooseEntry(4);
    EXPECT_EQ(Changes(before, app.snapshot()), "");
}

TEST_F(ControlPanel, AnEntrysIconOnlyMovesAlong)
{
    openProject("demo");
    QWidget& icon = control(view("Controlpanel"), "Image1_0");
    QWidget& label = control(view("Controlpanel"), "Label9_0");
    const QPoint iconAt = icon.pos();
    const QPoint labelAt = label.pos();
    QTest::mousePress(&icon, Qt::LeftButton);
    EXPECT_EQ(icon.pos(), iconAt + QPoint(1, 1));
    EXPECT_EQ(label.pos(), labelAt + QPoint(1, 1));
    QTest::mouseRelease(&icon, Qt::LeftButton);
    EXPECT_EQ(icon.pos(), iconAt);
    EXPECT_EQ(label.pos(), labelAt);
    EXPECT_EQ(findView("combateditor"), nullptr);
    EXPECT_EQ(label.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(icon.cursor().shape(), Qt::ArrowCursor); // it promises nothing
    EXPECT_EQ(icon.toolTip(), QString());
}

TEST_F(ControlPanel, ClosesOnlyAfterYesAndEndsTheProject)
{
    openProject("demo");
    for (const Reply reply : {Reply::No, Reply::Escape, Reply::CloseBox}) {
        closePanel(reply);
        EXPECT_TRUE(isShown("Controlpanel"));
        EXPECT_EQ(text(view("Controlpanel"), "Label5"), "demo");
        EXPECT_EQ(CurrentProject(), "demo");
    }
    closePanel(Reply::Yes);
    EXPECT_EQ(findView("Controlpanel"), nullptr);
    EXPECT_EQ(CurrentProject(), "");
    EXPECT_TRUE(isShown("mapeditor"));
    EXPECT_TRUE(mainform->isVisible());
}

TEST_F(ControlPanel, ClosingTheMainWindowAsksItsQuestionFirst)
{
    openProject("demo");
    answers.question("Quitter Questforge ?", Reply::No);
    EXPECT_FALSE(mainform->close());
    EXPECT_TRUE(mainform->isVisible());
    EXPECT_TRUE(isShown("Controlpanel"));
    EXPECT_TRUE(isShown("mapeditor"));
    EXPECT_EQ(CurrentProject(), "demo");
    answers.question("Quitter Questforge ?", Reply::Yes);
    EXPECT_TRUE(mainform->close());
    EXPECT_FALSE(mainform->isVisible());
}

TEST_F(ControlPanel, TheMainWindowClosesUnaskedWithoutIt)
{
    EXPECT_TRUE(mainform->close());
    EXPECT_FALSE(mainform->isVisible());
}

TEST_F(ControlPanel, ShowsAnotherProjectThatIsOpenedMeanwhile)
{
    app.makeProject("other", "Ann");
    SetCurrentProject("");
    openProject("demo");
    openProject("other");
    EXPECT_EQ(views("Controlpanel").size(), 1U);
    EXPECT_EQ(text(view("Controlpanel"), "Label5"), "other");
    EXPECT_EQ(text(view("Controlpanel"), "Label6"), "Ann");
}
