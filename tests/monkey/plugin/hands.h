/// The random user's hands on mouse and keyboard: what they do reaches the program as events of the windowing
/// system, so that it finds its receiver the way a person's would.
#pragma once

#include <deque>
#include <functional>
#include <QEvent>
#include <QPointer>
#include <QString>
#include <QWindow>

class QWidget;

/// Movements wait in a row: a press that opens a modal box is released inside that box's loop.
class Hands
{
public:
    bool areBusy() const { return !movements_.empty(); }
    /// Makes the next movement; there must be one.
    void goOn();
    void drop() { movements_.clear(); }

    /// Puts anything into the row: at its end, or next when a movement asks for it.
    void later(std::function<void()> movement);
    /// Points are the control's own, in pixels; a point outside of its window is no movement.
    void click(QWidget* control, QPoint point, Qt::MouseButton button = Qt::LeftButton, int times = 1);
    /// quickly: as the second press of a double click.
    void drag(QWidget* control, QPoint from, QPoint to, Qt::MouseButton button, bool quickly = false);
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});
    void type(const QString& text);

private:
    void send(QWindow* window, QPoint at, QEvent::Type type, Qt::MouseButton button = Qt::NoButton);
    void push(QWindow* window, QPoint at, Qt::MouseButton button, bool quickly);
    void release(QWindow* window, QPoint at, Qt::MouseButton button);

    std::deque<std::function<void()>> movements_;
    std::size_t place_ = 0; ///< where the next one goes
    Qt::MouseButtons down_;
    int time_ = 0; // ms, as the events tell it: pairs of clicks are double clicks by plan, never by speed
};
