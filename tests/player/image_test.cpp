#include "player/image.h"
#include "player/picture_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <SDL_image.h>
#include <stdexcept>
#include <string>

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

bool same(const Image& one, const Image& other)
{
    for (int y = 0; y < one.height(); ++y) {
        if (!std::equal(one.row(y), one.row(y) + one.width(), other.row(y))) {
            return false;
        }
    }
    return true;
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

TEST(Image, RefusesSizesOutsideItsLimits)
{
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {4097, 1}, {1, 4097}}) {
        EXPECT_THROW(Image(width, height), std::invalid_argument) << width << " x " << height;
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

TEST(Image, StaysOpaqueIfItIsAlwaysOpaque)
{
    Image image(2, 1, Image::Kind::AlwaysOpaque);
    EXPECT_EQ(image.pixel(0, 0), opaqueBlack);
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
        {3, 3, 3, 3, 1},       {9, 2, 0, 2, 10},           {0, 0, 9, 3, 10},    {-5, 5, 4, 5, 5},
        {5, far, 5, -far, 10}, {-far, -far, far, far, 10}, {-5, -5, -1, -1, 0}, {-far, 20, far, 20, 0},
    };
    for (const Case& c : cases) {
        Image image(10, 10);
        image.line(c.x0, c.y0, c.x1, c.y1, green);
        EXPECT_EQ(countOf(image, green), c.pixels) << c.x0 << "," << c.y0 << " to " << c.x1 << "," << c.y1;
        EXPECT_TRUE(!image.contains(c.x0, c.y0) || image.pixel(c.x0, c.y0) == green) << c.x0 << "," << c.y0;
        EXPECT_TRUE(!image.contains(c.x1, c.y1) || image.pixel(c.x1, c.y1) == green) << c.x1 << "," << c.y1;
    }
}

enum class Format { Png, Jpeg };

// The bytes of a picture file whose pixels are all of one colour.
std::string encoded(Format format, int width, int height, Pixel colour)
{
    SDL_Surface* const surface =
        SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888);
    SDL_FillRect(surface, nullptr, colour);
    std::string bytes(100000, '\0');
    SDL_RWops* const stream = SDL_RWFromMem(bytes.data(), static_cast<int>(bytes.size()));
    const int failed =
        format == Format::Png ? IMG_SavePNG_RW(surface, stream, 0) : IMG_SaveJPG_RW(surface, stream, 0, 95);
    bytes.resize(failed != 0 ? 0 : static_cast<std::size_t>(SDL_RWtell(stream)));
    SDL_RWclose(stream);
    SDL_FreeSurface(surface);
    return bytes;
}

TEST(PictureFile, IsReadWithItsAlphaOrRefusedWhereverItIsCutAndNeverBreaksTheDecoder)
{
    for (const Format format : {Format::Png, Format::Jpeg}) {
        const std::string whole = encoded(format, 9, 7, 0x80C86432);
        EXPECT_EQ(decodePicture(whole).height(), 7);
        EXPECT_EQ(alphaOf(decodePicture(whole).pixel(8, 6)), format == Format::Png ? 0x80U : 255U);
        std::size_t shortest = 0;
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const std::string cut = whole.substr(0, length);
            try {
                EXPECT_EQ(pictureSize(cut).width, 9U);
                shortest = shortest == 0 ? length : shortest;
                EXPECT_EQ(decodePicture(cut).width(), 9);
            } catch (const std::runtime_error&) {
                continue;
            }
        }
        EXPECT_GE(shortest, 24U);
    }
    EXPECT_THROW(decodePicture(std::string("GIF89a\1\0\1\0", 10)), std::runtime_error);
}

} // namespace
} // namespace player::testing
