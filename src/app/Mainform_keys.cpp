// The keys of the main window: from view to view, closing and laying out views, the menu bar.
#include "app/Mainform.h"

#include "app/arrangement.h"
#include "toolkit/keys.h"
#include "toolkit/view.h"

#include <algorithm>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScrollBar>

void Mainform::addKeys()
{
    keysCameLast(); // watched from the start
    const auto add = [this](const QList<QKeySequence>& keys, auto handler) {
        auto* action = new QAction(this);
        action->setShortcuts(keys);
        action->setAutoRepeat(false);
        connect(action, &QAction::triggered, this, [this, handler] {
            if (QApplication::activeModalWidget() == nullptr) { // keys can be faster than a box
                setAttribute(Qt::WA_KeyboardFocusChange);       // the focus is to be seen from now on
                handler();
            }
        });
        addAction(action);
    };
    add({Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_F6}, [this] { showNeighbour(1); });
    add({Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::SHIFT | Qt::Key_F6},
        [this] { showNeighbour(-1); });
    add({Qt::CTRL | Qt::Key_F4, Qt::CTRL | Qt::Key_W}, [this] { closeActive(); });
    add({Qt::CTRL | Qt::SHIFT | Qt::Key_T}, [this] { arrange(tiled); });
    add({Qt::CTRL | Qt::SHIFT | Qt::Key_C}, [this] { arrange(cascaded); });
    add({Qt::Key_F10}, [this] { enterMenuBar(); });
    add({Qt::ALT | Qt::Key_Minus}, [this] {
        if (QMdiSubWindow* window = area_->activeSubWindow()) {
            window->showSystemMenu(); // moves and sizes a view by the arrow keys
        }
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { reveal(now); });
}

void Mainform::showNeighbour(int step)
{
    QList<QMdiSubWindow*> shown = area_->subWindowList();
    shown.removeIf([](const QMdiSubWindow* window) { return !window->isVisible(); });
    const qsizetype count = shown.size();
    if (count > 0) {
        const qsizetype next = (shown.indexOf(area_->activeSubWindow()) + step + count) % count;
        showView(qobject_cast<View*>(shown[next]->widget()));
    }
}

void Mainform::closeActive()
{
    if (QMdiSubWindow* window = area_->activeSubWindow()) {
        window->close();
    }
}

void Mainform::arrange(Arrangement* arrangement)
{
    std::vector<QMdiSubWindow*> windows;
    std::vector<QSize> sizes;
    const QPointer<QWidget> focused = QApplication::focusWidget(); // a window that shrinks passes it on
    for (QMdiSubWindow* window : area_->subWindowList()) {
        if (window->isVisible() && !window->isMinimized()) {
            if (window->isMaximized()) {
                window->showNormal();
            }
            windows.push_back(window);
            sizes.push_back(window->size());
        }
    }
    const std::vector<QPoint> places = arrangement(sizes, area_->viewport()->size());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        windows[i]->move(places[i]);
    }
    if (focused) {
        focused->setFocus(Qt::TabFocusReason);
    }
    reveal(area_->activeSubWindow());
    reveal(focused);
}

/// Presses Alt for the author: the toolkit then remembers where the keys go back to.
void Mainform::enterMenuBar()
{
    for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent alt(kind, Qt::Key_Alt, Qt::AltModifier);
        QApplication::sendEvent(this, &alt);
    }
}

void Mainform::reveal(QWidget* control)
{
    QWidget* seen = area_->viewport();
    if (control == nullptr || !seen->isAncestorOf(control) || QApplication::mouseButtons() != Qt::NoButton) {
        return; // what a press of the mouse meets must not move under it
    }
    const QRect place(control->mapTo(seen, QPoint()), control->size());
    const auto scroll = [](QScrollBar* bar, int before, int beyond) {
        bar->setValue(bar->value() + (before < 0 ? before : std::clamp(beyond, 0, before)));
    };
    scroll(area_->horizontalScrollBar(), place.left(), place.right() - seen->rect().right());
    scroll(area_->verticalScrollBar(), place.top(), place.bottom() - seen->rect().bottom());
}
