#include "player/lua_call.h"

namespace player
{

namespace
{

constexpr ObjectKind timerKind{"Timer"};

// All zero is a timer that stands still at zero.
struct StopWatch {
    bool running;
    Instant::rep startedAt;
    Instant::rep before;
};

Instant::rep now(lua_State* L)
{
    return machineOf(L).now().count();
}

Instant::rep elapsed(lua_State* L, const StopWatch& watch)
{
    return watch.before + (watch.running ? now(L) - watch.startedAt : 0);
}

int pushMilliseconds(lua_State* L, Instant::rep nanoseconds)
{
    constexpr Instant::rep millisecond = 1'000'000;
    const Instant::rep whole = nanoseconds / millisecond;
    lua_pushnumber(L, static_cast<lua_Number>(whole));
    return 1;
}

int newTimer(lua_State* L)
{
    auto& watch = *static_cast<StopWatch*>(pushObject(L, timerKind, sizeof(StopWatch)));
    watch.running = true;
    watch.startedAt = now(L);
    return 1;
}

int timerTime(lua_State* L)
{
    return pushMilliseconds(L, elapsed(L, check<StopWatch>(L, 1, timerKind)));
}

int startTimer(lua_State* L)
{
    auto& watch = check<StopWatch>(L, 1, timerKind);
    watch.before = elapsed(L, watch);
    watch.startedAt = now(L);
    watch.running = true;
    return pushMilliseconds(L, watch.before);
}

int stopTimer(lua_State* L)
{
    auto& watch = check<StopWatch>(L, 1, timerKind);
    watch.before = elapsed(L, watch);
    watch.running = false;
    return pushMilliseconds(L, watch.before);
}

// Back to zero; a running timer goes on from there.
int resetTimer(lua_State* L)
{
    auto& watch = check<StopWatch>(L, 1, timerKind);
    const Instant::rep before = elapsed(L, watch);
    watch.before = 0;
    watch.startedAt = now(L);
    return pushMilliseconds(L, before);
}

} // namespace

void openTimers(lua_State* L)
{
    const luaL_Reg methods[] = {{"time", guarded<timerTime>},
                                {"start", guarded<startTimer>},
                                {"stop", guarded<stopTimer>},
                                {"reset", guarded<resetTimer>},
                                {nullptr, nullptr}};
    lua_newtable(L);
    setFunctions(L, methods);
    defineKind(L, timerKind, nullptr, nullptr);
    const luaL_Reg functions[] = {{"new", guarded<newTimer>}, {nullptr, nullptr}};
    setLibrary(L, "Timer", functions);
}

} // namespace player
