/// The readable source of a sample game: one file with its name and variables, one for each map.
#pragma once

#include "maps/mapmodel.h"
#include "store/platform.h"

#include <string>
#include <vector>

/// The lines of one event and the cells that carry it.
struct SampleEvent {
    std::vector<Cell> cells;
    std::vector<std::string> lines;
};

struct SampleMap {
    std::string name;
    std::string tileset; ///< as in the descriptor: "01"
    Cell start;
    MapModel model;
    std::vector<SampleEvent> events;
};

/// A game as an author would type it in the program; texts are Windows-1252 bytes.
struct SampleGame {
    std::string name;
    std::string author;
    std::vector<std::string> startValues; ///< of variables 1, 2, …
    std::vector<SampleMap> maps;          ///< maps 1, 2, …
};

/// Reads game.txt and map01.txt, map02.txt, … of a folder.
///
/// Every line is a word and what belongs to it; "|" carries on with the line before, "#" begins a remark. A
/// map is told by "tile CHARACTER CODE free|blocked" and eight lines "row"; "cells" names the cells of an
/// event, by "column,row" or by a tile's character, and the event panel's commands follow it.
/// Failure: std::runtime_error with file and line of the mistake.
SampleGame ReadSample(const Path& folder);
