#include "inproject.h"

#include "build/scripts.h"
#include "events/eventlines.h"
#include "events/eventstore.h"
#include "variables/variables.h"

#include <lua.hpp>

#include <memory>

namespace
{

/// A real Lua in which the scripts find what the player and the engine offer, as recorders.
class Lua
{
public:
    Lua()
        : state_(luaL_newstate(), lua_close)
    {
        luaL_openlibs(state_.get());
        run("log = {}\n"
            "function note(...) log[#log + 1] = table.concat({...}, ' ') end\n"
            "function affichertexte(text) note('text', text) end\n"
            "function runmap(map) note('map', map) end\n"
            "screen = {waitVblankStart = function(frames) note('wait', frames) end}\n"
            "hero = {x = 1, y = 1, vie = 100}\n");
    }

    void run(const std::string& script)
    {
        const bool failed = luaL_loadbuffer(state_.get(), script.data(), script.size(), "script") != 0 ||
                            lua_pcall(state_.get(), 0, 0, 0) != 0;
        EXPECT_FALSE(failed) << lua_tostring(state_.get(), -1);
        lua_settop(state_.get(), 0);
    }

    /// The value of an expression, as text.
    std::string value(const std::string& expression)
    {
        run("result = tostring(" + expression + ")");
        lua_getglobal(state_.get(), "result");
        std::size_t length = 0;
        const char* text = lua_tolstring(state_.get(), -1, &length);
        std::string result(text == nullptr ? "" : text, length);
        lua_settop(state_.get(), 0);
        return result;
    }

private:
    std::unique_ptr<lua_State, void (*)(lua_State*)> state_;
};

class GeneratedLua : public InProject
{
protected:
    Lua lua;
};

} // namespace

TEST_F(GeneratedLua, EachCellRunsItsOwnEventAndNoOther)
{
    std::filesystem::create_directory(app.at("projets/demo/ev/map02"));
    for (const std::string map : {"01", "02"}) {
        for (int row = 1; row <= 9; ++row) {
            for (int column = 1; column <= 17; ++column) {
                saveevent(eventpath(map, row, column), {"note('" + map + "', " + std::to_string(row) + ", " +
                                                        std::to_string(column) + ")"});
            }
        }
    }
    WriteEventScript(2);
    lua.run(app.read("projets/demo/ev.lua"));
    lua.run("for _, map in ipairs{'01', '02'} do for row = 1, 9 do for column = 1, 17 do\n"
            "  log = {}\n"
            "  runev(column, row, map)\n"
            "  assert(#log == 1 and log[1] == map .. ' ' .. row .. ' ' .. column)\n"
            "end end end\n"
            "log = {}\n"
            "runev(1, 1, 1) runev(1, 1, '1') runev(1, 1, '03') runev(18, 1, '01') runev(1, 10, '01')\n"
            "runev('1', 1, '01') runev(0, 0, '01')");
    EXPECT_EQ(lua.value("#log"), "0");
}

TEST_F(GeneratedLua, TheLinesOfTheCommandsDoWhatTheySay)
{
    FinishVariable(1, "5");
    FinishVariable(2, "abc \xE9");
    const auto [moveColumn, moveRow] = HeroMoveLines(17, 8);
    saveevent(eventpath("01", 3, 12),
              {DisplayTextLine("Salut \xE9"), PauseLine(-3), HpLine(HpChange::Remove, "10"),
               HpLine(HpChange::Add, "1"), moveColumn, moveRow, ConditionLine(1, Comparison::Equal, "5"),
               AssignLine(2, "7"), ConditionLine(2, Comparison::Different, "7"), ChangeMapLine("02"),
               CloseConditionLine(), CloseConditionLine(), ConditionLine(1, Comparison::Equal, "6"),
               HpLine(HpChange::Replace, "0"), CloseConditionLine()});
    WriteVariablesScript();
    WriteEventScript(1);
    lua.run(app.read("projets/demo/variables.lua"));
    EXPECT_EQ(lua.value("#var .. type(var[1]) .. var[2]"), "2stringabc \xE9");
    lua.run(app.read("projets/demo/ev.lua") + "runev(12, 3, '01')");
    EXPECT_EQ(lua.value("table.concat(log, '; ')"), "text Salut \xE9; wait -3; map 02");
    EXPECT_EQ(lua.value("table.concat({hero.vie, hero.x, hero.y, var[2]}, ' ')"), "91 17 8 7");
}
