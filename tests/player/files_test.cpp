#include "player/sandbox.h"
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
    Files() { folder_.write("text", "one\r\n\n12.5 end"); }

    TempFolder folder_;
};

TEST_F(Files, AreReadInEveryFormatAndByLines)
{
    folder_.write("large", "");
    std::filesystem::resize_file(folder_.at("large"), 1U << 30U);
    const Cases cases = {
        {"f:read()", "one\r"},
        {"f:read('*l', '*l', '*n', '*l', '*l')", "one\r||12.5| end|nil"},
        {"f:read('*a', '*a', '*l')", "one\r\n\n12.5 end||nil"},
        {"f:read('*n', '*l')", "nil"},
        {"f:read(3, 0, 100, 0, 1)", "one||\r\n\n12.5 end|nil"},
        {"f:seek('end', -3), f:read('*a')", "11|end"},
        {"f:seek('set', 6), f:read('*n'), f:seek(), f:seek('set', -1)", "6|12.5|10|nil|Invalid argument|22"},
        {"pcall(function() return io.open('large'):read('*a') end)", "false|not enough memory"},
        {"(function(s) for l in io.lines('text') do s = s .. '[' .. l .. ']' end return s end)('')",
         "[one\r][][12.5 end]"},
        {"(function(s) for l in f:lines() do s = s .. #l .. io.type(f) end f:close() "
         "return s .. io.type(f) end)(''), io.type(1)",
         "4file0file8fileclosed file|nil"},
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

TEST(Sandbox, OnlyReadsTheBootScriptUntilAProjectIsEntered)
{
    const TempFolder folder;
    folder.write("index.lua", "boot");
    folder.write("data/template", "data");
    folder.write("projets/demo/images/a.png", "picture");
    Sandbox sandbox(folder.path());
    EXPECT_EQ(sandbox.read("index.lua", enough), "boot");
    for (const char* path : {"data/template", "projets/demo/images/a.png", "missing", "", "."}) {
        EXPECT_THROW(sandbox.read(path, enough), PathRefused) << path;
    }
    EXPECT_FALSE(canWrite(sandbox, "new") || canWrite(sandbox, "index.lua"));
    for (const char* path : {"data", "projets", "projets/demo/images", "..", "/", "index.lua"}) {
        EXPECT_THROW(sandbox.changeDirectory(path), PathRefused) << path;
    }
    sandbox.changeDirectory("projets\\demo");
    EXPECT_EQ(sandbox.currentDirectory(), folder.at("projets/demo").string());
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
    EXPECT_TRUE(canWrite(sandbox, "\x8A\x81"));
    EXPECT_EQ(folder.read("projets/Épée €/Š\u0081"), "x");
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
