/// Which cells of a map have an event.
#pragma once

#include "maps/mapmodel.h"

#include <bitset>
#include <string_view>

/// Cells of the nine rows, by slot.
using CellSet = std::bitset<std::size_t{MapModel::columns} * MapModel::storedRows>;

/// The cells of a map of the current project whose event file holds at least one entry; none when the map has
/// no folder of events. Reads every event file of the map.
CellSet CellsWithEvents(std::string_view mapNumber);
