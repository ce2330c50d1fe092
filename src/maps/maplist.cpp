#include "maps/maplist.h"

#include "maps/tileset.h"
#include "store/codepage.h"
#include "store/ini.h"
#include "store/numbers.h"

namespace
{

constexpr std::string_view sectionPrefix = "Carte";
constexpr const char* descriptorUnwritable = "projet.ini cannot be written.";

std::string failureAt(const std::error_code& failure, const Path& path)
{
    const auto name = path.filename().u8string();
    return FailureText(failure, AnsiFromUtf8(std::string(name.begin(), name.end())));
}

std::error_code folderThere(const Path& path)
{
    const std::error_code failure = platform::makeFolder(path);
    std::error_code ignored;
    return failure == std::errc::file_exists && std::filesystem::is_directory(path, ignored)
               ? std::error_code()
               : failure;
}

bool isThere(const Path& path)
{
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

/// False when the copy cannot be written: a map must not count without its files.
bool copyTemplate(std::string_view name, const Path& target)
{
    WriteWholeFile(ReadWholeFile(AppDir() / "data" / DiskName(name)), target);
    return isThere(target);
}

/// False when the key is missing afterwards.
bool setKey(const std::string& mapNumber, std::string_view key, std::string_view value, bool keep)
{
    const std::string section = MapSection(mapNumber);
    if (!keep || ReadIni(section, key, Descriptor()).empty()) {
        WriteIni(section, key, value, Descriptor());
    }
    return !ReadIni(section, key, Descriptor()).empty();
}

/// Fills a new map: the first tileset, the template map, its keys. Failure: the reason, for the author to
/// read.
std::string fillMap(const std::string& mapNumber)
{
    const bool keep = isThere(MapFile(mapNumber));
    if (!keep || !isThere(MapSheet(mapNumber))) {
        if (std::string failure = CopyTilesetSheet("01", mapNumber); !failure.empty()) {
            return failure;
        }
    }
    const bool blocks =
        (keep && isThere(BlockFile(mapNumber))) || copyTemplate(blockTemplate, BlockFile(mapNumber));
    const bool tiles = keep || copyTemplate(mapTemplate, MapFile(mapNumber));
    if (!blocks || !tiles) {
        return "The files of the map cannot be written.";
    }
    const bool keys = setKey(mapNumber, "texture", "01", keep) && setKey(mapNumber, "nom", "Carte 1", keep);
    return keys ? std::string() : descriptorUnwritable;
}

/// The folders of a new map. Failure: the reason, for the author to read.
std::string makeFolders(const std::string& mapNumber)
{
    for (const Path& folder : {ProjectFile("images/map" + mapNumber), ProjectFile("ev/map" + mapNumber)}) {
        if (const std::error_code failure = folderThere(folder)) {
            return failureAt(failure, folder);
        }
    }
    return {};
}

} // namespace

std::optional<int> MapCount()
{
    return CountFrom(ReadIni("Jeu", "cartes", Descriptor()));
}

std::string MapSection(std::string_view mapNumber)
{
    return std::string(sectionPrefix).append(mapNumber);
}

std::string MapName(std::string_view mapNumber)
{
    return ReadIni(MapSection(mapNumber), "nom", Descriptor());
}

std::vector<std::string> MapNames(int count)
{
    return NumberedIniValues(ReadWholeFile(Descriptor()), sectionPrefix, MapNumberText, "nom", count);
}

Path MapFile(std::string_view mapNumber)
{
    return ProjectFile("map" + std::string(mapNumber) + ".map");
}

Path BlockFile(std::string_view mapNumber)
{
    return ProjectFile("map" + std::string(mapNumber) + ".ev");
}

Path MapSheet(std::string_view mapNumber)
{
    return ProjectFile("images/map" + std::string(mapNumber) + "/terrain.png");
}

std::string CopyTilesetSheet(std::string_view tileset, std::string_view mapNumber)
{
    const Path target = MapSheet(mapNumber);
    if (target.empty()) {
        return "The project has no folder.";
    }
    if (const std::error_code failure = folderThere(target.parent_path())) {
        return failureAt(failure, target.parent_path());
    }
    const Path sheet = TilesetSheet(tileset);
    const std::error_code failure = CopyWholeFile(sheet, target);
    return failure ? failureAt(failure, sheet) : std::string();
}

NewMapResult NewMap()
{
    if (ProjectDir().empty()) {
        return {{}, "No project with a folder is open."};
    }
    const std::optional<int> count = MapCount();
    if (!count) {
        return {{}, "The number of maps in projet.ini is missing or not a number from 0 to 32767."};
    }
    if (*count == largestCount) {
        return {{}, "The project holds as many maps as it can."};
    }
    const std::string number = MapNumberText(*count + 1);
    if (std::string failure = makeFolders(number); !failure.empty()) {
        return {{}, std::move(failure)};
    }
    if (std::string failure = fillMap(number); !failure.empty()) {
        return {{}, std::move(failure)};
    }
    WriteIni("Jeu", "cartes", number, Descriptor());
    if (MapCount() != *count + 1) {
        return {{}, descriptorUnwritable};
    }
    return {number, {}};
}
