#include "toolkit/scrollbar.h"

#include "toolkit/keys.h"

#include <algorithm>
#include <QKeyEvent>
#include <QSignalBlocker>

ScrollBar::ScrollBar(Qt::Orientation orientation, int minimum, int maximum, QWidget* parent)
    : QScrollBar(orientation, parent)
{
    setRange(minimum, maximum);
    setValue(minimum);
    setSingleStep(1);
    setPageStep(1);
    setTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
}

void ScrollBar::setBound(int maximum)
{
    const QSignalBlocker quiet(this);
    setMaximum(std::max(minimum(), maximum));
}

void ScrollBar::paintEvent(QPaintEvent* event)
{
    QScrollBar::paintEvent(event);
    if (hasFocus()) {
        paintFocusMark(this);
    }
}

void ScrollBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Down:
        return triggerAction(SliderSingleStepAdd);
    case Qt::Key_Left:
    case Qt::Key_Up:
        return triggerAction(SliderSingleStepSub);
    case Qt::Key_PageDown:
        return triggerAction(SliderPageStepAdd);
    case Qt::Key_PageUp:
        return triggerAction(SliderPageStepSub);
    case Qt::Key_Home:
        return triggerAction(SliderToMinimum);
    case Qt::Key_End:
        return triggerAction(SliderToMaximum);
    default:
        event->ignore();
    }
}
