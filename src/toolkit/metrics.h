/// Lengths on screen: the system gives them in twips, 1/1440 inch, of which 15 make a device-independent
/// pixel.
#pragma once

#include <QPoint>
#include <QRect>

inline constexpr int twipsPerPixel = 15;

/// Pixels of a length in twips, to the nearest.
constexpr int px(int twips)
{
    return (twips + (twips < 0 ? -twipsPerPixel : twipsPerPixel) / 2) / twipsPerPixel;
}

/// A place in pixels from one in twips.
constexpr QRect pxRect(int left, int top, int width, int height)
{
    return {px(left), px(top), px(width), px(height)};
}

/// How far a pressed entry moves, right and down: 10 twips.
inline constexpr QPoint pressShift{px(10), px(10)};
