// Input: a picture file.
#include "target.h"

#include "player/picture_file.h"

#include <stdexcept>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace player;
    constexpr unsigned quick = 256; // pixels a side: larger ones only cost time
    const std::string_view file = TextOf(data, size);
    try {
        const PictureSize stated = pictureSize(file);
        if (Image::sizeIsAllowed(stated.width, stated.height) && stated.width <= quick &&
            stated.height <= quick) {
            const Image image = decodePicture(file);
            Require(image.width() == static_cast<int>(stated.width) &&
                        image.height() == static_cast<int>(stated.height),
                    "a picture has the size that was checked");
        }
    } catch (const std::runtime_error&) {
        return 0;
    }
    return 0;
}
