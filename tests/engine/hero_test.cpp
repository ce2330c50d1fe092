#include "tests/engine/game.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace engine::testing
{
namespace
{

TEST(Walk, GoesOnFromCellToCellInTheDirectionPressedLast)
{
    Game game;
    game.begin();
    game.walk(button::right, 3);
    game.walk(button::up, 2);
    const std::string& walked = game.watch(Game::placeOfHero);
    game.hold(button::right);
    game.wait(Game::framesPerCell + 5);
    game.hold(button::right | button::down);
    game.wait(Game::framesPerCell);
    const std::string& both = game.watch(Game::placeOfHero);
    game.wait(Game::framesPerCell);
    game.hold(button::right);
    game.wait(Game::framesPerCell);
    EXPECT_EQ(game.run(), Outcome::Closed) << game.error();
    EXPECT_EQ(walked, "7,3");
    EXPECT_EQ(both, "9,3");
    EXPECT_EQ(game.place(), "9,5");
}

TEST(Walk, ShowsOnePictureForEachFrameOfAStepAndNoneWhileStanding)
{
    int presented[2] = {};
    for (const int cells : {0, 2}) {
        Game game;
        game.begin();
        game.walk(cells > 0 ? button::right : button::none, 2);
        game.wait(Game::framesPerCell - 4);
        game.run();
        presented[cells / 2] = game.presented();
    }
    EXPECT_EQ(presented[1], presented[0] + 2 * Game::framesPerCell);
}

// Compares the row of the start, two cells wide, from the given columns on.
bool sameCells(const Image& one, int left, const Image& other, int otherLeft)
{
    const int start = 2 + 28 * (left - 1);
    const int otherStart = 2 + 28 * (otherLeft - 1);
    for (int y = 36 + 29 * 4; y < 36 + 29 * 5; ++y) {
        if (!std::equal(one.row(y) + start, one.row(y) + start + 56, other.row(y) + otherStart)) {
            return false;
        }
    }
    return true;
}

TEST(Walk, MovesThePictureAndChangesTheFootWithEachStep)
{
    Game game;
    game.begin();
    const Image& start = game.capture();
    const Image& early = game.capture(4);
    const Image& late = game.capture(11);
    const Image& turned = game.capture(14);
    const Image& earlyNext = game.capture(18);
    const Image& lateNext = game.capture(25);
    game.walk(button::right, 2);
    game.run();
    EXPECT_FALSE(sameCells(start, 4, early, 4));
    EXPECT_FALSE(sameCells(early, 4, late, 4));
    EXPECT_FALSE(sameCells(early, 4, earlyNext, 5)) << "the same foot";
    EXPECT_TRUE(sameCells(late, 4, lateNext, 5));
    EXPECT_FALSE(sameCells(start, 4, turned, 5)) << "not turned to the right";
}

TEST(Walk, TurnsAndStaysBeforeBlocksAndEdges)
{
    // A wall round the cell in column 4, row 5, that is open to the left.
    const std::string free = "00000000000000000\r\n";
    const std::string walledStart = free + free + free + "00010000000000000\r\n00001000000000000\r\n";
    struct Obstacle {
        const char* start;
        std::string blocks;
        Buttons direction;
        const char* place;
        const char* facing;
        const char* cellsEntered;
    };
    const Obstacle obstacles[] = {
        {"0101", "", button::up, "1,1", "dos", "0"},
        {"0101", "", button::left, "1,1", "gauche", "0"},
        {"1708", "", button::down, "17,8", "face", "0"},
        {"1708", "", button::right, "17,8", "droite", "0"},
        {"0405", walledStart, button::up, "4,5", "dos", "0"},
        {"0405", walledStart, button::left, "1,5", "gauche", "3"},
        {"0605", walledStart, button::left, "6,5", "gauche", "0"},
    };
    for (const Obstacle& obstacle : obstacles) {
        Game game;
        game.map("01", obstacle.start, obstacle.blocks);
        game.file("ev.lua", "count = 0 function runev() count = count + 1 end");
        game.begin();
        const Image& before = game.capture();
        game.walk(obstacle.direction, 4);
        const Image& after = game.capture();
        game.wait(1);
        game.run();
        EXPECT_EQ(game.place(), obstacle.place);
        EXPECT_EQ(game.value("jeu.facing"), obstacle.facing);
        EXPECT_EQ(game.value("count"), obstacle.cellsEntered);
        EXPECT_TRUE(game.place() != "4,5" || !sameCells(before, 4, after, 4)) << "shows no turn";
    }
}

TEST(TalkBox, BreaksATextIntoLinesAndPages)
{
    const std::string fifty(50, 'x');
    const std::string line(54, 'y');
    const std::pair<std::string, std::string> talks[] = {
        {"\"\xC9t\xE9 \x80 \x9C\"", "\xC9t\xE9 \x80 \x9C|\n"},
        {"12.5", "12.5|\n"},
        {"false", "false|\n"},
        {'"' + fifty + " abc\"", fifty + " abc|\n"},
        {'"' + fifty + " abcd  e\"", fifty + "|abcd  e|\n"},
        {'"' + line + "   z\"", line + "|z|\n"},
        {'"' + line + "yz\"", line + "|yz|\n"},
        {"\"1\\n\\n3\\n4\\n5\\n6\"", "1||3|4|5|\n6|\n"},
    };
    for (const auto& [argument, pages] : talks) {
        Game game;
        game.enter("pages = ''\r\naffichertexte(" + argument + ")\r\nfinished = true");
        game.press(button::cross, 2);
        game.run();
        EXPECT_EQ(game.pages(), pages);
        EXPECT_EQ(game.value("finished"), "true");
    }
}

TEST(TalkBox, WaitsForAPressThatBeganAfterIt)
{
    Game game;
    game.event(5, 5, "affichertexte(\"\")\r\nfirst = true\r\naffichertexte(2)\r\nsecond = true");
    game.begin();
    game.hold(button::right);
    game.wait(8);
    game.hold(button::right | button::cross);
    game.wait(60);
    const std::string& firstWhileHeld = game.watch("first");
    game.hold(button::none);
    game.wait(2);
    game.press(button::cross);
    const std::string& first = game.watch("first");
    const std::string& second = game.watch("second");
    game.press(button::cross);
    game.run();
    EXPECT_EQ(firstWhileHeld, "nil");
    EXPECT_EQ(first, "true");
    EXPECT_EQ(second, "nil");
    EXPECT_EQ(game.value("second"), "true");
}

TEST(TalkBox, IsNotClosedByAPressDuringThePauseBeforeIt)
{
    Game game;
    game.enter("screen.waitVblankStart(20)\r\naffichertexte(1)\r\nclosed = true");
    game.press(button::cross);
    game.wait(30);
    const std::string& closed = game.watch("closed");
    game.press(button::cross);
    game.run();
    EXPECT_EQ(closed, "nil");
    EXPECT_EQ(game.value("closed"), "true");
}

TEST(TalkBox, IsClosedByAPressThatTouchesNothing)
{
    Game game;
    game.map("01", "0101", "00100000000000000\r\n\r\n");
    game.event(2, 1, "affichertexte(1)");
    game.event(3, 1, "count = (count or 0) + 1\r\naffichertexte(2)");
    game.begin();
    game.walk(button::right, 1);
    game.press(button::cross);
    const std::string& walkedOn = game.watch("count");
    game.press(button::cross);
    game.hold(button::cross);
    game.wait(40);
    game.run();
    EXPECT_EQ(walkedOn, "nil");
    EXPECT_EQ(game.value("count"), "1");
}

} // namespace
} // namespace engine::testing
