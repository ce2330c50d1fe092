#include "player/lua_call.h"

#include <string>

namespace player
{

namespace
{

// Long enough for any path of a file system.
struct PathText {
    char text[8192];
    std::size_t length;
};

int currentDirectory(lua_State* L)
{
    Machine& machine = machineOf(L);
    if (!lua_isnoneornil(L, 1)) {
        machine.sandbox().changeDirectory(checkText(L, 1));
    }
    PathText path{};
    {
        const std::string name = machine.sandbox().currentDirectory();
        path.length = name.copy(path.text, sizeof path.text);
    }
    lua_pushlstring(L, path.text, path.length);
    return 1;
}

} // namespace

void openSystem(lua_State* L)
{
    const luaL_Reg functions[] = {{"currentDirectory", guarded<currentDirectory>}, {nullptr, nullptr}};
    setLibrary(L, "System", functions);
}

} // namespace player
