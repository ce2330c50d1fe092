#include "making.h"

#include "build/scripts.h"
#include "events/eventstore.h"
#include "maps/maplist.h"
#include "project/creation.h"
#include "store/store.h"
#include "variables/variables.h"

#include <stdexcept>

namespace
{

/// As the views write, which is silent; here a full disk must not pass for a finished game.
void write(const std::string& content, const Path& file)
{
    WriteWholeFile(content, file);
    if (ReadWholeFile(file) != content + "\r\n") {
        throw std::runtime_error(file.string() + ": cannot be written");
    }
}

void setKey(const std::string& section, std::string_view key, const std::string& value)
{
    WriteIni(section, key, value, Descriptor());
    if (ReadIni(section, key, Descriptor()) != value) {
        throw std::runtime_error("projet.ini: cannot hold " + value);
    }
}

void orThrow(const std::string& failure)
{
    if (!failure.empty()) {
        throw std::runtime_error(failure);
    }
}

void saveEvent(const SampleEvent& event, const Path& file)
{
    saveevent(file, event.lines);
    if (loadevent(file) != event.lines) {
        throw std::runtime_error(file.string() + ": cannot be written");
    }
}

void saveMap(const std::string& number, const SampleMap& map)
{
    if (ReadIni(MapSection(number), "texture", Descriptor()) != map.tileset) {
        setKey(MapSection(number), "texture", map.tileset);
        orThrow(CopyTilesetSheet(map.tileset, number));
    }
    setKey(MapSection(number), "nom", map.name);
    write(BlockFileText(map.model), BlockFile(number));
    write(MapFileText(map.model, map.start.column, map.start.row), MapFile(number));
    for (const SampleEvent& event : map.events) {
        for (const Cell& cell : event.cells) {
            saveEvent(event, eventpath(number, cell.row, cell.column));
        }
    }
}

void addMaps(const std::vector<SampleMap>& maps)
{
    for (std::size_t made = 1; made < maps.size(); ++made) {
        orThrow(NewMap().failure);
    }
    int number = 0;
    for (const SampleMap& map : maps) {
        saveMap(MapNumberText(++number), map);
    }
}

void addVariables(const std::vector<std::string>& startValues)
{
    int number = 0;
    for (const std::string& value : startValues) {
        BeginVariable(++number);
        FinishVariable(number, value);
    }
    if (StartValues() != startValues) {
        throw std::runtime_error("projet.ini: cannot hold the variables");
    }
}

void fillProject(const SampleGame& game, const std::string& workingName)
{
    orThrow(CreateProject(workingName, game.author).value_or(std::string()));
    addMaps(game.maps);
    addVariables(game.startValues);
    write(VariablesScript(), ProjectFile("variables.lua"));
    write(EventScript(MapCount().value_or(0)), ProjectFile("ev.lua"));
    setKey("Jeu", "nom", game.name);
}

} // namespace

void MakeSample(const SampleGame& game)
{
    const Path target = ProjectFolder(game.name);
    if (target.empty()) {
        throw std::runtime_error("no name for a folder: " + game.name);
    }
    if (std::filesystem::exists(std::filesystem::symlink_status(target))) {
        return;
    }
    const std::string workingName = "." + game.name + ".making";
    const Path working = ProjectFolder(workingName);
    std::filesystem::create_directories(target.parent_path());
    std::filesystem::remove_all(working);
    try {
        fillProject(game, workingName);
        std::filesystem::rename(working, target);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove_all(working, ignored);
        throw;
    }
}
