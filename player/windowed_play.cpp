#include "player/windowed_play.h"

#include "player/frame_clock.h"
#include "player/handover.h"
#include "player/play.h"
#include "player/sdl_window.h"

#include <chrono>
#include <cstdlib>
#include <future>

namespace player
{

namespace
{

// A script is told to end and gets some time to; one that sits in a single long call never hears of it. The
// system then takes back the window with all else.
class Patience
{
public:
    void endProcessWhenOver(Instant now)
    {
        constexpr std::chrono::milliseconds length{1500};
        asked_ = asked_ < Instant::zero() ? now : asked_;
        if (now - asked_ >= length) {
            std::_Exit(EXIT_SUCCESS);
        }
    }

private:
    Instant asked_{-1};
};

// The next time to look at the window's events: shortly before a frame starts, so that the game, which reads
// its buttons then, gets fresh ones.
Instant nextLook(Instant now)
{
    constexpr std::chrono::milliseconds lead{1};
    return startOfFrame(frameAt(now + lead) + 1) - lead;
}

// Keeps a window alive until its game has ended.
class Keeper
{
public:
    Keeper(SdlWindow& window, Handover& handover)
        : window_(window)
        , handover_(handover)
    {
    }

    void keep()
    {
        // A picture goes to the window at once, but not more often than the display could show it.
        bool shownSinceLook = false;
        for (;;) {
            const Handover::News news = handover_.await(nextLook(handover_.now()), shownSinceLook);
            if (news == Handover::News::Ended) {
                return;
            }
            shownSinceLook = news == Handover::News::Picture;
            if (!shownSinceLook) {
                look();
            }
            handover_.show(window_.isOutdated(),
                           [this](const Image& picture, Rows rows) { window_.show(picture, rows); });
        }
    }

private:
    void look()
    {
        window_.pumpEvents();
        const Buttons taken = window_.input().take();
        handover_.setButtons(window_.input().held(), taken);
        if (window_.closeAsked()) {
            handover_.askToClose();
            patience_.endProcessWhenOver(handover_.now());
        }
    }

    SdlWindow& window_;
    Handover& handover_;
    Patience patience_;
};

} // namespace

int playInWindow(const std::string& title, const std::filesystem::path& folder, std::string_view script,
                 std::ostream& errors)
{
    SdlWindow window(title);
    Handover handover(window.hasViewer());
    std::future<int> game = std::async(std::launch::async, [&] {
        struct AtEnd {
            Handover& handover;
            ~AtEnd() { handover.end(); }
        } const atEnd{handover};
        return play(handover, folder, script, errors);
    });
    Keeper(window, handover).keep();
    return game.get();
}

} // namespace player
