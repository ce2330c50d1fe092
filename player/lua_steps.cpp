#include "player/lua_call.h"
#include "player/script_memory.h"

namespace player
{

namespace
{

constexpr int stepsBetweenChecks = 1000;

// A new coroutine has its own count of steps. It is looked at early once, and its making counts as many, so
// that a crowd of short ones cannot pass unseen.
constexpr int firstStepsOfCoroutine = 100;

ScriptMemory& memoryOf(lua_State* L)
{
    void* memory = nullptr;
    lua_getallocf(L, &memory);
    return *static_cast<ScriptMemory*>(memory);
}

// Keeps the window alive, however long a script takes for a frame.
int pollMachine(lua_State* L)
{
    machineOf(L).poll();
    return 0;
}

void countSteps(lua_State* L, int steps, int levelOfScript)
{
    if (!machineOf(L).countSteps(steps)) {
        luaL_where(L, levelOfScript);
        lua_pushliteral(L, "no frame for 20 million steps");
        lua_concat(L, 2);
        lua_error(L);
    }
}

void check(lua_State* L, lua_Debug* /*where*/)
{
    const int steps = lua_gethookcount(L);
    if (steps != stepsBetweenChecks) {
        lua_sethook(L, check, LUA_MASKCOUNT, stepsBetweenChecks);
    }
    ScriptMemory& memory = memoryOf(L);
    if (memory.needsCollection()) {
        lua_gc(L, LUA_GCCOLLECT, 0);
        memory.noteCollection();
    }
    guarded<pollMachine>(L);
    countSteps(L, steps, 0);
}

void watchCoroutine(lua_State* L, lua_State* coroutine)
{
    if (lua_gethook(coroutine) == check) {
        lua_sethook(coroutine, check, LUA_MASKCOUNT, firstStepsOfCoroutine);
        countSteps(L, firstStepsOfCoroutine, 1);
    }
}

// Upvalue: the library's own function, as of the next one.
int createCoroutine(lua_State* L)
{
    lua_tocfunction(L, lua_upvalueindex(1))(L);
    watchCoroutine(L, lua_tothread(L, -1));
    return 1;
}

int wrapCoroutine(lua_State* L)
{
    lua_tocfunction(L, lua_upvalueindex(1))(L);
    lua_getupvalue(L, -1, 1);
    watchCoroutine(L, lua_tothread(L, -1));
    lua_pop(L, 1);
    return 1;
}

// Keeps, for the handler, the error and the lines that were running, innermost first, as in messages.
int noteLines(lua_State* L)
{
    constexpr int levels = 10;
    lua_createtable(L, 2, 0);
    lua_pushvalue(L, 1);
    lua_rawseti(L, -2, 1);
    for (int level = 1; level <= levels; ++level) {
        luaL_where(L, level);
    }
    lua_concat(L, levels);
    lua_rawseti(L, -2, 2);
    return 1;
}

// Calls the handler below the note or message on top of the stack, and leaves its answer there.
void callHandler(lua_State* L)
{
    int arguments = 1;
    if (lua_istable(L, -1)) {
        lua_rawgeti(L, -1, 1);
        lua_rawgeti(L, -2, 2);
        lua_remove(L, -3);
        arguments = 2;
    }
    if (lua_pcall(L, arguments, 1, 0) != 0) {
        lua_pop(L, 1);
        lua_pushliteral(L, "error in error handling");
    }
}

// Lua runs an error's handler where the error is raised. Raised by the look at a script's steps, that is
// where no step is looked at, and a loop there would never end; so the handler is called after the way back,
// and gets the lines that were running as a second value.
int callWithHandler(lua_State* L)
{
    luaL_checkany(L, 2);
    lua_settop(L, 2);
    lua_pushcfunction(L, noteLines);
    lua_insert(L, 1);
    lua_insert(L, 2);
    const int status = lua_pcall(L, 0, LUA_MULTRET, 1);
    lua_pushboolean(L, static_cast<int>(status == 0));
    if (status == 0) {
        lua_replace(L, 2);
        return lua_gettop(L) - 1;
    }
    lua_insert(L, 2);
    if (status == LUA_ERRMEM) {
        lua_remove(L, -2);
    } else {
        callHandler(L);
    }
    return 2;
}

} // namespace

void watchSteps(lua_State* L)
{
    lua_sethook(L, check, LUA_MASKCOUNT, stepsBetweenChecks);
}

void openCoroutines(lua_State* L)
{
    lua_getglobal(L, LUA_COLIBNAME);
    guardFunction(L, "create", createCoroutine);
    guardFunction(L, "wrap", wrapCoroutine);
    lua_pop(L, 1);
    lua_pushcfunction(L, callWithHandler);
    lua_setglobal(L, "xpcall");
}

} // namespace player
