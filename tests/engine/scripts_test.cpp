#include "tests/engine/game.h"

#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>

namespace engine::testing
{
namespace
{

// Games also run on the handheld's older Lua, which no test here can start.
TEST(Scripts, KeepToWhatBothVersionsOfLuaKnow)
{
    const std::regex notCode(R"("(\\.|[^"\\])*"|--.*)");
    const std::regex notCommon(
        R"([#%]|\.\.\.|\[=*\[|\b(select|require|module)\b|string\.g?match|gfind)"
        R"(|math\.(mod|fmod|modf|huge)|table\.(getn|setn|maxn)|[)\w]:(rep|sub|find|len)\()");
    for (const char* name : {"index.lua", "menustart.lua", "ram.lua", "map.lua", "ev.lua"}) {
        std::istringstream file(sourceText(std::filesystem::path("engine") / name));
        ASSERT_GT(file.rdbuf()->in_avail(), 0) << name;
        std::string line;
        for (int number = 1; std::getline(file, line); ++number) {
            const std::string code = std::regex_replace(line, notCode, "''");
            EXPECT_FALSE(std::regex_search(code, notCommon)) << name << ":" << number << ": " << line;
        }
    }
}

TEST(Scripts, LeaveTheOtherNamesToTheAuthorsLines)
{
    Game game;
    game.file("index.lua",
              "known = {} for name in pairs(_G) do known[name] = true end\r\n" + game.content("index.lua"));
    game.enter("");
    game.run();
    EXPECT_EQ(game.value("(function() local added = {} for name in pairs(_G) do"
                         " if not known[name] then table.insert(added, name) end end"
                         " table.sort(added) return table.concat(added, ' ') end)()"),
              "affichertexte hero jeu runev runmap var");
}

TEST(Title, QuitEndsTheGame)
{
    Game game;
    game.press(button::up);
    game.press(button::cross);
    game.wait(10);
    EXPECT_EQ(game.run(), Outcome::Ended);
    EXPECT_TRUE(contains(game.pages(), "Essai|>|New game|Quit|\nEssai|New game|>|Quit|\n")) << game.pages();
}

TEST(Title, NamesTheFileOrPictureThatIsMissing)
{
    for (const char* name : {"map01.map", "images/map01/terrain.png", "images/System/menuprinc.png",
                             "images/personnages/hero/gauche3.png"}) {
        Game game;
        game.remove(name);
        game.begin();
        game.wait(2);
        const bool needed = game.run() == Outcome::Failed; // before there is a title to tell it
        EXPECT_EQ(needed, contains(name, "images/S") || contains(name, "hero")) << game.player().error();
        EXPECT_TRUE(contains(needed ? game.player().error() : game.pages(), name)) << name;
    }
}

} // namespace
} // namespace engine::testing
