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

TEST(PictureFile, GivesItsSizeAndItsPixelsWithTheirAlpha)
{
    const Pixel colour = 0x80C86432;
    for (const Format format : {Format::Png, Format::Jpeg}) {
        const std::string file = encoded(format, 300, 29, colour);
        EXPECT_EQ(pictureSize(file).width, 300U);
        EXPECT_EQ(pictureSize(file).height, 29U);
        const Image picture = decodePicture(file);
        EXPECT_EQ(picture.width(), 300);
        EXPECT_EQ(picture.height(), 29);
        EXPECT_EQ(alphaOf(picture.pixel(299, 28)), format == Format::Png ? 0x80U : 255U);
        EXPECT_TRUE(format != Format::Png || picture.pixel(299, 28) == colour);
    }
}

TEST(PictureFile, IsRefusedWhereverItsHeadIsCutAndNeverBreaksTheDecoder)
{
    for (const Format format : {Format::Png, Format::Jpeg}) {
        const std::string whole = encoded(format, 9, 9, makePixel(1, 2, 3));
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
}

TEST(PictureFile, IsRefusedIfItIsNoPicture)
{
    for (const std::string& bytes :
         {std::string("BM6"), std::string("GIF89a\1\0\1\0", 10), std::string("\xFF\xD8\xFF\xE0\0\0", 6)}) {
        EXPECT_THROW(pictureSize(bytes), std::runtime_error) << bytes;
        EXPECT_THROW(decodePicture(bytes), std::runtime_error) << bytes;
    }
}

} // namespace
} // namespace player::testing
