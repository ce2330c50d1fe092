/// The tilesets that lie beside the tool: names of their files, and how many there are.
#pragma once

#include "store/store.h"

#include <string>
#include <string_view>

/// The folder of a tileset ("01"). Empty for a number that is not one plain component of a path, so that a
/// descriptor cannot lead out of the folder of tilesets.
Path TilesetFolder(std::string_view tileset);

/// The picture of tile `tile`, counted from 1. Empty as the folder is.
Path TilePicture(std::string_view tileset, int tile);

/// The whole tileset as one picture, for the game.
Path TilesetSheet(std::string_view tileset);

/// The number of tiles that a tileset offers; 0 when its descriptor does not tell a count.
int TileCount(std::string_view tileset);

/// The number of tilesets "01", "02", … that follow each other without a gap; each is known by its tile
/// count's text.
int TilesetCount();
