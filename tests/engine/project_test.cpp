#include "tests/engine/game.h"

#include "maps/maplist.h"

#include <gtest/gtest.h>
#include <regex>
#include <sstream>
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
    const std::pair<const char*, const char*> heads[] = {
        {"0405", "4,5"}, {"0009", "1,8"}, {"9999", "17,8"}, {"abcd", "1,1"}, {"-1 3", "1,3"}};
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
    const std::string whole = game.content("map01.map") + "0405\n" + std::string(152, 'x');
    for (std::size_t length = 1; length <= whole.size(); ++length) {
        game.file("map01.map", whole.substr(whole.size() - length));
        game.file("map01.ev", whole.substr(0, length - 1));
        ASSERT_EQ(game.value("jeu.openMap('01')"), "nil") << length;
    }
    game.file("map01.map", "");
    EXPECT_TRUE(contains(game.value("jeu.openMap('01')"), "map01.map is missing"));
}

TEST(Map, IsCalledAsTheEditorReadsItsName)
{
    Game game;
    game.run();
    for (const std::string written :
         {"[CARTE01]\r\nNOM =La mer", "[Carte01]\r\nnom= \"La mer \" ", "[Carte01]\nnom='La mer'",
          "[Carte01]\nnom=\"La mer'", "[Carte01]\nnom=\"", "[Carte01]\nnom=\"\"", "[Carte01]\nnom=a = b",
          "[Carte01]\nnom=\nnom=b", "[Carte01]\n\n[Carte01]\nnom=second", "[ Carte01 \n nom = open ",
          "[Carte01] [a]\nnom=b", "x [Carte01]\nnom=none", "[Carte01]\n;nom=a\n  \nnom"}) {
        for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
            game.file("projet.ini", mark + written + "\r\n[Jeu]\r\nnom=Essai\r\n");
            EXPECT_EQ(game.value("jeu.setting('Carte01', 'nom')"), MapName("01")) << written;
        }
    }
}

// Games also run on the handheld's older Lua, which no test here can start.
TEST(Scripts, KeepToWhatBothVersionsOfLuaKnow)
{
    const std::regex notCode(R"("(\\.|[^"\\])*"|--.*)");
    const std::regex notCommon(
        R"([#%]|\.\.\.|\[=*\[|\b(select|require|module)\b|string\.g?match|gfind)"
        R"(|math\.(mod|fmod|modf|huge)|table\.(getn|setn|maxn)|[)\w]:(rep|sub|find|len)\()");
    const Game game;
    for (const char* name : {"index.lua", "menustart.lua", "ram.lua", "map.lua", "ev.lua"}) {
        std::istringstream file(game.content(name));
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

} // namespace
} // namespace engine::testing
