#include "player/lua_screen.h"

namespace player
{

namespace
{

int flip(lua_State* L)
{
    machineOf(L).flip();
    return 0;
}

// Written with a dot or a colon: with a colon the screen itself comes first.
int waitVblankStart(lua_State* L)
{
    const int index = objectAt(L, 1, screenKind) != nullptr ? 2 : 1;
    machineOf(L).waitFrames(luaL_optnumber(L, index, 1));
    return 0;
}

} // namespace

void openScreen(lua_State* L)
{
    const luaL_Reg ownMethods[] = {
        {"flip", guarded<flip>}, {"waitVblankStart", guarded<waitVblankStart>}, {nullptr, nullptr}};
    lua_newtable(L);
    setFunctions(L, imageMethods);
    setFunctions(L, ownMethods);
    defineKind(L, screenKind, nullptr, nullptr);
    pushObject(L, screenKind, 1);
    lua_setglobal(L, "screen");
}

} // namespace player
