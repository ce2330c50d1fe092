/// What the random user turns to: the more there is to do, the more often.
#pragma once

#include "chance.h"

#include <QPoint>
#include <QRect>

class QWidget;

/// Where the person looks: a menu or a box when there is one, else a view, mostly brought to the front.
QWidget* scene(Chance& chance);

/// A control in the scene, mostly brought into sight; the scene itself when it has none. Null before the main
/// window is there.
QWidget* someControl(Chance& chance);

QPoint pointIn(Chance& chance, const QRect& place);

/// A place on a control that does something: mostly a line in a list.
QPoint goodPointOn(Chance& chance, QWidget* control);
