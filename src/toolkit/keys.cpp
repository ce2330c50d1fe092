#include "toolkit/keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QWidget>

namespace
{

class InputWatch : public QObject
{
public:
    explicit InputWatch(QObject* application)
        : QObject(application)
    {
        application->installEventFilter(this);
    }

    bool keysCameLast() const { return keysCameLast_; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
            keysCameLast_ = event->type() == QEvent::KeyPress;
        }
        return false;
    }

private:
    bool keysCameLast_ = false;
};

} // namespace

bool keysCameLast()
{
    static const auto* watch = new InputWatch(qApp); // the application's, which ends it
    return watch->keysCameLast();
}

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
