/// A scroll bar that chooses a number.
#pragma once

#include <QScrollBar>

/// It can take the focus, reports a change once a dragged thumb is released, and its keys go the way people
/// expect: Right, Down and Page Down forward, Left, Up and Page Up back, Home and End to the bounds.
class ScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    ScrollBar(Qt::Orientation orientation, int minimum, int maximum, QWidget* parent);

    /// Sets the upper bound (never below the lower one) without reporting a change, should the value have to
    /// follow.
    void setBound(int maximum);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
