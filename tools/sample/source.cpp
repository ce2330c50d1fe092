#include "source.h"

#include "commands.h"
#include "sourcelines.h"
#include "store/store.h"

#include <map>
#include <stdexcept>

namespace
{

struct Tile {
    std::string code;
    std::string block;
};

/// A map while its file is read.
struct MapDraft {
    SampleMap map;
    std::map<char, Tile> tiles;
    std::vector<std::string> rows;
};

void addTile(MapDraft& draft, const SourceLine& line)
{
    const auto words = wordsOf(line.rest);
    if (words.size() != 3 || words[0].size() != 1 || words[1].size() != 1 ||
        (words[2] != "free" && words[2] != "blocked")) {
        line.fail("a tile is a character, a code of one digit and free or blocked");
    }
    draft.tiles[words[0][0]] = {words[1], words[2] == "blocked" ? "1" : "0"};
}

void addRow(MapDraft& draft, const SourceLine& line)
{
    if (line.rest.size() != MapModel::columns || draft.rows.size() == MapModel::rows) {
        line.fail("a map has eight rows of 17 tiles");
    }
    draft.rows.push_back(line.rest);
    for (int column = 1; column <= MapModel::columns; ++column) {
        const auto tile = draft.tiles.find(line.rest[static_cast<std::size_t>(column - 1)]);
        if (tile == draft.tiles.end()) {
            line.fail("column " + std::to_string(column) + " holds no tile of this map");
        }
        const auto slot = static_cast<std::size_t>(slotOf(static_cast<int>(draft.rows.size()), column));
        draft.map.model.tiles[slot] = tile->second.code;
        draft.map.model.blocks[slot] = tile->second.block;
    }
}

void addCellsOfTile(std::vector<Cell>& cells, const MapDraft& draft, char tile)
{
    for (std::size_t row = 0; row < draft.rows.size(); ++row) {
        for (std::size_t column = 0; column < draft.rows[row].size(); ++column) {
            if (draft.rows[row][column] == tile) {
                cells.push_back({static_cast<int>(row) + 1, static_cast<int>(column) + 1});
            }
        }
    }
}

void beginEvent(MapDraft& draft, const SourceLine& line)
{
    SampleEvent event;
    for (const std::string& word : wordsOf(line.rest)) {
        if (word.size() == 1) {
            addCellsOfTile(event.cells, draft, word[0]);
        } else {
            event.cells.push_back(cellIn(line, word));
        }
    }
    draft.map.events.push_back(std::move(event));
}

void readLine(MapDraft& draft, const SourceLine& line)
{
    if (line.word == "name") {
        draft.map.name = line.rest;
    } else if (line.word == "tileset") {
        draft.map.tileset = line.rest;
    } else if (line.word == "start") {
        draft.map.start = cellIn(line, line.rest);
    } else if (line.word == "tile") {
        addTile(draft, line);
    } else if (line.word == "row") {
        addRow(draft, line);
    } else if (line.word == "cells") {
        beginEvent(draft, line);
    } else if (draft.map.events.empty()) {
        line.fail("\"" + line.word + "\" stands before the first \"cells\"");
    } else {
        appendCommand(draft.map.events.back().lines, line);
    }
}

SampleMap readMap(const Path& file)
{
    MapDraft draft;
    for (const SourceLine& line : sourceLines(file)) {
        readLine(draft, line);
    }
    if (draft.rows.size() != MapModel::rows || draft.map.start.row == 0) {
        throw std::runtime_error(file.string() + ": rows or the start are missing");
    }
    return std::move(draft.map);
}

} // namespace

SampleGame ReadSample(const Path& folder)
{
    SampleGame game;
    for (const SourceLine& line : sourceLines(folder / "game.txt")) {
        if (line.word == "name") {
            game.name = line.rest;
        } else if (line.word == "author") {
            game.author = line.rest;
        } else if (line.word == "variable") {
            game.startValues.push_back(line.rest);
        } else {
            line.fail("no such word here: " + line.word);
        }
    }
    const auto mapFile = [&folder](std::size_t number) {
        return folder / ("map" + MapNumberText(static_cast<int>(number)) + ".txt");
    };
    while (std::filesystem::exists(mapFile(game.maps.size() + 1))) {
        game.maps.push_back(readMap(mapFile(game.maps.size() + 1)));
    }
    return game;
}
