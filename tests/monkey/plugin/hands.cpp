#include "hands.h"

#include <QApplication>
#include <QTest>
#include <QWidget>

namespace
{

constexpr int longPause = 1000; // ms
constexpr int shortPause = 50;

/// The window that keys go to.
QWindow* keyWindow()
{
    if (QWidget* popup = QApplication::activePopupWidget()) {
        return popup->windowHandle();
    }
    return QGuiApplication::focusWindow();
}

} // namespace

void Hands::goOn()
{
    const auto movement = std::move(movements_.front());
    movements_.pop_front();
    place_ = 0;
    movement();
    place_ = movements_.size();
}

void Hands::later(std::function<void()> movement)
{
    place_ = std::min(place_, movements_.size());
    movements_.insert(movements_.begin() + static_cast<std::ptrdiff_t>(place_++), std::move(movement));
}

void Hands::click(QWidget* control, QPoint point, Qt::MouseButton button, int times)
{
    for (int time = 0; time < times; ++time) {
        drag(control, point, point, button, time > 0);
    }
}

void Hands::drag(QWidget* control, QPoint from, QPoint to, Qt::MouseButton button, bool quickly)
{
    const QWidget* whole = control->window();
    const QPoint at = control->mapTo(whole, from);
    const QPointer<QWindow> window = whole->windowHandle(); // what was pressed may be gone
    if (!whole->isVisible() || !whole->rect().contains(at)) {
        return;
    }
    later([=, this] { push(window, at, button, quickly); });
    const int stations = from == to ? 0 : 4;
    for (int station = 1; station <= stations; ++station) {
        later([=, this] { send(window, at + (to - from) * station / stations, QEvent::MouseMove); });
    }
    later([=, this] { release(window, at + to - from, button); });
}

void Hands::press(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    later([=] {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (QWindow* window = keyWindow()) { // looked for again: the press may have closed it
                qt_handleKeyEvent(window, type, key, modifiers, text);
            }
        }
    });
}

void Hands::type(const QString& text)
{
    for (const char32_t character : text.toStdU32String()) {
        press(Qt::Key_unknown, Qt::NoModifier, QString::fromUcs4(&character, 1));
    }
}

void Hands::send(QWindow* window, QPoint at, QEvent::Type type, Qt::MouseButton button)
{
    if (window != nullptr) {
        qt_handleMouseEvent(window, at, window->mapToGlobal(at), down_, button, type, Qt::NoModifier,
                            ++time_);
    }
}

void Hands::push(QWindow* window, QPoint at, Qt::MouseButton button, bool quickly)
{
    time_ += quickly ? shortPause : longPause;
    send(window, at, QEvent::MouseMove);
    down_ |= button;
    send(window, at, QEvent::MouseButtonPress, button);
}

void Hands::release(QWindow* window, QPoint at, Qt::MouseButton button)
{
    down_.setFlag(button, false);
    send(window != nullptr ? window : keyWindow(), at, QEvent::MouseButtonRelease, button);
}
