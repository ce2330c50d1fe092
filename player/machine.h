#pragma once

#include "player/host.h"
#include "player/image.h"
#include "player/sandbox.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string_view>

namespace player
{

constexpr int screenWidth = 480;
constexpr int screenHeight = 272;

/// Ends whatever a script does once the game is to be closed.
class Closed
{
};

/// How much memory the pictures of a game may take together.
class PixelBudget
{
public:
    static constexpr std::size_t limit = 128U << 20U;

    /// False if `bytes` more go over the limit; nothing is taken then.
    bool take(std::size_t bytes);
    void giveBack(std::size_t bytes) { used_ -= bytes; }
    bool fits(std::size_t bytes) const { return bytes <= limit - used_; }

private:
    std::size_t used_ = 0;
};

/// The handheld that a script drives: its screen, buttons, clock and memory stick. Knows nothing of Lua.
class Machine
{
public:
    /// Failure: std::filesystem::filesystem_error if there is no such folder.
    Machine(Host& host, const std::filesystem::path& startFolder);

    /// An empty picture, transparent. Null if it goes over the pictures' budget; then dropping some may help.
    /// Failure: std::invalid_argument for a size that images cannot have.
    std::unique_ptr<Image> newPicture(int width, int height);

    /// A picture from a PNG or JPEG file. Null as above.
    /// Failure: std::runtime_error naming the path and the reason.
    std::unique_ptr<Image> loadPicture(std::string_view path);

    /// Frees what the two above gave; null is allowed.
    void dropPicture(const Image* picture);

    Image& screen() { return screen_; }
    const Image& screen() const { return screen_; }
    Sandbox& sandbox() { return sandbox_; }
    Instant now() { return host_.now(); }

    /// True once a script was told to end because the game is to be closed.
    bool isClosing() const { return closing_; }

    /// Shows what was drawn on the screen. Failure: Closed.
    void flip();

    /// Waits for the n-th start of a frame from now, keeping the window alive; n below 1, or no number: not
    /// at all. Failure: Closed.
    void waitFrames(double n);

    /// Takes in events unless that was done a moment ago. Failure: Closed.
    void poll();

    /// The buttons held now or tapped since the last reading. Failure: Closed.
    Buttons readButtons();

private:
    std::unique_ptr<Image> counted(std::unique_ptr<Image> picture);
    void pump();

    Host& host_;
    Sandbox sandbox_;
    Image screen_;
    PixelBudget pixels_;
    Instant lastPump_;
    bool closing_ = false;
};

} // namespace player
