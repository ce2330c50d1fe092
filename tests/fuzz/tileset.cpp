// Input: a tileset's number on one line, then the descriptor of tileset 01.
#include "target.h"
#include "tests/core/appdir.h"

#include "maps/tileset.h"
#include "store/ini.h"

namespace
{

void requireBelow(const Path& folder, const Path& path)
{
    Require(path.empty() || path.lexically_normal().parent_path() == folder, "a tileset's files lie in it");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TemporaryAppDir app;
    std::string_view descriptor = TextOf(data, size);
    const std::string_view number = TakeLine(descriptor);
    app.write("data/images/terrains/terrain01/texture.ini", descriptor);

    const Path folder = TilesetFolder(number);
    requireBelow(app.at("data/images/terrains"), folder);
    requireBelow(folder, TilePicture(number, 1));
    requireBelow(folder, TilesetSheet(number));
    const std::string tiles = IniValue(descriptor, "texture", "nbimg");
    Require(TilesetCount() == (tiles.empty() ? 0 : 1), "a tileset counts by its tiles");
    Require(TileCount("01") >= 0 && TileCount("01") <= 32767, "tiles are few");
    return 0;
}
