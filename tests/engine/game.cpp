#include "tests/engine/game.h"

#include "build/scripts.h"
#include "maps/maplist.h"
#include "maps/mapmodel.h"
#include "project/creation.h"
#include "variables/variables.h"

#include <algorithm>
#include <stdexcept>

namespace engine::testing
{

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

} // namespace

Game::Game()
    : PlayerRun(layOut())
{
    FinishVariable(1, "0");
    WriteVariablesScript();
    map("01", "0405");
}

std::filesystem::path Game::layOut() const
{
    std::filesystem::create_directory_symlink(std::filesystem::path(ENGINE_APPDIR) / "data", at("data"));
    std::filesystem::create_directory(at("projets"));
    SetAppDir(path());
    if (const auto failure = CreateProject("Essai", "Kestrel")) {
        throw std::runtime_error(*failure);
    }
    write("index.lua", spyingBootScript);
    return path();
}

void Game::map(const std::string& number, const std::string& start, const std::string& blocks) const
{
    if (number != "01") {
        CopyTilesetSheet("04", number);
    }
    MapModel meadow;
    meadow.reset();
    file("map" + number + ".map", start + MapFileText(meadow, 1, 1).substr(4) + "\r\n");
    file("map" + number + ".ev", blocks.empty() ? BlockFileText(meadow) + "\r\n" : blocks);
}

void Game::event(const std::string& map, int column, int row, const std::string& lines)
{
    file("ev/map" + map + "/ev" + std::to_string(row) + std::to_string(column), "\r\n" + lines + "\r\n");
    mapsWithEvents_ = std::max(mapsWithEvents_, std::stoi(map));
}

void Game::press(Buttons buttons, int times)
{
    for (int i = 0; i < times; ++i) {
        tap(now_, buttons);
        now_ += 6;
    }
}

void Game::walk(Buttons direction, int cells)
{
    hold(direction);
    PlayerRun::hold(now_ + cells * framesPerCell - 7, button::none);
    now_ += cells * framesPerCell + 4;
}

void Game::enter(const std::string& lines)
{
    event(5, 5, lines);
    begin();
    walk(button::right, 1);
}

Outcome Game::run()
{
    if (mapsWithEvents_ > 0) {
        WriteEventScript(mapsWithEvents_);
    }
    return play(now_);
}

} // namespace engine::testing
