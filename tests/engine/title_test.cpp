#include "tests/engine/game.h"

#include <gtest/gtest.h>
#include <string>

namespace engine::testing
{
namespace
{

// Opens the menu and takes its second entry, "Save", and closes the answer.
void save(Game& game)
{
    game.press(button::start);
    game.press(button::down);
    game.press(button::cross, 2);
}

// What a game of a few steps leaves, with values that a careless file would lose.
void playAndSave(Game& game)
{
    game.map("02", "1002");
    game.enter("runmap(\"02\")\r\nhero.vie = 72.5\r\nhero.nom = \"Zo\xEB end\"\r\n"
               "var[1] = \"a \\\\032\\n\\\"s:b\\\" ]]\"\r\nvar[7] = true\r\nvar.clef = -1e-7\r\nvar[8] = {}");
    game.wait(30);
    game.walk(button::up, 1);
    save(game);
}

TEST(Save, ContinuesWithThePlaceTheHeroAndTheVariablesAndDoesNotReachIntoANewGame)
{
    const std::string state =
        "jeu.map.number .. ' ' .. hero.x .. ',' .. hero.y .. ' ' .. jeu.facing .. ' ' .. "
        "hero.vie .. ' ' .. tostring(hero.nom) .. ' ' .. var[1] .. ' ' .. tostring(var[7]) "
        ".. ' ' .. tostring(var.clef) .. ' ' .. tostring(var[8])";
    for (const bool anew : {false, true}) {
        Game game;
        playAndSave(game);
        game.walk(button::left, 3);
        game.press(button::start);
        game.press(button::up); // the third entry of the menu leads back to the title
        game.press(button::cross);
        if (!anew) {
            game.press(button::down);
        }
        game.press(button::cross);
        game.run();
        EXPECT_TRUE(contains(game.pages(), "The game is saved.")) << game.pages();
        EXPECT_EQ(game.value(state), anew
                                         ? "01 4,5 face 100 nil 0 nil nil nil"
                                         : "02 10,1 dos 72.5 Zo\xEB end a \\032\n\"s:b\" ]] true -1e-07 nil");
    }
}

TEST(Save, IsOnlyOfferedWhenItIsWhole)
{
    Game game;
    playAndSave(game);
    game.run();
    const std::string whole = game.content("sauve.txt");
    ASSERT_EQ(game.value("jeu.readSave() ~= nil"), "true") << whole;
    for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length); // the console was switched off while it wrote
        game.file("sauve.txt", cut);
        ASSERT_EQ(game.value("jeu.readSave().hero.vie"), "72.5") << cut;
        game.file("sauve2.txt", cut);
        ASSERT_EQ(game.value("jeu.readSave()"), "nil") << cut;
        game.file("sauve2.txt", whole);
    }
    game.remove("sauve2.txt");
    for (const std::string& junk : {std::string(3000, '\0'), "os.exit()\n" + whole,
                                    std::string("save 1\nplace s:map s:../01\nend\n")}) {
        game.file("sauve.txt", junk);
        EXPECT_EQ(game.value("jeu.readSave()"), "nil") << junk;
    }
}

TEST(Save, OfAnotherHandIsMadeToFitTheGame)
{
    Game game;
    game.file("sauve.txt", "save 1\nplace s:map s:01\nplace s:facing s:mort\nhero s:x n:1e99\nhero s:y s:b\n"
                           "hero s:vie n:nan\nvar n:nan s:x\nnothing n:1 n:1\nvar n:1 s:\\999\njunk\nend\n");
    game.press(button::down);
    game.press(button::cross);
    game.walk(button::up, 1);
    EXPECT_EQ(game.run(), Outcome::Closed) << game.error();
    EXPECT_EQ(game.place() + " " + game.value("hero.vie"), "17,4 100");
}

TEST(Save, OnAMapThatIsGoneSaysSoAndTheTitleComesBack)
{
    for (const char* lost : {"map02.map", "images/map02/terrain.png"}) {
        Game game;
        game.file("sauve.txt", "save 1\nplace s:map s:02\nend\n");
        game.map("02", "1002");
        game.remove(lost);
        game.press(button::down);
        game.press(button::cross, 2);
        game.begin();
        game.walk(button::right, 1);
        game.run();
        EXPECT_TRUE(contains(game.told(), lost)) << game.told();
        EXPECT_EQ(game.value("jeu.map.number .. hero.x"), "015");
    }
}

TEST(Save, SaysWhenItCannotBeWritten)
{
    for (const std::string file : {"sauve.txt", "sauve2.txt"}) {
        Game game;
        game.file(file + "/in the way", "");
        game.begin();
        save(game);
        game.run();
        EXPECT_TRUE(contains(game.pages(), "could not be saved")) << game.pages();
    }
}

TEST(Title, QuitEndsTheGame)
{
    Game game;
    game.press(button::up);
    game.press(button::cross);
    EXPECT_EQ(game.run(), Outcome::Ended);
    EXPECT_EQ(game.pages(), "Essai|>|New game|Quit|\nEssai|New game|>|Quit|\n");
}

TEST(Title, NamesTheFileOrPictureThatIsMissingAndTheLineOfTheVariablesThatIsWrong)
{
    for (const char* name : {"map01.map", "images/map01/terrain.png", "ev.lua", "images/System/menuprinc.png",
                             "images/personnages/hero/gauche3.png"}) {
        Game game;
        game.remove(name);
        game.begin();
        game.wait(2);
        const bool needed = game.run() == Outcome::Failed; // before there is a title to tell it
        EXPECT_TRUE(contains(needed ? game.error() : game.pages(), name)) << name;
    }
    Game game;
    game.file("variables.lua", "var = {}\r\nvar[1] = \"a\"b\"\r\n");
    game.begin();
    game.press(button::cross);
    game.walk(button::right, 1);
    game.run();
    EXPECT_TRUE(contains(game.told(), "variables.lua, line 2: a quote")) << game.told();
    EXPECT_EQ(game.place(), "5,5");
}

} // namespace
} // namespace engine::testing
