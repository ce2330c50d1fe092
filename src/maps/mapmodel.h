/// The map that one map editor view holds, and the text of its two files.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

/// The grid: columns and rows count from 1, slots from 0. The ninth row is stored but never loaded or drawn.
struct MapModel {
    static constexpr int columns = 17;
    static constexpr int rows = 8;
    static constexpr int storedRows = 9;
    static constexpr int slots = 201; // the cells fill 153; the system has always held this many
    /// Size of a cell on the map's picture, in twips: 28 × 29 pixels, the size of a tile picture.
    static constexpr int cellWidth = 420;
    static constexpr int cellHeight = 435;

    /// One text per slot; nothing for a slot that was never set.
    using Slots = std::array<std::optional<std::string>, slots>;

    Slots tiles;  ///< tile codes: the number of the tile in its tileset, minus one
    Slots blocks; ///< block flags: "1" is blocked, everything else is free

    bool operator==(const MapModel&) const = default;

    bool isBlocked(int slot) const;
    /// Turns "1" into "0" and anything else into "1".
    void toggleBlock(int slot);
    /// Sets every slot of both arrays to "0".
    void reset();
    /// Reads rows 1 to 8 from the texts of the map and the block file, by position: line ends are not looked
    /// for, a position past the end gives an empty text. The other slots keep what they hold.
    void read(std::string_view mapText, std::string_view blockText);
};

/// The tile, counted from 1, that a slot's code stands for; the first one for a slot that was never set,
/// nothing for a code that is no number.
std::optional<int> TileNumber(const std::optional<std::string>& code);

/// A cell of the grid, counted from 1.
struct Cell {
    int row = 0;
    int column = 0;

    bool operator==(const Cell&) const = default;
};

/// The cell at a place of the map's picture, in twips; row 0 when there is none.
Cell cellAt(int x, int y);

/// The slot of a cell.
constexpr int slotOf(int row, int column)
{
    return (row - 1) * MapModel::columns + (column - 1);
}

/// The cell of a slot.
constexpr Cell cellOf(int slot)
{
    return {slot / MapModel::columns + 1, slot % MapModel::columns + 1};
}

/// The hero's start as it stands in a map file: two characters each, fewer when the text ends.
std::string HeroStartColumn(std::string_view mapText);
std::string HeroStartRow(std::string_view mapText);

/// The text of the map file, without the CR LF that every whole-file write adds.
std::string MapFileText(const MapModel& map, int startColumn, int startRow);

/// The text of the block file, likewise.
std::string BlockFileText(const MapModel& map);
