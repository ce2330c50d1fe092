#include "tests/player/harness.h"

#include "player/frame_clock.h"

#include <algorithm>
#include <chrono>

namespace player::testing
{

Frame FakeHost::frame() const
{
    return frameAt(now_);
}

Buttons FakeHost::takeButtons()
{
    Buttons taken = button::none;
    Buttons held = button::none;
    for (auto step = steps_.begin(); step != steps_.end() && step->first <= frame(); ++step) {
        held = step->second;
        taken |= step->first > lastRead_ ? held : button::none;
    }
    lastRead_ = frame();
    return taken | held;
}

Instant FakeHost::now()
{
    constexpr auto look = std::chrono::microseconds(20);
    sleepUntil(now_ + look);
    return now_;
}

void FakeHost::sleepUntil(Instant when)
{
    now_ = std::max(now_, when);
    while (!acts_.empty() && acts_.begin()->first <= frame()) {
        acts_.extract(acts_.begin()).mapped()();
    }
}

PlayerRun::PlayerRun(const std::filesystem::path& folder)
    : machine_(host_, folder)
    , script_(machine_)
{
}

void PlayerRun::tap(Frame frame, Buttons buttons)
{
    hold(frame, buttons);
    hold(frame + 2, button::none);
}

const std::string& PlayerRun::watch(Frame frame, const std::string& expression)
{
    std::string& kept = values_.emplace_back("never");
    host_.at(frame, [this, &kept, expression] { kept = value(expression); });
    return kept;
}

Outcome PlayerRun::play(Frame end)
{
    host_.closeAt(end);
    return script_.run("index.lua");
}

std::string PlayerRun::value(const std::string& expression)
{
    lua_State* const L = script_.state();
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

std::string resultOf(const std::string& script, const TempFolder& folder)
{
    folder.write("index.lua", script);
    PlayerRun run(folder.path());
    const Outcome outcome = run.play(10 * framesPerSecond);
    return outcome == Outcome::Ended    ? run.value("result")
           : outcome == Outcome::Failed ? "failed: " + run.error()
                                        : "closed";
}

} // namespace player::testing
