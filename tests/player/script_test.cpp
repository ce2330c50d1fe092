#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace player::testing
{
namespace
{

struct Case {
    std::string script;
    std::string result;
};

TEST(Script, TellsWhatWentWrongAndWhere)
{
    const Case cases[] = {
        {"local x = = 1", "index.lua:1: unexpected symbol near '='"},
        {"\n\nlocal t t.x = 1", "index.lua:3: attempt to index local 't' (a nil value)"},
        {"error('at 10:30 sharp', 0)", "index.lua:1: at 10:30 sharp"},
        {"\nerror({})", "index.lua:2: the error is not a text but a value of type table"},
        {"\nlocal s = 'x' while true do s = s .. s end",
         "index.lua:2: not enough memory: a script may take 64 MB"},
        {"\nImage.load('images/none.png')", "index.lua:2: images/none.png: No such file or directory"},
        {"\nImage.load('index.lua')", "index.lua:2: index.lua: is not a whole PNG or JPEG picture"},
        {"\nscreen:blit(1, 2, nil)", "index.lua:2: bad argument #3 to 'blit' (Image expected, got nil)"},
        {"\ndofile('gone.lua')", "index.lua:2: gone.lua: No such file or directory"},
    };
    for (const auto& [script, error] : cases) {
        // Lua adds to its own messages about the stack.
        EXPECT_EQ(resultOf(script).substr(0, 8 + error.size()), "failed: " + error);
    }
}

TEST(Script, TracesAnErrorThroughItsFiles)
{
    const TempFolder folder;
    folder.write("index.lua", "dofile('walk.lua')\nfunction go()\n  step() end\ngo()");
    folder.write("walk.lua", "function step()\n\n  local n = nil + 1 end");
    PlayerRun run(folder.path());
    EXPECT_EQ(run.play(10), Outcome::Failed);
    const std::vector<std::string> trace = {"walk.lua:3: in function 'step'", "index.lua:3: in function 'go'",
                                            "index.lua:4: in the script itself"};
    EXPECT_EQ(run.report().trace, trace);
    EXPECT_EQ(run.error().substr(0, 12), "walk.lua:3: ");
}

TEST(Script, IsClosedWhateverItDoes)
{
    const char* const scripts[] = {
        "screen.waitVblankStart(1e300)",
        "while true do while not Controls.read():cross() do end end",
        "while true do screen.flip() end",
        "while true do coroutine.wrap(function() while true do pcall(screen.waitVblankStart) end end)() end",
        "while true do xpcall(function() while true do end end, function() return 1 end) end",
        "local t = setmetatable({}, {__index = function() while true do end end}) local x = t.x",
    };
    const TempFolder folder;
    for (const char* script : scripts) {
        folder.write("index.lua", script);
        PlayerRun run(folder.path());
        EXPECT_EQ(run.play(3), Outcome::Closed) << script << ": " << run.error();
        EXPECT_LE(run.frame(), 4) << script;
    }
}

TEST(Script, IsToldWhenItShowsNoFrame)
{
    const std::string told = "index.lua:1: no frame for 20 million steps";
    const std::string steps = "for i = 1, 5e6 do local x = i + 1 end ";
    const Case cases[] = {
        // A tree of coroutines, each too short-lived to be looked at by itself.
        {"local function grow(n) for i = 1, n do local co = coroutine.create(grow) "
         "local ok, why = coroutine.resume(co, n - 1) if not ok then error(why, 0) end end end grow(30)",
         told},
        // Counted anew after each error, and from each frame on.
        {"pcall(function() while true do end end) " + steps, "nil"},
        {"for n = 1, 3 do " + steps + "screen.flip() end", "nil"},
        {"for n = 1, 3 do " + steps + "screen.waitVblankStart() end", "nil"},
        {"for n = 1, 3 do " + steps + "screen.waitVblankStart(0) end", told},
    };
    for (const auto& [script, result] : cases) {
        EXPECT_EQ(resultOf("result = select(2, pcall(function() " + script + " end))"), result) << script;
    }
}

TEST(Script, LoadsSourceInEveryWayAsFarAsItsMemoryGoes)
{
    const TempFolder folder;
    folder.write("long.lua", "return 'read' --" + std::string(60U << 20U, 'x'));
    folder.write("longer.lua", std::string((64U << 20U) + 1, ' '));
    std::string dense;
    for (int i = 0; i < 2'000'000; ++i) {
        dense += "x=x+y*z\n";
    }
    folder.write("dense.lua", dense);
    const Case cases[] = {
        {"dofile('long.lua')", "read"},
        {"select(2, loadfile('longer.lua'))", "longer.lua: is too large"},
        {"select(2, pcall(dofile, 'dense.lua'))",
         "dense.lua: is too large: a script may take 64 MB of memory"},
        {"select(2, loadfile('gone.lua'))", "gone.lua: No such file or directory"},
        {"select(2, loadstring('=', '@mine'))", "mine:1: unexpected symbol near '='"},
        {"load((function(t) return function() return table.remove(t, 1) end end){'return ', '4', '2'})()",
         "42"},
        {"select(2, load(function() return {} end))", "index.lua:1: the function must return strings"},
        // 55 MB are kept while as much as the limit goes through.
        {"{} for i = 1, 55 do result[i] = ('x'):rep(1000000) .. i end "
         "for i = 1, 1000 do local s = ('y'):rep(64000) .. i end result = #result",
         "55"},
    };
    for (const auto& [expression, result] : cases) {
        EXPECT_EQ(resultOf("result = " + expression, folder), result);
    }
}

TEST(Script, CannotUseUpTheStackByAPattern)
{
    for (const std::string call : {"string.find(s, p)", "string.match(s, p)", "string.gmatch(s, p)()",
                                   "string.gsub(s, p, '', 5)", "s:find(p, 1, false)"}) {
        const std::string result = resultOf("local s, p = ('a'):rep(1000000), ('a?'):rep(500000) "
                                            "result = select(2, pcall(function() return " +
                                            call + " end))");
        EXPECT_NE(result.find("the pattern is too long"), std::string::npos) << call;
    }
    EXPECT_EQ(resultOf("local s = ('a'):rep(5000) result = s:find(s, 1, true)"), "1");
}

} // namespace
} // namespace player::testing
