#include "toolfolder.h"

#include "maps/maplist.h"
#include "maps/mapmodel.h"
#include "project/creation.h"
#include "store/store.h"

#include <cstdlib>
#include <stdexcept>

namespace
{

/// A map whose cells use all tiles of a tileset of ten.
MapModel patchwork(int firstTile)
{
    MapModel map;
    map.reset();
    for (std::size_t slot = 0; slot < map.tiles.size(); ++slot) {
        map.tiles[slot] = std::to_string((slot * 7 + static_cast<std::size_t>(firstTile)) % 10);
    }
    return map;
}

void writeMap(const MapModel& map, const std::string& number)
{
    WriteWholeFile(BlockFileText(map), BlockFile(number));
    WriteWholeFile(MapFileText(map, 1, 1), MapFile(number));
}

} // namespace

ToolFolder::ToolFolder()
{
    std::string pattern = std::filesystem::temp_directory_path() / "questforge-bench-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    path_ = pattern;
    std::filesystem::copy(Path(STAGED_FOLDER) / "data", path_ / "data",
                          std::filesystem::copy_options::recursive);
    std::filesystem::create_directory(path_ / "projets");
    SetAppDir(path_);
}

ToolFolder::~ToolFolder()
{
    SetCurrentProject({});
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void ToolFolder::makeProject() const
{
    if (const auto failure = CreateProject("demo", "Kestrel")) {
        throw std::runtime_error(*failure);
    }
    if (NewMap().mapNumber != "02") {
        throw std::runtime_error("no second map");
    }
    writeMap(patchwork(0), "01");
    writeMap(patchwork(3), "02");
}
