#include "tests/player/harness.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <lua.hpp>
#include <map>
#include <sstream>

namespace
{

namespace fs = std::filesystem;
namespace button = player::button;
using player::testing::Frame;

const std::string game = "A Letter for the Moon";

/// A fresh tool: the templates that the build laid out, and the game made beside them.
class Sample : public testing::Test
{
protected:
    Sample()
    {
        fs::create_directory_symlink(fs::path(SAMPLE_APPDIR) / "data", tool.path() / "data");
        EXPECT_EQ(make(), 0);
    }

    int make() const
    {
        const std::string command = "'" SAMPLE_MAKER "' '" SAMPLE_SOURCE "' '" + tool.path().string() + "'";
        return std::system(command.c_str());
    }

    player::testing::TempFolder tool;
    const fs::path project = tool.path() / "projets" / game;
};

TEST_F(Sample, IsMadeWholeWhereItIsMissingAndNeverTouchedWhereItIs)
{
    const Snapshot made = tool.snapshot();
    tool.write(project / "map01.map", "an author's");
    tool.write(tool.path() / "projets" / ("." + game + ".making") / "projet.ini", "of a killed run");
    EXPECT_EQ(make(), 0);
    EXPECT_EQ(tool.read(project / "map01.map"), "an author's");
    fs::remove_all(project);
    EXPECT_EQ(make(), 0);
    EXPECT_EQ(Changes(made, tool.snapshot()), "");
}

TEST_F(Sample, CanBeFinishedFromEveryStateWithoutLosingLife)
{
    lua_State* const L = luaL_newstate();
    luaL_openlibs(L);
    lua_pushstring(L, project.c_str());
    lua_setglobal(L, "project");
    const bool failed = luaL_loadfile(L, SAMPLE_STATES) != 0 || lua_pcall(L, 0, 1, 0) != 0;
    const char* const answer = lua_tostring(L, -1);
    EXPECT_FALSE(failed) << answer;
    EXPECT_STREQ(answer, "");
    lua_close(L);
}

// ------------------------------------------------------------------------------ the walkthrough

// A way and so many cells (one against a wall turns the hero), "x" a press of cross, "." half a second.
constexpr const char* walkthrough = R"(
    x .
    R1 x x x R5 U1 x x
    R9 . R13 D1 x x
    L6 D1 x x x
    R6 D1 x x x
    L11 D1 x x
    R1 U1 . L4 U3 U1 x x x
    R7 D1 R3 U1 x x
    L6 D3 . L4 . L1 U3 x
    D3 R2 . R3 U1 . L4 U3 U1 x x
    R7 D1 R3 U1 x x
    R1 R1 x x x
    L1 D1 x
    L6 D3 . L4 . L7 U4 . R1 D1 R2 D1 R4 D3 R4 R1 x x x
    L6 U2 L2 U1 L3 U3 . D1 R4 x R2 D2 R2 . R2 D1 x x x
    L3 . L7 U4 . R1 D1 R2 D1 R4 U1 U1 x x x
    L2 D1 L5 U1 L2 D1 D1 x x
    U1 R5 D1 R4 U1 U1 x x
    R5 D2 D1 x x x
    U2 L5 D4 R4 R1 x x .
    R6 U1 x x x x x
    R2 D1 R2 U3 R2 D3 R2 U2 U1 x x
    D2 L2 U3 L2 D3 L10 U1 L1 . L6 U2 L2 U1 L3 U3 . D1 R4 x R2 D2 R2 . R3 U1 . L4 U3 U1 x x x x
    R4 D4 . L4 . L7 U4 . R1 D1 R2 D1 R4 D3 R4 R1 x x . R8 D1 R2 U3 R2 D3 R2 U2 U1 x x
    D2 L2 U3 L2 D3 L4 U1 U1 x x x . x
    L7 . L6 U2 L2 U1 L3 U3 . D1 R4 x R2 D2 R2 . R3 U1 . L1 U5 U1 x x
    R1 D6 . R4 D1 x x . . . x x . . . x x . . . x
)";

/// Presses the walkthrough's keys from frame 5 on; the frame after the last.
Frame press(player::testing::PlayerRun& run)
{
    constexpr Frame framesPerCell = 14;
    const std::map<char, player::Buttons> ways = {
        {'U', button::up}, {'D', button::down}, {'L', button::left}, {'R', button::right}};
    Frame now = 5;
    std::istringstream acts(walkthrough);
    for (std::string act; acts >> act;) {
        if (act == "x") {
            run.tap(now, button::cross);
            now += 6;
        } else if (act == ".") {
            now += 30;
        } else {
            const int cells = std::stoi(act.substr(1));
            run.hold(now, ways.at(act[0]));
            run.hold(now + cells * framesPerCell - 7, button::none);
            now += cells * framesPerCell + 4;
        }
    }
    return now;
}

TEST_F(Sample, IsPlayedFromTheFirstStepToTheEnding)
{
    tool.write("index.lua", "System.currentDirectory('projets/" + game + "')\ndofile('index.lua')\n");
    player::testing::PlayerRun run(tool.path());
    const Frame end = press(run);
    EXPECT_EQ(run.play(end + 30), player::Outcome::Closed) << run.error();
    EXPECT_EQ(run.value("var[1]"), "5");
    EXPECT_EQ(run.value("hero.vie"), "100");
}

} // namespace
