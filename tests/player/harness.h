#pragma once

#include "player/host.h"
#include "player/image.h"
#include "player/machine.h"
#include "player/script.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace player::testing
{

/// A frame of the 60 Hz display, counted from 0 at the start of a run.
using Frame = std::int64_t;

/// A display, a pad and a clock that a test controls. Time passes only by waiting, and by a little whenever
/// it is looked at, so that a script that never waits still meets the end of its run.
class FakeHost : public Host
{
public:
    /// From `frame` on these buttons are held, until the next call's frame. Frames must not go back.
    void hold(Frame frame, Buttons buttons) { steps_.push_back({frame, buttons}); }

    /// Somebody closes the game at this frame.
    void closeAt(Frame frame) { closeFrame_ = frame; }

    /// Called once for each frame, when it starts.
    void onFrame(std::function<void(Frame)> callback) { onFrame_ = std::move(callback); }

    Frame frame() const;
    int presented() const { return presented_; }

    /// What was presented last; black before.
    const Image& shown() const { return shown_; }

    void present(const Image& frame) override;
    void pumpEvents() override { ++pumped_; }
    int pumped() const { return pumped_; }
    bool closeAsked() const override { return frame() >= closeFrame_; }
    Buttons takeButtons() override;
    bool hasViewer() const override { return true; }
    Instant now() override;
    void sleepUntil(Instant when) override;

private:
    struct Step {
        Frame frame;
        Buttons buttons;
    };
    void passTo(Instant when);

    std::vector<Step> steps_;
    Frame closeFrame_ = INT64_MAX;
    std::function<void(Frame)> onFrame_;
    Instant now_{};
    Frame lastRead_ = -1;
    int presented_ = 0;
    int pumped_ = 0;
    Image shown_{screenWidth, screenHeight, Image::Kind::AlwaysOpaque};
};

/// Plays the scripts of a folder without a window and keeps the game's state to look at.
///
///     PlayerRun run(folder);
///     run.tap(10, button::cross);
///     run.watch(20, "hero.x");
///     EXPECT_EQ(run.play(60), Outcome::Closed);   // closed at frame 60
///     EXPECT_EQ(run.watched(20, "hero.x"), "3");
///     EXPECT_EQ(run.value("var[\"1\"]"), "on");
class PlayerRun
{
public:
    /// folder: where the player is started. script: the path of the first script.
    explicit PlayerRun(const std::filesystem::path& folder, std::string script = "index.lua");

    /// As FakeHost::hold.
    void hold(Frame frame, Buttons buttons) { host_.hold(frame, buttons); }

    /// Holds buttons for two frames and then none. Frames must not go back.
    void tap(Frame frame, Buttons buttons);

    /// Keeps the value of a Lua expression at the start of a frame.
    void watch(Frame frame, const std::string& expression);

    /// Keeps the picture shown at the start of a frame.
    void capture(Frame frame);

    /// Plays until the script ends or fails, or closes the game at frame `end`. To be called once.
    Outcome play(Frame end);

    /// A Lua expression over globals as tostring() gives it, before, during or after play(); "error: ..." if
    /// it fails.
    std::string value(const std::string& expression);

    /// What watch() kept; "never" if the run ended before that frame.
    std::string watched(Frame frame, const std::string& expression) const;

    /// What capture() kept. Failure: std::out_of_range if the run ended before that frame.
    const Image& captured(Frame frame) const { return captures_.at(frame); }

    /// The error that ended play(), as "file:line: message"; empty without one.
    std::string error() const { return script_.error().headline(); }
    const ErrorReport& report() const { return script_.error(); }

    /// The picture shown last, and the one being drawn.
    const Image& shown() const { return host_.shown(); }
    const Image& screen() const { return machine_.screen(); }

    /// The frame at which the run stands, and how many pictures were shown.
    Frame frame() const { return host_.frame(); }
    int presented() const { return host_.presented(); }

    FakeHost& host() { return host_; }
    lua_State* state() { return script_.state(); }

private:
    void atFrame(Frame frame);

    FakeHost host_;
    Machine machine_;
    Script script_;
    std::string start_;
    std::multimap<Frame, std::string> watches_;
    std::map<std::pair<Frame, std::string>, std::string> values_;
    std::vector<Frame> captureFrames_;
    std::map<Frame, Image> captures_;
};

/// A folder that is removed at the end of a test.
class TempFolder
{
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    const std::filesystem::path& path() const { return path_; }

    /// Writes a file, bytes as they are, making its folders.
    void write(const std::filesystem::path& name, std::string_view content) const;

    /// The bytes of a file; empty if there is none.
    std::string read(const std::filesystem::path& name) const;

private:
    std::filesystem::path path_;
};

/// What a script of its own, in a folder, leaves as the global `result`; "failed: " and the error if it
/// fails, "closed" if it goes on for ten seconds.
std::string resultOf(const std::string& script, const TempFolder& folder);
std::string resultOf(const std::string& script);

} // namespace player::testing
