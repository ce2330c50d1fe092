#include "program.h"

#include "toolkit/paths.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{

/// Catches what would go to the system's viewer.
class Viewer : public QObject
{
    Q_OBJECT

public:
    Viewer() { QDesktopServices::setUrlHandler(u"file"_s, this, "show"); }
    ~Viewer() override { QDesktopServices::unsetUrlHandler(u"file"_s); }

    QStringList pages;

public Q_SLOTS:
    void show(const QUrl& page) { pages += page.toLocalFile(); }
};

} // namespace

class Welcome : public Program
{
protected:
    void chooseMenu() const { mainform->findChild<QAction*>("Menu"_L1)->trigger(); }
    void clickBackground() const
    {
        QWidget* background = control<QMdiArea>(*mainform, "WorkArea").viewport();
        QTest::mouseClick(background, Qt::LeftButton, {}, background->rect().bottomRight() - QPoint(5, 5));
    }
};

TEST_F(Welcome, IsShownAtTheStart)
{
    EXPECT_EQ(mainform->windowTitle().toStdString(), "Questforge 3");
    EXPECT_EQ(mainform->findChild<QAction*>("Menu"_L1)->text().toStdString(), "Menu");
    EXPECT_TRUE(isShown("Acc"));
    EXPECT_EQ(view("Acc").windowTitle().toStdString(), "Bienvenu");
    EXPECT_EQ(text(view("Acc"), "Label1"), "Welcome to Questforge 3! What would you do?");
    EXPECT_EQ(text(view("Acc"), "Label2"), "Create a new project");
    EXPECT_EQ(text(view("Acc"), "Label3"), "Open an existing project");
    EXPECT_EQ(text(view("Acc"), "Label4"), "Documentation");
}

TEST_F(Welcome, TheStartMakesTheFolderOfProjectsAndLeavesAnExistingOneAlone)
{
    app.makeProject();
    const Snapshot before = app.snapshot();
    const Mainform again;
    EXPECT_EQ(Changes(before, app.snapshot()), "");
    app.remove("projets");
    const Mainform inAnEmptyFolder;
    EXPECT_TRUE(std::filesystem::is_directory(app.at("projets")));
}

TEST_F(Welcome, AnEntryLeadsToItsViewAndClosesTheWelcome)
{
    const struct {
        const char* control;
        const char* leadsTo;
    } cases[] = {
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
        ASSERT_TRUE(isShown("Acc"));
    }
}

TEST_F(Welcome, DocumentationGoesToTheSystemsViewer)
{
    Viewer viewer;
    click(view("Acc"), "Image3");
    click(view("Acc"), "Label4");
    QTest::keyClick(&control(view("Acc"), "Label4"), Qt::Key_Return);
    EXPECT_EQ(viewer.pages, QStringList(3, qtPath(app.at("Doc/index.html"))));
    EXPECT_TRUE(isShown("Acc"));
}

TEST_F(Welcome, APressedEntryMovesAsAWhole)
{
    for (const auto& [icon, label] :
         {std::pair{"Image1", "Label2"}, {"Image2", "Label3"}, {"Image3", "Label4"}}) {
        for (const char* pressed : {icon, label}) {
            SCOPED_TRACE(pressed);
            QWidget& image = control(view("Acc"), icon);
            QWidget& caption = control(view("Acc"), label);
            QWidget& part = control(view("Acc"), pressed);
            const QPoint imageAt = image.pos();
            const QPoint captionAt = caption.pos();
            QTest::mousePress(&part, Qt::LeftButton);
            EXPECT_EQ(image.pos(), imageAt + QPoint(1, 1)); // 10 twips to the nearest pixel
            EXPECT_EQ(caption.pos(), captionAt + QPoint(1, 1));
            QTest::mouseRelease(&part, Qt::LeftButton, {}, {-50, -50}); // beside it: nothing is chosen
            EXPECT_EQ(image.pos(), imageAt);
            EXPECT_EQ(caption.pos(), captionAt);
        }
    }
    EXPECT_TRUE(isShown("Acc"));
}

TEST_F(Welcome, AReleaseThatABoxTookIsMadeUpForAtTheNextMove)
{
    QWidget& label = control(view("Acc"), "Label3");
    const QPoint at = label.pos();
    QTest::mousePress(&label, Qt::LeftButton);
    const QPointF inside(5, 5);
    QMouseEvent move(QEvent::MouseMove, inside, label.mapToGlobal(inside), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&label, &move);
    EXPECT_EQ(label.pos(), at);
    EXPECT_TRUE(isShown("Acc")) << "it is no click";
    QTest::mouseRelease(&label, Qt::LeftButton, {}, {-50, -50});
    EXPECT_EQ(label.pos(), at);
}

TEST_F(Welcome, ASecondButtonMovesAnEntryAndBack)
{
    QWidget& label = control(view("Acc"), "Label3");
    const QPoint at = label.pos();
    QTest::mousePress(&label, Qt::LeftButton);
    QTest::mousePress(&label, Qt::RightButton);
    QTest::mouseRelease(&label, Qt::RightButton);
    QTest::mouseRelease(&label, Qt::LeftButton, {}, {-50, -50});
    EXPECT_EQ(label.pos(), at);
}

TEST_F(Welcome, ABackgroundClickHidesItAndTheMenuBringsItBackToTheCorner)
{
    view("Acc").parentWidget()->move(90, 70);
    QTest::mouseClick(&control(view("Acc"), "Label1"), Qt::RightButton); // passed on, yet no background
    EXPECT_TRUE(isShown("Acc"));
    clickBackground();
    EXPECT_FALSE(isShown("Acc"));
    chooseMenu();
    EXPECT_TRUE(isShown("Acc"));
    EXPECT_EQ(view("Acc").parentWidget()->pos(), QPoint(0, 0));
}

TEST_F(Welcome, HidesWhenAnotherViewBecomesActive)
{
    QWidget* welcome = &view("Acc");
    mainform->showOpenp();
    settle();
    EXPECT_FALSE(isShown("Acc"));
    EXPECT_EQ(findView("Acc"), welcome); // hidden, not closed
}

#include "acc_test.moc"
