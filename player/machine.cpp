#include "player/machine.h"

#include "player/frame_clock.h"
#include "player/picture_file.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace player
{

namespace
{

constexpr std::size_t largestPictureFile = 32U << 20U;

} // namespace

bool Budget::take(std::size_t bytes)
{
    const bool taken = fits(bytes);
    used_ += taken ? bytes : 0;
    return taken;
}

Machine::Machine(Host& host, const std::filesystem::path& startFolder)
    : host_(host)
    , sandbox_(startFolder)
    , screen_(screenWidth, screenHeight, Image::Kind::AlwaysOpaque)
    , lastPump_(host.now())
{
}

std::unique_ptr<Image> Machine::newPicture(int width, int height)
{
    return counted(std::make_unique<Image>(width, height));
}

std::unique_ptr<Image> Machine::loadPicture(std::string_view path)
{
    const std::string file = sandbox_.read(path, largestPictureFile);
    try {
        const PictureSize size = pictureSize(file);
        if (!Image::sizeIsAllowed(size.width, size.height)) {
            throw std::runtime_error("is larger than 4096 pixels a side");
        }
        // Asked before decoding, which already takes the memory.
        if (!pixels_.fits(sizeof(Pixel) * size.width * size.height)) {
            return nullptr;
        }
        return counted(std::make_unique<Image>(decodePicture(file)));
    } catch (const std::exception& failure) {
        throw std::runtime_error(std::string(path) + ": " + failure.what());
    }
}

std::unique_ptr<Image> Machine::counted(std::unique_ptr<Image> picture)
{
    return pixels_.take(picture->bytes()) ? std::move(picture) : nullptr;
}

void Machine::dropPicture(const Image* picture)
{
    if (picture != nullptr) {
        pixels_.giveBack(picture->bytes());
        delete picture;
    }
}

FileHandle Machine::openFile(std::string_view path, FileMode mode)
{
    // A new file takes room however little is in it.
    constexpr std::size_t block = 4096;
    if (mode != FileMode::Read && !sandbox_.exists(path) && !mayWrite(block)) {
        throw std::runtime_error(std::string(path) + ": the game has made too many files");
    }
    return sandbox_.open(path, mode);
}

void Machine::flip()
{
    stepsSinceFrame_ = 0;
    host_.present(screen_);
    poll();
}

void Machine::waitFrames(double n)
{
    if (!(n >= 1)) {
        return;
    }
    stepsSinceFrame_ = 0;
    constexpr double years = 4e9;
    const auto frames = static_cast<std::int64_t>(std::min(n, years));
    std::int64_t frame = frameAt(host_.now());
    const std::int64_t last = frame + frames;
    while (frame < last) {
        ++frame;
        host_.sleepUntil(startOfFrame(frame));
        pump();
    }
}

bool Machine::countSteps(int steps)
{
    constexpr int most = 20'000'000;
    stepsSinceFrame_ += steps;
    const bool few = stepsSinceFrame_ <= most;
    stepsSinceFrame_ = few ? stepsSinceFrame_ : 0;
    return few;
}

void Machine::poll()
{
    constexpr auto moment = std::chrono::milliseconds(4);
    if (host_.now() - lastPump_ >= moment) {
        pump();
    }
}

Buttons Machine::readButtons()
{
    poll();
    return host_.takeButtons();
}

void Machine::pump()
{
    host_.pumpEvents();
    lastPump_ = host_.now();
    if (host_.closeAsked()) {
        closing_ = true;
        throw Closed();
    }
}

} // namespace player
