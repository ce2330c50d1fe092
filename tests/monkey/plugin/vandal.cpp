#include "vandal.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <QString>
#include <QStringList>
#include <sstream>
#include <vector>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;
using Path = fs::path;

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

const QStringList values =
    u" 0 1 2 -1 007 12 300 32768 x 1,5 02 04 ../02 ../../outside Untitled .. 9999999999 "
    "\"é\"té\""_s.split(u' ')
    << QString(300, u'é');

std::string ansi(const QString& text)
{
    return text.toLatin1().toStdString();
}

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

/// Of keys with one name the first counts.
void setValue(const Path& file, const Key& key, const std::string& value)
{
    std::string text = contentOf(file);
    const std::string head = "[" + key.section + "]\r\n";
    const std::size_t found = text.find(head);
    const std::size_t place = found == std::string::npos ? text.size() : found + head.size();
    text.insert(place, (found == std::string::npos ? head : "") + key.name + "=" + value + "\r\n");
    write(file, text);
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
    const std::string value = ansi(chance.of(values));
    setValue(place / "projet.ini", key, value);
    return key.name + "=" + value.substr(0, fewBytes);
}

/// Cuts the content anywhere, puts some bytes there, many at times, and may leave out the rest.
void spoil(Chance& chance, const Path& file)
{
    const std::string content = contentOf(file);
    const auto cut = static_cast<std::size_t>(chance.below(static_cast<int>(content.size()) + 1));
    std::string bytes(static_cast<std::size_t>(chance.percent(15) ? 100000 : chance.below(fewBytes)), 'x');
    if (chance.percent(50)) {
        std::ranges::generate(bytes, [&] { return static_cast<char>(chance.below(256)); });
    }
    write(file, content.substr(0, cut) + bytes + (chance.percent(50) ? content.substr(cut) : ""));
}

/// Spoils one of some files, removes it, makes it read-only or puts a folder in its place.
std::string damageOneOf(Chance& chance, const std::vector<Path>& files)
{
    if (files.empty()) {
        return "nothing there";
    }
    const Path& file = chance.of(files);
    const int kind = chance.below(12);
    if (kind < 7) {
        spoil(chance, file);
    } else if (kind < 8) {
        fs::permissions(file, fs::perms(0222), fs::perm_options::remove, ignored);
    } else {
        fs::remove_all(file, ignored);
    }
    if (kind == 11) {
        fs::create_directory(file, ignored);
    }
    return "damaged " + file.filename().string();
}

/// Of the files that the program reads: pictures are the game's.
std::string damageFile(Chance& chance, const Path& project)
{
    std::vector<Path> files = below(project, false);
    std::erase_if(files, [](const Path& file) { return file.extension() == ".png"; });
    return damageOneOf(chance, chance.percent(40) ? std::vector{project / "projet.ini"} : files);
}

std::string removeFolder(Chance& chance, const Path& project)
{
    std::vector<Path> folders = below(project, true);
    folders.push_back(project);
    fs::remove_all(chance.of(folders), ignored);
    return "removed a folder";
}

/// A descriptor and maps as they should be, whatever there was.
std::string mend(Chance& chance, const Path& project)
{
    const Path data = project.parent_path().parent_path() / "data";
    fs::remove_all(project / "projet.ini", ignored);
    std::string text = "[Jeu]\r\nnom=" + ansi(QString::fromStdString(project.filename())) +
                       "\r\ncartes=3\r\ncombats=2\r\n[Variables]\r\nnombre=3\r\n";
    for (const std::string map : {"01", "02", "03"}) {
        text += "[Carte" + map + "]\r\ntexture=0" + std::to_string(chance.between(1, 4)) + "\r\n";
        fs::create_directories(project / ("ev/map" + map), ignored);
        fs::create_directories(project / ("images/map" + map), ignored);
        write(project / ("map" + map + ".map"), contentOf(data / "ftgmma.dat"));
        write(project / ("map" + map + ".ev"), contentOf(data / "ftgmev.dat"));
    }
    write(project / "projet.ini", text);
    return "mended";
}

struct Deed {
    int weight;
    std::string (*make)(Chance&, const Path& project);
};

const std::array deeds = {Deed{8, setKey}, Deed{8, damageFile}, Deed{1, removeFolder}, Deed{12, mend}};

std::vector<Path> projectsIn(const Places& places)
{
    std::vector<Path> found;
    for (const auto& entry : fs::directory_iterator(places.appDir / "projets", ignored)) {
        found.push_back(entry.path());
    }
    std::sort(found.begin(), found.end());
    return found;
}

void bringBack(const Places& places)
{
    fs::remove_all(places.appDir / "data", ignored);
    fs::copy(places.data, places.appDir / "data", fs::copy_options::recursive, ignored);
    fs::create_symlink("/bin/true", places.appDir / "luaplayer.exe", ignored);
}

std::string damageShipped(Chance& chance, const Places& places)
{
    const Path data = places.appDir / "data";
    if (chance.percent(20)) {
        fs::remove(places.appDir / "luaplayer.exe", ignored);
        return "removed luaplayer.exe";
    }
    if (chance.percent(40)) {
        const Path tileset = data / "images/terrains" / ("terrain0" + std::to_string(chance.between(1, 5)));
        const std::string count = ansi(chance.of(values));
        setValue(tileset / "texture.ini", {"texture", "nbimg"}, count);
        return "nbimg=" + count.substr(0, fewBytes);
    }
    return damageOneOf(chance, below(data, chance.percent(5)));
}

} // namespace

std::string spoilSomething(Chance& chance, const Places& places, const Path& open)
{
    if (chance.percent(15)) {
        bringBack(places);
        return "all shipped files are back";
    }
    const std::vector<Path> projects = projectsIn(places);
    if (projects.empty() || chance.percent(15)) {
        return damageShipped(chance, places);
    }
    const auto current = std::find(projects.begin(), projects.end(), places.appDir / "projets" / open);
    const Path& project = current != projects.end() && chance.percent(70) ? *current : chance.of(projects);
    return project.filename().string() + ": " + chance.byWeight(deeds, &Deed::weight).make(chance, project);
}

void startOver(const Places& places)
{
    bringBack(places);
    for (const Path& project : projectsIn(places)) {
        fs::remove_all(project, ignored);
    }
}
