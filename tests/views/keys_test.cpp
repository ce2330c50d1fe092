// The program as an author meets it who has no mouse.
#include "program.h"

#include "app/arrangement.h"
#include "build/sendtopsp.h"
#include "toolkit/linelist.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

std::string focused()
{
    const QWidget* control = QApplication::focusWidget();
    return control == nullptr ? "nothing" : control->objectName().toStdString();
}

} // namespace

class Keys : public Program
{
protected:
    void open() const
    {
        app.makeProject();
        openProject("demo");
    }
    /// Presses a key where the focus is.
    void press(QKeyCombination keys) const
    {
        QWidget* control = QApplication::focusWidget();
        QTest::keyClick(control == nullptr ? mainform.get() : control, keys.key(), keys.keyboardModifiers());
        settle();
    }
    std::string active() const
    {
        const QMdiSubWindow* window = control<QMdiArea>(*mainform, "WorkArea").activeSubWindow();
        return window->widget()->objectName().toStdString();
    }
};

TEST_F(Keys, AViewOpensWithTheKeysOnItsFirstControl)
{
    EXPECT_EQ(focused(), "Label2");
    mainform->showNouvprojet();
    EXPECT_EQ(focused(), "Text1");
    mainform->showOpenp();
    EXPECT_EQ(focused(), "Dir1");
    open();
    EXPECT_TRUE(view("mapeditor").isAncestorOf(QApplication::focusWidget())) << focused();
    mainform->showControlpanel();
    EXPECT_EQ(focused(), "Label9_0");
}

TEST_F(Keys, LeadFromViewToViewAndBackToTheControlLeftAndCloseViews)
{
    open();
    control(view("mapeditor"), "Text1").setFocus();
    mainform->openCombateditor();
    mainform->openCombateditor();
    const std::pair<QKeyCombination, const char*> steps[] = {
        {Qt::CTRL | Qt::Key_Tab, "Controlpanel"},
        {Qt::CTRL | Qt::Key_F6, "mapeditor"},
        {Qt::CTRL | Qt::Key_Tab, "combateditor"},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_F6, "mapeditor"},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, "Controlpanel"},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, "combateditor"},
        {Qt::CTRL | Qt::Key_W, "Controlpanel"}, // the one before it
        {Qt::CTRL | Qt::SHIFT | Qt::Key_F6, "combateditor"},
        {Qt::CTRL | Qt::Key_F4, "Controlpanel"}};
    for (const auto& [key, leadsTo] : steps) {
        press(key);
        EXPECT_EQ(active(), leadsTo);
        EXPECT_EQ(focused() == "Text1", active() == "mapeditor") << focused();
    }
    EXPECT_EQ(findView("combateditor"), nullptr);
}

TEST_F(Keys, LayViewsSideBySideAndOneOverTheOther)
{
    open();
    mainform->openMap("01");
    view("mapeditor").parentWidget()->setWindowState(Qt::WindowMaximized);
    mainform->openCombateditor();
    const auto place = [this](std::size_t i) { return views("mapeditor")[i]->parentWidget()->geometry(); };
    const QSize size = place(0).size();
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_T);
    EXPECT_FALSE(place(0).intersects(place(1)));
    EXPECT_EQ(place(1).size(), size);
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    EXPECT_TRUE(place(0).intersects(place(1)));
    EXPECT_NE(place(0).topLeft(), place(1).topLeft());
}

TEST(Arrangement, TilesWithoutOverlapWithinTheWidthAsHighUpAsTheyFit)
{
    const QSize area(1000, 600);
    const std::vector<QSize> views = {{200, 500}, {700, 300}, {90, 80}, {300, 200}, {1200, 100}, {400, 200}};
    const std::vector<QPoint> expected = {{0, 0}, {200, 0}, {900, 0}, {200, 300}, {0, 500}, {500, 300}};
    EXPECT_EQ(tiled(views, area), expected);
}

