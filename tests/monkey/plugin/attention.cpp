#include "attention.h"

#include "sights.h"

#include <array>
#include <QAbstractItemView>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

/// How often the person turns to a view or control: the more there is to do, the more often.
struct Interest {
    QString name;
    int weight;
};

const std::array interests = {Interest{u"mapeditor"_s, 12}, Interest{u"Controlpanel"_s, 6},
                              Interest{u"var"_s, 4},        Interest{u"combateditor"_s, 2},
                              Interest{u"CarteImg"_s, 12},  Interest{u"listev"_s, 4},
                              Interest{u"Option1_2"_s, 5},  Interest{u"List1"_s, 4}};

int interestIn(const QWidget& widget)
{
    for (const Interest& interest : interests) {
        if (interest.name == widget.objectName()) {
            return interest.weight;
        }
    }
    const bool isCommandOfEvent = widget.parentWidget()->objectName() == u"Frame6"_s;
    return isCommandOfEvent ? 6 : widget.objectName().isEmpty() ? 1 : 2;
}

template <class Widgets> QWidget* byInterest(Chance& chance, const Widgets& widgets)
{
    struct Candidate {
        QWidget* widget;
        int weight;
    };
    std::vector<Candidate> candidates;
    for (QWidget* widget : widgets) {
        candidates.push_back({widget, interestIn(*widget)});
    }
    return chance.byWeight(candidates).widget;
}

/// A view, brought to the front if the person sees another one there.
QWidget* someView(Chance& chance, const QList<QMdiSubWindow*>& windows)
{
    if (chance.percent(40)) {
        return windows.last()->widget();
    }
    QWidgetList views;
    for (const QMdiSubWindow* window : windows) {
        views += window->widget();
    }
    QWidget* view = byInterest(chance, views);
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (QApplication::activeModalWidget() == nullptr && chance.percent(80)) {
        if (window->isMinimized()) {
            window->showNormal();
        }
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

} // namespace

QWidget* scene(Chance& chance)
{
    if (QWidget* popup = QApplication::activePopupWidget(); popup != nullptr && chance.percent(90)) {
        return popup;
    }
    if (QWidget* box = QApplication::activeModalWidget(); box != nullptr && chance.percent(80)) {
        return box;
    }
    const QList<QMdiSubWindow*> windows = viewWindows();
    return windows.isEmpty() || chance.percent(2) ? mainWindow() : someView(chance, windows);
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

QWidget* someControl(Chance& chance)
{
    QWidget* parent = scene(chance);
    const QList<QWidget*> controls = parent == nullptr ? QList<QWidget*>() : controlsOf(*parent);
    QWidget* control = controls.isEmpty() ? parent : byInterest(chance, controls);
    if (control != nullptr && QApplication::activeModalWidget() == nullptr && chance.percent(80)) {
        bringIntoSight(control);
    }
    return control;
}
