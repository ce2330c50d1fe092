#include "vandal.h"

#include "store/codepage.h"
#include "store/ini.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;
using namespace std::string_literals;
using Path = Vandal::Path;

namespace
{

constexpr int fewBytes = 40;
std::error_code ignored; // what cannot be spoilt stays whole

struct Key {
    std::string section;
    std::string name;
};

const std::array keys = {Key{"Jeu", "cartes"},       Key{"Jeu", "combats"},     Key{"Jeu", "nom"},
                         Key{"Variables", "nombre"}, Key{"Carte01", "texture"}, Key{"Carte01", "nom"},
                         Key{"Variable1", "valeur"}, Key{"Combat1", "nom"}};

const std::array values = {""s,
                           "0"s,
                           "1"s,
                           "2"s,
                           "-1"s,
                           "007"s,
                           "12"s,
                           "300"s,
                           "32768"s,
                           "x"s,
                           "1,5"s,
                           "02"s,
                           "04"s,
                           "../02"s,
                           "../../outside"s,
                           "Untitled"s,
                           ".."s,
                           "9999999999"s,
                           "\"\xE9\"t\xE9\""s,
                           std::string(300, '\xE9')};

std::string contentOf(const Path& file)
{
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

void write(const Path& file, const std::string& content)
{
    std::ofstream(file, std::ios::binary) << content;
}

void setValue(const Path& file, const Key& key, const std::string& value)
{
    if (const auto text = WithIniValue(contentOf(file), key.section, key.name, value)) {
        write(file, *text);
    }
}

std::string junk(Chance& chance, int length)
{
    std::string bytes;
    for (int i = 0; i < length; ++i) {
        bytes += static_cast<char>(chance.below(256));
    }
    return bytes;
}

/// The files and folders below a folder, in an order that does not change from run to run.
std::vector<Path> below(const Path& folder, bool folders)
{
    std::vector<Path> found;
    for (auto entry = fs::recursive_directory_iterator(folder, ignored); entry != fs::end(entry);
         entry.increment(ignored)) {
        if (entry->is_directory(ignored) == folders) {
            found.push_back(entry->path());
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::string setKey(Chance& chance, const Path& place)
{
    const Key& key = chance.of(keys);
    const std::string& value = chance.of(values);
    setValue(place / "projet.ini", key, value);
    return key.name + "=" + value.substr(0, fewBytes);
}

// What is done to one file; its content may be cut anywhere.

std::string truncate(Chance& chance, const Path& file)
{
    const std::string content = contentOf(file);
    write(file,
          content.substr(0, static_cast<std::size_t>(chance.below(static_cast<int>(content.size()) + 1))));
    return "truncated";
}

std::string spoil(Chance& chance, const Path& file)
{
    std::string content = contentOf(file);
    const std::string bytes = junk(chance, chance.between(1, fewBytes));
    content.insert(static_cast<std::size_t>(chance.below(static_cast<int>(content.size()) + 1)), bytes);
    write(file, content);
    return "junk in it";
}

std::string blowUp(Chance& chance, const Path& file)
{
    constexpr int many = 100000;
    write(file, chance.percent(50) ? std::string(many, 'x') : junk(chance, many));
    return "blown up";
}

std::string remove(Chance&, const Path& file)
{
    fs::remove_all(file, ignored);
    return "removed";
}

std::string lock(Chance&, const Path& file)
{
    fs::permissions(file, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove, ignored);
    return "locked";
}

std::string beFolder(Chance&, const Path& file)
{
    fs::remove(file, ignored);
    fs::create_directory(file, ignored);
    return "made a folder";
}

struct Damage {
    int weight;
    std::string (*make)(Chance&, const Path&);
};

const std::array damages = {Damage{3, truncate}, Damage{3, spoil}, Damage{1, blowUp},
                            Damage{3, remove},   Damage{1, lock},  Damage{1, beFolder}};

std::string damageOneOf(Chance& chance, const std::vector<Path>& places)
{
    if (places.empty()) {
        return "nothing there";
    }
    const Path& place = chance.of(places);
    return chance.byWeight(damages).make(chance, place) + " " + place.filename().string();
}

std::string damageDescriptor(Chance& chance, const Path& project)
{
    return chance.byWeight(damages).make(chance, project / "projet.ini") + " projet.ini";
}

/// The files that the program reads: pictures are the game's.
std::string damageFile(Chance& chance, const Path& project)
{
    std::vector<Path> files = below(project, false);
    std::erase_if(files, [](const Path& file) { return file.extension() == ".png"; });
    return damageOneOf(chance, files);
}

std::string removeFolder(Chance& chance, const Path& project)
{
    std::vector<Path> folders = below(project, true);
    folders.push_back(project);
    return remove(chance, chance.of(folders));
}

/// A descriptor and maps as they should be, whatever there was.
std::string mend(Chance& chance, const Path& project)
{
    constexpr int most = 3;
    const Path file = project / "projet.ini";
    const Path data = project.parent_path().parent_path() / "data";
    fs::remove_all(file, ignored);
    fs::create_directory(project, ignored);
    setValue(file, {"Jeu", "nom"}, AnsiFromUtf8(project.filename().string()));
    for (const Key& key : {Key{"Jeu", "cartes"}, Key{"Jeu", "combats"}, Key{"Variables", "nombre"}}) {
        setValue(file, key, std::to_string(chance.between(1, most)));
    }
    for (int map = 1; map <= most; ++map) {
        const std::string number = "0" + std::to_string(map);
        setValue(file, {"Carte" + number, "texture"}, "0" + std::to_string(chance.between(1, 4)));
        fs::create_directories(project / ("ev/map" + number), ignored);
        fs::create_directories(project / ("images/map" + number), ignored);
        write(project / ("map" + number + ".map"), contentOf(data / "ftgmma.dat"));
        write(project / ("map" + number + ".ev"), contentOf(data / "ftgmev.dat"));
    }
    return "mended";
}

struct Deed {
    int weight;
    std::string (*make)(Chance&, const Path& project);
};

const std::array deeds = {Deed{8, setKey}, Deed{3, damageDescriptor}, Deed{5, damageFile},
                          Deed{1, removeFolder}, Deed{12, mend}};

} // namespace

std::string Vandal::strike(Chance& chance, const Path& open) const
{
    if (chance.percent(15)) {
        bringBack();
        return "all shipped files are back";
    }
    if (chance.percent(15)) {
        return damageShipped(chance);
    }
    const std::vector<Path> all = projects();
    const Path current = appDir_ / "projets" / open;
    const bool thisOne = !open.empty() && chance.percent(70);
    if (!thisOne && all.empty()) {
        return "nothing to spoil";
    }
    const Path& project = thisOne ? current : chance.of(all);
    return project.filename().string() + ": " + chance.byWeight(deeds).make(chance, project);
}

void Vandal::bringBack() const
{
    for (const char* part : {"data", "luaplayer.exe"}) {
        fs::remove_all(appDir_ / part, ignored);
        fs::copy(whole_ / part, appDir_ / part, fs::copy_options::recursive, ignored);
    }
}

void Vandal::startOver() const
{
    bringBack();
    for (const Path& project : projects()) {
        fs::remove_all(project, ignored);
    }
}

std::string Vandal::damageShipped(Chance& chance) const
{
    const Path data = appDir_ / "data";
    if (chance.percent(20)) {
        return remove(chance, appDir_ / "luaplayer.exe") + " luaplayer.exe";
    }
    if (chance.percent(40)) {
        const Path tileset =
            data / "images" / "terrains" / ("terrain0" + std::to_string(chance.between(1, 5)));
        const std::string& count = chance.of(values);
        setValue(tileset / "texture.ini", {"texture", "nbimg"}, count);
        return "nbimg=" + count.substr(0, fewBytes);
    }
    return damageOneOf(chance, below(data, chance.percent(5)));
}

std::vector<Path> Vandal::projects() const
{
    std::vector<Path> found;
    for (const auto& entry : fs::directory_iterator(appDir_ / "projets", ignored)) {
        found.push_back(entry.path());
    }
    std::sort(found.begin(), found.end());
    return found;
}
