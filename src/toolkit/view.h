/// What all views share: a child window of the main window whose controls lie on a surface that scrolls when
/// the window is smaller than they need.
#pragma once

#include "toolkit/workspace.h"

#include <QScrollArea>

class QLabel;
class QMdiSubWindow;

class View : public QScrollArea
{
    Q_OBJECT

public:
    /// name: the view's object name; caption: its window's title.
    View(Workspace& workspace, const QString& name, const QString& caption);

    QSize sizeHint() const override;

    /// The view became the active one; coming back from another program does not count.
    virtual void activated() {}
    /// Another view became the active one.
    virtual void deactivated() {}

    /// Gives the keys to the control that had them last in this view, or else to its first one.
    void takeFocus();

protected:
    /// Enter presses the button that has the focus and opens the combo box that has it, as Space does.
    void keyPressEvent(QKeyEvent* event) override;
    /// No view closes while a box waits for its answer: the box may be this view's own. The keys that close a
    /// view reach it even then, when they are struck faster than the box gets the keys.
    void closeEvent(QCloseEvent* event) override;

    Workspace& workspace() const { return workspace_; }
    /// The widget that holds the view's controls.
    QWidget* surface() const { return widget(); }
    /// The window that the main window gives to this view; none before it is shown there.
    QMdiSubWindow* frameWindow() const;
    /// Fits the window to the surface, unless the author maximised it.
    void fitWindow();

private:
    bool canTakeFocus(const QWidget* control) const;
    QWidget* firstInTabOrder();

    Workspace& workspace_;
};

/// Makes a control with its object name.
template <class Control, class... Arguments> Control* named(const QString& name, Arguments&&... arguments)
{
    auto* control = new Control(std::forward<Arguments>(arguments)...);
    control->setObjectName(name);
    return control;
}

/// A text that a control carries besides its caption.
void setTag(QWidget* control, const QString& text);
QString tag(const QWidget* control);

/// A label for text that may hold anything: never taken for markup.
QLabel* textLabel(const QString& name, const QString& text, QWidget* parent);
