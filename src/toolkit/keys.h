/// What controls that the toolkit does not make for keys need to be used by them.
#pragma once

class QKeyEvent;
class QWidget;

/// Enter, of either place.
bool isEnter(const QKeyEvent* event);
/// The space bar, whatever else is held.
bool isSpace(const QKeyEvent* event);

/// Whether the author is at the keyboard: a key was pressed since the last press of a mouse button. The first
/// call begins to watch, and belongs to the start of the main window.
bool keysCameLast();

/// Paints the style's mark of the focus round a widget; for use in its paint event.
void paintFocusMark(QWidget* widget);
