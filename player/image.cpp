#include "player/image.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace player
{

namespace
{

constexpr double coordinateLimit = 1 << 24;

// The exact rounded value / 255 for 0..65025.
constexpr Pixel divide255(Pixel value)
{
    return (value + 128 + ((value + 128) >> 8U)) >> 8U;
}

Pixel mixOnOpaque(Pixel over, Pixel under, Pixel alpha)
{
    const Pixel rest = 255 - alpha;
    Pixel mixed = opaqueBlack;
    for (const Pixel shift : {0U, 8U, 16U}) {
        const Pixel sum = (over >> shift & 255U) * alpha + (under >> shift & 255U) * rest;
        mixed |= divide255(sum) << shift;
    }
    return mixed;
}

Pixel mixOnTranslucent(Pixel over, Pixel under, Pixel alpha)
{
    const Pixel underShare = divide255(alphaOf(under) * (255 - alpha));
    const Pixel total = alpha + underShare;
    Pixel mixed = total << 24U;
    for (const Pixel shift : {0U, 8U, 16U}) {
        const Pixel sum = (over >> shift & 255U) * alpha + (under >> shift & 255U) * underShare;
        mixed |= (sum + total / 2) / total << shift;
    }
    return mixed;
}

bool allOpaque(const Pixel* pixels, int count)
{
    Pixel common = opaqueBlack;
    for (int i = 0; i < count; ++i) {
        common &= pixels[i];
    }
    return common == opaqueBlack;
}

void blendRow(const Pixel* from, Pixel* to, int count)
{
    if (allOpaque(from, count)) {
        std::copy_n(from, count, to);
        return;
    }
    for (int i = 0; i < count; ++i) {
        to[i] = blend(from[i], to[i]);
    }
}

// Where a line that gains `rise` over `run` is after `step`, rounded to the nearest.
int interpolate(int start, int step, int rise, int run)
{
    return start + static_cast<int>(std::lround(static_cast<double>(step) * rise / run));
}

} // namespace

Pixel blend(Pixel over, Pixel under)
{
    const Pixel alpha = alphaOf(over);
    if (alpha == 255) {
        return over;
    }
    if (alpha == 0) {
        return under;
    }
    return alphaOf(under) == 255 ? mixOnOpaque(over, under, alpha) : mixOnTranslucent(over, under, alpha);
}

int coordinate(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<int>(std::floor(std::clamp(value, -coordinateLimit, coordinateLimit)));
}

Image::Image(int width, int height, Kind kind)
    : width_(width)
    , height_(height)
    , alwaysSet_(kind == Kind::AlwaysOpaque ? opaqueBlack : transparent)
{
    if (!sizeIsAllowed(width, height)) {
        throw std::invalid_argument("an image has 1 to " + std::to_string(longestSide) + " pixels a side");
    }
    pixels_.assign(offset(height), alwaysSet_);
}

void Image::setPixel(int x, int y, Pixel colour)
{
    if (contains(x, y)) {
        row(y)[x] = colour | alwaysSet_;
    }
}

void Image::blendPixel(int x, int y, Pixel colour)
{
    if (contains(x, y)) {
        Pixel& under = row(y)[x];
        under = blend(colour, under);
    }
}

void Image::clear(Pixel colour)
{
    std::fill(pixels_.begin(), pixels_.end(), colour | alwaysSet_);
}

void Image::fill(const Rect& area, Pixel colour)
{
    const int left = std::max(area.x, 0);
    const int right = std::min(area.x + area.width, width_);
    const int bottom = std::min(area.y + area.height, height_);
    if (left >= right) {
        return;
    }
    for (int y = std::max(area.y, 0); y < bottom; ++y) {
        Pixel* const pixels = row(y);
        std::transform(pixels + left, pixels + right, pixels + left,
                       [colour](Pixel under) { return blend(colour, under); });
    }
}

bool Image::clipToSource(int& x, int& y, const Image& source, Rect& part) const
{
    // What is cut off at the left or top moves the rest; first by the source's edges, then by ours.
    const int cutLeft = std::max({0, -part.x, -x});
    const int cutTop = std::max({0, -part.y, -y});
    x += cutLeft;
    y += cutTop;
    part.x += cutLeft;
    part.y += cutTop;
    part.width = std::min({part.width - cutLeft, source.width_ - part.x, width_ - x});
    part.height = std::min({part.height - cutTop, source.height_ - part.y, height_ - y});
    return part.width > 0 && part.height > 0;
}

Image Image::cut(const Rect& part) const
{
    Image copy(part.width, part.height);
    for (int line = 0; line < part.height; ++line) {
        std::copy_n(row(part.y + line) + part.x, part.width, copy.row(line));
    }
    return copy;
}

void Image::blit(int x, int y, const Image& source, Rect part)
{
    if (!clipToSource(x, y, source, part)) {
        return;
    }
    if (&source == this) {
        // The two places may overlap.
        blit(x, y, cut(part), {0, 0, part.width, part.height});
        return;
    }
    for (int line = 0; line < part.height; ++line) {
        blendRow(source.row(part.y + line) + part.x, row(y + line) + x, part.width);
    }
}

void Image::line(int x0, int y0, int x1, int y1, Pixel colour)
{
    if (std::abs(x1 - x0) >= std::abs(y1 - y0)) {
        flatLine(x0, y0, x1, y1, colour);
    } else {
        steepLine(x0, y0, x1, y1, colour);
    }
}

// One pixel a column; only the columns of the image are visited, however far away the ends are.
void Image::flatLine(int x0, int y0, int x1, int y1, Pixel colour)
{
    if (x0 == x1) {
        blendPixel(x0, y0, colour);
        return;
    }
    const int last = std::min(std::max(x0, x1), width_ - 1);
    for (int x = std::max(std::min(x0, x1), 0); x <= last; ++x) {
        blendPixel(x, interpolate(y0, x - x0, y1 - y0, x1 - x0), colour);
    }
}

void Image::steepLine(int x0, int y0, int x1, int y1, Pixel colour)
{
    const int last = std::min(std::max(y0, y1), height_ - 1);
    for (int y = std::max(std::min(y0, y1), 0); y <= last; ++y) {
        blendPixel(interpolate(x0, y - y0, x1 - x0, y1 - y0), y, colour);
    }
}

} // namespace player
