#include "player/frame_clock.h"

namespace player
{

namespace
{

constexpr std::int64_t second = 1'000'000'000;

} // namespace

std::int64_t frameAt(Instant when)
{
    // Whole seconds apart: the product of nanoseconds and frames would overflow within years.
    const std::int64_t time = when.count();
    return time / second * framesPerSecond + time % second * framesPerSecond / second;
}

Instant startOfFrame(std::int64_t frame)
{
    const std::int64_t rest = frame % framesPerSecond * second;
    const std::int64_t roundedUp = (rest + framesPerSecond - 1) / framesPerSecond;
    return Instant(frame / framesPerSecond * second + roundedUp);
}

} // namespace player
