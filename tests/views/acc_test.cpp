// The main window and the welcome view, the first that an author meets.
#include "program.h"

#include "toolkit/boxes.h"
#include "toolkit/paths.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QMdiArea>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

class Welcome : public Program
{
protected:
    void chooseMenu() const { mainform->findChild<QAction*>("Menu"_L1)->trigger(); }
};

TEST_F(Welcome, IsShownAtTheStartWhichMakesTheFolderOfProjects)
{
    EXPECT_EQ(mainform->windowTitle().toStdString(), "Questforge 3");
    EXPECT_EQ(text(view("Acc"), "Label1"), "Welcome to Questforge 3! What would you do?");
    EXPECT_EQ(text(view("Acc"), "Label2"), "Create a new project");
    EXPECT_EQ(text(view("Acc"), "Label3"), "Open an existing project");
    EXPECT_EQ(text(view("Acc"), "Label4"), "Documentation");
    app.remove("projets");
    const Mainform another;
    EXPECT_TRUE(app.has("projets"));
}

TEST_F(Welcome, AnEntryLeadsToItsViewAndClosesTheWelcome)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Image1", "nouvprojet"}, {"Label2", "nouvprojet"}, {"Image2", "openp"}, {"Label3", "openp"}};
    for (const auto& [name, leadsTo] : cases) {
        SCOPED_TRACE(name);
        click(view("Acc"), name);
        settle();
        EXPECT_EQ(findView("Acc"), nullptr);
        ASSERT_TRUE(isShown(leadsTo));
        view(leadsTo).parentWidget()->close();
        chooseMenu();
        settle();
    }
}

TEST_F(Welcome, DocumentationGoesToTheSystemsViewer)
{
    QTextBrowser viewer; // any object with a signal that takes a page
    QSignalSpy opened(&viewer, &QTextBrowser::anchorClicked);
    QDesktopServices::setUrlHandler(u"file"_s, &viewer, "anchorClicked");
    click(view("Acc"), "Image3");
    click(view("Acc"), "Label4");
    keys(control(view("Acc"), "Label4"), {Qt::Key_Return});
    QDesktopServices::unsetUrlHandler(u"file"_s);
    const QVariantList page = {QUrl::fromLocalFile(qtPath(app.at("Doc/index.html")))};
    EXPECT_EQ(opened, QList<QVariantList>(3, page));
    EXPECT_TRUE(isShown("Acc"));
}

TEST_F(Welcome, HidesBehindAnotherViewOrAtABackgroundClickAndTheMenuBringsItBackToTheCorner)
{
    QWidget& welcome = view("Acc");
    mainform->showOpenp();
    settle();
    EXPECT_FALSE(welcome.isVisible());
    chooseMenu();
    EXPECT_TRUE(welcome.isVisible());
    welcome.parentWidget()->move(90, 70);
    QTest::mouseClick(&control(welcome, "Label1"), Qt::RightButton); // passed on, yet no background
    EXPECT_TRUE(welcome.isVisible());
    QWidget* background = control<QMdiArea>(*mainform, "WorkArea").viewport();
    QTest::mouseClick(background, Qt::LeftButton, {}, background->rect().bottomRight() - QPoint(5, 5));
    EXPECT_FALSE(welcome.isVisible());
    chooseMenu();
    EXPECT_TRUE(welcome.isVisible());
    EXPECT_EQ(welcome.parentWidget()->pos(), QPoint(0, 0));
}

class WelcomeEntry : public Program
{
protected:
    void expectMoved(const QPoint& by) const
    {
        EXPECT_EQ(icon.pos(), iconAt + by);
        EXPECT_EQ(label.pos(), labelAt + by);
    }
    void releaseBeside(QWidget& part) const { QTest::mouseRelease(&part, Qt::LeftButton, {}, {-50, -50}); }

    QWidget& icon = control(view("Acc"), "Image2");
    QWidget& label = control(view("Acc"), "Label3");
    const QPoint iconAt = icon.pos();
    const QPoint labelAt = label.pos();
    const QPoint down{1, 1}; // 10 twips to the nearest pixel
};

TEST_F(WelcomeEntry, MovesAsAWholeWhileEitherPartIsPressedByAnyButton)
{
    for (QWidget* part : {&icon, &label}) {
        QTest::mousePress(part, Qt::LeftButton);
        expectMoved(down);
        releaseBeside(*part); // nothing is chosen
        expectMoved({});
    }
    QTest::mousePress(&label, Qt::LeftButton);
    QTest::mouseClick(&label, Qt::RightButton);
    expectMoved(down);
    releaseBeside(label);
    expectMoved({});
    EXPECT_TRUE(isShown("Acc"));
}

TEST_F(WelcomeEntry, MakesUpForAReleaseThatNeverComes)
{
    QTest::mousePress(&label, Qt::LeftButton);
    answers.message("takes it");
    messageBox(mainform.get(), u"takes it"_s);
    expectMoved({});

    QTest::mousePress(&label, Qt::LeftButton);
    const QPointF inside(5, 5);
    QMouseEvent move(QEvent::MouseMove, inside, label.mapToGlobal(inside), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&label, &move);
    expectMoved({});
    EXPECT_TRUE(isShown("Acc")) << "it is no click";
    releaseBeside(label);
    expectMoved({});
}

TEST_F(WelcomeEntry, MovesWhileAKeyIsHeldAndIsChosenOnItsRelease)
{
    QTest::keyPress(&label, Qt::Key_Space);
    expectMoved(down);
    EXPECT_EQ(findView("openp"), nullptr);
    QTest::keyRelease(&label, Qt::Key_Space);
    EXPECT_TRUE(isShown("openp"));
}
