#pragma once

#include "player/image.h"

#include <cstddef>

namespace player
{

struct Area {
    int width;
    int height;
};

/// Rows of a picture from `first` up to, but not with, `last`.
struct Rows {
    int first;
    int last;

    constexpr bool empty() const { return first >= last; }
};

/// The largest whole factor by which `picture` fits into `room`; at least 1.
int wholeFactor(Area picture, Area room);

/// Where a picture is shown in a larger or smaller target.
struct Placement {
    int factor;
    /// The picture's top left corner in the target; negative where the target is too small.
    int left;
    int top;
};

/// The largest whole factor, centred.
Placement centred(Area picture, Area target);

/// The pixels of a target.
struct Target {
    Pixel* pixels;
    /// From one row to the next, in pixels.
    std::ptrdiff_t pitch;
    Area size;
};

/// Draws rows of a picture enlarged; what falls outside the target is left out.
void drawEnlarged(const Image& picture, Rows rows, const Target& target, const Placement& place);

} // namespace player
