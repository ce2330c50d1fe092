#include "tests/engine/game.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace engine::testing
{
namespace
{

constexpr const char* place = Game::placeOfHero;

// A wall round the cell in column 4, row 5, that is open to the left.
constexpr const char* walledStart = "00000000000000000\r\n"
                                    "00000000000000000\r\n"
                                    "00000000000000000\r\n"
                                    "00010000000000000\r\n"
                                    "00001000000000000\r\n"
                                    "00010000000000000\r\n";

TEST(Walk, GoesOnFromCellToCellInTheDirectionPressedLast)
{
    Game game;
    game.begin();
    game.walk(button::right, 3);
    const Frame east = game.watch(place);
    game.walk(button::up, 2);
    const Frame north = game.watch(place);
    game.hold(button::right);
    game.wait(Game::framesPerCell + 5);
    game.hold(button::right | button::down);
    game.wait(Game::framesPerCell);
    const Frame both = game.watch(place);
    game.wait(Game::framesPerCell);
    game.hold(button::right);
    game.wait(Game::framesPerCell);
    EXPECT_EQ(game.run(), Outcome::Closed) << game.player().error();
    EXPECT_EQ(game.valueAt(east, place), "7,5");
    EXPECT_EQ(game.valueAt(north, place), "7,3");
    EXPECT_EQ(game.valueAt(both, place), "9,3");
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
        presented[cells / 2] = game.player().presented();
    }
    EXPECT_EQ(presented[1], presented[0] + 2 * Game::framesPerCell);
}

// Compares the row of the start, two cells wide, from the given columns on.
bool sameCells(const player::Image& one, int left, const player::Image& other, int otherLeft)
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
    const Frame start = game.now();
    for (const Frame frame : {0, 4, 11, 14, 18, 25}) {
        game.player().capture(start + frame);
    }
    game.walk(button::right, 2);
    game.run();
    const auto at = [&](Frame frame) -> const player::Image& { return game.pictureAt(start + frame); };
    EXPECT_FALSE(sameCells(at(0), 4, at(4), 4));
    EXPECT_FALSE(sameCells(at(4), 4, at(11), 4));
    EXPECT_FALSE(sameCells(at(4), 4, at(18), 5)) << "the same foot";
    EXPECT_TRUE(sameCells(at(11), 4, at(25), 5));
    EXPECT_FALSE(sameCells(at(0), 4, at(14), 5)) << "not turned to the right";
}

TEST(Walk, TurnsAndStaysBeforeBlocksAndEdges)
{
    struct Obstacle {
        const char* start;
        const char* blocks;
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
        const Frame before = game.capture();
        game.walk(obstacle.direction, 4);
        const Frame after = game.capture();
        game.wait(1);
        game.run();
        EXPECT_EQ(game.place(), obstacle.place);
        EXPECT_EQ(game.value("jeu.facing"), obstacle.facing);
        EXPECT_EQ(game.value("count"), obstacle.cellsEntered);
        if (game.place() == "4,5") {
            EXPECT_FALSE(sameCells(game.pictureAt(before), 4, game.pictureAt(after), 4)) << "shows no turn";
        }
    }
}

} // namespace
} // namespace engine::testing
