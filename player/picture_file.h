#pragma once

#include "player/image.h"

#include <string_view>

namespace player
{

struct PictureSize {
    unsigned width;
    unsigned height;
};

/// The size that the head of a PNG or JPEG file states, without decoding it.
/// Failure: std::runtime_error if the bytes are neither.
PictureSize pictureSize(std::string_view file);

/// Decodes a PNG or JPEG file. Its size must be allowed for an image.
/// Failure: std::runtime_error with the reason.
Image decodePicture(std::string_view file);

} // namespace player
