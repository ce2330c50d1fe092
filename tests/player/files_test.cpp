#include "player/sandbox.h"
#include "tests/player/harness.h"

#include <gtest/gtest.h>

#include <string>

namespace player::testing
{
namespace
{

TEST(Files, AreReadInEveryFormatAndByLinesAndRefuseWhatMakesNoSense)
{
    const TempFolder folder;
    folder.write("text", "one\r\n\n12.5 end");
    folder.write("large", "");
    std::filesystem::resize_file(folder.at("large"), 1U << 30U);
    const std::pair<std::string, std::string> cases[] = {
        {"f:read()", "(one\r)"},
        {"f:read('*l', '*l', '*n', '*l', '*l')", "(one\r||12.5| end|nil)"},
        {"f:read('*a', '*a', '*l')", "(one\r\n\n12.5 end||nil)"},
        {"f:read(3, 0, 100, 0, 1)", "(one||\r\n\n12.5 end|nil)"},
        {"f:seek('end', -3), f:read('*a')", "(11|end)"},
        {"f:seek('set', 6), f:read('*n'), f:seek(), f:seek('set', -1)",
         "(6|12.5|10|nil|Invalid argument|22)"},
        {"(function(s) for l in io.lines('text') do s = s .. '[' .. l .. ']' end return s end)('')",
         "([one\r][][12.5 end])"},
        {"(function(s) for l in f:lines() do s = s .. #l .. io.type(f) end f:close() "
         "return s .. io.type(f) end)(''), io.type(1)",
         "(4file0file8fileclosed file|nil)"},
        {"pcall(io.open('large').read, io.open('large'), '*a')", "(false|not enough memory)"},
        {"io.open('none')", "(nil|none: No such file or directory"},
        {"io.open('.', 'w')", "(nil|.: Is a directory"},
        {"io.open('')", "(nil|: is not a file name"},
        {"pcall(io.lines, 'none')", "none: No such file or directory"},
        {"pcall(io.open, 'text', 'x')", "not a mode of opening files"},
        {"pcall(f.read, f, '*z')", "not a format"},
        {"pcall(f.seek, f, 'set', 1e300)", "too far"},
        {"pcall(f.lines(f), f:close())", "the file is closed"},
        {"pcall(io.close, screen)", "File expected, got userdata"},
    };
    for (const auto& [call, part] : cases) {
        const std::string result =
            resultOf("local function join(...) local t = {} for i = 1, select('#', ...) do "
                     "t[i] = tostring((select(i, ...))) end return '(' .. table.concat(t, '|') .. ')' end "
                     "local f = io.open('text') result = join(" +
                         call + ")",
                     folder);
        EXPECT_NE(result.find(part), std::string::npos) << call << ": " << result;
    }
}

TEST(Files, AreWrittenInEveryModeAndClosedWithTheGame)
{
    const TempFolder folder;
    EXPECT_EQ(
        resultOf("local f = io.open('save', 'w') f:write('a', 1, '\\n') f:close() "
                 "f = io.open('save', 'ab') f:write('b') f:flush() f:close() "
                 "f = io.open('save', 'r+') f:write('X') f:seek('set') result = f:read('*a') io.close(f) "
                 "f = io.open('empty', 'w+b') f:write('gone') f:close() io.open('empty', 'w'):close() "
                 "f = io.open('open', 'w') f:write('kept')",
                 folder),
        "X1\nb");
    EXPECT_EQ(folder.read("save"), "X1\nb");
    EXPECT_EQ(folder.read("empty"), "");
    EXPECT_EQ(folder.read("open"), "kept");
}

constexpr std::size_t enough = 1000;

bool canWrite(const Sandbox& sandbox, const std::string& path)
{
    try {
        return std::fputs("x", sandbox.open(path, FileMode::Write).get()) >= 0;
    } catch (const PathRefused& refused) {
        EXPECT_TRUE(std::string(refused.what()).starts_with(path)) << refused.what();
        return false;
    }
}

TEST(Sandbox, EntersAndLeavesTheFoldersOfAProjectThatWasStartedAlone)
{
    const TempFolder folder;
    folder.write("demo/index.lua", "demo");
    folder.write("demo/images/a.png", "picture");
    std::filesystem::create_symlink("images/a.png", folder.at("demo/link"));
    Sandbox sandbox(folder.at("demo"));
    const std::string root = sandbox.currentDirectory();
    EXPECT_TRUE(canWrite(sandbox, "save"));
    EXPECT_EQ(folder.read("demo/save"), "x");
    EXPECT_EQ(sandbox.read("link", enough), "picture");
    sandbox.changeDirectory("images");
    for (const std::string& path : {std::string("a.png"), root + "/images\\a.png"}) {
        EXPECT_EQ(sandbox.read(path, enough), "picture");
    }
    EXPECT_EQ(sandbox.read("../index.lua", enough), "demo");
    sandbox.changeDirectory(root);
    EXPECT_EQ(sandbox.read("images/a.png", enough), "picture");
    EXPECT_THROW(sandbox.changeDirectory(".."), PathRefused);
}

TEST(Sandbox, TakesNamesForWindows1252AndComesBackToAFolderWhoseNameThatLacks)
{
    const TempFolder folder;
    folder.write("projets/Épée €/œuvre.lua", "found");
    Sandbox sandbox(folder.path());
    sandbox.changeDirectory("projets/\xC9p\xE9\x65 \x80");
    EXPECT_EQ(sandbox.read("\x9Cuvre.lua", enough), "found");
    EXPECT_EQ(sandbox.currentDirectory(), folder.path().string() + "/projets/\xC9p\xE9\x65 \x80");

    folder.write("игра/images/a", "found");
    Sandbox game(folder.at("игра"));
    const std::string root = game.currentDirectory();
    game.changeDirectory("images");
    game.changeDirectory(root);
    EXPECT_EQ(game.read(root + "/images/a", enough), "found");
}

} // namespace
} // namespace player::testing
