#include "player/image.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace player::testing
{
namespace
{

constexpr Pixel red = makePixel(255, 0, 0);
constexpr Pixel green = makePixel(0, 255, 0);

// What a blit must do, one pixel at a time.
Image slowBlit(Image target, int x, int y, const Image& source, const Rect& part)
{
    for (int line = 0; line < source.height(); ++line) {
        for (int column = 0; column < source.width(); ++column) {
            const bool inPart = column >= part.x && column < part.x + part.width && line >= part.y &&
                                line < part.y + part.height;
            if (inPart) {
                target.blendPixel(x + column - part.x, y + line - part.y, source.pixel(column, line));
            }
        }
    }
    return target;
}

Image noise(int width, int height, std::mt19937& random)
{
    Image image(width, height);
    for (int y = 0; y < height; ++y) {
        // Some rows opaque, since those take another way.
        const Pixel set = random() % 2 == 0 ? opaqueBlack : transparent;
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, static_cast<Pixel>(random()) | set);
        }
    }
    return image;
}

void expectSame(const Image& one, const Image& other)
{
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            ASSERT_EQ(one.pixel(x, y), other.pixel(x, y)) << "at " << x << ", " << y;
        }
    }
}

int countOf(const Image& image, Pixel colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        count += static_cast<int>(std::count(image.row(y), image.row(y) + image.width(), colour));
    }
    return count;
}

TEST(Blend, FollowsTheAlphas)
{
    struct Case {
        Pixel over, under, mixed;
    };
    const Case cases[] = {
        {0xFF102030, 0x80FFFFFF, 0xFF102030}, // opaque covers
        {0x00FFFFFF, 0x12345678, 0x12345678}, // transparent leaves
        {0x80FFFFFF, 0xFF000000, 0xFF808080}, // half on opaque
        {0x01FFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}, // white stays white
        {0xFE000000, 0xFFFFFFFF, 0xFF010101}, // the last step is not lost
        {0x80FF0000, 0x00FFFFFF, 0x80FF0000}, // the colour of nothing does not shine through
        {0x800000FF, 0x80FF0000, 0xC05500AA}, // two halves
        {0x80101010, 0x40000000, 0xA00D0D0D}, // rounded to the nearest
    };
    for (const Case& c : cases) {
        EXPECT_EQ(blend(c.over, c.under), c.mixed) << std::hex << c.over << " on " << c.under;
    }
}

TEST(Coordinate, IsAWholeNumberInReach)
{
    EXPECT_EQ(coordinate(10.9), 10);
    EXPECT_EQ(coordinate(-0.5), -1);
    EXPECT_EQ(coordinate(std::nan("")), 0);
    for (const double far : {1e9, std::numeric_limits<double>::infinity()}) {
        EXPECT_GT(coordinate(far), Image::longestSide);
        EXPECT_LT(coordinate(-far), -Image::longestSide);
    }
}

TEST(Image, RefusesSizesOutsideItsLimits)
{
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {4097, 1}, {1, 4097}}) {
        EXPECT_THROW(Image(width, height), std::invalid_argument) << width << " x " << height;
    }
    EXPECT_EQ(Image(4096, 1).width(), 4096);
}

TEST(Image, BlitsEveryPartAsPixelByPixel)
{
    std::mt19937 random(7);
    const auto within = [&random](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (int round = 0; round < 400; ++round) {
        const Image source = noise(within(1, 9), within(1, 9), random);
        const Image before = noise(within(1, 9), within(1, 9), random);
        const Rect part{within(-12, 12), within(-12, 12), within(-3, 20), within(-3, 20)};
        const int x = within(-12, 12);
        const int y = within(-12, 12);
        Image drawn = before;
        drawn.blit(x, y, source, part);
        expectSame(drawn, slowBlit(before, x, y, source, part));
    }
}

TEST(Image, BlitsOntoItselfAsFromACopy)
{
    std::mt19937 random(3);
    const Image before = noise(9, 9, random);
    for (const int shift : {-2, 2}) {
        Image drawn = before;
        drawn.blit(shift, shift, drawn, {0, 0, 9, 9});
        expectSame(drawn, slowBlit(before, shift, shift, before, {0, 0, 9, 9}));
    }
}

TEST(Image, StandsTheFarthestCoordinates)
{
    const int far = coordinate(1e300);
    Image image(8, 8);
    const Image source(8, 8, Image::Kind::AlwaysOpaque);
    for (const int x : {-far, far}) {
        for (const int width : {-far, far}) {
            image.blit(x, x, source, {x, -x, width, width});
            image.fill({x, 0, width, 8}, x < 0 && width > 0 ? transparent : red);
        }
    }
    EXPECT_EQ(countOf(image, transparent), 64);
    image.fill({-far, -far, 2 * far, 2 * far}, red);
    EXPECT_EQ(countOf(image, red), 64);
}

TEST(Image, StaysOpaqueIfItIsAlwaysOpaque)
{
    Image image(2, 1, Image::Kind::AlwaysOpaque);
    EXPECT_EQ(image.pixel(0, 0), opaqueBlack);
    image.clear(0x00112233);
    EXPECT_EQ(image.pixel(0, 0), 0xFF112233);
    image.setPixel(0, 0, 0x40FFFFFF);
    EXPECT_EQ(image.pixel(0, 0), 0xFFFFFFFF);
}

TEST(Image, DrawsLinesWithBothEnds)
{
    struct Case {
        int x0, y0, x1, y1;
        int pixels;
    };
    const int far = coordinate(1e300);
    const Case cases[] = {
        {3, 3, 3, 3, 1},       {0, 0, 9, 9, 10},       {9, 2, 0, 2, 10},
        {4, 9, 4, 0, 10},      {0, 0, 9, 3, 10},       {-5, 5, 4, 5, 5},
        {-far, 5, far, 5, 10}, {5, far, 5, -far, 10},  {-far, -far, far, far, 10},
        {-5, -5, -1, -1, 0},   {-far, 20, far, 20, 0}, {0, -far, 9, -far, 0},
    };
    for (const Case& c : cases) {
        Image image(10, 10);
        image.line(c.x0, c.y0, c.x1, c.y1, green);
        EXPECT_EQ(countOf(image, green), c.pixels) << c.x0 << "," << c.y0 << " to " << c.x1 << "," << c.y1;
        EXPECT_TRUE(!image.contains(c.x0, c.y0) || image.pixel(c.x0, c.y0) == green) << c.x0 << "," << c.y0;
        EXPECT_TRUE(!image.contains(c.x1, c.y1) || image.pixel(c.x1, c.y1) == green) << c.x1 << "," << c.y1;
    }
}

} // namespace
} // namespace player::testing
