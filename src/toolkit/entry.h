/// One choice of a view, made of an icon and a label beside it that move together while either is pressed.
#pragma once

#include <QLabel>

/// A label, with text or a picture, that reports what the mouse does to it: every button pressed and
/// released, and a click of the left one, which a double click is not twice. A key that presses it counts as
/// a click.
class PressLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PressLabel(QWidget* parent);

    /// Whether a click leads anywhere; the mouse's hand and a screen reader's action show it.
    bool leadsOn() const;

Q_SIGNALS:
    void pressed();
    void released();
    void clicked();

protected:
    void connectNotify(const QMetaMethod& reported) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void settle(int buttonsDown);

    int buttonsDown_ = 0;
    bool keyDown_ = false;
    bool secondPress_ = false;
};

/// Moves both labels by the press shift while one of them is pressed, and back on release: from where they
/// are then, not from a place that is remembered.
void joinPressFeedback(PressLabel* icon, PressLabel* label);
