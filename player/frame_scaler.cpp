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

void enlargeRow(const Pixel* from, Pixel* to, int left, int right, const Placement& place)
{
    if (place.factor == 1) {
        std::copy(from + (left - place.left), from + (right - place.left), to + left);
        return;
    }
    int source = (left - place.left) / place.factor;
    for (int x = left; x < right; ++source) {
        const int end = std::min(place.left + (source + 1) * place.factor, right);
        std::fill(to + x, to + end, from[source]);
        x = end;
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
        enlargeRow(picture.row(y), drawn, left, right, place);
        for (int copy = top + 1; copy < bottom; ++copy) {
            std::copy(drawn + left, drawn + right, rowOf(target, copy) + left);
        }
    }
}

} // namespace player
