#include "player/lua_call.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace player
{

namespace
{

constexpr char machineKey = 0;

void* addressOf(const void* key)
{
    return const_cast<void*>(key);
}

void closeEveryStep(lua_State* L, lua_Debug* /*where*/)
{
    raiseClosed(L);
}

void pushMetatable(lua_State* L, const ObjectKind& kind)
{
    lua_pushlightuserdata(L, addressOf(&kind));
    lua_rawget(L, LUA_REGISTRYINDEX);
}

} // namespace

void Message::set(const char* text) noexcept
{
    const std::size_t length = std::min(std::strlen(text), sizeof text_ - 1);
    std::memcpy(text_, text, length);
    text_[length] = '\0';
}

Machine& machineOf(lua_State* L)
{
    lua_pushlightuserdata(L, addressOf(&machineKey));
    lua_rawget(L, LUA_REGISTRYINDEX);
    auto* const machine = static_cast<Machine*>(lua_touserdata(L, -1));
    lua_pop(L, 1);
    return *machine;
}

void tieMachine(lua_State* L, Machine& machine)
{
    lua_pushlightuserdata(L, addressOf(&machineKey));
    lua_pushlightuserdata(L, &machine);
    lua_rawset(L, LUA_REGISTRYINDEX);
}

int raiseError(lua_State* L, const Message& message)
{
    return luaL_error(L, "%s", message.text());
}

int raiseClosed(lua_State* L)
{
    lua_sethook(L, closeEveryStep, LUA_MASKCOUNT, 1);
    return luaL_error(L, "the game was closed");
}

void setFunctions(lua_State* L, const luaL_Reg* functions)
{
    for (; functions->name != nullptr; ++functions) {
        lua_pushcfunction(L, functions->func);
        lua_setfield(L, -2, functions->name);
    }
}

void setLibrary(lua_State* L, const char* name, const luaL_Reg* functions)
{
    lua_newtable(L);
    setFunctions(L, functions);
    lua_setglobal(L, name);
}

void guardFunction(lua_State* L, const char* name, lua_CFunction guard)
{
    lua_getfield(L, -1, name);
    lua_pushcclosure(L, guard, 1);
    lua_setfield(L, -2, name);
}

void defineKind(lua_State* L, const ObjectKind& kind, lua_CFunction finalizer, lua_CFunction equals)
{
    lua_newtable(L);
    lua_insert(L, -2);
    lua_setfield(L, -2, "__index");
    lua_pushstring(L, kind.name);
    lua_setfield(L, -2, "__metatable");
    if (finalizer != nullptr) {
        lua_pushcfunction(L, finalizer);
        lua_setfield(L, -2, "__gc");
    }
    if (equals != nullptr) {
        lua_pushcfunction(L, equals);
        lua_setfield(L, -2, "__eq");
    }
    lua_pushlightuserdata(L, addressOf(&kind));
    lua_insert(L, -2);
    lua_rawset(L, LUA_REGISTRYINDEX);
}

void* pushObject(lua_State* L, const ObjectKind& kind, std::size_t size)
{
    void* const object = lua_newuserdata(L, size);
    std::memset(object, 0, size);
    pushMetatable(L, kind);
    lua_setmetatable(L, -2);
    return object;
}

void* objectAt(lua_State* L, int index, const ObjectKind& kind)
{
    void* const object = lua_touserdata(L, index);
    if (object == nullptr || lua_getmetatable(L, index) == 0) {
        return nullptr;
    }
    pushMetatable(L, kind);
    const bool same = lua_rawequal(L, -1, -2) != 0;
    lua_pop(L, 2);
    return same ? object : nullptr;
}

void* checkObject(lua_State* L, int index, const ObjectKind& kind)
{
    void* const object = objectAt(L, index, kind);
    if (object == nullptr) {
        luaL_typerror(L, index, kind.name);
    }
    return object;
}

std::string_view checkText(lua_State* L, int index)
{
    std::size_t length = 0;
    const char* const text = luaL_checklstring(L, index, &length);
    return {text, length};
}

} // namespace player
