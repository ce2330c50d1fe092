#include "hands.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
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

QWindow* windowOf(QWidget* control, QPoint point, QPoint& inWindow)
{
    QWidget* window = control->window();
    inWindow = control->mapTo(window, point);
    return window->isVisible() && window->rect().contains(inWindow) ? window->windowHandle() : nullptr;
}

void strike(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (QWindow* window = keyWindow()) { // looked for again: the press may have closed it
            qt_handleKeyEvent(window, type, key, modifiers, text);
        }
    }
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
    QPoint at;
    const Window window = windowOf(control, point, at);
    for (int time = 0; window && time < times; ++time) {
        later([=, this] { push(window, at, button, time > 0); });
        later([=, this] { release(window, at, button); });
    }
}

void Hands::drag(QWidget* control, QPoint from, QPoint to, Qt::MouseButton button)
{
    constexpr int stations = 4;
    QPoint at;
    const Window window = windowOf(control, from, at);
    if (!window) {
        return;
    }
    later([=, this] { push(window, at, button, false); });
    for (int station = 1; station <= stations; ++station) {
        later([=, this] { point(window, at + (to - from) * station / stations); });
    }
    later([=, this] { release(window, at + to - from, button); });
}

void Hands::turnWheel(QWidget* control, QPoint point, int steps)
{
    QPoint at;
    if (const Window window = windowOf(control, point, at)) {
        later([=] {
            QWheelEvent event(at, window ? window->mapToGlobal(at) : at, {}, {0, 120 * steps}, {}, {},
                              Qt::NoScrollPhase, false);
            if (window && QApplication::activeModalWidget() == nullptr) {
                QCoreApplication::sendEvent(window, &event);
            }
        });
    }
}

void Hands::press(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    later([=] { strike(key, modifiers, text); });
}

void Hands::type(const QString& text)
{
    for (const char32_t character : text.toStdU32String()) {
        press(Qt::Key_unknown, Qt::NoModifier, QString::fromUcs4(&character, 1));
    }
}

void Hands::point(const Window& window, QPoint at)
{
    if (window) {
        qt_handleMouseEvent(window, at, window->mapToGlobal(at), down_, Qt::NoButton, QEvent::MouseMove,
                            Qt::NoModifier, ++time_);
    }
}

void Hands::push(const Window& window, QPoint at, Qt::MouseButton button, bool quickly)
{
    time_ += quickly ? shortPause : longPause;
    point(window, at);
    if (window) {
        down_ |= button;
        qt_handleMouseEvent(window, at, window->mapToGlobal(at), down_, button, QEvent::MouseButtonPress,
                            Qt::NoModifier, ++time_);
    }
}

void Hands::release(const Window& window, QPoint at, Qt::MouseButton button)
{
    down_.setFlag(button, false);
    if (QWindow* target = window ? window.data() : keyWindow()) { // what was pressed may be gone
        qt_handleMouseEvent(target, at, target->mapToGlobal(at), down_, button, QEvent::MouseButtonRelease,
                            Qt::NoModifier, ++time_);
    }
}
