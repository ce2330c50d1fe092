#include "app/arrangement.h"

#include <algorithm>
#include <QRect>

namespace
{

bool isFree(const QRect& place, const std::vector<QRect>& taken)
{
    return std::none_of(taken.begin(), taken.end(),
                        [&place](const QRect& other) { return other.intersects(place); });
}

/// The topmost free place, and of several the leftmost. A view that fits nowhere beside another finds it at
/// the left, below all others.
QPoint freePlace(const QSize& view, const std::vector<QRect>& taken, int width)
{
    std::vector<int> lefts = {0};
    std::vector<int> tops = {0};
    for (const QRect& other : taken) {
        lefts.push_back(other.right() + 1);
        tops.push_back(other.bottom() + 1);
    }
    std::sort(lefts.begin(), lefts.end());
    std::sort(tops.begin(), tops.end());
    for (const int top : tops) {
        for (const int left : lefts) {
            const bool fits = left == 0 || left + view.width() <= width;
            if (fits && isFree({{left, top}, view}, taken)) {
                return {left, top};
            }
        }
    }
    return {0, tops.back()};
}

} // namespace

std::vector<QPoint> tiled(const std::vector<QSize>& views, const QSize& area)
{
    std::vector<QRect> taken;
    std::vector<QPoint> places;
    for (const QSize& view : views) {
        places.push_back(freePlace(view, taken, area.width()));
        taken.emplace_back(places.back(), view);
    }
    return places;
}

std::vector<QPoint> cascaded(const std::vector<QSize>& views, const QSize& area)
{
    constexpr int step = 28; // shows the title of the view beneath
    std::vector<QPoint> places;
    QPoint next;
    for (const QSize& view : views) {
        if (next.y() + view.height() > area.height()) {
            next.setY(0);
        }
        if (next.x() + view.width() > area.width()) {
            next.setX(0);
        }
        places.push_back(next);
        next += QPoint(step, step);
    }
    return places;
}
