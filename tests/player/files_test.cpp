#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace player::testing
{
namespace
{

using Cases = std::vector<std::pair<std::string, std::string>>;

// The file "text" holds three lines, the last without an end.
class Files : public ::testing::Test
{
protected:
    Files()
    {
        folder_.write("text", "one\r\n\n12.5 end");
        folder_.write("large", "x");
        std::filesystem::resize_file(folder_.path() / "large", 1U << 30U);
    }

    TempFolder folder_;
};

TEST_F(Files, AreReadInEveryFormat)
{
    const Cases cases = {
        {"f:read()", "one\r"},
        {"f:read('*l', '*l', '*n', '*l', '*l')", "one\r||12.5| end|nil"},
        {"f:read('*a', '*a', '*l')", "one\r\n\n12.5 end||nil"},
        {"f:read('*n', '*l')", "nil"},
        {"f:read(3, 0, 100, 0, 1)", "one||\r\n\n12.5 end|nil"},
        {"f:seek('end', -3), f:read('*a')", "11|end"},
        {"f:seek('set', 6), f:read('*n'), f:seek(), f:seek('set', -1)", "6|12.5|10|nil|Invalid argument|22"},
        {"pcall(function() return io.open('large'):read('*a') end)", "false|not enough memory"},
    };
    for (const auto& [call, expected] : cases) {
        EXPECT_EQ(resultOf("local function join(...) local t = {} for i = 1, select('#', ...) do "
                           "t[i] = tostring((select(i, ...))) end return table.concat(t, '|') end "
                           "local f = io.open('text') result = join(" +
                               call + ")",
                           folder_),
                  expected)
            << call;
    }
}

TEST_F(Files, AreReadByLines)
{
    EXPECT_EQ(
        resultOf(
            "result = '' for l in io.lines('text') do result = result .. '[' .. l .. ']' end "
            "local f = io.open('text') for l in f:lines() do result = result .. io.type(f) end f:close() "
            "result = result .. io.type(f) .. tostring(io.type(1))",
            folder_),
        "[one\r][][12.5 end]filefilefileclosed filenil");
}

TEST_F(Files, AreWrittenInEveryModeAndClosedWithTheGame)
{
    EXPECT_EQ(
        resultOf("local f = io.open('save', 'w') f:write('a', 1, '\\n') f:close() "
                 "f = io.open('save', 'ab') f:write('b') f:flush() f:close() "
                 "f = io.open('save', 'r+') f:write('X') f:seek('set') result = f:read('*a') io.close(f) "
                 "f = io.open('empty', 'w+b') f:write('gone') f:close() io.open('empty', 'w'):close() "
                 "f = io.open('open', 'w') f:write('kept')",
                 folder_),
        "X1\nb");
    EXPECT_EQ(folder_.read("save"), "X1\nb");
    EXPECT_EQ(folder_.read("empty"), "");
    EXPECT_EQ(folder_.read("open"), "kept");
}

TEST_F(Files, RefuseWhatMakesNoSense)
{
    const Cases cases = {
        {"return select(2, io.open('none'))", "none: No such file or directory"},
        {"return select(2, io.open('.', 'w'))", ".: Is a directory"},
        {"return select(2, io.open(''))", ": is not a file name"},
        {"io.lines('none')", "none: No such file or directory"},
        {"io.open('text', 'x')", "not a mode of opening files"},
        {"io.open('text'):read('*z')", "not a format"},
        {"io.open('text'):read('all')", "not a format"},
        {"io.open('text'):seek('set', 1e300)", "too far"},
        {"local f = io.open('text') local l = f:lines() f:close() l()", "the file is closed"},
        {"io.close(screen)", "File expected, got userdata"},
    };
    for (const auto& [call, reason] : cases) {
        const std::string message =
            resultOf("local ok, why = pcall(function() " + call + " end) result = why", folder_);
        EXPECT_NE(message.find(reason), std::string::npos) << call << ": " << message;
    }
}

} // namespace
} // namespace player::testing
