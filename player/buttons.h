#pragma once

#include <cstdint>
#include <vector>

namespace player
{

/// One bit per button of the handheld; a set of buttons is their sum.
using Buttons = std::uint32_t;

namespace button
{
constexpr Buttons none = 0;
constexpr Buttons up = 1U << 0U;
constexpr Buttons down = 1U << 1U;
constexpr Buttons left = 1U << 2U;
constexpr Buttons right = 1U << 3U;
constexpr Buttons cross = 1U << 4U;
constexpr Buttons circle = 1U << 5U;
constexpr Buttons square = 1U << 6U;
constexpr Buttons triangle = 1U << 7U;
constexpr Buttons start = 1U << 8U;
constexpr Buttons select = 1U << 9U;
constexpr Buttons l = 1U << 10U;
constexpr Buttons r = 1U << 11U;
} // namespace button

/// Buttons as several keys and pads hold them. A tap between two readings is kept for the next reading.
class PadState
{
public:
    /// source: any number that tells one key or pad button from the others; pressing it twice counts once.
    void press(std::uint64_t source, Buttons buttons);

    /// A source that is not pressed: nothing happens.
    void release(std::uint64_t source);

    /// Lets go of everything, as when a pad is unplugged.
    void releaseAll();

    /// The buttons held by any source, and those tapped since the last call.
    Buttons take();

    /// The buttons held by any source.
    Buttons held() const;

private:
    struct Held {
        std::uint64_t source;
        Buttons buttons;
    };

    std::vector<Held> held_;
    Buttons tapped_ = button::none;
};

} // namespace player
