#include "hands.h"

#include <QApplication>
#include <QTest>
#include <QWidget>

namespace
{

/// The window that keys go to.
QWindow* keyWindow()
{
    QWidget* popup = QApplication::activePopupWidget();
    return popup != nullptr ? popup->windowHandle() : QGuiApplication::focusWindow();
}

} // namespace

void Hands::push(QWidget* control, const QRect& place, QPointF point, Qt::MouseButton button, int pause)
{
    const QWidget* whole = control->window();
    const QPoint inside(qFloor(point.x() * place.width()), qFloor(point.y() * place.height()));
    const QPoint at = control->mapTo(whole, place.topLeft() + inside);
    if (!whole->isVisible() || !whole->rect().contains(at)) {
        return;
    }
    window_ = whole->windowHandle();
    at_ = at;
    time_ += pause;
    send(QEvent::MouseMove);
    down_ |= button;
    send(QEvent::MouseButtonPress, button);
}

void Hands::move(QPoint distance)
{
    at_ += distance;
    send(QEvent::MouseMove);
}

void Hands::release(Qt::MouseButton button)
{
    if (down_.testFlag(button)) {
        down_.setFlag(button, false);
        window_ = window_ == nullptr ? keyWindow() : window_.data();
        send(QEvent::MouseButtonRelease, button);
    }
}

void Hands::press(QKeyCombination keys, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (QWindow* window = keyWindow()) { // looked for again: the press may have closed it
            qt_handleKeyEvent(window, type, keys.key(), keys.keyboardModifiers(), text);
        }
    }
}

void Hands::send(QEvent::Type type, Qt::MouseButton button)
{
    if (window_ != nullptr) {
        qt_handleMouseEvent(window_, at_, window_->mapToGlobal(at_), down_, button, type, Qt::NoModifier,
                            ++time_);
    }
}
