#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace player
{

/// A colour with straight alpha: 0xAARRGGBB.
using Pixel = std::uint32_t;

constexpr Pixel opaqueBlack = 0xFF000000U;
constexpr Pixel transparent = 0;

/// Components and alpha are 0..255.
constexpr Pixel makePixel(Pixel red, Pixel green, Pixel blue, Pixel alpha = 255)
{
    return alpha << 24U | red << 16U | green << 8U | blue;
}

/// From 0, clear, to 255, opaque.
constexpr Pixel alphaOf(Pixel pixel)
{
    return pixel >> 24U;
}

/// `over` laid on `under` by the alphas of both.
Pixel blend(Pixel over, Pixel under);

struct Rect {
    int x;
    int y;
    int width;
    int height;
};

/// A whole coordinate from a script's number: rounded down and kept within a range in which sums of a few
/// coordinates cannot overflow; far outside every image at its ends. Not a number: 0.
int coordinate(double value);

/// Pixels to draw on. Everything drawn is clipped to the image; coordinates count from 0 at the top left and
/// come out of coordinate().
class Image
{
public:
    enum class Kind { WithAlpha, AlwaysOpaque };

    static constexpr int longestSide = 4096;

    static constexpr bool sizeIsAllowed(double width, double height)
    {
        return width >= 1 && width <= longestSide && height >= 1 && height <= longestSide;
    }

    /// A transparent image, or a black one if it is always opaque.
    /// Failure: std::invalid_argument for a side outside 1..longestSide.
    Image(int width, int height, Kind kind = Kind::WithAlpha);

    int width() const { return width_; }
    int height() const { return height_; }
    std::size_t bytes() const { return pixels_.size() * sizeof(Pixel); }

    /// y must be a row of the image.
    const Pixel* row(int y) const { return pixels_.data() + offset(y); }
    Pixel* row(int y) { return pixels_.data() + offset(y); }

    bool contains(int x, int y) const { return x >= 0 && x < width_ && y >= 0 && y < height_; }

    /// x, y must lie in the image.
    Pixel pixel(int x, int y) const { return row(y)[x]; }

    /// Replaces a pixel, alpha included; outside the image nothing happens.
    void setPixel(int x, int y, Pixel colour);

    /// Lays a colour over one pixel; outside the image nothing happens.
    void blendPixel(int x, int y, Pixel colour);

    /// Replaces every pixel, alpha included.
    void clear(Pixel colour);

    /// Lays a colour over a rectangle; one without a positive size is empty.
    void fill(const Rect& area, Pixel colour);

    /// Lays a part of another image (or of this one) at x, y. What of `part` is outside the source is left
    /// out.
    void blit(int x, int y, const Image& source, Rect part);

    /// Lays a straight line, both ends included.
    void line(int x0, int y0, int x1, int y1, Pixel colour);

private:
    std::size_t offset(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_); }
    bool clipToSource(int& x, int& y, const Image& source, Rect& part) const;
    Image cut(const Rect& part) const;
    void flatLine(int x0, int y0, int x1, int y1, Pixel colour);
    void steepLine(int x0, int y0, int x1, int y1, Pixel colour);

    int width_;
    int height_;
    Pixel alwaysSet_;
    std::vector<Pixel> pixels_;
};

} // namespace player
