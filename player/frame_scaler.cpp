#include "player/frame_scaler.h"

#include <algorithm>

namespace player
{

namespace
{

Pixel* rowOf(const Target& target, int y)
{
    return target.pixels + target.pitch * y;
}

template <int factor> void enlargeWholeRow(const Pixel* from, int width, Pixel* to)
{
    for (int x = 0; x < width; ++x) {
        std::fill_n(to + x * factor, factor, from[x]);
    }
}

void enlargePartOfRow(const Pixel* from, Pixel* to, int left, int right, const Placement& place)
{
    int source = (left - place.left) / place.factor;
    for (int x = left; x < right; ++source) {
        const int end = std::min(place.left + (source + 1) * place.factor, right);
        std::fill(to + x, to + end, from[source]);
        x = end;
    }
}

// Columns `left` up to, but not with, `right` of the target. A factor that the compiler knows is several
// times as fast; windows are seldom larger than three times the picture, and hold it whole.
void enlargeRow(const Image& picture, int y, Pixel* to, int left, int right, const Placement& place)
{
    const int width = picture.width();
    const bool whole = right - left == width * place.factor;
    switch (whole ? place.factor : 0) {
    case 1:
        enlargeWholeRow<1>(picture.row(y), width, to + left);
        break;
    case 2:
        enlargeWholeRow<2>(picture.row(y), width, to + left);
        break;
    case 3:
        enlargeWholeRow<3>(picture.row(y), width, to + left);
        break;
    default:
        enlargePartOfRow(picture.row(y), to, left, right, place);
    }
}

} // namespace

int wholeFactor(Area picture, Area room)
{
    return std::max(1, std::min(room.width / picture.width, room.height / picture.height));
}

Placement centred(Area picture, Area target)
{
    const int factor = wholeFactor(picture, target);
    return {factor, (target.width - picture.width * factor) / 2,
            (target.height - picture.height * factor) / 2};
}

void drawEnlarged(const Image& picture, Rows rows, const Target& target, const Placement& place)
{
    const int left = std::max(place.left, 0);
    const int right = std::min(place.left + picture.width() * place.factor, target.size.width);
    if (left >= right) {
        return;
    }
    for (int y = rows.first; y < rows.last; ++y) {
        const int top = std::max(place.top + y * place.factor, 0);
        const int bottom = std::min(place.top + (y + 1) * place.factor, target.size.height);
        if (top >= bottom) {
            continue;
        }
        Pixel* const drawn = rowOf(target, top);
        enlargeRow(picture, y, drawn, left, right, place);
        for (int copy = top + 1; copy < bottom; ++copy) {
            std::copy(drawn + left, drawn + right, rowOf(target, copy) + left);
        }
    }
}

} // namespace player
