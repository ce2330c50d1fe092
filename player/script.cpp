#include "player/script.h"

#include "player/lua_call.h"

#include <new>

namespace player
{

Script::Script(Machine& machine)
    : machine_(machine)
    , state_(lua_newstate(ScriptMemory::allocate, &memory_))
{
    if (!state_) {
        throw std::bad_alloc();
    }
    memory_.onRefusal(noteRefusal, this);
    // Eager, since the limit is hard: Lua does not collect when a request is refused.
    lua_gc(state(), LUA_GCSETPAUSE, 150);
    lua_gc(state(), LUA_GCSETSTEPMUL, 400);
    watchSteps(state());
}

Outcome Script::run(std::string_view path)
{
    path_ = path;
    const int started = lua_cpcall(state(), runProtected, this);
    const int status = started != 0 ? started : status_;
    if (machine_.isClosing()) {
        return Outcome::Closed;
    }
    if (status == 0) {
        return Outcome::Ended;
    }
    completeError(status);
    return Outcome::Failed;
}

int Script::runProtected(lua_State* L)
{
    auto& script = *static_cast<Script*>(lua_touserdata(L, 1));
    tieMachine(L, script.machine_);
    openLibraries(L);
    lua_pushlightuserdata(L, &script);
    lua_pushcclosure(L, recordError, 1);
    lua_pushcfunction(L, runScriptFile);
    lua_pushlstring(L, script.path_.data(), script.path_.size());
    script.status_ = lua_pcall(L, 1, 0, -3);
    return 0;
}

int Script::recordError(lua_State* L)
{
    auto& script = *static_cast<Script*>(lua_touserdata(L, lua_upvalueindex(1)));
    Message failure;
    succeeds(failure, [&] { script.error_ = describeError(L); });
    return 1;
}

void Script::noteRefusal(void* script)
{
    auto& self = *static_cast<Script*>(script);
    lua_Debug& place = self.memoryWasOutAt_;
    place = {};
    for (int level = 0; lua_getstack(self.state(), level, &place) != 0; ++level) {
        lua_getinfo(self.state(), "Sl", &place);
        if (place.currentline > 0) {
            return;
        }
    }
}

// Lua calls no handler for these two.
void Script::completeError(int status)
{
    if (status == LUA_ERRMEM) {
        error_ = {};
        error_.message =
            "not enough memory: a script may take " + std::to_string(ScriptMemory::limit >> 20U) + " MB";
        if (memoryWasOutAt_.currentline > 0) {
            error_.file = memoryWasOutAt_.short_src;
            error_.line = memoryWasOutAt_.currentline;
        }
    } else if (error_.message.empty()) {
        error_.message = "error in error handling";
    }
}

} // namespace player
