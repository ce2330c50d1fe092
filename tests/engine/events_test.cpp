#include "tests/engine/game.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace engine::testing
{
namespace
{

TEST(Events, RunOnceForEachCellEnteredAndForABlockedOneWhenCrossIsPressedBeforeIt)
{
    Game game;
    game.map("01", "0401", "00000000000000000\r\n000100\r\n");
    game.file("ev.lua", "seen = ''\r\n"
                        "function runev(colonne,ligne,map)\r\n"
                        "seen = seen .. colonne + 0 .. ',' .. ligne + 0 .. ' ' .. map .. ';'\r\n"
                        "end\r\n\r\n");
    game.begin();
    game.wait(30);
    game.walk(button::right, 2);
    game.press(button::cross);
    game.walk(button::left, 2);
    game.walk(button::down, 1);
    const std::string& bumped = game.watch("seen");
    game.press(button::cross, 2);
    game.run();
    EXPECT_EQ(bumped, "5,1 01;6,1 01;5,1 01;4,1 01;");
    EXPECT_EQ(game.value("seen"), "5,1 01;6,1 01;5,1 01;4,1 01;4,2 01;4,2 01;");
}

TEST(Events, PutTheHeroOnACellOfTheMapWhateverTheirLinesSay)
{
    const std::pair<const char*, const char*> moves[] = {
        {"hero.x = 9 -- D\xE9placement du h\xE9ro(vertical)\r\nhero.y = 3", "9,3"},
        {"hero.x = \"7\"", "7,5"},
        {"hero.y = 9", "5,5"},
        {"hero.x = -1e300 hero.y = 1/0", "5,5"},
        {"hero.x = 2.9", "2,5"},
        {"hero.x = 0/0 hero.y = nil", "5,5"},
        {"hero.x = \"abc\" hero.y = {}", "5,5"},
        {"hero = nil", "5,5"},
        {"hero = { x = 3 }", "3,5"},
    };
    for (const auto& [lines, expected] : moves) {
        Game game;
        for (const auto& [x, y] : {std::pair(9, 3), {7, 5}, {2, 5}, {3, 5}}) {
            game.event(x, y, "again = true");
        }
        game.enter(lines);
        game.run();
        EXPECT_EQ(game.place(), expected) << lines;
        EXPECT_EQ(game.value("again"), "nil") << lines;
        EXPECT_EQ(game.value("hero.vie"), "100") << lines;
    }
}

TEST(Events, ShowTheirChangesBeforeTheyPause)
{
    Game game;
    game.event(5, 5,
               "hero.x = 12\r\nscreen.waitVblankStart(30)\r\nscreen.waitVblankStart(-3)\r\nafter = true");
    game.begin();
    const Image& before = game.capture();
    game.walk(button::right, 1);
    const Image& pausing = game.capture();
    game.wait(22);
    const std::string& over = game.watch("after");
    game.wait(20);
    game.run();
    EXPECT_EQ(over, "nil");
    EXPECT_EQ(game.value("after"), "true");
    const int middleOfTarget = 2 + 11 * 28 + 14;
    const int row = 36 + 4 * 29 + 14;
    EXPECT_NE(before.pixel(middleOfTarget, row), pausing.pixel(middleOfTarget, row));
}

TEST(Events, ChangeTheMapAtTheirEnd)
{
    struct Case {
        std::string lines;
        const char* during; // where the hero is then
        const char* after;
    };
    const Case cases[] = {
        {"runmap(\"02\")", "01 5,5", "02 10,2"},
        {"runmap(\"02\")\r\nhero.x = 3\r\nhero.y = 7", "01 3,7", "02 3,7"},
        {"hero.x = 3\r\nrunmap(\"02\")\r\nhero.y = 8", "01 3,8", "02 10,8"},
        {"runmap(\"02\")\r\nhero.x = 3\r\nrunmap(2)", "01 5,5", "02 10,2"},
        {"runmap(\"03\")\r\nhero.x = 3\r\nhero.y = 7", "01 3,7", "01 5,5"},
    };
    const std::string place = "jeu.map.number .. ' ' .. hero.x .. ',' .. hero.y";
    for (const auto& [lines, during, after] : cases) {
        Game game;
        game.map("02", "1002");
        game.enter(lines + "\r\nduring = " + place + "\r\nhero.vie = hero.vie - 10");
        game.wait(30);
        game.run();
        EXPECT_EQ(game.value("during"), during) << lines;
        EXPECT_EQ(game.value(place), after) << lines;
        EXPECT_EQ(game.value("hero.vie"), "90");
    }
}

TEST(Events, KillTheHeroAndTheTitleComesBack)
{
    for (const std::string lines : {"hero.vie = -5\r\nrunmap(\"02\")", "hero.vie = \"0\""}) {
        Game game;
        game.map("02", "1002");
        game.enter("screen.waitVblankStart(10)\r\n" + lines);
        const Image& alive = game.capture();
        game.wait(20);
        const Image& dead = game.capture();
        game.press(button::cross);
        game.wait(2);
        game.run();
        EXPECT_TRUE(contains(game.pages(), "You are dead.|\nEssai|>|New game|Quit|\n")) << game.pages();
        EXPECT_EQ(game.value("jeu.map.number"), "01");
        const int headOfHero = 36 + 4 * 29 + 5;
        const int middleOfHero = 2 + 4 * 28 + 14;
        EXPECT_NE(alive.pixel(middleOfHero, headOfHero), dead.pixel(middleOfHero, headOfHero));
    }
}

TEST(Events, DrawOnTheScreenWithEveryArgument)
{
    Game game;
    game.enter("local dot = Image.createEmpty(4, 4)\r\ndot:clear(Color.new(255, 0, 0))\r\nscreen:clear()\r\n"
               "screen:blit(0, 0, dot, 1, 1, 3, 2)\r\nreds = ''\r\nfor y = 0, 3 do\r\n"
               "reds = reds .. screen:pixel(0, y):colors().r .. ' '\r\nend");
    game.run();
    EXPECT_EQ(game.value("reds"), "255 255 0 0 ");
}

TEST(Events, MayCallTheirOwnThingsAsTheyLike)
{
    Game game;
    game.event(6, 5, "screen:clear()\r\nrunmap(\"02\")");
    game.map("02", "0405");
    game.event("02", 5, 5, "affichertexte(\"still here\")");
    game.enter("jeu, string, table, math, io = 1, 2, 3, 4, 5\r\ntype, pairs, ipairs, pcall = 1, 2, 3, 4\r\n"
               "tonumber, error, Controls, Image = 1, 2, 3, 4\r\n"
               "xpcall, dofile, loadstring, setfenv = 1, 2, 3, 4\r\n"
               "setmetatable, rawset, unpack, collectgarbage = 1, 2, 3, 4");
    game.walk(button::right, 1);
    game.wait(30);
    game.walk(button::right, 1);
    EXPECT_EQ(game.run(), Outcome::Closed);
    EXPECT_TRUE(contains(game.pages(), "still here"));
}

} // namespace
} // namespace engine::testing
