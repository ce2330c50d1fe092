#include "tests/player/harness.h"

#include "player/frame_clock.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <iterator>
#include <random>

namespace player::testing
{

Frame FakeHost::frame() const
{
    return frameAt(now_);
}

void FakeHost::present(const Image& frame)
{
    shown_ = frame;
    ++presented_;
}

Buttons FakeHost::takeButtons()
{
    Buttons taken = button::none;
    Buttons held = button::none;
    for (const Step& step : steps_) {
        if (step.frame > frame()) {
            break;
        }
        held = step.buttons;
        taken |= step.frame > lastRead_ ? step.buttons : button::none;
    }
    lastRead_ = frame();
    return taken | held;
}

Instant FakeHost::now()
{
    constexpr auto look = std::chrono::microseconds(20);
    passTo(now_ + look);
    return now_;
}

void FakeHost::sleepUntil(Instant when)
{
    passTo(std::max(now_, when));
}

void FakeHost::passTo(Instant when)
{
    const Frame before = frame();
    now_ = when;
    for (Frame passed = before + 1; onFrame_ && passed <= frameAt(when); ++passed) {
        onFrame_(passed);
    }
}

PlayerRun::PlayerRun(const std::filesystem::path& folder, std::string script)
    : machine_(host_, folder)
    , script_(machine_)
    , start_(std::move(script))
{
    host_.onFrame([this](Frame frame) { atFrame(frame); });
}

void PlayerRun::tap(Frame frame, Buttons buttons)
{
    hold(frame, buttons);
    hold(frame + 2, button::none);
}

void PlayerRun::watch(Frame frame, const std::string& expression)
{
    watches_.emplace(frame, expression);
}

void PlayerRun::capture(Frame frame)
{
    captureFrames_.push_back(frame);
}

Outcome PlayerRun::play(Frame end)
{
    host_.closeAt(end);
    return script_.run(start_);
}

void PlayerRun::atFrame(Frame frame)
{
    const auto [first, last] = watches_.equal_range(frame);
    for (auto watch = first; watch != last; ++watch) {
        values_[*watch] = value(watch->second);
    }
    if (std::count(captureFrames_.begin(), captureFrames_.end(), frame) > 0) {
        captures_.emplace(frame, host_.shown());
    }
}

std::string PlayerRun::value(const std::string& expression)
{
    lua_State* const L = state();
    const lua_Hook hook = lua_gethook(L);
    const int mask = lua_gethookmask(L);
    const int count = lua_gethookcount(L);
    // A run that was closed raises its closing error at every step.
    lua_sethook(L, nullptr, 0, 0);
    const std::string chunk = "return tostring(" + expression + ")";
    const bool failed = luaL_loadstring(L, chunk.c_str()) != 0 || lua_pcall(L, 0, 1, 0) != 0;
    const char* const text = lua_tostring(L, -1);
    std::string result = (failed ? "error: " : "") + std::string(text != nullptr ? text : "no text");
    lua_pop(L, 1);
    lua_sethook(L, hook, mask, count);
    return result;
}

std::string PlayerRun::watched(Frame frame, const std::string& expression) const
{
    const auto found = values_.find({frame, expression});
    return found == values_.end() ? "never" : found->second;
}

TempFolder::TempFolder()
{
    static std::atomic<unsigned> counter = 0;
    const std::string name =
        "player-test-" + std::to_string(std::random_device()()) + "-" + std::to_string(counter++);
    path_ = std::filesystem::canonical(std::filesystem::temp_directory_path()) / name;
    std::filesystem::create_directories(path_);
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void TempFolder::write(const std::filesystem::path& name, std::string_view content) const
{
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
}

std::string TempFolder::read(const std::filesystem::path& name) const
{
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string resultOf(const std::string& script, const TempFolder& folder)
{
    folder.write("index.lua", script);
    PlayerRun run(folder.path());
    const Outcome outcome = run.play(10 * framesPerSecond);
    return outcome == Outcome::Ended    ? run.value("result")
           : outcome == Outcome::Failed ? "failed: " + run.error()
                                        : "closed";
}

std::string resultOf(const std::string& script)
{
    return resultOf(script, TempFolder());
}

} // namespace player::testing
