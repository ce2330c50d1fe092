#include "toolkit/entry.h"

#include "toolkit/metrics.h"

#include <algorithm>
#include <bit>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace
{

bool isPressKey(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

} // namespace

PressLabel::PressLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setCursor(Qt::PointingHandCursor);
    setMouseTracking(true);
}

/// Makes up for releases that never came: the press may have made another view active, whose message box took
/// them.
void PressLabel::settle(int buttonsDown)
{
    while (buttonsDown_ > buttonsDown) {
        --buttonsDown_;
        Q_EMIT released();
    }
}

void PressLabel::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton) {
        settle(0);
    }
}

void PressLabel::mousePressEvent(QMouseEvent* event)
{
    settle(std::max(0, std::popcount(static_cast<unsigned>(event->buttons())) - 1));
    ++buttonsDown_;
    secondPress_ = false;
    Q_EMIT pressed();
}

void PressLabel::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    secondPress_ = true;
}

void PressLabel::mouseReleaseEvent(QMouseEvent* event)
{
    if (buttonsDown_ == 0) {
        return;
    }
    --buttonsDown_;
    const bool inside = rect().contains(event->pos());
    Q_EMIT released();
    if (inside && event->button() == Qt::LeftButton && !secondPress_) {
        Q_EMIT clicked();
    }
}

void PressLabel::keyPressEvent(QKeyEvent* event)
{
    if (!isPressKey(event)) {
        return QLabel::keyPressEvent(event);
    }
    if (!event->isAutoRepeat() && !keyDown_) {
        keyDown_ = true;
        Q_EMIT pressed();
    }
}

void PressLabel::keyReleaseEvent(QKeyEvent* event)
{
    if (!isPressKey(event)) {
        return QLabel::keyReleaseEvent(event);
    }
    if (!event->isAutoRepeat() && keyDown_) {
        keyDown_ = false;
        Q_EMIT released();
        Q_EMIT clicked();
    }
}

void PressLabel::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    update();
}

void PressLabel::focusOutEvent(QFocusEvent* event)
{
    if (keyDown_) {
        keyDown_ = false;
        Q_EMIT released();
    }
    QLabel::focusOutEvent(event);
    update();
}

void PressLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void joinPressFeedback(PressLabel* icon, PressLabel* label)
{
    for (PressLabel* part : {icon, label}) {
        QObject::connect(part, &PressLabel::pressed, part, [icon, label] {
            icon->move(icon->pos() + pressShift);
            label->move(label->pos() + pressShift);
        });
        QObject::connect(part, &PressLabel::released, part, [icon, label] {
            icon->move(icon->pos() - pressShift);
            label->move(label->pos() - pressShift);
        });
    }
}
