/// What controls that the toolkit does not make for keys need to be used by them.
#pragma once

class QKeyEvent;
class QWidget;

/// Enter, of either place.
bool isEnter(const QKeyEvent* event);
bool isSpace(const QKeyEvent* event);

/// Paints the style's mark of the focus round a widget; for use in its paint event.
void paintFocusMark(QWidget* widget);
