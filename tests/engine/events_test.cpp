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

TEST(Events, PutTheHeroOnACellWhateverTheirLinesSayAndChangeTheMapAtTheirEnd)
{
    const std::pair<const char*, const char*> moves[] = {
        {"hero.x = 9 -- D\xE9placement du h\xE9ro(vertical)\r\nhero.y = 3", "01 9,3 100"},
        {"hero.x = \"7\"", "01 7,5 100"},
        {"hero.x = -1e300 hero.y = 1/0", "01 5,5 100"},
        {"hero.x = 2.9", "01 2,5 100"},
        {"hero.x = 0/0 hero.y = nil", "01 5,5 100"},
        {"hero.x = \"abc\" hero.y = {}", "01 5,5 100"},
        {"hero = nil", "01 5,5 100"},
        {"hero = { x = 3 }", "01 3,5 100"},
        {"runmap(\"02\")\r\nhero.vie = hero.vie - jeu.map.number", "02 10,2 99"},
        {"runmap(\"02\")\r\nhero.x = 3\r\nhero.y = 7", "02 3,7 100"},
        {"hero.x = 3\r\nrunmap(\"02\")\r\nhero.y = 8", "02 10,8 100"},
        {"runmap(\"02\")\r\nhero.x = 3\r\nrunmap(2)", "02 10,2 100"},
        {"runmap(\"03\")\r\nhero.x = 3\r\nhero.y = 7", "01 5,5 100"},
    };
    for (const auto& [lines, expected] : moves) {
        Game game;
        game.map("02", "1002");
        for (const auto& [x, y] : {std::pair(9, 3), {7, 5}, {2, 5}, {3, 5}}) {
            game.event(x, y, "again = true");
        }
        game.enter(lines);
        game.wait(30);
        game.run();
        EXPECT_EQ(game.value("jeu.map.number .. ' ' .. hero.x .. ',' .. hero.y .. ' ' .. hero.vie"), expected)
            << lines;
        EXPECT_EQ(game.value("again"), "nil") << lines;
    }
}

TEST(Events, ShowTheirChangesBeforeTheyPause)
{
    Game game;
    game.enter("hero.x = 12\r\nscreen.waitVblankStart(30)\r\nscreen.waitVblankStart(-3)\r\nafter = true");
    const std::string& seen = game.watch("screen:pixel(324, 166) ~= screen:pixel(352, 166)");
    game.wait(22);
    const std::string& over = game.watch("after");
    game.wait(20);
    game.run();
    EXPECT_EQ(seen, "true");
    EXPECT_EQ(over, "nil");
    EXPECT_EQ(game.value("after"), "true");
}

TEST(Events, KillTheHeroAndTheTitleComesBack)
{
    for (const std::string lines : {"hero.vie = -5\r\nrunmap(\"02\")", "hero.vie = \"0\""}) {
        Game game;
        game.map("02", "1002");
        game.enter(lines);
        game.wait(20);
        game.press(button::cross);
        game.wait(2);
        game.run();
        EXPECT_TRUE(contains(game.pages(), "You are dead.|\nEssai|>|New game|Quit|\n")) << game.pages();
        EXPECT_EQ(game.value("jeu.map.number"), "01");
    }
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
