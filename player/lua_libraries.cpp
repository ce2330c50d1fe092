#include "player/lua_call.h"
#include "player/script_memory.h"

#include <stdexcept>
#include <string>

namespace player
{

namespace
{

constexpr std::size_t largestScript = 64U << 20U;

// Compiled Lua is not checked when it is loaded, and could break out of the machine.
bool isCompiled(std::string_view source)
{
    return source.starts_with(LUA_SIGNATURE[0]);
}

constexpr const char* compiledRefusal = "compiled Lua is not run";

// Pushes the function of a script, or the error message. Failure: std::runtime_error naming the path.
int loadScript(lua_State* L, std::string_view path)
{
    const std::string source = machineOf(L).sandbox().read(path, largestScript);
    if (isCompiled(source)) {
        throw std::runtime_error(std::string(path) + ": " + compiledRefusal);
    }
    const std::string name = std::string("@").append(path);
    // Gives a status, whatever happens in it: the two strings are safe.
    const int status = luaL_loadbuffer(L, source.data(), source.size(), name.c_str());
    if (status == LUA_ERRMEM) {
        lua_pop(L, 1);
        throw std::runtime_error(std::string(path) + ": is too large: a script may take " +
                                 std::to_string(ScriptMemory::limit >> 20U) + " MB of memory");
    }
    return status;
}

int doFile(lua_State* L)
{
    const std::string_view path = checkText(L, 1);
    const int before = lua_gettop(L);
    if (loadScript(L, path) != 0) {
        return lua_error(L);
    }
    lua_call(L, 0, LUA_MULTRET);
    return lua_gettop(L) - before;
}

// One function, or nil and the message, from what a loading left on the stack.
int pushLoaded(lua_State* L, int status)
{
    if (status == 0) {
        return 1;
    }
    lua_pushnil(L);
    lua_insert(L, -2);
    return 2;
}

int loadFile(lua_State* L)
{
    const std::string_view path = checkText(L, 1);
    Message message;
    int status = 0;
    if (!succeeds(message, [&] { status = loadScript(L, path); })) {
        lua_pushstring(L, message.text());
        status = LUA_ERRFILE;
    }
    return pushLoaded(L, status);
}

int loadString(lua_State* L)
{
    const std::string_view source = checkText(L, 1);
    const char* const name = luaL_optstring(L, 2, source.data());
    if (isCompiled(source)) {
        lua_pushstring(L, compiledRefusal);
        return pushLoaded(L, LUA_ERRSYNTAX);
    }
    return pushLoaded(L, luaL_loadbuffer(L, source.data(), source.size(), name));
}

// Where load() keeps its function, the chunk's name and the piece being read.
enum LoadSlot { pieceFunction = 1, chunkName = 2, currentPiece = 3 };

const char* nextPiece(lua_State* L, void* isFirst, std::size_t* size)
{
    luaL_checkstack(L, 2, "too deep");
    lua_pushvalue(L, pieceFunction);
    lua_call(L, 0, 1);
    lua_replace(L, currentPiece);
    *size = 0;
    const char* const piece = lua_tolstring(L, currentPiece, size);
    if (piece == nullptr && !lua_isnil(L, currentPiece)) {
        luaL_error(L, "the function must return strings");
    }
    if (*size > 0 && *static_cast<bool*>(isFirst) && isCompiled({piece, *size})) {
        luaL_error(L, "%s", compiledRefusal);
    }
    *static_cast<bool*>(isFirst) = false;
    return piece;
}

int loadPieces(lua_State* L)
{
    luaL_checktype(L, pieceFunction, LUA_TFUNCTION);
    const char* const name = luaL_optstring(L, chunkName, "=(load)");
    lua_settop(L, currentPiece);
    bool isFirst = true;
    return pushLoaded(L, lua_load(L, nextPiece, &isFirst, name));
}

void openLuaLibrary(lua_State* L, const char* name, lua_CFunction open)
{
    lua_pushcfunction(L, open);
    lua_pushstring(L, name);
    lua_call(L, 1, 0);
}

void removeField(lua_State* L, const char* field)
{
    lua_pushnil(L);
    lua_setfield(L, -2, field);
}

void openBase(lua_State* L)
{
    openLuaLibrary(L, "", luaopen_base);
    const luaL_Reg replaced[] = {{"dofile", guarded<doFile>},
                                 {"loadfile", guarded<loadFile>},
                                 {"load", guarded<loadPieces>},
                                 {"loadstring", guarded<loadString>},
                                 {nullptr, nullptr}};
    lua_pushvalue(L, LUA_GLOBALSINDEX);
    setFunctions(L, replaced);
    removeField(L, "newproxy");
    lua_pop(L, 1);
}

// Lua matches by recursion, one level for each item of the pattern: a long one would use up the stack.
void checkPattern(lua_State* L)
{
    constexpr std::size_t longest = 2000;
    luaL_argcheck(L, checkText(L, 2).size() <= longest, 2, "the pattern is too long");
}

// Upvalue: the library's own function.
int withPattern(lua_State* L)
{
    checkPattern(L);
    return lua_tocfunction(L, lua_upvalueindex(1))(L);
}

int findWithPattern(lua_State* L)
{
    if (lua_toboolean(L, 4) == 0) {
        checkPattern(L);
    }
    return lua_tocfunction(L, lua_upvalueindex(1))(L);
}

void openStrings(lua_State* L)
{
    openLuaLibrary(L, LUA_STRLIBNAME, luaopen_string);
    lua_getglobal(L, LUA_STRLIBNAME);
    removeField(L, "dump");
    guardFunction(L, "find", findWithPattern);
    for (const char* name : {"match", "gmatch", "gfind", "gsub"}) {
        guardFunction(L, name, withPattern);
    }
    lua_pop(L, 1);
}

// Only what tells the time.
void openClock(lua_State* L)
{
    openLuaLibrary(L, LUA_OSLIBNAME, luaopen_os);
    lua_getglobal(L, LUA_OSLIBNAME);
    lua_newtable(L);
    for (const char* name : {"clock", "date", "difftime", "time"}) {
        lua_getfield(L, -2, name);
        lua_setfield(L, -2, name);
    }
    lua_setglobal(L, LUA_OSLIBNAME);
    lua_pop(L, 1);
    lua_getfield(L, LUA_REGISTRYINDEX, "_LOADED");
    removeField(L, LUA_OSLIBNAME);
    lua_pop(L, 1);
}

} // namespace

int runScriptFile(lua_State* L)
{
    return guarded<doFile>(L);
}

void openLibraries(lua_State* L)
{
    openBase(L);
    openCoroutines(L);
    openLuaLibrary(L, LUA_TABLIBNAME, luaopen_table);
    openLuaLibrary(L, LUA_MATHLIBNAME, luaopen_math);
    openStrings(L);
    openClock(L);
    openSystem(L);
    openFiles(L);
    openColors(L);
    openImages(L);
    openScreen(L);
    openControls(L);
    openTimers(L);
}

} // namespace player
