#include "project/creation.h"

#include "maps/maplist.h"
#include "store/store.h"

#include <array>

namespace
{

struct Copy {
    std::string_view source; // below AppDir/data
    std::string_view target; // below the project's folder
};

// "system" is written small beside the tool and with a capital in a project.
constexpr std::array pictures = {
    Copy{"images/personnages/perso01/dos1.png", "images/personnages/hero/dos1.png"},
    Copy{"images/personnages/perso01/dos2.png", "images/personnages/hero/dos2.png"},
    Copy{"images/personnages/perso01/dos3.png", "images/personnages/hero/dos3.png"},
    Copy{"images/personnages/perso01/face1.png", "images/personnages/hero/face1.png"},
    Copy{"images/personnages/perso01/face2.png", "images/personnages/hero/face2.png"},
    Copy{"images/personnages/perso01/face3.png", "images/personnages/hero/face3.png"},
    Copy{"images/personnages/perso01/droite1.png", "images/personnages/hero/droite1.png"},
    Copy{"images/personnages/perso01/droite2.png", "images/personnages/hero/droite2.png"},
    Copy{"images/personnages/perso01/droite3.png", "images/personnages/hero/droite3.png"},
    Copy{"images/personnages/perso01/gauche1.png", "images/personnages/hero/gauche1.png"},
    Copy{"images/personnages/perso01/gauche2.png", "images/personnages/hero/gauche2.png"},
    Copy{"images/personnages/perso01/gauche3.png", "images/personnages/hero/gauche3.png"},
    Copy{"images/personnages/perso01/mort.png", "images/personnages/hero/mort.png"},
    Copy{"images/system/theme01/imgprinc.png", "images/System/imgprinc.png"},
    Copy{"images/system/theme01/menuingame.png", "images/System/menuingame.png"},
    Copy{"images/system/theme01/menuprinc.png", "images/System/menuprinc.png"},
    Copy{"images/system/theme01/parler.png", "images/System/parler.png"},
};

constexpr std::array scripts = {
    Copy{"ftgr.dat", "ram.lua"},        Copy{"ftgm.dat", "map.lua"}, Copy{"ftgi.dat", "index.lua"},
    Copy{"ftgms.dat", "menustart.lua"}, Copy{"ftgev.dat", "ev.lua"},
};

constexpr Copy firstTileset = {"images/terrains/terrain01/terrain01.png", "images/map01/terrain.png"};

constexpr std::array firstMap = {Copy{blockTemplate, "map01.ev"}, Copy{mapTemplate, "map01.map"}};

constexpr std::array folders = {
    "images", "images/System", "images/personnages", "images/personnages/hero", "images/map01",
    "ev",     "ev/map01"};

Path below(const Path& folder, std::string_view relative)
{
    return folder / DiskName(relative);
}

void writeDescriptor(const Path& project, std::string_view name, std::string_view author)
{
    const Path file = project / "projet.ini";
    WriteIni("Jeu", "nom", name, file);
    WriteIni("Jeu", "auteur", author, file);
    WriteIni("Jeu", "ver", "3.0.0", file);
    WriteIni("Jeu", "cartes", "1", file);
    WriteIni("Jeu", "combats", "0", file);
    WriteIni("Carte01", "texture", "01", file);
    WriteIni("Carte01", "nom", "Carte 1", file);
    WriteIni("Variables", "nombre", "0", file);
}

std::optional<std::string> makeFolders(const Path& project)
{
    for (const std::string_view folder : folders) {
        if (const std::error_code failure = platform::makeFolder(below(project, folder))) {
            return FailureText(failure, folder);
        }
    }
    return std::nullopt;
}

std::optional<std::string> copyPicture(const Path& project, const Copy& copy)
{
    const std::error_code failure =
        CopyWholeFile(below(AppDir() / "data", copy.source), below(project, copy.target));
    return failure ? std::optional(FailureText(failure, copy.source)) : std::nullopt;
}

void copyText(const Path& project, const Copy& copy)
{
    WriteWholeFile(ReadWholeFile(below(AppDir() / "data", copy.source)), below(project, copy.target));
}

std::optional<std::string> copyTemplates(const Path& project)
{
    for (const Copy& copy : pictures) {
        if (auto failure = copyPicture(project, copy)) {
            return failure;
        }
    }
    for (const Copy& copy : scripts) {
        copyText(project, copy);
    }
    if (auto failure = copyPicture(project, firstTileset)) {
        return failure;
    }
    for (const Copy& copy : firstMap) {
        copyText(project, copy);
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> CreateProject(const std::string& name, std::string_view author)
{
    const Path project = ProjectFolder(name);
    if (project.empty()) {
        return FailureText(std::make_error_code(std::errc::invalid_argument), name);
    }
    if (const std::error_code failure = platform::makeFolder(project)) {
        return FailureText(failure, name);
    }
    writeDescriptor(project, name, author);
    if (auto failure = makeFolders(project)) {
        return failure;
    }
    if (auto failure = copyTemplates(project)) {
        return failure;
    }
    WriteWholeFile("--Variables du jeu", project / "variables.lua");
    SetCurrentProject(name);
    return std::nullopt;
}