TEST(Arrangement, CascadesToTheEndsOfTheAreaAndBeginsAgainAtTheTopOrTheLeft)
{
    const std::vector<QSize> views(4, {300, 200});
    EXPECT_EQ(cascaded(views, {1000, 260}), (std::vector<QPoint>{{0, 0}, {28, 28}, {56, 56}, {84, 0}}));
    EXPECT_EQ(cascaded(views, {340, 260}), (std::vector<QPoint>{{0, 0}, {28, 28}, {0, 56}, {28, 0}}));
}

TEST_F(Keys, TheMenuBarIsReachedAndLeft)
{
    mainform->showOpenp();
    for (const Qt::Key key : {Qt::Key_Alt, Qt::Key_F10}) {
        press(key);
        ASSERT_TRUE(mainform->menuBar()->hasFocus()) << key;
        press(Qt::Key_Escape);
        EXPECT_EQ(focused(), "Dir1");
        press(key);
        press(Qt::Key_Return);
        EXPECT_TRUE(isShown("Acc"));
        mainform->showOpenp();
    }
}

class ListKeys : public Program
{
protected:
    ListKeys()
    {
        list.setLines({"one", "two", "three"});
        QObject::connect(&list, &LineList::chosen, &list, [this](int row) { told += std::to_string(row); });
        QObject::connect(&list, &LineList::opened, &list, [this] { told += "o"; });
    }

    LineList list{nullptr};
    std::string told; // the rows that were chosen, and "o" for each that was opened
};

TEST_F(ListKeys, ChooseBySpaceAndEnterAndOpenByEnter)
{
    keys(list, {Qt::Key_Return, Qt::Key_Down, Qt::Key_Down}); // nothing is selected at first
    EXPECT_EQ(told, "");
    EXPECT_EQ(list.selectedRow(), 1);
    keys(list, {Qt::Key_Space, Qt::Key_Return});
    EXPECT_EQ(told, "11o");
}

TEST_F(ListKeys, StayOnTheirLineWhenTheListGetsItsLinesAnew)
{
    QObject::connect(&list, &LineList::chosen, &list, [this] { list.setLines({"one", "2", "three"}); });
    keys(list, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Space});
    EXPECT_EQ(list.selectedRow(), 1);
    list.setLines({"one", "2", "three"});
    EXPECT_EQ(list.selectedRow(), -1);
    keys(list, {Qt::Key_Down});
    EXPECT_EQ(list.selectedRow(), 2);
}

TEST_F(ListKeys, MayChooseByEachStepToAnotherLine)
{
    list.chooseBySteps();
    keys(list, {Qt::Key_Down, Qt::Key_Up, Qt::Key_Down, Qt::Key_End, Qt::Key_Down, Qt::Key_Home});
    EXPECT_EQ(told, "0120");
    list.clear();
    keys(list, {Qt::Key_Down});
    EXPECT_EQ(told, "0120");
}

TEST_F(Keys, AStepInTheListOfVariablesAsksForTheNewValue)
{
    open();
    WriteIni("Variables", "nombre", "2", Descriptor());
    const QWidget& map = view("mapeditor");
    click(map, "Option1_2");
    pressCell(map, 1, 1);
    click(map, "Command18");
    auto& list = control<LineList>(*map.findChild<QWidget*>("Frame8"_L1), "List1");
    answers.line("Taper la nouvelle valeur de la variable : ", "7");
    keys(list, {Qt::Key_Down});
    EXPECT_EQ(lines(map, "listev"), std::vector<std::string>{"var[1] = \"7\""});
    EXPECT_FALSE(isVisible(map, "Frame8"));
}

TEST_F(Keys, EnterOpensAComboBoxAndOnlyOnce)
{
    sendtopsp form(*mainform);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    auto& drives = control<QComboBox>(form, "Drive1");
    drives.setFocus();
    QTest::simulateEvent(&drives, true, Qt::Key_Return, {}, u"\r"_s, true);
    EXPECT_FALSE(drives.view()->isVisible());
    keys(drives, {Qt::Key_Return});
    EXPECT_TRUE(drives.view()->isVisible());
    drives.hidePopup();
}
