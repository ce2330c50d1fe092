#include "sights.h"

#include <algorithm>
#include <array>
#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMap>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace
{

bool isUsable(const QWidget& control)
{
    constexpr std::array kinds = {"QAbstractButton",   "QAbstractSlider", "QLineEdit",  "QComboBox",
                                  "QAbstractItemView", "PressLabel",      "GridPicture"};
    return std::ranges::any_of(kinds, [&](const char* kind) { return control.inherits(kind); });
}

/// How often the person turns to a view or control.
int interestIn(const QWidget* widget)
{
    static const QMap<QString, int> interests = {
        {u"mapeditor"_s, 12}, {u"Controlpanel"_s, 6}, {u"var"_s, 4},       {u"combateditor"_s, 2},
        {u"CarteImg"_s, 12},  {u"listev"_s, 4},       {u"Option1_2"_s, 5}, {u"List1"_s, 4}};
    const bool isCommandOfEvent = widget->parentWidget()->objectName() == u"Frame6"_s;
    return interests.value(widget->objectName(), isCommandOfEvent                 ? 6
                                                 : widget->objectName().isEmpty() ? 1
                                                                                  : 2);
}

/// A view, brought to the front if the person sees another one there.
QWidget* someView(Chance& chance, const QWidgetList& views)
{
    QWidget* view = chance.percent(40) ? views.last() : chance.byWeight(views, interestIn);
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (QApplication::activeModalWidget() == nullptr && chance.percent(80)) {
        window->mdiArea()->setActiveSubWindow(window);
    }
    return view;
}

/// What a person does with scroll bars and titles to reach a control that cannot be seen whole.
void bringIntoSight(QWidget* control)
{
    for (QWidget* parent = control->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent)) {
            area->ensureWidgetVisible(control, 0, 0);
        }
        if (auto* window = qobject_cast<QMdiSubWindow*>(parent)) {
            const QPoint middle = control->mapTo(window, control->rect().center());
            const QRect sight = window->parentWidget()->rect();
            if (!sight.contains(window->mapToParent(middle))) {
                window->move(sight.center() - middle);
            }
        }
    }
}

/// Where the person looks.
QWidget* scene(Chance& chance)
{
    if (QWidget* popup = QApplication::activePopupWidget(); popup != nullptr && chance.percent(90)) {
        return popup;
    }
    if (QWidget* box = QApplication::activeModalWidget(); box != nullptr && chance.percent(80)) {
        return box;
    }
    const QWidgetList views = shownViews();
    return views.isEmpty() || chance.percent(2) ? mainWindow() : someView(chance, views);
}

} // namespace

QWidget* mainWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(window) != nullptr) {
            return window;
        }
    }
    return nullptr;
}

QWidgetList shownViews()
{
    QWidgetList views;
    const QWidget* main = mainWindow();
    if (const auto* area = main == nullptr ? nullptr : main->findChild<QMdiArea*>()) {
        for (const QMdiSubWindow* window : area->subWindowList(QMdiArea::StackingOrder)) {
            if (window->isVisible() && window->widget() != nullptr) {
                views += window->widget();
            }
        }
    }
    return views;
}

QWidget* findView(const QString& name)
{
    QWidget* found = nullptr;
    for (QWidget* view : shownViews()) {
        found = view->objectName() == name ? view : found;
    }
    return found;
}

std::filesystem::path openProject()
{
    const QWidget* panel = findView(u"Controlpanel"_s);
    const auto* name = panel == nullptr ? nullptr : panel->findChild<QLabel*>(u"Label5"_s);
    return name == nullptr ? std::string() : name->text().toStdString();
}

QWidget* someControl(Chance& chance)
{
    QWidget* parent = scene(chance);
    QWidgetList controls = parent->findChildren<QWidget*>();
    controls.removeIf([](const QWidget* control) { return !control->isVisible() || !isUsable(*control); });
    QWidget* control = controls.isEmpty() ? parent : chance.byWeight(controls, interestIn);
    if (QApplication::activeModalWidget() == nullptr && chance.percent(80)) {
        bringIntoSight(control);
    }
    return control;
}

QPoint pointIn(Chance& chance, const QRect& place)
{
    return {place.left() + chance.below(place.width()), place.top() + chance.below(place.height())};
}

QPoint goodPointOn(Chance& chance, QWidget* control)
{
    const auto* list = qobject_cast<QAbstractItemView*>(control);
    const int rows = list == nullptr || list->model() == nullptr ? 0 : list->model()->rowCount();
    if (rows > 0 && chance.percent(80)) {
        const QRect line = list->visualRect(list->model()->index(chance.below(rows), 0));
        return list->viewport()->mapTo(control, pointIn(chance, line));
    }
    return pointIn(chance, control->rect());
}
