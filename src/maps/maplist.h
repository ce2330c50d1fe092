/// The maps of the current project: their count and names, and making a new one.
#pragma once

#include "store/store.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The files below AppDir/data that a new map begins with.
inline constexpr std::string_view mapTemplate = "ftgmma.dat";
inline constexpr std::string_view blockTemplate = "ftgmev.dat";

/// The number of maps; nothing when the descriptor does not hold a count.
std::optional<int> MapCount();

/// The descriptor's section of a map, its number as MapNumberText.
std::string MapSection(std::string_view mapNumber);

/// The name of a map, its number as MapNumberText; empty when it has none.
std::string MapName(std::string_view mapNumber);

/// The names of maps 1 to `count`, empty where a map has none; one pass over the descriptor.
std::vector<std::string> MapNames(int count);

/// Paths of a map of the current project, its number as MapNumberText; empty when the project has no folder.
Path MapFile(std::string_view mapNumber);
Path BlockFile(std::string_view mapNumber);
Path MapSheet(std::string_view mapNumber);

/// Copies a tileset's picture to a map of the current project, making the map's folder when just that lacks.
/// Failure: the reason, for the author to read; the picture that was there stays.
std::string CopyTilesetSheet(std::string_view tileset, std::string_view mapNumber);

/// What making a map led to.
struct NewMapResult {
    std::string mapNumber; ///< MapNumberText of the map; empty when none was made
    std::string failure;   ///< why none was made, for the author to read
};

/// Adds map count + 1 to the current project: folders, tileset picture, block file, map file and keys, the
/// count last. A map file of that number which lies there already (the count was lowered by hand, or could
/// not be written) is kept with all that belongs to it, for it may be somebody's work; only what is missing
/// is added. Failure: told in the result; the count is then as it was.
NewMapResult NewMap();
