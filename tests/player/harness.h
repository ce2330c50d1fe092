#pragma once

#include "player/host.h"
#include "player/image.h"
#include "player/machine.h"
#include "player/script.h"
#include "tests/core/tempfolder.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace player::testing
{

using ::TempFolder;

/// A frame of the 60 Hz display, counted from 0 at the start of a run.
using Frame = std::int64_t;

/// A display, a pad and a clock that a test controls. Time passes only by waiting, and by a little whenever
/// it is looked at, so that a script that never waits still meets the end of its run.
class FakeHost : public Host
{
public:
    /// From `frame` on these buttons are held, until the next call's frame.
    void hold(Frame frame, Buttons buttons) { steps_[frame] = buttons; }

    /// Somebody closes the game at this frame.
    void closeAt(Frame frame) { closeFrame_ = frame; }

    /// Does something when a frame starts.
    void at(Frame frame, std::function<void()> act) { acts_.emplace(frame, std::move(act)); }

    Frame frame() const;
    int presented() const { return presented_; }
    int pumped() const { return pumped_; }

    /// What was presented last; black before.
    const Image& shown() const { return shown_; }

    void present(const Image& frame) override;
    void pumpEvents() override { ++pumped_; }
    bool closeAsked() const override { return frame() >= closeFrame_; }
    Buttons takeButtons() override;
    bool hasViewer() const override { return true; }
    Instant now() override;
    void sleepUntil(Instant when) override;

private:
    std::map<Frame, Buttons> steps_;
    std::multimap<Frame, std::function<void()>> acts_;
    Frame closeFrame_ = INT64_MAX;
    Instant now_{};
    Frame lastRead_ = -1;
    int presented_ = 0;
    int pumped_ = 0;
    Image shown_{screenWidth, screenHeight, Image::Kind::AlwaysOpaque};
};

/// Plays "index.lua" of a folder without a window and keeps the game's state to look at.
class PlayerRun
{
public:
    /// folder: where the player is started.
    explicit PlayerRun(const std::filesystem::path& folder);

    /// As FakeHost::hold.
    void hold(Frame frame, Buttons buttons) { host_.hold(frame, buttons); }

    /// Holds buttons for two frames and then none.
    void tap(Frame frame, Buttons buttons);

    /// What a Lua expression is worth at the start of a frame, told once it was played; else "never".
    const std::string& watch(Frame frame, const std::string& expression);

    /// The picture shown at the start of a frame, likewise; else one that no game shows.
    const Image& capture(Frame frame);

    /// Plays until the script ends or fails, or closes the game at frame `end`. To be called once.
    Outcome play(Frame end);

    /// A Lua expression over globals as tostring() gives it, before, during or after play(); "error: ..." if
    /// it fails.
    std::string value(const std::string& expression);

    /// The error that ended play(), as "file:line: message"; empty without one.
    std::string error() const { return script_.error().headline(); }
    const ErrorReport& report() const { return script_.error(); }

    /// The frame at which the run stands, and how often the game showed a picture and took in events.
    Frame frame() const { return host_.frame(); }
    int presented() const { return host_.presented(); }
    int pumped() const { return host_.pumped(); }

private:
    FakeHost host_;
    Machine machine_;
    Script script_;
    std::list<std::string> values_;
    std::list<Image> pictures_;
};

/// Plays one script, in a folder of its own.
class ScriptRun : private TempFolder, public PlayerRun
{
public:
    explicit ScriptRun(std::string_view script)
        : PlayerRun(path())
    {
        write("index.lua", script);
    }
};

/// What a script, written into a folder, leaves as the global `result`; "failed: " and the error if it fails,
/// "closed" if it goes on for ten seconds.
std::string resultOf(const std::string& script, const TempFolder& folder = {});

} // namespace player::testing
