#include "toolkit/view.h"

#include "toolkit/keys.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>

using namespace Qt::StringLiterals;

View::View(Workspace& workspace, const QString& name, const QString& caption)
    : workspace_(workspace)
{
    setObjectName(name);
    setWindowTitle(caption);
    setAccessibleName(caption);
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(new QWidget);
    setWidgetResizable(true);
}

QSize View::sizeHint() const
{
    return surface()->sizeHint().expandedTo(surface()->minimumSize()).boundedTo(surface()->maximumSize());
}

bool View::canTakeFocus(const QWidget* control) const
{
    return surface()->isAncestorOf(control) && control->isEnabled() && control->isVisibleTo(surface());
}

void View::takeFocus()
{
    QWidget* control = surface()->focusWidget(); // the one that had it last
    if (control == nullptr || !canTakeFocus(control)) {
        control = focusProxy() != nullptr ? focusProxy() : firstInTabOrder();
    }
    const bool atKeyboard = window()->testAttribute(Qt::WA_KeyboardFocusChange);
    control->setFocus(atKeyboard ? Qt::TabFocusReason : Qt::OtherFocusReason);
}

QWidget* View::firstInTabOrder()
{
    for (QWidget* next = surface()->nextInFocusChain(); next != surface(); next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && canTakeFocus(next)) {
            return next;
        }
    }
    return this;
}

void View::keyPressEvent(QKeyEvent* event)
{
    QWidget* control = surface()->focusWidget();
    auto* button = qobject_cast<QPushButton*>(control);
    auto* choices = qobject_cast<QComboBox*>(control);
    if (!isEnter(event) || (button == nullptr && choices == nullptr) || !control->hasFocus()) {
        QScrollArea::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        button != nullptr ? button->click() : choices->showPopup();
    }
}

void View::closeEvent(QCloseEvent* event)
{
    event->setAccepted(QApplication::activeModalWidget() == nullptr);
}

QMdiSubWindow* View::frameWindow() const
{
    return qobject_cast<QMdiSubWindow*>(parentWidget());
}

void View::fitWindow()
{
    QMdiSubWindow* frame = frameWindow();
    if (frame != nullptr && !frame->isMaximized() && !frame->isMinimized()) {
        frame->resize(frame->sizeHint());
    }
}

void setTag(QWidget* control, const QString& text)
{
    control->setProperty("Tag", text);
}

QString tag(const QWidget* control)
{
    return control->property("Tag").toString();
}

QLabel* textLabel(const QString& name, const QString& text, QWidget* parent)
{
    auto* label = named<QLabel>(name, text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}
