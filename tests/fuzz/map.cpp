// Input: the text of a map file; the block file is the same text without its first six bytes.
#include "target.h"

#include "maps/mapmodel.h"
#include "store/numbers.h"

namespace
{

/// A map as it lies on disk.
struct Files {
    std::string map;
    std::string blocks;

    bool operator==(const Files&) const = default;
};

MapModel loaded(const Files& files)
{
    MapModel model;
    model.read(files.map, files.blocks);
    return model;
}

/// As the editor writes what it has loaded.
Files saved(const Files& files)
{
    const MapModel model = loaded(files);
    const int column = CountFrom(HeroStartColumn(files.map)).value_or(1);
    const int row = CountFrom(HeroStartRow(files.map)).value_or(1);
    return {MapFileText(model, column, row) + "\r\n", BlockFileText(model) + "\r\n"};
}

bool holdsAllCells(const Files& files)
{
    constexpr std::size_t rows = 8 * 19 - 2;
    return files.map.size() >= 6 + rows && files.blocks.size() >= rows;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(TextOf(data, size));
    const Files files = {text, text.size() < 6 ? std::string() : text.substr(6)};
    const Files again = saved(files);
    if (holdsAllCells(files)) {
        Require(loaded(again) == loaded(files), "what was loaded and saved is loaded again");
        Require(again.map.size() == 162 && again.blocks.size() == 156, "a whole map has its size");
        Require(saved(again) == again, "saving what the editor wrote changes no byte");
    }
    return 0;
}
