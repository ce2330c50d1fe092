/// What the random user sees and turns to: the windows and controls that are there to be used; the more there
/// is to do, the more often.
#pragma once

#include "chance.h"

#include <filesystem>
#include <QList>
#include <QPoint>
#include <QString>

class QRect;
class QWidget;

/// The program's main window; null before it is made and once it is gone.
QWidget* mainWindow();

/// The views that are shown, the lowest first; the parent of each is its window.
QList<QWidget*> shownViews();

/// The topmost shown view of a name; null when there is none.
QWidget* findView(const QString& name);

/// The name of the project that is open, as the control panel tells it; empty without that view.
std::filesystem::path openProject();

/// A control of what the person looks at, mostly brought into sight: a menu or a box when there is one, else
/// a view, mostly brought to the front. That itself when it has none.
QWidget* someControl(Chance& chance);

QPoint pointIn(Chance& chance, const QRect& place);

/// A place on a control that does something: mostly a line in a list.
QPoint goodPointOn(Chance& chance, QWidget* control);
