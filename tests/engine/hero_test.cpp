#include "tests/engine/game.h"

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
    const std::string& walked = game.watch("hero.x .. ',' .. hero.y");
    game.hold(button::right);
    game.wait(Game::framesPerCell + 5);
    game.hold(button::right | button::down);
    game.wait(2 * Game::framesPerCell);
    game.hold(button::right);
    game.wait(Game::framesPerCell);
    EXPECT_EQ(game.run(), Outcome::Closed) << game.error();
    EXPECT_EQ(walked, "7,3");
    EXPECT_EQ(game.place(), "9,5");
}

TEST(Walk, TurnsAndStaysBeforeBlocksAndEdges)
{
    // A wall round the cell in column 4, row 5, that is open to the left.
    const std::string free = "00000000000000000\r\n";
    const std::string wall = free + free + free + "00010000000000000\r\n00001000000000000\r\n";
    struct Obstacle {
        const char* start;
        Buttons direction;
        const char* end; // of the walk: the cell, the look and how many cells were entered
    };
    const Obstacle obstacles[] = {
        {"0101", button::up, "1,1 dos 0"},      {"0101", button::left, "1,1 gauche 0"},
        {"1708", button::down, "17,8 face 0"},  {"1708", button::right, "17,8 droite 0"},
        {"0405", button::up, "4,5 dos 0"},      {"0405", button::left, "1,5 gauche 3"},
        {"0605", button::left, "6,5 gauche 0"},
    };
    for (const auto& [start, direction, end] : obstacles) {
        Game game;
        game.map("01", start, wall);
        game.file("ev.lua", "count = 0 function runev() count = count + 1 end");
        game.begin();
        game.walk(direction, 4);
        game.run();
        EXPECT_EQ(game.value("hero.x .. ',' .. hero.y .. ' ' .. jeu.facing .. ' ' .. count"), end);
    }
}

TEST(TalkBox, BreaksATextIntoLinesAndPages)
{
    const std::string fifty(50, 'x');
    const std::string line(54, 'y');
    const std::pair<std::string, std::string> talks[] = {
        {"\"\xC9t\xE9 \x80 \x9C\"", "\xC9t\xE9 \x80 \x9C|\n"},
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
    game.enter("screen.waitVblankStart(20)\r\naffichertexte(\"\")\r\nfirst = true\r\n"
               "affichertexte(2)\r\nsecond = true");
    game.press(button::cross); // during the pause
    game.wait(30);
    const std::string& early = game.watch("first");
    game.hold(button::cross);
    game.wait(30);
    const std::string& held = game.watch("tostring(first) .. tostring(second)");
    game.hold(button::none);
    game.wait(2);
    game.press(button::cross);
    game.run();
    EXPECT_EQ(early, "nil");
    EXPECT_EQ(held, "truenil");
    EXPECT_EQ(game.value("second"), "true");
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
