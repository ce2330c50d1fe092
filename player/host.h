#pragma once

#include "player/buttons.h"

#include <chrono>

namespace player
{

class Image;

/// Time since the host was made.
using Instant = std::chrono::nanoseconds;

/// The world outside a game: a display, an input device and a clock. The player runs on any of them, which is
/// how the tests run games without a window.
class Host
{
public:
    Host() = default;
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    virtual ~Host() = default;

    /// Shows a 480 x 272 picture until the next one; alpha is ignored.
    virtual void present(const Image& frame) = 0;

    /// Takes in what happened since the last call: keys, pads, the window.
    virtual void pumpEvents() = 0;

    /// True from the moment somebody asked to close the game.
    virtual bool closeAsked() const = 0;

    /// The buttons held now, and those pressed and let go since the last call.
    virtual Buttons takeButtons() = 0;

    /// False where nobody can see or close the display.
    virtual bool hasViewer() const = 0;

    virtual Instant now() = 0;

    /// Returns at `when` or later, never earlier; at once when `when` has passed.
    virtual void sleepUntil(Instant when) = 0;
};

} // namespace player
