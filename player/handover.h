#pragma once

#include "player/frame_scaler.h"
#include "player/host.h"
#include "player/image.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace player
{

/// What a game and its window hand to each other, each living on a thread of its own: pictures one way,
/// buttons and the wish to close the other. To the game it is the whole world outside.
class Handover : public Host
{
public:
    explicit Handover(bool hasViewer);

    /// For the game's thread. A picture is only noted here, and nothing waits for the window.
    void present(const Image& frame) override;
    void pumpEvents() override {}
    bool closeAsked() const override { return closeAsked_; }
    Buttons takeButtons() override { return tapped_.exchange(button::none) | held_; }
    bool hasViewer() const override { return hasViewer_; }
    Instant now() override;
    void sleepUntil(Instant when) override;

    /// The last call of the game's thread.
    void end();

    /// The rest is for the window's thread.
    enum class News { None, Picture, Ended };

    /// Waits for the end of the game or, unless `endOnly`, a picture that was not shown yet; None at `when`.
    News await(Instant when, bool endOnly);

    /// Calls `show` with the newest picture and the rows that changed since the last call, if any did or if
    /// `always` is set. The game's next present() waits until it is done.
    void show(bool always, const std::function<void(const Image& picture, Rows changed)>& show);

    /// As PadState::held() and take().
    void setButtons(Buttons held, Buttons taken);
    void askToClose() { closeAsked_ = true; }

private:
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    const bool hasViewer_;
    std::atomic<bool> closeAsked_ = false;
    std::atomic<Buttons> held_ = button::none;
    std::atomic<Buttons> tapped_ = button::none;

    std::mutex mutex_;
    std::condition_variable news_;
    // Under the mutex, but for the game's thread, which alone changes the picture and may look at it freely.
    Image picture_;
    Rows changed_{0, 0};
    bool ended_ = false;
};

} // namespace player
