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

/// An amount of bytes that a game may take.
class Budget
{
public:
    explicit constexpr Budget(std::size_t limit)
        : limit_(limit)
    {
    }

    /// False if `bytes` more go over the limit; nothing is taken then.
    bool take(std::size_t bytes);
    void giveBack(std::size_t bytes) { used_ -= bytes; }
    bool fits(std::size_t bytes) const { return bytes <= limit_ - used_; }

private:
    std::size_t limit_;
    std::size_t used_ = 0;
};

/// The handheld that a script drives: its screen, buttons, clock and memory stick. Knows nothing of Lua.
class Machine
{
public:
    /// The memory for all pictures together, and what may go to the disk in one run, in bytes.
    static constexpr std::size_t mostPictures = 128U << 20U;
    static constexpr std::size_t mostWritten = 16U << 20U;

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

    /// Opens a file of the game. Failure: std::runtime_error naming the path and the reason.
    FileHandle openFile(std::string_view path, FileMode mode);

    /// Asks before writing so many bytes to a file or the standard output; false when the run has written too
    /// much.
    bool mayWrite(std::size_t bytes) { return written_.take(bytes); }

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

    /// Counts steps of a script. False if so many went by without a frame that it seems caught in a loop; the
    /// count starts anew then, as it does at each flip and wait.
    bool countSteps(int steps);

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
    Budget pixels_{mostPictures};
    Budget written_{mostWritten};
    Instant lastPump_;
    int stepsSinceFrame_ = 0;
    bool closing_ = false;
};

} // namespace player
