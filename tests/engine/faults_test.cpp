#include "tests/engine/game.h"

#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <tuple>
#include <utility>

namespace engine::testing
{
namespace
{

struct Place {
    std::string map;
    int column;
    int row;

    std::string text() const
    {
        return "\nmap " + map + ", row " + std::to_string(row) + ", column " + std::to_string(column);
    }
};

const Place places[] = {{"01", 1, 1}, {"02", 12, 3}, {"03", 17, 8}, {"12", 2, 4}};

// Maps that cannot be entered: no text in one, and pictures that are none.
void layTraps(const Game& game)
{
    game.file("map04.map", "");
    for (const char* number : {"06", "09"}) {
        game.map(number, "0101");
    }
    game.file("images/map06/terrain.png", "");
    game.file("images/map09/terrain.png", game.content("images/map01/terrain.png").substr(0, 80));
}

// Walks onto a cell with a good event, from there onto one with these lines, and back.
std::string toldAt(const Place& place, const std::string& lines)
{
    const bool isLast = place.column == 17;
    const Buttons there = isLast ? button::right : button::left;
    const int beside = isLast ? 16 : place.column + 1;
    const int start = isLast ? 15 : place.column + 2;
    Game game;
    layTraps(game);
    game.map(place.map, (start < 10 ? "0" : "") + std::to_string(start) + "0" + std::to_string(place.row));
    game.event(place.map, place.column, place.row, lines);
    game.event(place.map, beside, place.row, "affichertexte(\"Bon\")");
    game.event(5, 5, "runmap(\"" + place.map + "\")");
    game.begin();
    game.press(button::cross, 2);
    if (place.map != "01") {
        game.walk(button::right, 1);
        game.wait(80); // what never ends takes its time to be found
        game.press(button::cross);
    }
    game.walk(there, 1);
    game.press(button::cross);
    game.walk(there, 1);
    game.wait(60);
    game.press(button::cross, 2);
    game.walk(isLast ? button::left : button::right, 1);
    game.press(button::cross);
    EXPECT_EQ(game.run(), Outcome::Closed) << game.error();
    EXPECT_EQ(game.value("harm"), "nil") << lines;
    return game.told();
}

// Lines of an event, and which of them is wrong: how it is told.
constexpr std::pair<const char*, const char*> faults[] = {
    // Quotes and ends.
    {"affichertexte(\"Il dit \"oui\"\")", "1: a quote inside the text ends it too early"},
    {"affichertexte(\"dos\\\")", "1: the \\ takes away the quote after it"},
    {"t = {\r\n1,\r\n\"a\"b\",\r\n}", "3: a quote inside the text"},
    {"affichertexte(\"bonjour)", "1: a text has no closing quote"},
    {"if var[1] == \"0\" then\r\nif var[1] == \"1\" then", "2: this \"if\" has no end"},
    {"for i = 1, 3 do\r\nt = {\r\ni,\r\n}", "1: this \"for\" has no end"},
    {"if var[1] == \"0\" then\r\nelse\r\nend\r\nvar[2] = \"end\"\r\nend", "5: this end closes nothing"},
    {"x = 1\r\nbreak\r\nx = 2", "2: this \"break\" is in no loop"},
    {"--[[ a\r\nx = 2", "1: unfinished long comment"},
    // As a whole, ev.lua is good Lua with these.
    {"else\r\nharm = true", "1: this "},
    {"end\r\nharm = true\r\nif harm then", "1: this "},
    {"end\r\nwhile true do\r\nend\r\nif 1 then", "1: this "},
    // What is missing or unknown.
    {"affichertexte(\"a\"\r\nhero.x = 1", "1: \")\" is missing at the end"},
    {"if var[1] ~= 5\r\naffichertexte(\"x\")\r\nend", "1: \"then\" is missing at the end"},
    {"if var[1] ~= le roi then\r\nend", "1: the value after ~= is wrong"},
    {"hero.vie = hero.vie -  -- Retrait de  de vie", "1: a value is missing at the end"},
    {"x = 1\r\nbonjour tout le monde", "2: this is no command (at \"tout\")"},
    {"hero.vie = hero.vie - abc -- Retrait de abc",
     "1: the name \"abc\" is unknown; a text needs quotes: \"abc\""},
    {"\r\nif var[1] ~= abc then\r\nend", "2: the name \"abc\" is unknown"},
    {"ouvrir(\"porte\")", "1: there is no function \"ouvrir\""},
    {"if var[1] == 0 then\r\nend",
     "1: var[1] holds a text, which is never equal to a number: type \"0\" with quotes"},
    {"if var[1] < 5 then\r\nend", "1: < and > need two numbers: write tonumber(var[1]) for a variable"},
    {"if var[2] == \"\" then\r\nelse\r\nif var[1] ~= 7 then\r\nend\r\nend", "3: var[1] holds a text"},
    // What Lua takes and the game cannot.
    {"while true do end", "1: this loop never ends, so the event was stopped"},
    {"if var[1] then\r\nwhile true do hero.x = hero.x end\r\nend", "2: this loop never ends"},
    {"runmap(7)", "1: there is no map \"07\": map07.map is missing"},
    {"runmap(\"04\")", "1: there is no map \"04\""},
    {"runmap(9)", "1: the picture images/map09/terrain.png cannot be loaded: is not a whole PNG"},
    {"hero.x = 18 -- D\xE9placement du h\xE9ro(vertical)", "1: hero.x needs a number from 1 to 17, not 18"},
};

TEST(Faults, AreToldInPlainWordsByCellAndLineBeforeTheyDoHarmAndTheGameGoesOn)
{
    std::size_t turn = 0;
    for (const auto& [lines, words] : faults) {
        const Place& place = places[turn++ % std::size(places)];
        const std::string told = toldAt(place, lines);
        const std::size_t named = told.find(place.text() + ", line " + words);
        ASSERT_NE(named, std::string::npos) << lines << told;
        EXPECT_NE(told.find("\nBon ", named), std::string::npos) << lines << told;
    }
}

TEST(Faults, OfAStartThatIsBlockedAreNamedByItsCell)
{
    Game game;
    game.map("01", "1702", std::string(17, '0') + "\r\n" + std::string(16, '0') + "1\r\n");
    game.begin();
    game.run();
    EXPECT_TRUE(contains(game.told(), "\nmap 01, row 2, column 17: the hero's start is a blocked cell"));
}

std::size_t count(const std::string& text, std::string_view part)
{
    std::size_t found = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++found;
    }
    return found;
}

// Begins a game, walks over the cells to the right, and answers each picture that waits for cross.
std::string toldOnTheWay(Game& game, int cells, int times)
{
    game.press(button::cross, 6);
    for (int turn = 0; turn < times; ++turn) {
        for (int i = 0; i < cells; ++i) {
            game.walk(turn % 2 == 0 ? button::right : button::left, 1);
            game.press(button::cross, 2);
        }
    }
    EXPECT_EQ(game.run(), Outcome::Closed) << game.error();
    return game.told();
}

TEST(Faults, OfCellsThatLuaRefusesAreNamedAtTheStartAndOnceWhenMet)
{
    Game game;
    for (int column = 5; column <= 9; ++column) {
        game.event(column, 5, "affichertexte(\"Bon\")\r\nend");
    }
    game.event(6, 5, "affichertexte(colonne .. ligne .. map)");
    const std::string told = toldOnTheWay(game, 3, 3);
    EXPECT_EQ(count(told, "column 5, line 2: this end closes nothing"), 2U) << told;
    EXPECT_EQ(count(told, "column 8, line 2:"), 1U) << told;
    EXPECT_EQ(count(told, "column 9, line 2:"), 0U) << told;
    EXPECT_EQ(count(told, "\nand 1 more"), 1U) << told;
    EXPECT_EQ(count(told, "\n6501 "), 3U) << told;
    EXPECT_FALSE(contains(told, "Bon")) << told;
}

TEST(Faults, AreToldEachTimeTheyStopAnEventAndOnceWhenTheyDoNot)
{
    const std::tuple<const char*, const char*, std::size_t> repeats[] = {
        {"jeu = nil var = 5 nothing()", "there is no function", 2},
        {"error({})", "line 1: table:", 2},
        {"function f() return f() + 1 end f()", "a function calls itself without end", 2},
        {"if var[1] ~= 5 then\r\nend", "type \"5\" with quotes", 1},
        {"if var[1] ~= abc then nothing() end", "\"abc\"", 0}, // the line that failed is named once
        // Nothing is wrong with these.
        {"abc = 1\r\nif var[1] ~= abc then\r\nend", "line", 0},
        {"var[1] = 5\r\nif var[1] ~= 5 then\r\nend", "line", 0},
    };
    for (const auto& [lines, message, times] : repeats) {
        Game game;
        game.event(5, 5, lines);
        const std::string told = toldOnTheWay(game, 1, 3);
        EXPECT_EQ(count(told, message), times) << lines << told;
    }
}

TEST(Faults, LeadToTheCellWhoseLineFailedAndNotToItsCaller)
{
    Game game;
    game.event(5, 5, "function ouvrir()\r\n    hero.vie = hero.vie - cle\r\n    end");
    game.event(6, 5, "ouvrir()\r\naffichertexte(\"x\")");
    const std::string told = toldOnTheWay(game, 2, 1);
    EXPECT_TRUE(contains(told, "\nmap 01, row 5, column 5, line 2: the name \"cle\" is unknown")) << told;
}

} // namespace
} // namespace engine::testing
