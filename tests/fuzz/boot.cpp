// Input: the name of a project.
#include "target.h"
#include "tests/core/appdir.h"

#include "build/scripts.h"

#include <lua.hpp>

namespace
{

/// The folder that the script moves into before it hands over; empty when it does not get there.
std::string folderEntered(const std::string& script)
{
    lua_State* const L = luaL_newstate();
    const char* const world = "System = {currentDirectory = function(name) entered = name end} "
                              "dofile = function(name) result = name == 'index.lua' and entered end";
    luaL_dostring(L, world);
    luaL_loadbuffer(L, script.data(), script.size(), "index.lua");
    lua_pcall(L, 0, 0, 0);
    lua_getglobal(L, "result");
    std::size_t length = 0;
    const char* const entered = lua_tolstring(L, -1, &length);
    const std::string result(entered == nullptr ? "" : entered, length);
    lua_close(L);
    return result;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TemporaryAppDir app;
    const std::string name(TextOf(data, size));
    const std::string script = BootScript(name);
    const bool plain = name.find_first_of("\"\\\r\n") == std::string::npos;
    if (plain && !ProjectFolder(name).empty()) {
        Require(folderEntered(script) == "projets/" + name, "the boot script enters the project");
    }
    return 0;
}
