#include "player/image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace player::testing
{
namespace
{

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

bool same(const Image& one, const Image& other)
{
    return std::equal(one.row(0), one.row(one.height()), other.row(0));
}

TEST(Blend, FollowsTheAlphas)
{
    struct Case {
        Pixel over, under, mixed;
    };
    const Case cases[] = {
        {0xFF102030, 0x80FFFFFF, 0xFF102030}, // opaque covers
        {0x00FFFFFF, 0x12345678, 0x12345678}, // transparent leaves
        {0xFE000000, 0xFFFFFFFF, 0xFF010101}, // the last step is not lost
        {0x80FF0000, 0x00FFFFFF, 0x80FF0000}, // the colour of nothing does not shine through
        {0x800000FF, 0x80FF0000, 0xC05500AA}, // two halves
        {0x80101010, 0x40000000, 0xA00D0D0D}, // rounded to the nearest
    };
    for (const Case& c : cases) {
        EXPECT_EQ(blend(c.over, c.under), c.mixed) << std::hex << c.over << " on " << c.under;
    }
}

TEST(Image, BlitsEveryPartAsPixelByPixelAndOntoItselfAsFromACopy)
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
        ASSERT_TRUE(same(drawn, slowBlit(before, x, y, source, part))) << round;
        drawn = before;
        drawn.blit(x, y, drawn, part);
        ASSERT_TRUE(same(drawn, slowBlit(before, x, y, before, part))) << round;
    }
}

} // namespace
} // namespace player::testing
