#include "toolkit/entry.h"

#include "toolkit/keys.h"
#include "toolkit/metrics.h"

#include <algorithm>
#include <bit>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>

namespace
{

/// An entry as a screen reader meets it: a button that can be pressed. The part that takes no focus is a
/// picture beside it.
class Entry : public QAccessibleWidget
{
public:
    explicit Entry(PressLabel* label)
        : QAccessibleWidget(label, QAccessible::Button)
        , label_(label)
    {
    }

    QAccessible::Role role() const override
    {
        return label_->focusPolicy() == Qt::NoFocus ? QAccessible::Graphic : QAccessible::Button;
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString named = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && named.isEmpty() ? label_->text() : named;
    }

    QStringList actionNames() const override
    {
        const QStringList others = QAccessibleWidget::actionNames();
        return label_->leadsOn() ? QStringList{pressAction()} + others : others;
    }

    void doAction(const QString& action) override
    {
        if (action == pressAction()) {
            QMetaObject::invokeMethod(label_, "clicked", Qt::QueuedConnection); // it may ask
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    PressLabel* label_;
};

QAccessibleInterface* makeEntry(const QString&, QObject* object)
{
    auto* label = qobject_cast<PressLabel*>(object);
    return label == nullptr ? nullptr : new Entry(label);
}

} // namespace

PressLabel::PressLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
    QAccessible::installFactory(makeEntry); // once; the toolkit knows it the next time
}

bool PressLabel::leadsOn() const
{
    return isSignalConnected(QMetaMethod::fromSignal(&PressLabel::clicked));
}

void PressLabel::connectNotify(const QMetaMethod& reported)
{
    if (reported == QMetaMethod::fromSignal(&PressLabel::clicked)) {
        setCursor(Qt::PointingHandCursor);
    }
}

/// Makes up for releases that never come: the press may have made another view active, whose message box
/// takes them.
void PressLabel::settle(int buttonsDown)
{
    while (buttonsDown_ > buttonsDown) {
        --buttonsDown_;
        Q_EMIT released();
    }
}

bool PressLabel::event(QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked) {
        settle(0);
    }
    return QLabel::event(event);
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
    if (!isSpace(event) && !isEnter(event)) {
        return QLabel::keyPressEvent(event);
    }
    if (!event->isAutoRepeat() && !keyDown_) {
        keyDown_ = true;
        Q_EMIT pressed();
    }
}

void PressLabel::keyReleaseEvent(QKeyEvent* event)
{
    if (!isSpace(event) && !isEnter(event)) {
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
        paintFocusMark(this);
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
