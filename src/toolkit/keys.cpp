#include "toolkit/keys.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QWidget>

bool isEnter(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

bool isSpace(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Space;
}

void paintFocusMark(QWidget* widget)
{
    QPainter painter(widget);
    QStyleOptionFocusRect option;
    option.initFrom(widget);
    widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, widget);
}
