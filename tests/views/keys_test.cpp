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
        QTest::keyClick(QApplication::focusWidget(), keys.key(), keys.keyboardModifiers());
        settle();
    }
    /// The control that has the keys, in its view.
    std::string focused() const
    {
        const QMdiSubWindow* window = control<QMdiArea>(*mainform, "WorkArea").activeSubWindow();
        const QWidget* control = QApplication::focusWidget();
        const QString view = window->widget()->objectName();
        return (view + u'/' + (control == nullptr ? u"nothing"_s : control->objectName())).toStdString();
    }
};

TEST_F(Keys, LeadFromViewToViewAndBackToTheControlLeftAndCloseViews)
{
    open();
    control(view("mapeditor"), "Text1").setFocus();
    mainform->openCombateditor();
    mainform->openCombateditor();
    const std::pair<QKeyCombination, const char*> steps[] = {
        {Qt::CTRL | Qt::Key_Tab, "Controlpanel/Label9_0"},
        {Qt::CTRL | Qt::Key_F6, "mapeditor/Text1"},
        {Qt::CTRL | Qt::Key_Tab, "combateditor/HScroll1"},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_F6, "mapeditor/Text1"},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, "Controlpanel/Label9_0"},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, "combateditor/HScroll1"},
        {Qt::CTRL | Qt::Key_W, "Controlpanel/Label9_0"}, // the one before it
        {Qt::CTRL | Qt::SHIFT | Qt::Key_F6, "combateditor/HScroll1"},
        {Qt::CTRL | Qt::Key_F4, "Controlpanel/Label9_0"}};
    for (const auto& [key, leadsTo] : steps) {
        press(key);
        EXPECT_EQ(focused(), leadsTo);
    }
    EXPECT_EQ(findView("combateditor"), nullptr);
}

TEST_F(Keys, LayViewsSideBySideAndOneOverTheOther)
{
    open();
    mainform->openMap("01");
    view("mapeditor").parentWidget()->setWindowState(Qt::WindowMaximized);
    const auto place = [this](std::size_t i) { return views("mapeditor")[i]->parentWidget()->geometry(); };
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_T);
    EXPECT_FALSE(place(0).intersects(place(1)));
    EXPECT_EQ(place(1).size(), place(0).size());
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_C);
    EXPECT_TRUE(place(0).intersects(place(1)));
    EXPECT_NE(place(0).topLeft(), place(1).topLeft());
}

TEST(Arrangement, TilesAsHighUpAsTheyFitAndCascadesToTheEndsOfTheArea)
{
    using Places = std::vector<QPoint>;
    const std::vector<QSize> views = {{200, 500}, {700, 300}, {90, 80}, {300, 200}, {1200, 100}, {400, 200}};
    const Places side = {{0, 0}, {200, 0}, {900, 0}, {200, 300}, {0, 500}, {500, 300}};
    EXPECT_EQ(tiled(views, {1000, 600}), side);
    const std::vector<QSize> alike(4, {300, 200}); // which begin again at the top or the left
    EXPECT_EQ(cascaded(alike, {1000, 260}), (Places{{0, 0}, {28, 28}, {56, 56}, {84, 0}}));
    EXPECT_EQ(cascaded(alike, {340, 260}), (Places{{0, 0}, {28, 28}, {0, 56}, {28, 0}}));
}

TEST_F(Keys, TheMenuBarIsReachedAndLeft)
{
    for (const Qt::Key key : {Qt::Key_Alt, Qt::Key_F10}) {
        mainform->showOpenp();
        press(key);
        ASSERT_TRUE(mainform->menuBar()->hasFocus()) << key;
        press(Qt::Key_Escape);
        EXPECT_EQ(focused(), "openp/Dir1");
        press(key);
        press(Qt::Key_Return);
        EXPECT_TRUE(isShown("Acc"));
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
}

TEST_F(Keys, EnterOpensAComboBoxAndOnlyOnce)
{
    sendtopsp form(*mainform);
    auto& drives = control<QComboBox>(form, "Drive1");
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    drives.setFocus();
    QTest::simulateEvent(&drives, true, Qt::Key_Return, {}, u"\r"_s, true);
    EXPECT_FALSE(drives.view()->isVisible());
    keys(drives, {Qt::Key_Return});
    EXPECT_TRUE(drives.view()->isVisible());
    drives.hidePopup();
}
