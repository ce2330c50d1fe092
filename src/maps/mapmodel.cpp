#include "maps/mapmodel.h"

#include "store/numbers.h"

namespace
{

constexpr std::size_t headerBytes = 6;                  // CCRR and CR LF
constexpr std::size_t rowBytes = MapModel::columns + 2; // the row and CR LF

std::string charactersAt(std::string_view text, std::size_t position, std::size_t count)
{
    return std::string(position < text.size() ? text.substr(position, count) : std::string_view());
}

void readRows(MapModel::Slots& slots, std::string_view text, std::size_t firstRow)
{
    for (int row = 1; row <= MapModel::rows; ++row) {
        const std::size_t start = firstRow + static_cast<std::size_t>(row - 1) * rowBytes;
        for (int column = 1; column <= MapModel::columns; ++column) {
            slots[static_cast<std::size_t>(slotOf(row, column))] =
                charactersAt(text, start + static_cast<std::size_t>(column - 1), 1);
        }
    }
}

void appendRows(std::string& text, const MapModel::Slots& slots)
{
    for (int row = 1; row <= MapModel::storedRows; ++row) {
        for (int column = 1; column <= MapModel::columns; ++column) {
            text += slots[static_cast<std::size_t>(slotOf(row, column))].value_or("");
        }
        text += "\r\n";
    }
}

} // namespace

Cell cellAt(int x, int y)
{
    const Cell cell{y / MapModel::cellHeight + 1, x / MapModel::cellWidth + 1};
    const bool inside =
        x >= 0 && y >= 0 && cell.row <= MapModel::storedRows && cell.column <= MapModel::columns;
    return inside ? cell : Cell{};
}

std::optional<int> TileNumber(const std::optional<std::string>& code)
{
    const std::optional<int> number = code ? CountFrom(*code) : 0;
    return number ? std::optional(*number + 1) : std::nullopt;
}

bool MapModel::isBlocked(int slot) const
{
    return blocks[static_cast<std::size_t>(slot)] == "1";
}

void MapModel::toggleBlock(int slot)
{
    blocks[static_cast<std::size_t>(slot)] = isBlocked(slot) ? "0" : "1";
}

void MapModel::reset()
{
    tiles.fill("0");
    blocks.fill("0");
}

void MapModel::read(std::string_view mapText, std::string_view blockText)
{
    readRows(tiles, mapText, headerBytes);
    readRows(blocks, blockText, 0);
}

std::string HeroStartColumn(std::string_view mapText)
{
    return charactersAt(mapText, 0, 2);
}

std::string HeroStartRow(std::string_view mapText)
{
    return charactersAt(mapText, 2, 2);
}

std::string MapFileText(const MapModel& map, int startColumn, int startRow)
{
    std::string text = TwoDigits(startColumn) + TwoDigits(startRow) + "\r\n";
    appendRows(text, map.tiles);
    return text;
}

std::string BlockFileText(const MapModel& map)
{
    std::string text;
    appendRows(text, map.blocks);
    return text;
}
