// Input: the name of a project.
#include "target.h"
#include "tests/core/appdir.h"

#include "build/scripts.h"

#include <algorithm>
#include <lua.hpp>
#include <memory>

namespace
{

struct CloseState {
    void operator()(lua_State* L) const { lua_close(L); }
};

/// The folder that the script moves into before it hands over; empty when it does not get there.
std::string folderEntered(const std::string& script)
{
    const std::unique_ptr<lua_State, CloseState> state(luaL_newstate());
    lua_State* const L = state.get();
    const std::string world = "System = {currentDirectory = function(name) entered = name end} "
                              "dofile = function(name) result = name == 'index.lua' and entered or nil end";
    if (luaL_loadstring(L, world.c_str()) != 0 || lua_pcall(L, 0, 0, 0) != 0 ||
        luaL_loadbuffer(L, script.data(), script.size(), "index.lua") != 0 || lua_pcall(L, 0, 0, 0) != 0) {
        return {};
    }
    lua_getglobal(L, "result");
    std::size_t length = 0;
    const char* const entered = lua_tolstring(L, -1, &length);
    return entered == nullptr ? std::string() : std::string(entered, length);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TemporaryAppDir app;
    const std::string name(TextOf(data, size));
    const std::string script = BootScript(name);
    const bool plain = name.find_first_of("\"\\\r\n") == std::string::npos;
    if (plain && !ProjectFolder(name).empty()) {
        Require(std::count(script.begin(), script.end(), '\n') == 1, "the boot script has two lines");
        Require(folderEntered(script) == "projets/" + name, "the boot script enters the project");
    }
    return 0;
}
