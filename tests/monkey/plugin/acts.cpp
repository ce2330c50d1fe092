#include "acts.h"

#include "sights.h"

#include <array>
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace
{

constexpr int manyViews = 8;
constexpr int longestText = 300;

// Numbers at and beyond their limits, accents, quotes, Lua, INI and path syntax.
const QStringList texts =
    u"| |0|7|-1|1,5|1e3|32767|32768|99999999999999999999|La forêt de l'été : « où ? »|e\u0301le\u0300ve|"
    "\u20AC \u0153 \u2026 \u6F22 \U0001F600 \u202E|\"|'\"]]) os.exit() --|\\\" \\n \\0 %s%n|[Jeu]|nom=;#|"
    "<b>&amp;</b>|../../outside|/tmp/outside|..|con."_s.split(u'|');

// A few, so that projects are met again.
const QStringList projectNames = u"Untitled|Vallée|Désert du \"Nord\"|a|Île [2] = ; x"_s.split(u'|');

struct Choice {
    int weight;
    const char* name;
    QString (*act)(Chance&, Hands&); ///< answers what it did it to
};

QString anyText(Chance& chance)
{
    if (chance.percent(80)) {
        return chance.of(texts);
    }
    const QString letters = u"aeiou éèçàü\"'\\=[];:/.,|0123456789€"_s;
    QString text;
    for (int length = chance.between(1, longestText); text.size() < length;) {
        text += chance.of(letters);
    }
    return text;
}

Qt::MouseButton someButton(Chance& chance)
{
    return chance.percent(88) ? Qt::LeftButton : chance.percent(70) ? Qt::RightButton : Qt::MiddleButton;
}

QString told(const QWidget& control, QPoint point)
{
    const auto kind = QString::fromLatin1(control.metaObject()->className());
    return u"%1 %2 (%3, %4)"_s.arg(kind, control.objectName()).arg(point.x()).arg(point.y());
}

QString clickControl(Chance& chance, Hands& hands)
{
    QWidget* control = someControl(chance);
    const QPoint point = goodPointOn(chance, control);
    hands.click(control, point, someButton(chance), chance.percent(20) ? 2 : 1);
    return told(*control, point);
}

QString drag(Chance& chance, Hands& hands)
{
    QWidget* control = someControl(chance);
    const QPoint from = pointIn(chance, control->rect());
    const QPoint to = from + QPoint(chance.between(-300, 300), chance.between(-200, 200));
    hands.drag(control, from, to, someButton(chance));
    return told(*control, from) + u" to (%1, %2)"_s.arg(to.x()).arg(to.y());
}

QString pressKey(Chance& chance, Hands& hands)
{
    static const std::array keys = {
        Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space,  Qt::Key_Return, Qt::Key_Enter,     Qt::Key_Escape,
        Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,     Qt::Key_Down,   Qt::Key_PageUp,    Qt::Key_PageDown,
        Qt::Key_Home, Qt::Key_End,     Qt::Key_Delete, Qt::Key_F4,     Qt::Key_Backspace, Qt::Key_Menu,
        Qt::Key_Alt,  Qt::Key_A,       Qt::Key_V,      Qt::Key_Z,      Qt::Key_X,         Qt::Key_F10};
    static const std::array modifiers = {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    const Qt::Key key = chance.of(keys);
    const Qt::KeyboardModifier modifier = chance.percent(57) ? Qt::NoModifier : chance.of(modifiers);
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

QString resizeWindow(Chance& chance, Hands&)
{
    const QSize size(chance.between(100, 1600), chance.between(60, 1000));
    mainWindow()->resize(size);
    return u"%1 × %2"_s.arg(size.width()).arg(size.height());
}

QString arrangeView(Chance& chance, Hands&)
{
    using Deed = void (QWidget::*)();
    static constexpr std::array<Deed, 3> deeds = {&QWidget::showMinimized, &QWidget::showMaximized,
                                                  &QWidget::showNormal};
    const QWidgetList views = shownViews();
    if (views.isEmpty() || QApplication::activeModalWidget() != nullptr) {
        return {};
    }
    QWidget* view = chance.of(views);
    (view->parentWidget()->*chance.of(deeds))();
    return view->objectName();
}

/// What the close button of a view's window does; nobody can press it while a box waits for its answer.
void closeLater(Hands& hands, QPointer<QWidget> view)
{
    hands.later([view] {
        if (view && QApplication::activeModalWidget() == nullptr) {
            view->parentWidget()->close();
        }
    });
}

QString closeView(Chance& chance, Hands& hands)
{
    const QWidgetList views = shownViews();
    QWidget* view = views.isEmpty() ? nullptr : chance.of(views);
    closeLater(hands, view);
    return view == nullptr ? QString() : view->objectName();
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
    auto* bar = mainWindow()->findChild<QMenuBar*>();
    hands.click(bar, bar->actionGeometry(bar->actions().first()).center());
}

QString createProject(Chance& chance, Hands& hands)
{
    QString name = chance.percent(80) ? chance.of(projectNames) : anyText(chance);
    clickMenu(hands);
    clickNamed(hands, u"Acc"_s, u"Label2"_s);
    clickNamed(hands, u"nouvprojet"_s, u"Text1"_s);
    hands.press(Qt::Key_A, Qt::ControlModifier);
    hands.type(name);
    clickNamed(hands, u"nouvprojet"_s, u"Command1"_s);
    return name;
}

QString openProject(Chance& chance, Hands& hands)
{
    const int number = chance.between(1, static_cast<int>(projectNames.size()));
    closeLater(hands, findView(u"openp"_s)); // a new one starts among the projects
    clickMenu(hands);
    clickNamed(hands, u"Acc"_s, u"Label3"_s);
    for (int line = 0; line < number; ++line) {
        hands.press(Qt::Key_Down);
    }
    hands.press(Qt::Key_Return);
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
    hands.click(button, button->rect().center());
    return button->text();
}

constexpr std::array choices = {
    Choice{50, "click", clickControl},     Choice{10, "drag", drag},
    Choice{10, "key", pressKey},           Choice{6, "type", type},
    Choice{3, "resize", resizeWindow},     Choice{3, "arrange view", arrangeView},
    Choice{2, "close view", closeView},    Choice{2, "create project", createProject},
    Choice{3, "open project", openProject}};

} // namespace

QString chooseAct(Chance& chance, Hands& hands)
{
    if (QApplication::activeModalWidget() != nullptr && chance.percent(60)) {
        return u"answer "_s + answerBox(chance, hands);
    }
    if (shownViews().size() > manyViews && chance.percent(30)) {
        return u"close view "_s + closeView(chance, hands);
    }
    const Choice& choice = chance.byWeight(choices, &Choice::weight);
    return QString::fromLatin1(choice.name) + u' ' + choice.act(chance, hands);
}

bool tidyUp()
{
    if (QWidget* popup = QApplication::activePopupWidget()) {
        return popup->close();
    }
    QWidget* box = QApplication::activeModalWidget();
    const auto* question = qobject_cast<QMessageBox*>(box);
    if (auto* yes = question == nullptr ? nullptr : question->button(QMessageBox::Yes)) {
        yes->click();
        return true;
    }
    if (box != nullptr) {
        return box->close();
    }
    const QList<QMdiSubWindow*> views = mainWindow()->findChildren<QMdiSubWindow*>();
    return !views.isEmpty() && (views.first()->close() || true);
}
