#include "player/picture_file.h"

#include <gtest/gtest.h>

#include <memory>
#include <SDL_image.h>
#include <stdexcept>
#include <string>

namespace player::testing
{
namespace
{

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

TEST(PictureFile, StatesItsSize)
{
    for (const Format format : {Format::Png, Format::Jpeg}) {
        const PictureSize size = pictureSize(encoded(format, 300, 29, opaqueBlack));
        EXPECT_EQ(size.width, 300U);
        EXPECT_EQ(size.height, 29U);
    }
}

TEST(PictureFile, GivesItsPixelsWithTheirAlpha)
{
    const Pixel colour = 0x80C86432;
    const Image png = decodePicture(encoded(Format::Png, 28, 29, colour));
    EXPECT_EQ(png.width(), 28);
    EXPECT_EQ(png.height(), 29);
    EXPECT_EQ(png.pixel(27, 28), colour);
    EXPECT_EQ(alphaOf(decodePicture(encoded(Format::Jpeg, 8, 8, makePixel(200, 100, 50))).pixel(3, 3)), 255U);
}

TEST(PictureFile, IsRefusedWhenItsHeadIsCut)
{
    for (const Format format : {Format::Png, Format::Jpeg}) {
        const std::string whole = encoded(format, 3, 3, opaqueBlack);
        std::size_t shortest = 0;
        for (; shortest < whole.size(); ++shortest) {
            try {
                EXPECT_EQ(pictureSize(whole.substr(0, shortest)).width, 3U);
                break;
            } catch (const std::runtime_error&) {
            }
        }
        EXPECT_GE(shortest, 24U);
    }
}

TEST(PictureFile, NeverBreaksTheDecoder)
{
    for (const Format format : {Format::Png, Format::Jpeg}) {
        const std::string whole = encoded(format, 9, 9, makePixel(1, 2, 3));
        for (std::size_t length = 0; length < whole.size(); length += 3) {
            try {
                EXPECT_EQ(decodePicture(whole.substr(0, length)).width(), 9);
            } catch (const std::runtime_error&) {
            }
        }
    }
}

TEST(PictureFile, IsRefusedIfItIsNoPicture)
{
    for (const std::string& bytes :
         {std::string(), std::string("BM6"), std::string("GIF89a\1\0\1\0", 10),
          std::string("\xFF\xD8\xFF", 3), std::string("\xFF\xD8\xFF\xE0\0\0", 6)}) {
        EXPECT_THROW(pictureSize(bytes), std::runtime_error) << bytes;
        EXPECT_THROW(decodePicture(bytes), std::runtime_error) << bytes;
    }
}

} // namespace
} // namespace player::testing
