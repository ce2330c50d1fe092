#include "player/lua_colors.h"

#include "player/lua_call.h"

#include <algorithm>
#include <utility>

namespace player
{

namespace
{

constexpr ObjectKind colorKind{"Color"};

Pixel component(double value)
{
    return static_cast<Pixel>(std::clamp(coordinate(value), 0, 255));
}

int newColor(lua_State* L)
{
    const Pixel red = component(luaL_checknumber(L, 1));
    const Pixel green = component(luaL_checknumber(L, 2));
    const Pixel blue = component(luaL_checknumber(L, 3));
    const Pixel alpha = component(luaL_optnumber(L, 4, 255));
    pushColor(L, makePixel(red, green, blue, alpha));
    return 1;
}

int equalColors(lua_State* L)
{
    lua_pushboolean(L, static_cast<int>(check<Pixel>(L, 1, colorKind) == check<Pixel>(L, 2, colorKind)));
    return 1;
}

int colorParts(lua_State* L)
{
    const Pixel color = check<Pixel>(L, 1, colorKind);
    lua_newtable(L);
    constexpr std::pair<const char*, unsigned> parts[] = {{"r", 16}, {"g", 8}, {"b", 0}, {"a", 24}};
    for (const auto& [name, shift] : parts) {
        lua_pushnumber(L, color >> shift & 255U);
        lua_setfield(L, -2, name);
    }
    return 1;
}

} // namespace

Pixel colorArgument(lua_State* L, int index, Pixel otherwise)
{
    return lua_isnoneornil(L, index) ? otherwise : check<Pixel>(L, index, colorKind);
}

void pushColor(lua_State* L, Pixel color)
{
    *static_cast<Pixel*>(pushObject(L, colorKind, sizeof(Pixel))) = color;
}

void openColors(lua_State* L)
{
    const luaL_Reg methods[] = {{"colors", guarded<colorParts>}, {nullptr, nullptr}};
    lua_newtable(L);
    setFunctions(L, methods);
    defineKind(L, colorKind, nullptr, guarded<equalColors>);
    const luaL_Reg functions[] = {{"new", guarded<newColor>}, {nullptr, nullptr}};
    setLibrary(L, "Color", functions);
}

} // namespace player
