// The main window and the welcome view, the first that an author meets.
#include "program.h"

#include "toolkit/boxes.h"
#include "toolkit/paths.h"

#include <QAction>
#include <QDesktopServices>
#include <QMdiArea>
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
    }
}

TEST_F(Welcome, DocumentationGoesToTheSystemsViewer)
{
    QTextBrowser viewer; // any object with a signal that takes a page
    QSignalSpy opened(&viewer, &QTextBrowser::anchorClicked);
    QDesktopServices::setUrlHandler(u"file"_s, &viewer, "anchorClicked");
    click(view("Acc"), "Image3");
    click(view("Acc"), "Label4");
    QDesktopServices::unsetUrlHandler(u"file"_s);
    const QVariantList page = {QUrl::fromLocalFile(qtPath(app.at("Doc/index.html")))};
    EXPECT_EQ(opened, QList<QVariantList>(2, page));
    EXPECT_TRUE(isShown("Acc"));
}

TEST_F(Welcome, HidesBehindAnotherViewOrAtABackgroundClickAndTheMenuBringsItBackToTheCorner)
{
    QWidget& welcome = view("Acc");
    mainform->showOpenp();
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
    EXPECT_EQ(welcome.parentWidget()->pos(), QPoint(0, 0));
}

TEST_F(Welcome, AnEntryMovesAsAWholeWhileItIsPressedAndIsChosenByAReleaseOnIt)
{
    QWidget& icon = control(view("Acc"), "Image2");
    QWidget& label = control(view("Acc"), "Label3");
    const auto places = [&] { return std::pair(icon.pos(), label.pos()); };
    const QPoint shift(1, 1); // 10 twips to the nearest pixel
    const auto resting = places();
    const std::pair pressed(icon.pos() + shift, label.pos() + shift);
    for (QWidget* part : {&icon, &label}) {
        QTest::mousePress(part, Qt::LeftButton);
        EXPECT_EQ(places(), pressed);
        QTest::mouseRelease(part, Qt::LeftButton, {}, {-50, -50});
        EXPECT_EQ(places(), resting);
    }
    QTest::mousePress(&label, Qt::LeftButton);
    QTest::mouseClick(&label, Qt::RightButton);
    EXPECT_EQ(places(), pressed) << "one button is still down";
    answers.message("takes the release");
    messageBox(mainform.get(), u"takes the release"_s);
    EXPECT_EQ(places(), resting);
    QTest::mouseRelease(&label, Qt::LeftButton);
    EXPECT_TRUE(isShown("Acc")) << "it is no click any more";
    QTest::keyPress(&label, Qt::Key_Space);
    EXPECT_EQ(places(), pressed);
    QTest::keyRelease(&label, Qt::Key_Space);
    EXPECT_TRUE(isShown("openp"));
}
