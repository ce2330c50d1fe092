#include "tests/engine/game.h"

#include "player/code_page.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace engine::testing
{

namespace fs = std::filesystem;

namespace
{

// Starts the project and notes the texts of each picture on the way to the screen.
constexpr std::string_view spyingBootScript = R"lua(
local real, texts, last = screen, "", nil
pages = ""
screen = setmetatable({}, { __index = function(spy, name)
    return function(first, ...)
        if first == spy then first = real end
        return real[name](first, ...)
    end
end })
function screen:print(x, y, text, color)
    if text ~= last then texts = texts .. text .. "|" end
    last = text
    real:print(x, y, text, color)
end
function screen.flip()
    if texts ~= "" then pages = pages .. texts .. "\n" end
    texts, last = "", nil
    real.flip()
end
System.currentDirectory("projets/Essai")
dofile("index.lua")
)lua";

std::string repeated(std::string_view line, int times)
{
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += line;
    }
    return text;
}

void copyPictures(const fs::path& images)
{
    const fs::path pictures = sourceFolder() / "data/images";
    fs::create_directories(images / "personnages");
    fs::copy(pictures / "personnages/perso01", images / "personnages/hero");
    fs::copy(pictures / "system/theme01", images / "System");
}

} // namespace

fs::path sourceFolder()
{
    return QUESTFORGE_SOURCE_DIR;
}

std::string sourceText(const fs::path& name)
{
    std::ifstream file(sourceFolder() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string projectText(std::string_view text)
{
    std::string lines;
    for (const char byte : player::cp1252FromUtf8(text)) {
        lines += byte == '\n' ? "\r\n" : std::string(1, byte);
    }
    return lines + "\r\n";
}

Game::Game()
{
    folder_.write("index.lua", spyingBootScript);
    for (const char* name : {"index.lua", "menustart.lua", "ram.lua", "map.lua", "ev.lua"}) {
        file(name, projectText(sourceText(fs::path("engine") / name)));
    }
    file("variables.lua", "--Variables du jeu\r\nvar = {}\r\nvar[1] = \"0\"\r\n\r\n");
    file("projet.ini", "[Jeu]\r\nnom=Essai\r\ncartes=1\r\n[Carte01]\r\ntexture=01\r\nnom=Carte 1\r\n");
    map("01", "0405");
    copyPictures(folder_.path() / project_ / "images");
}

void Game::file(const std::string& name, std::string_view content) const
{
    folder_.write(project_ / name, content);
}

void Game::remove(const std::string& name) const
{
    fs::remove_all(folder_.path() / project_ / name);
}

void Game::map(const std::string& number, const std::string& start, const std::string& blocks) const
{
    const std::string end = "\r\n";
    const fs::path images = folder_.path() / project_ / "images" / ("map" + number);
    fs::create_directories(images);
    const char* const terrain = number == "01" ? "terrain01" : "terrain04";
    fs::copy_file(sourceFolder() / "data/images/terrains" / terrain / "terrain01.png", images / "terrain.png",
                  fs::copy_options::skip_existing);
    file("map" + number + ".map", start + end + repeated(std::string(17, '0') + end, 8) + end + end);
    file("map" + number + ".ev", blocks.empty() ? repeated(std::string(17, '0') + end, 8) + end : blocks);
}

void Game::event(const std::string& map, int column, int row, const std::string& lines)
{
    const std::string text = "\r\n" + lines + "\r\n";
    file("ev/map" + map + "/ev" + std::to_string(row) + std::to_string(column), text);
    events_[map][{row, column}] = text;
}

void Game::writeEvents() const
{
    std::string text = "function runev(colonne,ligne,map)\r\n";
    for (const auto& [map, cells] : events_) {
        text += "if map == \"" + map + "\" then\r\n";
        for (int cell = 0; cell < 9 * 17; ++cell) {
            const std::pair<int, int> place(1 + cell / 17, 1 + cell % 17);
            const auto found = cells.find(place);
            text += "\r\n    if ligne == " + std::to_string(place.first) +
                    " and colonne == " + std::to_string(place.second) + " then\r\n    " +
                    (found == cells.end() ? "" : found->second) + "\r\n    end\r\n\r\n";
        }
        text += "end\r\n";
    }
    file("ev.lua", text + "\r\nend\r\n");
}

player::testing::PlayerRun& Game::player()
{
    if (!player_) {
        player_.emplace(folder_.path());
    }
    return *player_;
}

void Game::press(Buttons buttons)
{
    player().tap(now_, buttons);
    now_ += 6;
}

void Game::walk(Buttons direction, int cells)
{
    player().hold(now_, direction);
    player().hold(now_ + cells * framesPerCell - 7, button::none);
    now_ += cells * framesPerCell + 4;
}

void Game::begin()
{
    press(button::cross);
}

Frame Game::watch(const std::string& expression)
{
    player().watch(now_, expression);
    return now_;
}

Frame Game::capture()
{
    player().capture(now_);
    return now_;
}

Outcome Game::run()
{
    if (!events_.empty()) {
        writeEvents();
    }
    return player().play(now_);
}

std::string Game::told()
{
    std::string text = pages();
    std::replace(text.begin(), text.end(), '|', ' ');
    return text;
}

} // namespace engine::testing
