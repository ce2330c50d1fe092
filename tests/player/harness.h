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

namespace player::testing
{

using ::TempFolder;

/// A frame of the 60 Hz display, counted from 0 at the start of a run.
using Frame = std::int64_t;

/// A display, a pad and a clock that a test controls. Time passes only by waiting, and by a little whenever
/// it is looked at, so that a script that never waits still meets the end of its run. Who does not take in
/// events is not told that the game is to be closed.
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

    /// What was presented last; black before.
    const Image& shown() const { return shown_; }

    void present(const Image& frame) override { shown_ = frame; }
    void pumpEvents() override { closeAsked_ = frame() >= closeFrame_; }
    bool closeAsked() const override { return closeAsked_; }
    Buttons takeButtons() override;
    bool hasViewer() const override { return true; }
    Instant now() override;
    void sleepUntil(Instant when) override;

private:
    std::map<Frame, Buttons> steps_;
    std::multimap<Frame, std::function<void()>> acts_;
    Frame closeFrame_ = INT64_MAX;
    bool closeAsked_ = false;
    Instant now_{};
    Frame lastRead_ = -1;
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

    /// Plays until the script ends or fails, or closes the game at frame `end`. To be called once.
    Outcome play(Frame end);

    /// A Lua expression over globals as tostring() gives it, before, during or after play(); "error: ..." if
    /// it fails.
    std::string value(const std::string& expression);

    /// What ended play(); its headline is empty without an error.
    const ErrorReport& report() const { return script_.error(); }
    std::string error() const { return report().headline(); }

    /// The frame at which the run stands.
    Frame frame() const { return host_.frame(); }

private:
    FakeHost host_;
    Machine machine_;
    Script script_;
    std::list<std::string> values_;
};

/// What a script, written into a folder, leaves as the global `result`; "failed: " and the error if it fails,
/// "closed" if it goes on for ten seconds.
std::string resultOf(const std::string& script, const TempFolder& folder = {});

} // namespace player::testing
