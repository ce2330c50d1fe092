#include "acts.h"

#include "attention.h"
#include "sights.h"
#include "texts.h"

#include <array>
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace
{

constexpr int manyViews = 8;

/// What an act does; answers what it did it to.
using Act = QString (*)(Chance&, Hands&);

struct Choice {
    int weight;
    const char* name;
    Act act;
};

Qt::MouseButton someButton(Chance& chance)
{
    return chance.percent(88) ? Qt::LeftButton : chance.percent(70) ? Qt::RightButton : Qt::MiddleButton;
}

QString told(const QWidget* control, QPoint point)
{
    return control == nullptr ? u"nothing"_s
                              : pathOf(*control) + u" (%1, %2)"_s.arg(point.x()).arg(point.y());
}

QString clickControl(Chance& chance, Hands& hands)
{
    QWidget* control = someControl(chance);
    if (control == nullptr) {
        return u"nothing"_s;
    }
    const QPoint point = goodPointOn(chance, control);
    hands.click(control, point, someButton(chance), chance.percent(20) ? 2 : 1);
    return told(control, point);
}

QString clickAnywhere(Chance& chance, Hands& hands)
{
    QWidget* window = QApplication::activePopupWidget();
    window = window == nullptr || chance.percent(30) ? QApplication::activeModalWidget() : window;
    window = window == nullptr || chance.percent(30) ? mainWindow() : window;
    const QPoint point = pointIn(chance, window->rect());
    hands.click(window, point, someButton(chance), chance.percent(20) ? 2 : 1);
    return told(window, point);
}

QString drag(Chance& chance, Hands& hands)
{
    QWidget* control = chance.percent(60) ? someControl(chance) : scene(chance);
    if (control == nullptr) {
        return u"nothing"_s;
    }
    const QPoint from = pointIn(chance, control->rect());
    const QPoint to = from + QPoint(chance.between(-300, 300), chance.between(-200, 200));
    hands.drag(control, from, to, someButton(chance));
    return told(control, from) + u" to (%1, %2)"_s.arg(to.x()).arg(to.y());
}

/// A window is taken by its title or by an edge, where a drag moves or resizes it.
QString dragWindow(Chance& chance, Hands& hands)
{
    const QList<QMdiSubWindow*> views = viewWindows();
    if (views.isEmpty()) {
        return u"nothing"_s;
    }
    QMdiSubWindow* view = chance.of(views);
    const QRect place = view->rect();
    const std::array holds = {QPoint(place.width() / 2, 10), QPoint(place.width() - 2, place.height() - 2),
                              QPoint(1, place.height() / 2)};
    const QPoint from = chance.of(holds);
    const QPoint to = from + QPoint(chance.between(-300, 300), chance.between(-300, 300));
    hands.drag(view, from, to, Qt::LeftButton);
    return told(view, from) + u" to (%1, %2)"_s.arg(to.x()).arg(to.y());
}

QString turnWheel(Chance& chance, Hands& hands)
{
    QWidget* control = someControl(chance);
    if (control == nullptr) {
        return u"nothing"_s;
    }
    const QPoint point = pointIn(chance, control->rect());
    hands.turnWheel(control, point, chance.between(-5, 5));
    return told(control, point);
}

QString pressKey(Chance& chance, Hands& hands)
{
    static const std::array keys = {
        Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space,  Qt::Key_Return, Qt::Key_Enter,     Qt::Key_Escape,
        Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,     Qt::Key_Down,   Qt::Key_PageUp,    Qt::Key_PageDown,
        Qt::Key_Home, Qt::Key_End,     Qt::Key_Delete, Qt::Key_F4,     Qt::Key_Backspace, Qt::Key_Menu,
        Qt::Key_Alt,  Qt::Key_A,       Qt::Key_V,      Qt::Key_Z,      Qt::Key_X,         Qt::Key_F10};
    static const std::array modifiers = {Qt::NoModifier, Qt::NoModifier,    Qt::NoModifier,
                                         Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                         Qt::AltModifier};
    const Qt::Key key = chance.of(keys);
    const Qt::KeyboardModifier modifier = chance.of(modifiers);
    const int times = chance.percent(80) ? 1 : 10;
    for (int time = 0; time < times; ++time) {
        hands.press(key, modifier, key == Qt::Key_Space ? u" "_s : QString());
    }
    return QKeySequence(key | modifier).toString() + u" × %1"_s.arg(times);
}

QString type(Chance& chance, Hands& hands)
{
    QString text = anyText(chance);
    if (chance.percent(30)) {
        hands.press(Qt::Key_A, Qt::ControlModifier);
    }
    if (chance.percent(30)) {
        QGuiApplication::clipboard()->setText(text + u"\r\nline\t2"_s);
        hands.press(Qt::Key_V, Qt::ControlModifier);
    } else {
        hands.type(text);
    }
    return text;
}

QString manageWindow(Chance& chance, Hands&)
{
    using Deed = void (QWidget::*)();
    static constexpr std::array<Deed, 4> deeds = {&QWidget::showMinimized, &QWidget::showMaximized,
                                                  &QWidget::showNormal, &QWidget::lower};
    const QList<QMdiSubWindow*> views = viewWindows();
    if (chance.percent(20) && mainWindow() != nullptr) {
        const QSize size = chance.percent(50) ? QSize(1600, 1000)
                                              : QSize(chance.between(100, 1600), chance.between(60, 1000));
        mainWindow()->resize(size);
        return u"main window %1 × %2"_s.arg(size.width()).arg(size.height());
    }
    if (views.isEmpty() || QApplication::activeModalWidget() != nullptr) {
        return u"nothing"_s;
    }
    QMdiSubWindow* view = chance.of(views);
    QString name = pathOf(*view->widget());
    (view->*chance.of(deeds))();
    return name;
}

/// What a window's close button does; nobody can press it while a box waits for its answer.
void close(QWidget* window)
{
    if (window != nullptr && QApplication::activeModalWidget() == nullptr) {
        window->close();
    }
}

QString closeView(Chance& chance, Hands& hands)
{
    const QList<QMdiSubWindow*> views = viewWindows();
    if (views.isEmpty() || QApplication::activeModalWidget() != nullptr) {
        return u"nothing"_s;
    }
    QMdiSubWindow* view = chance.of(views);
    hands.later([view = QPointer<QWidget>(view)] { close(view); });
    return pathOf(*view->widget());
}

void clickNamed(Hands& hands, const QString& view, const QString& control)
{
    hands.later([&hands, view, control] {
        const QWidget* found = findView(view);
        if (auto* target = found == nullptr ? nullptr : found->findChild<QWidget*>(control)) {
            hands.click(target, target->rect().center());
        }
    });
}

void clickMenu(Hands& hands)
{
    hands.later([&hands] {
        auto* window = qobject_cast<QMainWindow*>(mainWindow());
        if (window != nullptr && !window->menuBar()->actions().isEmpty()) {
            QMenuBar* bar = window->menuBar();
            hands.click(bar, bar->actionGeometry(bar->actions().first()).center());
        }
    });
}

QString createProject(Chance& chance, Hands& hands)
{
    QString name = projectName(chance);
    clickMenu(hands);
    clickNamed(hands, u"Acc"_s, u"Label2"_s);
    clickNamed(hands, u"nouvprojet"_s, u"Text1"_s);
    hands.press(Qt::Key_A, Qt::ControlModifier);
    hands.type(name);
    clickNamed(hands, u"nouvprojet"_s, u"Command1"_s);
    return name;
}

/// Opens one of the folders that the list of the open-project view shows below its current one.
void openFolder(Hands& hands, int number)
{
    const QWidget* view = findView(u"openp"_s);
    auto* list = view == nullptr ? nullptr : view->findChild<QListWidget*>(u"Dir1"_s);
    const int inner = list == nullptr ? 0 : list->count() - list->currentRow() - 1;
    if (inner > 0) {
        QListWidgetItem* line = list->item(list->currentRow() + 1 + number % inner);
        list->scrollToItem(line);
        hands.click(list->viewport(), list->visualItemRect(line).center(), Qt::LeftButton, 2);
    }
}

QString openProject(Chance& chance, Hands& hands)
{
    const int number = chance.below(1000);
    hands.later([] {
        const QWidget* view = findView(u"openp"_s);
        close(view == nullptr ? nullptr : view->parentWidget()); // a new one starts among the projects
    });
    clickMenu(hands);
    clickNamed(hands, u"Acc"_s, u"Label3"_s);
    hands.later([&hands, number] { openFolder(hands, number); });
    clickNamed(hands, u"openp"_s, u"Command1"_s);
    return QString::number(number);
}

QString answerBox(Chance& chance, Hands& hands)
{
    QWidget* box = QApplication::activeModalWidget();
    if (box->findChild<QLineEdit*>() != nullptr && chance.percent(80)) {
        type(chance, hands);
    }
    const QList<QAbstractButton*> buttons = box->findChildren<QAbstractButton*>();
    if (buttons.isEmpty() || chance.percent(20)) {
        hands.press(chance.percent(50) ? Qt::Key_Escape : Qt::Key_Return);
        return u"by key"_s;
    }
    QAbstractButton* button = chance.of(buttons);
    hands.later([&hands, button = QPointer<QWidget>(button)] {
        if (button) {
            hands.click(button, button->rect().center());
        }
    });
    return button->text();
}

constexpr std::array choices = {Choice{46, "click", clickControl},
                                Choice{8, "click anywhere", clickAnywhere},
                                Choice{8, "drag", drag},
                                Choice{4, "drag window", dragWindow},
                                Choice{3, "wheel", turnWheel},
                                Choice{10, "key", pressKey},
                                Choice{6, "type", type},
                                Choice{3, "window", manageWindow},
                                Choice{2, "close view", closeView},
                                Choice{2, "create project", createProject},
                                Choice{3, "open project", openProject}};

} // namespace

QString chooseAct(Chance& chance, Hands& hands)
{
    if (QApplication::activeModalWidget() != nullptr && chance.percent(60)) {
        return u"answer "_s + answerBox(chance, hands);
    }
    if (viewWindows().size() > manyViews && chance.percent(30)) {
        return u"close view "_s + closeView(chance, hands);
    }
    const Choice& choice = chance.byWeight(choices);
    return QString::fromLatin1(choice.name) + u' ' + choice.act(chance, hands);
}

bool tidyUp()
{
    if (QWidget* popup = QApplication::activePopupWidget()) {
        return popup->close();
    }
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        QAbstractButton* yes = box->button(QMessageBox::Yes);
        (yes == nullptr ? box->buttons().first() : yes)->click();
        return true;
    }
    if (QWidget* box = QApplication::activeModalWidget()) {
        return box->close();
    }
    const QList<QMdiSubWindow*> views = mainWindow()->findChildren<QMdiSubWindow*>();
    return !views.isEmpty() && (views.first()->close() || true);
}
