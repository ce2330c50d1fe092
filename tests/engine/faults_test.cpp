#include "tests/engine/game.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <string>
#include <utility>

namespace engine::testing
{
namespace
{

// A cell and the line of its event where a mistake is put.
struct Place {
    const char* map;
    int column;
    int row;
    int line;

    std::string text() const
    {
        return std::string("map ") + map + ", row " + std::to_string(row) + ", column " +
               std::to_string(column);
    }
};

constexpr Place places[] = {
    {"01", 1, 1, 1}, {"01", 17, 8, 12}, {"02", 12, 3, 2}, {"02", 10, 1, 1}, {"03", 16, 8, 10},
    {"03", 2, 4, 3}, {"12", 17, 1, 5},  {"12", 11, 7, 1}, {"12", 1, 8, 99}, {"02", 9, 5, 4},
};

// A way to go wrong. The line to be named is the first one, or the one after "@". words: part of every
// message.
struct Kind {
    const char* words;
    const char* faults[std::size(places)];
};

constexpr Kind kinds[] = {
    {"quote",
     {R"-(affichertexte("Il dit "oui""))-", R"-(affichertexte("a"b"))-", R"-(affichertexte(""bonjour""))-",
      R"-(affichertexte("fin")"))-", R"-(var[1] = "a"b")-", "if var[1] == \"a\"b\" then\nend",
      R"-(affichertexte("dos\"))-", R"-(affichertexte("5" de haut"))-", R"-(var[2] = """)-",
      "affichertexte(\"x\")\n@affichertexte(\"l'\"ami\")"}},
    {"has no end",
     {"if var[1] == \"0\" then", "if var[1] == \"0\" then\naffichertexte(\"x\")",
      "if var[1] == \"0\" then\nif var[1] == \"1\" then\nend",
      "if var[1] == \"0\" then\n@if var[1] == \"1\" then", "if var[1] ~= \"0\" then\nvar[1] = \"1\"\nelse",
      "for i = 1, 3 do\nt = {\ni,\n}", "while var[1] == \"2\" do -- tant que", "local f = function()",
      "repeat", "if var[1] == \"0\" then\nend\n@if var[1] == \"end\" then"}},
    {"",
     {"end", "    end", "if var[1] == \"0\" then\nend\n@end", "@end -- fin\nif var[1] == \"0\" then",
      "if var[1] == \"0\" then\nelse\nend\nvar[2] = \"end\"\n@end", "else", "elseif var[1] == \"0\" then",
      "for i = 1, 2 do\nif i == 3 then\nend\nend\n@end", "until var[1]", "end\nend"}},
    {"",
     {"hero.vie = hero.vie - abc -- Retrait de abc", "if var[1] ~= abc then\nend", "ouvrir(\"porte\")",
      "hero.vie = hero.vie + dix", "if var[1] == oui then\nend", "affichertexte(bonjour)",
      "hero.x = colone + 1", "affichertexte(\"a\" .. nom)", "var[2] = oui", "hero.vie = vie"}},
    {"",
     {"if var[1] ~= 5 then\nhero.vie = 90\nend", "if var[1] == 0 then\nend", "if var[1] ~= -1 then\nend",
      "if var[1] ~= 2.5 then\nend", "if var[1] < 5 then\nend", "if var[1] >= 10 then\nend",
      "if hero.vie ~= 5 and var[1]~=5 then -- \"\nend",
      "if var[2] == \"\" then\nelse\n@if var[1] ~= 7 then\nend\nend", "while var[1] == 3 do\nend",
      "if var[1] ~= 5 then\nend"}},
    {"never ends",
     {"while true do end", "repeat until false", "for i = 1, 1/0 do end", "while true do hero.vie = 50 end",
      "while 1 do var[2] = \"x\" end", "while hero.vie > 0 do end",
      "if var[1] then\n@while true do hero.x = hero.x end\nend", "repeat local x = {} until x[1]",
      "for i = 1, 1e9 do math.sin(i) end", "while not fini do end"}},
    {"there is no map",
     {"runmap(\"07\")", "runmap(\"99\")", "runmap(7)", "runmap(\"\")", "runmap(\"2\")", "runmap(\"abc\")",
      "runmap(\"../01\")", "runmap(\"00\")", "runmap(\"04\")", "runmap(\"123\")"}},
    {"needs a number",
     {"hero.x = 0", "hero.x = 18 -- Déplacement du héro(vertical)", "hero.x = -3", "hero.y = 9", "hero.y = 0",
      "hero.x = \"loin\"", "hero.vie = \"beaucoup\"", "hero.x = nil", "hero.y = 1/0",
      "for i = 1, 9 do hero.x = 99 end"}},
    {"terrain.png",
     {"runmap(\"05\")", "runmap(\"06\")", "runmap(\"08\")", "runmap(\"09\")", "runmap(\"10\")", "runmap(5)",
      "runmap(6)", "runmap(8)", "runmap(9)", "runmap(10)"}},
};

// Maps that cannot be entered: no text in one, and pictures that are none.
void layTraps(const Game& game)
{
    game.file("map04.map", "");
    for (const char* number : {"05", "06", "08", "09", "10"}) {
        game.map(number, "0101");
        game.remove(std::string("images/map") + number + "/terrain.png");
    }
    game.file("images/map06/terrain.png", "");
    game.file("images/map08/terrain.png", "not a picture");
    game.file("images/map09/terrain.png", game.content("images/map02/terrain.png").substr(0, 80));
    game.remove("images/map10");
}

// A game whose hero comes to stand beside a place, on a cell with a good event.
struct Visit {
    const Place& place;
    Game game;
    Buttons there = place.column < 17 ? button::left : button::right;
    Buttons back = place.column < 17 ? button::right : button::left;

    explicit Visit(const Place& target)
        : place(target)
    {
        for (const char* number : {"01", "02", "03", "12"}) {
            startAt(number, 8, 8);
        }
        game.event("01", 9, 8, std::string("runmap(\"") + place.map + "\")");
        const int beside = place.column < 17 ? place.column + 1 : place.column - 1;
        startAt(place.map, beside, place.row);
        game.event(place.map, beside, place.row, "if var[1] ~= \"5\" then\r\naffichertexte(\"Bon\")\r\nend");
    }

    void startAt(const std::string& map, int column, int row, const std::string& blocks = "") const
    {
        game.map(map, (column < 10 ? "0" : "") + std::to_string(column) + "0" + std::to_string(row), blocks);
    }

    // Puts a wrong line between good ones. The place to be named.
    std::string putFault(std::string fault)
    {
        const std::size_t mark = fault.find('@');
        const auto above = mark < fault.size() ? std::count(fault.begin(), fault.begin() + mark, '\n') : 0;
        std::erase(fault, '@');
        std::string lines;
        for (int line = 1; line < place.line; ++line) {
            lines += line % 2 == 0 ? "var[7] = \"end if\"\n" : "-- d'abord \"\n";
        }
        lines += fault + "\nvar[8] = \"x\"\nif var[1] == \"0\" then\nvar[9] = \"y\"\nend";
        game.event(place.map, place.column, place.row, std::regex_replace(lines, std::regex("\n"), "\r\n"));
        return place.text() + ", line " + std::to_string(place.line + above) + ": ";
    }

    // Plays until the hero has come to the map and, with a good event beside it, over the place.
    void expectNamedAndGoOn(const std::string& prefix, const std::string& words, bool over)
    {
        game.begin();
        game.press(button::cross);
        if (std::string_view(place.map) != "01") {
            game.walk(button::right, 1);
            game.wait(40);
            game.press(button::cross);
        }
        if (over) {
            game.walk(there, 1);
        }
        game.wait(60);
        game.press(button::cross, 2);
        game.walk(back, 1);
        game.press(button::cross);
        EXPECT_EQ(game.run(), Outcome::Closed) << game.error();
        const std::string told = game.told();
        const std::size_t named = told.find("\n" + prefix);
        ASSERT_NE(named, std::string::npos) << prefix << told;
        EXPECT_TRUE(contains(told.substr(named, told.find('\n', named + 1) - named), words)) << told;
        EXPECT_TRUE(contains(told.substr(named), "\nBon ")) << prefix << told;
    }
};

TEST(Faults, AreNamedByCellAndLineAndTheGameGoesOn)
{
    for (const Kind& kind : kinds) {
        for (std::size_t i = 0; i < std::size(places); ++i) {
            Visit visit(places[i]);
            layTraps(visit.game);
            visit.expectNamedAndGoOn(visit.putFault(kind.faults[i]), kind.words, true);
        }
    }
}

TEST(Faults, OfABlockedStartAreNamedByItsCell)
{
    for (const Place& place : places) {
        Visit visit(place);
        std::string blocks(19 * 8, '0');
        blocks.at(static_cast<std::size_t>(19 * (place.row - 1) + place.column - 1)) = '1';
        visit.startAt(place.map, place.column, place.row, blocks);
        visit.expectNamedAndGoOn(place.text() + ": ", "blocked", false);
    }
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
    struct Repeat {
        const char* lines;
        const char* message;
        std::size_t times;
    };
    const Repeat repeats[] = {
        {"jeu = nil var = 5 nothing()", "there is no function", 2},
        {"error({})", "line 1: table:", 2},
        {"function f() return f() + 1 end f()", "a function calls itself without end", 2},
        {"local t = {} while true do t[#t + 1] = {} end", "not enough memory", 2},
        {"for i = 1, 3 do hero.x = 99 end", "hero.x needs", 2},
        {"if var[1] ~= abc then\r\nend", "the name \"abc\" is unknown", 1},
        {"if var[1] ~= 5 then\r\nend", "type \"5\" with quotes", 1},
        {"if var[1] ~= abc then nothing() end", "\"abc\"", 0}, // the line that failed is named once
        // Nothing is wrong with these.
        {"abc = 1\r\nif var[1] ~= abc then\r\nend", "line", 0},
        {"local abc\r\nif var[1] == abc then\r\nend", "line", 0},
        {"var[1] = 5\r\nif var[1] ~= 5 then\r\nend", "line", 0},
        {"if var[1] ~= nil and var[1] ~= \"var[1] == 5\" then\r\nend -- var[1] == 5", "line", 0},
    };
    for (const auto& [lines, message, times] : repeats) {
        Game game;
        game.event(5, 5, lines);
        const std::string told = toldOnTheWay(game, 1, 3);
        EXPECT_EQ(count(told, message), times) << lines << told;
    }
}

TEST(Faults, OfWritingAreToldInPlainWordsBeforeTheyDoHarm)
{
    const std::pair<const char*, const char*> mistakes[] = {
        {"affichertexte(\"a\"\r\nhero.x = 1", "line 1: \")\" is missing at the end"},
        {"if var[1] ~= 5\r\naffichertexte(\"x\")\r\nend", "line 1: \"then\" is missing at the end"},
        {"t = {\r\n1,\r\n\"a\"b\",\r\n}", "line 3: a quote inside the text"},
        {"if var[1] ~= le roi then\r\nend", "line 1: the value after ~= is wrong"},
        {"hero.vie = hero.vie -  -- Retrait de  de vie", "line 1: a value is missing at the end"},
        {"x = 1\r\nbonjour tout le monde", "line 2: this is no command (at \"tout\")"},
        {"affichertexte(\"bonjour)", "line 1: a text has no closing quote"},
        {"if var[1] then\r\nelse if var[2] then\r\nend", "line 1: this \"if\" has no end"},
        {"x = 1\r\nreturn\r\nx = 2", "line 3: "},
        {"x = 1\r\nbreak\r\nx = 2", "line 2: this \"break\" is in no loop"},
        {"while var[1] do\r\nif var[2] then\r\nbreak\r\nend\r\nend end", "line 5: this end closes nothing"},
        {"--[[ a\r\nx = 2", "line 1: unfinished long comment"},
        // As a whole, ev.lua is good Lua with these.
        {"else\r\nharm = true", "line 1: this "},
        {"end\r\nharm = true\r\nif harm then", "line 1: this "},
        {"end\r\nwhile true do\r\nend\r\nif 1 then", "line 1: this "},
    };
    for (const auto& [lines, message] : mistakes) {
        Game game;
        game.event(12, 3, lines);
        game.event(5, 5, "affichertexte(\"Bon\")");
        const std::string told = toldOnTheWay(game, 1, 1);
        EXPECT_TRUE(contains(told, std::string("\nmap 01, row 3, column 12, ") + message)) << lines << told;
        EXPECT_TRUE(contains(told, "\nBon ")) << lines << told;
        EXPECT_EQ(game.value("harm"), "nil") << lines;
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
