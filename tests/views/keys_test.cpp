// The program as an author meets it who has no mouse.
#include "program.h"

#include "app/arrangement.h"
#include "build/sendtopsp.h"
#include "toolkit/linelist.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QRect>
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
    void press(Qt::Key key, Qt::KeyboardModifiers with = {}) const
    {
        QWidget* control = QApplication::focusWidget();
        QTest::keyClick(control == nullptr ? mainform.get() : control, key, with);
        settle();
    }
    std::string active() const
    {
        return control<QMdiArea>(*mainform, "WorkArea")
            .activeSubWindow()
            ->widget()
            ->objectName()
            .toStdString();
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
    EXPECT_EQ(active(), "mapeditor");
    EXPECT_TRUE(view("mapeditor").isAncestorOf(QApplication::focusWidget())) << focused();
    mainform->showControlpanel();
    EXPECT_EQ(focused(), "Label9_0");
    mainform->openCombateditor();
    EXPECT_EQ(focused(), "HScroll1");
}

TEST_F(Keys, LeadFromViewToViewAndBackToTheControlLeft)
{
    open();
    control(view("mapeditor"), "Text1").setFocus();
    mainform->openCombateditor();
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_F6}) {
        for (const char* next : {"Controlpanel", "mapeditor", "combateditor"}) {
            press(key, Qt::ControlModifier);
            EXPECT_EQ(active(), next);
            EXPECT_EQ(focused() == "Text1", next == std::string("mapeditor")) << focused();
        }
        press(key == Qt::Key_Tab ? Qt::Key_Backtab : key, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(active(), "mapeditor");
        press(key, Qt::ControlModifier);
    }
}

TEST_F(Keys, CloseTheActiveView)
{
    open();
    for (const Qt::Key key : {Qt::Key_W, Qt::Key_F4}) {
        mainform->openCombateditor();
        press(key, Qt::ControlModifier);
        EXPECT_EQ(findView("combateditor"), nullptr);
        EXPECT_EQ(active(), "mapeditor");
    }
}

TEST_F(Keys, LayViewsSideBySideAndOneOverTheOther)
{
    open();
    mainform->openMap("01");
    view("mapeditor").parentWidget()->setWindowState(Qt::WindowMaximized);
    mainform->openCombateditor();
    const auto place = [this](std::size_t i) { return views("mapeditor")[i]->parentWidget()->geometry(); };
    const QSize size = place(0).size();
    press(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(place(0).intersects(place(1)));
    EXPECT_FALSE(place(1).intersects(view("combateditor").parentWidget()->geometry()));
    EXPECT_EQ(place(1).size(), size);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(place(0).intersects(place(1)));
    EXPECT_FALSE(place(1).contains(place(0).topLeft()));
    EXPECT_EQ(place(1).size(), size);
}

TEST(Arrangement, TilesWithoutOverlapWithinTheWidthAsHighUpAsTheyFit)
{
    const QSize area(1000, 600);
    const std::vector<QSize> views = {{200, 500}, {700, 300}, {90, 80}, {300, 200}, {1200, 100}, {400, 200}};
    const std::vector<QPoint> expected = {{0, 0}, {200, 0}, {900, 0}, {200, 300}, {0, 500}, {500, 300}};
    EXPECT_EQ(tiled(views, area), expected);
}

TEST(Arrangement, CascadesDownToTheFootOfTheAreaAndBeginsAgainAtTheTop)
{
    const std::vector<QSize> views(4, {300, 200});
    EXPECT_EQ(cascaded(views, {1000, 260}), (std::vector<QPoint>{{0, 0}, {28, 28}, {56, 56}, {84, 0}}));
    EXPECT_EQ(cascaded(views, {100, 100})[3], QPoint(84, 0)); // too small for any
}

TEST_F(Keys, AHeldKeyMovesAnEntryAndChoosesOnRelease)
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        mainform->showAcc();
        QWidget& label = control(view("Acc"), "Label2");
        QWidget& icon = control(view("Acc"), "Image1");
        const QPoint labelAt = label.pos();
        const QPoint iconAt = icon.pos();
        QTest::keyPress(&label, key);
        EXPECT_EQ(label.pos(), labelAt + QPoint(1, 1));
        EXPECT_EQ(icon.pos(), iconAt + QPoint(1, 1));
        EXPECT_EQ(findView("nouvprojet"), nullptr);
        QTest::keyRelease(&label, key);
        settle();
        ASSERT_TRUE(isShown("nouvprojet"));
        press(Qt::Key_W, Qt::ControlModifier);
    }
}

TEST_F(Keys, EnterPressesTheButtonAndTheKeysComeBackAfterItsBox)
{
    mainform->showOpenp();
    press(Qt::Key_Tab);
    ASSERT_EQ(focused(), "Command1");
    answers.message("Erreur : Projet invalide !");
    press(Qt::Key_Return);
    mainform->activateWindow(); // as a desktop does once the box is gone
    ASSERT_TRUE(QTest::qWaitForWindowActive(mainform.get()));
    EXPECT_EQ(focused(), "Command1");
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

TEST_F(Keys, ListsChooseBySpaceAndEnterAndOpenByEnter)
{
    LineList list(nullptr);
    list.setLines({"one", "two", "three"});
    std::string told;
    QObject::connect(&list, &LineList::chosen, &list, [&told](int row) { told += std::to_string(row); });
    QObject::connect(&list, &LineList::opened, &list, [&told] { told += "o"; });
    keys(list, {Qt::Key_Return, Qt::Key_Down, Qt::Key_Down}); // nothing is selected at first
    EXPECT_EQ(told, "");
    EXPECT_EQ(list.selectedRow(), 1);
    keys(list, {Qt::Key_Space, Qt::Key_Return});
    EXPECT_EQ(told, "11o");
    QObject::connect(&list, &LineList::chosen, &list, [&list] { list.setLines({"one", "2", "three"}); });
    keys(list, {Qt::Key_Space});
    EXPECT_EQ(list.selectedRow(), 1); // its lines were given anew
    list.setLines({"one", "2", "three"});
    EXPECT_EQ(list.selectedRow(), -1);
    keys(list, {Qt::Key_Down});
    EXPECT_EQ(list.selectedRow(), 2);
}

TEST_F(Keys, ListsMayChooseByEachStepToAnotherLine)
{
    LineList list(nullptr);
    list.chooseBySteps();
    list.setLines({"one", "two", "three"});
    std::string told;
    QObject::connect(&list, &LineList::chosen, &list, [&told](int row) { told += std::to_string(row); });
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

TEST_F(Keys, AScreenReaderMeetsAnEntryAsAButtonAndPressesIt)
{
    QAccessibleInterface* label = QAccessible::queryAccessibleInterface(&control(view("Acc"), "Label2"));
    EXPECT_EQ(label->role(), QAccessible::Button);
    EXPECT_EQ(label->text(QAccessible::Name), u"Create a new project"_s);
    label->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    settle();
    EXPECT_TRUE(isShown("nouvprojet"));
    open();
    const auto actions = [this](const char* name) {
        QWidget& part = control(view("Controlpanel"), name);
        return QAccessible::queryAccessibleInterface(&part)->actionInterface()->actionNames();
    };
    EXPECT_TRUE(actions("Label9_0").contains(QAccessibleActionInterface::pressAction()));
    EXPECT_EQ(actions("Image1_0"), QStringList()) << "a click on it does nothing";
}
