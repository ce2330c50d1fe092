#include "player/picture_file.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <SDL_image.h>
#include <stdexcept>
#include <string>

namespace player
{

namespace
{

using namespace std::string_view_literals;

constexpr auto pngMark = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"sv;
constexpr auto jpegMark = "\xFF\xD8\xFF"sv;

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

[[noreturn]] void refusePicture()
{
    throw std::runtime_error("is not a whole PNG or JPEG picture");
}

unsigned byteAt(std::string_view file, std::size_t place)
{
    if (place >= file.size()) {
        refusePicture();
    }
    return static_cast<unsigned char>(file[place]);
}

// Big-endian, as both formats have it.
unsigned word16(std::string_view file, std::size_t place)
{
    return byteAt(file, place) << 8U | byteAt(file, place + 1);
}

unsigned word32(std::string_view file, std::size_t place)
{
    return word16(file, place) << 16U | word16(file, place + 2);
}

bool isFrameHeader(unsigned marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

PictureSize jpegSize(std::string_view file)
{
    std::size_t place = 2;
    for (;;) {
        while (byteAt(file, place) == 0xFF && byteAt(file, place + 1) == 0xFF) {
            ++place;
        }
        if (byteAt(file, place) != 0xFF) {
            refusePicture();
        }
        if (isFrameHeader(byteAt(file, place + 1))) {
            return {word16(file, place + 7), word16(file, place + 5)};
        }
        place += 2 + word16(file, place + 2);
    }
}

// The decoder believes a chunk's length, and takes gigabytes of nothing from a file that ends before.
void checkChunks(std::string_view file)
{
    constexpr std::size_t markSize = 8;
    std::string_view name;
    for (std::size_t place = markSize; name != "IEND"sv;) {
        const std::size_t length = word32(file, place);
        name = file.substr(place + 4, 4);
        place += 12 + length;
        byteAt(file, place - 1);
    }
}

Image imageOf(const SDL_Surface& surface)
{
    Image image(surface.w, surface.h);
    const auto* bytes = static_cast<const std::byte*>(surface.pixels);
    for (int y = 0; y < surface.h; ++y) {
        const auto* pixels = reinterpret_cast<const Pixel*>(bytes);
        std::copy_n(pixels, surface.w, image.row(y));
        bytes += surface.pitch;
    }
    return image;
}

} // namespace

PictureSize pictureSize(std::string_view file)
{
    if (file.starts_with(pngMark)) {
        return {word32(file, pngMark.size()), word32(file, pngMark.size() + 4)};
    }
    if (file.starts_with(jpegMark)) {
        return jpegSize(file);
    }
    refusePicture();
}

Image decodePicture(std::string_view file)
{
    const bool isPng = file.starts_with(pngMark);
    if (isPng) {
        checkChunks(file);
    }
    SDL_RWops* const stream = SDL_RWFromConstMem(file.data(), static_cast<int>(file.size()));
    if (stream == nullptr) {
        refusePicture();
    }
    const Surface decoded(isPng ? IMG_LoadPNG_RW(stream) : IMG_LoadJPG_RW(stream));
    SDL_RWclose(stream);
    if (!decoded) {
        refusePicture();
    }
    const Surface surface(SDL_ConvertSurfaceFormat(decoded.get(), SDL_PIXELFORMAT_ARGB8888, 0));
    if (!surface) {
        throw std::runtime_error(SDL_GetError());
    }
    return imageOf(*surface);
}

} // namespace player
