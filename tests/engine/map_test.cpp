#include "tests/engine/game.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>

namespace engine::testing
{
namespace
{

TEST(Map, StartsTheHeroOnTheGridWhateverItsHeadSays)
{
    Game game;
    game.begin();
    game.run();
    const std::pair<const char*, const char*> heads[] = {{"0405", "4,5"},  {"1708", "17,8"}, {"0009", "1,8"},
                                                         {"9999", "17,8"}, {"abcd", "1,1"},  {"-1 3", "1,3"}};
    for (const auto& [head, expected] : heads) {
        game.map("02", head);
        EXPECT_EQ(game.value("jeu.openMap('02')"), "nil") << head;
        EXPECT_EQ(game.place(), expected) << head;
    }
}

// Short files and bare line feeds are misread, by position, and nothing worse.
TEST(Map, OfAnyLengthCanBePlayed)
{
    Game game;
    game.begin();
    game.run();
    const std::string whole = game.content("map01.map");
    const std::string blocks = game.content("map01.ev");
    EXPECT_TRUE(contains(game.value("jeu.openMap('05')"), "map05.map is missing"));
    for (std::size_t length = 1; length <= whole.size(); ++length) {
        game.file("map01.map", whole.substr(0, length));
        game.file("map01.ev", blocks.substr(0, length - 1));
        ASSERT_EQ(game.value("jeu.openMap('01')"), "nil") << length;
    }
    game.file("map01.map", "0405\n" + std::string(152, 'x'));
    EXPECT_EQ(game.value("jeu.openMap('01')"), "nil");
    game.file("map01.map", "");
    EXPECT_TRUE(contains(game.value("jeu.openMap('01')"), "map01.map is missing"));
}

TEST(Map, LeavesCellsWithoutATileEmpty)
{
    Game game;
    const std::string rest = "0000000000000000\r\n";
    game.file("map01.map", "1708\r\n0" + rest + "a" + rest + " " + rest + "9" + rest + "\xE9" + rest);
    game.begin();
    const Frame frame = game.capture();
    game.wait(2);
    game.run();
    const auto& picture = game.pictureAt(frame);
    const auto cell = [&picture](int row) { return picture.pixel(2 + 14, 36 + 29 * (row - 1) + 14); };
    const player::Pixel empty = picture.pixel(2 + 14, 36 + 29 * 7 + 14);
    EXPECT_NE(cell(1), empty);
    EXPECT_EQ(cell(2), empty);
    EXPECT_EQ(cell(3), empty);
    EXPECT_NE(cell(4), cell(1));
    EXPECT_EQ(cell(5), empty);
}

TEST(Map, IsCalledAsTheEditorReadsItsName)
{
    Game game;
    game.run();
    const std::pair<const char*, const char*> values[] = {
        {"La mer", "La mer"},   {" \"La mer \" ", "La mer "},
        {"'La mer'", "La mer"}, {"\"La mer'", "\"La mer'"},
        {"\"", "\""},           {"\"\"", ""},
        {"a = b", "a = b"}};
    for (const auto& [written, read] : values) {
        game.file("projet.ini", std::string("[Jeu]\r\nNOM=Essai\r\n[CARTE01]\r\nnom =") + written + "\r\n");
        EXPECT_EQ(game.value("jeu.setting('Carte01', 'nom')"), read) << written;
    }
}

struct Grid {
    std::string codes = projectText(sourceText("engine/map01.map"));
    std::string blocks = projectText(sourceText("engine/map01.ev"));
    std::set<std::pair<int, int>> reached = {};

    static std::size_t at(int x, int y) { return static_cast<std::size_t>((y - 1) * 19 + x - 1); }
    bool isObstacle(int x, int y) const { return contains("45678", codes.substr(6 + at(x, y), 1)); }
    bool isFree(int x, int y) const
    {
        return x >= 1 && x <= 17 && y >= 1 && y <= 8 && blocks.at(at(x, y)) == '0';
    }

    void walkFrom(int x, int y)
    {
        if (isFree(x, y) && reached.emplace(x, y).second) {
            walkFrom(x - 1, y);
            walkFrom(x + 1, y);
            walkFrom(x, y - 1);
            walkFrom(x, y + 1);
        }
    }
};

TEST(FirstMap, BlocksItsObstaclesAndLeavesEveryOtherCellInReach)
{
    Grid grid;
    ASSERT_EQ(grid.codes.size(), 162U);
    ASSERT_EQ(grid.blocks.size(), 156U);
    grid.walkFrom(std::stoi(grid.codes.substr(0, 2)), std::stoi(grid.codes.substr(2, 2)));
    for (int y = 1; y <= 8; ++y) {
        for (int x = 1; x <= 17; ++x) {
            EXPECT_EQ(grid.reached.contains({x, y}), !grid.isObstacle(x, y)) << x << "," << y;
        }
    }
}

} // namespace
} // namespace engine::testing
