/// Where views lie that are put in order. Views keep their sizes, in pixels.
#pragma once

#include <QPoint>
#include <QSize>
#include <vector>

/// Places side by side, from the top left on, each as high up as it fits; none covers another. What does not
/// fit into the area lies below it, where scrolling leads.
std::vector<QPoint> tiled(const std::vector<QSize>& views, const QSize& area);

/// Places one over the other, each a step right and down of the one before it, beginning at the top or at
/// the left again where the area ends.
std::vector<QPoint> cascaded(const std::vector<QSize>& views, const QSize& area);
