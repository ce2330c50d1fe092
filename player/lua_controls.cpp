#include "player/lua_call.h"

namespace player
{

namespace
{

constexpr ObjectKind padKind{"Controls"};

int readPad(lua_State* L)
{
    const Buttons buttons = machineOf(L).readButtons();
    *static_cast<Buttons*>(pushObject(L, padKind, sizeof(Buttons))) = buttons;
    return 1;
}

int equalPads(lua_State* L)
{
    lua_pushboolean(L, static_cast<int>(check<Buttons>(L, 1, padKind) == check<Buttons>(L, 2, padKind)));
    return 1;
}

template <Buttons asked> int isHeld(lua_State* L)
{
    lua_pushboolean(L, static_cast<int>((check<Buttons>(L, 1, padKind) & asked) != 0));
    return 1;
}

constexpr luaL_Reg padMethods[] = {{"up", guarded<isHeld<button::up>>},
                                   {"down", guarded<isHeld<button::down>>},
                                   {"left", guarded<isHeld<button::left>>},
                                   {"right", guarded<isHeld<button::right>>},
                                   {"cross", guarded<isHeld<button::cross>>},
                                   {"circle", guarded<isHeld<button::circle>>},
                                   {"square", guarded<isHeld<button::square>>},
                                   {"triangle", guarded<isHeld<button::triangle>>},
                                   {"start", guarded<isHeld<button::start>>},
                                   {"select", guarded<isHeld<button::select>>},
                                   {"l", guarded<isHeld<button::l>>},
                                   {"r", guarded<isHeld<button::r>>},
                                   {nullptr, nullptr}};

} // namespace

void openControls(lua_State* L)
{
    lua_newtable(L);
    setFunctions(L, padMethods);
    defineKind(L, padKind, nullptr, guarded<equalPads>);
    const luaL_Reg functions[] = {{"read", guarded<readPad>}, {nullptr, nullptr}};
    setLibrary(L, "Controls", functions);
}

} // namespace player
