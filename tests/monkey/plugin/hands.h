/// The random user's hands on mouse and keyboard: what they do reaches the program as events of the windowing
/// system, so that it finds its receiver the way a person's would.
#pragma once

#include <QEvent>
#include <QPointer>
#include <QRect>
#include <QWindow>

class QWidget;

class Hands
{
public:
    /// Presses a button in a place of a control, x and y from 0 to 1. `pause` has gone by since the last
    /// press, in ms: pairs of clicks are double clicks by plan, never by speed. Nothing happens outside of
    /// its window.
    void push(QWidget* control, const QRect& place, QPointF point, Qt::MouseButton button, int pause);
    /// Moves by so many pixels what was pressed last.
    void move(QPoint distance);
    void release(Qt::MouseButton button);
    /// Presses and releases a key where the keys go.
    static void press(QKeyCombination keys, const QString& text);

private:
    void send(QEvent::Type type, Qt::MouseButton button = Qt::NoButton);

    QPointer<QWindow> window_; ///< what was pressed, which may be gone
    QPoint at_;                ///< in that window
    Qt::MouseButtons down_;
    int time_ = 0; ///< ms, as the events tell it
};
