#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <string>

namespace player::testing
{
namespace
{

// What a script gives as `result`; the file "text" holds three lines, the last without an end.
std::string resultOf(const std::string& script, const TempFolder& folder)
{
    folder.write("text", "one\r\n\n12.5 end");
    folder.write("index.lua", script);
    PlayerRun game(folder.path());
    EXPECT_EQ(game.play(600), Outcome::Ended) << game.error();
    return game.value("result");
}

std::string resultOf(const std::string& script)
{
    return resultOf(script, TempFolder());
}

TEST(Files, AreReadInEveryFormat)
{
    const std::pair<const char*, const char*> cases[] = {
        {"f:read()", "one\r"},
        {"f:read('*l', '*l', '*n', '*l', '*l')", "one\r||12.5| end|nil"},
        {"f:read('*a', '*a', '*l')", "one\r\n\n12.5 end||nil"},
        {"f:read('*n', '*l')", "nil"},
        {"f:read(3, 0, 100, 0, 1)", "one||\r\n\n12.5 end|nil"},
        {"f:seek('end', -3), f:read('*a')", "11|end"},
        {"f:seek('set', 6), f:read('*n'), f:seek(), f:seek('set', -1)", "6|12.5|10|nil|Invalid argument|22"},
    };
    for (const auto& [call, expected] : cases) {
        const std::string got =
            resultOf("local function join(...) local t = {} for i = 1, select('#', ...) do "
                     "t[i] = tostring((select(i, ...))) end return table.concat(t, '|') end "
                     "local f = io.open('text') result = join(" +
                     std::string(call) + ")");
        EXPECT_EQ(got, expected) << call;
    }
}

TEST(Files, AreReadByLines)
{
    EXPECT_EQ(resultOf("result = '' for l in io.lines('text') do result = result .. '[' .. l .. ']' end"),
              "[one\r][][12.5 end]");
    EXPECT_EQ(
        resultOf(
            "local f = io.open('text') result = 0 for l in f:lines() do result = result + 1 end "
            "result = result .. io.type(f) f:close() result = result .. io.type(f) .. tostring(io.type(1))"),
        "3fileclosed filenil");
    EXPECT_EQ(resultOf("result = select(2, pcall(io.lines, 'none'))"), "none: No such file or directory");
}

TEST(Files, AreWrittenInEveryMode)
{
    const TempFolder folder;
    EXPECT_EQ(
        resultOf("local f = io.open('save', 'w') f:write('a', 1, '\\n') f:close() "
                 "f = io.open('save', 'ab') f:write('b') f:flush() f:close() "
                 "f = io.open('save', 'r+') f:write('X') f:seek('set') result = f:read('*a') io.close(f) "
                 "f = io.open('empty', 'w+b') f:write('gone') f:close() io.open('empty', 'w'):close()",
                 folder),
        "X1\nb");
    EXPECT_EQ(folder.read("save"), "X1\nb");
    EXPECT_EQ(folder.read("empty"), "");
}

TEST(Files, ThatCannotBeOpenedAreNilWithAReason)
{
    const std::pair<const char*, const char*> cases[] = {
        {"'none'", "none: No such file or directory"},
        {"'/etc/hostname'", "/etc/hostname: lies outside the project folder"},
        {"'../x', 'w'", "../x: lies outside the project folder"},
        {"'.', 'w'", ".: Is a directory"},
        {"''", ": is not a file name"},
    };
    for (const auto& [arguments, reason] : cases) {
        EXPECT_EQ(resultOf("local f, why = io.open(" + std::string(arguments) +
                           ") result = tostring(f) .. ' ' .. why"),
                  "nil " + std::string(reason));
    }
}

TEST(Files, RefuseWhatMakesNoSense)
{
    const std::pair<const char*, const char*> cases[] = {
        {"io.open('text', 'x')", "not a mode of opening files"},
        {"io.open('text'):read('*z')", "not a format"},
        {"io.open('text'):read('all')", "not a format"},
        {"io.open('text'):seek('set', 1e300)", "too far"},
        {"local f = io.open('text') f:close() f:read()", "the file is closed"},
        {"local f = io.open('text') local l = f:lines() f:close() l()", "the file is closed"},
        {"io.close(screen)", "File expected, got userdata"},
        {"io.open('text').read({})", "File expected, got table"},
    };
    for (const auto& [call, reason] : cases) {
        const std::string message =
            resultOf("result = select(2, pcall(function() " + std::string(call) + " end))");
        EXPECT_NE(message.find(reason), std::string::npos) << call << ": " << message;
    }
}

TEST(Files, LargerThanTheMemoryAreRefusedOnReading)
{
    const TempFolder folder;
    folder.write("large", "x");
    std::filesystem::resize_file(folder.path() / "large", 1U << 30U);
    EXPECT_EQ(resultOf("result = pcall(function() return io.open('large'):read('*a') end)", folder), "false");
}

TEST(Files, LeftOpenAreClosedWithTheGame)
{
    const TempFolder folder;
    resultOf("f = io.open('save', 'w') f:write('kept')", folder);
    EXPECT_EQ(folder.read("save"), "kept");
}

} // namespace
} // namespace player::testing
