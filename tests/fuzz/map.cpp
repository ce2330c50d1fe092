// Input: the text of a map file; the block file is the same text without its first six bytes.
#include "target.h"

#include "maps/mapmodel.h"

#include <algorithm>

namespace
{

MapModel loaded(std::string_view map, std::string_view blocks)
{
    MapModel model;
    model.read(map, blocks);
    return model;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t head = 6;
    constexpr std::size_t rows = 8 * 19 - 2;
    const std::string_view text = TextOf(data, size);
    const MapModel model = loaded(text, text.substr(std::min(head, size)));
    const std::string map = MapFileText(model, 1, 1) + "\r\n";
    const std::string blocks = BlockFileText(model) + "\r\n";
    if (size >= head + rows) {
        const MapModel again = loaded(map, blocks);
        Require(again == model, "what was loaded and saved is loaded again");
        Require(map.size() == 162 && blocks.size() == 156, "a whole map has its size");
        Require(MapFileText(again, 1, 1) + "\r\n" == map && BlockFileText(again) + "\r\n" == blocks,
                "saving what the editor wrote changes no byte");
    }
    return 0;
}
