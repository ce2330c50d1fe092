/// What the random user sees: the windows and controls that are there to be used.
#pragma once

#include <filesystem>
#include <QList>
#include <QString>

class QMdiSubWindow;
class QWidget;

/// The program's main window; null before it is made and once it is gone.
QWidget* mainWindow();

/// The windows of the views that are shown, the lowest first.
QList<QMdiSubWindow*> viewWindows();

/// The topmost shown view of a name; null when there is none.
QWidget* findView(const QString& name);

/// The folder names of the project that is open, as the control panel tells it, and of the one that the
/// new-project view would make. Empty without such a view, and for a name that is no folder's.
std::filesystem::path openProject();
std::filesystem::path projectToMake();

/// The controls below a widget that can be seen and do something.
QList<QWidget*> controlsOf(const QWidget& parent);

/// How the log names a control: its own name and those that it lies in.
QString pathOf(const QWidget& control);
