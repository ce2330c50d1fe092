/// The look of the program: its style, its fonts, and colours that are light or dark as the desktop asks.
#pragma once

#include <QFont>
#include <QPalette>

class QApplication;

enum class Scheme { Light, Dark };

/// Pixels between the controls of a view, and between them and its edge.
inline constexpr int viewMargin = 16;
inline constexpr int controlGap = 8;

/// Dresses the program and keeps it in the desktop's colours from then on. To be called once, before the
/// first view is made.
void dress(QApplication& application);

/// The colours of a scheme: every text has a contrast of 4.5 or more on its ground, but for disabled ones.
QPalette colours(Scheme scheme);

/// The font in which lines of code are shown: all letters are equally wide.
QFont codeFont();

/// The program's font for a heading: bold, and larger by the factor.
QFont headingFont(double factor = 1);

/// How much larger than usual the program's letters are on this screen; 1 at least.
qreal letterScale();

/// A colour between two; part: 0 for the first, 1 for the second.
QColor between(const QColor& first, const QColor& second, double part);
