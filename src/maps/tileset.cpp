#include "maps/tileset.h"

#include "store/numbers.h"

namespace
{

std::string tileCountText(std::string_view tileset)
{
    const Path folder = TilesetFolder(tileset);
    return folder.empty() ? std::string() : ReadIni("texture", "nbimg", folder / "texture.ini");
}

} // namespace

Path TilesetFolder(std::string_view tileset)
{
    const Path name = DiskName("terrain" + std::string(tileset));
    if (name != name.filename() || tileset.find('\0') != std::string_view::npos) {
        return {};
    }
    return AppDir() / "data" / "images" / "terrains" / name;
}

Path TilePicture(std::string_view tileset, int tile)
{
    const Path folder = TilesetFolder(tileset);
    return folder.empty() ? Path() : folder / ("terrain0" + std::to_string(tile) + ".JPG");
}

Path TilesetSheet(std::string_view tileset)
{
    const Path folder = TilesetFolder(tileset);
    return folder.empty() ? Path() : folder / "terrain01.png";
}

int TileCount(std::string_view tileset)
{
    return CountFrom(tileCountText(tileset)).value_or(0);
}

int TilesetCount()
{
    int count = 0;
    while (!tileCountText(MapNumberText(count + 1)).empty()) {
        ++count;
    }
    return count;
}
