// Writing ev.lua of small and large projects.
#include "build/scripts.h"
#include "contest.h"
#include "contests.h"
#include "events/eventstore.h"
#include "floors.h"
#include "maps/mapmodel.h"
#include "project/creation.h"
#include "store/store.h"
#include "toolfolder.h"

#include <array>
#include <charconv>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <unistd.h>

namespace
{

constexpr int largestProject = 1000; // maps

/// Which cells have an event file.
struct Filling {
    const char* name;
    int percent;
};

constexpr std::array fillings = {Filling{"no events", 0}, Filling{"5 % events", 5},
                                 Filling{"all events", 100}};

bool hasEvent(const Filling& filling, int map, int row, int column)
{
    return (map * 131 + slotOf(row, column) * 37) % 100 < filling.percent;
}

template <class Visit> void forEachCell(Visit visit)
{
    for (int row = 1; row <= MapModel::storedRows; ++row) {
        for (int column = 1; column <= MapModel::columns; ++column) {
            visit(row, column);
        }
    }
}

/// A project of as many maps as the largest contest needs; the others read its first ones.
struct EventProject {
    ToolFolder folder;
    Path least;  ///< where the floor writes
    Path events; ///< what the folders of the maps begin with
    floors::Buffer buffer;

    explicit EventProject(const Filling& filling)
    {
        if (CreateProject("demo", "Kestrel")) {
            throw std::runtime_error("no project");
        }
        least = ProjectFile("least.lua");
        events = ProjectFile("ev/map");
        for (int map = 1; map <= largestProject; ++map) {
            platform::makeFolder(EventFolder(MapNumberText(map)));
            fill(filling, map);
        }
    }

private:
    static void fill(const Filling& filling, int map)
    {
        const std::string number = MapNumberText(map);
        const std::string event =
            "\r\nif var[1] == \"" + number + "\" then\r\naffichertexte(\"Hello\")\r\nend\r\n";
        forEachCell([&](int row, int column) {
            if (hasEvent(filling, map, row, column)) {
                std::ofstream(eventpath(number, row, column), std::ios::binary) << event;
            }
        });
    }
};

/// The project of a filling. The one before is removed: together they would fill a small disk.
std::shared_ptr<EventProject> projectOf(const Filling& filling)
{
    static const Filling* current = nullptr;
    static std::shared_ptr<EventProject> project;
    if (current != &filling) {
        project.reset();
        project = std::make_shared<EventProject>(filling);
        current = &filling;
    }
    return project;
}

using Cells = std::array<bool, MapModel::slots>;

/// Marks the cells that a folder has a file for.
void list(int folder, Cells& there)
{
    there.fill(false);
    DIR* entries = ::fdopendir(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    while (const dirent* entry = ::readdir(entries)) {
        const char* name = entry->d_name;
        if (name[0] == 'e' && name[1] == 'v') {
            there[static_cast<std::size_t>(slotOf(name[2] - '0', std::atoi(name + 3)))] = true;
        }
    }
    ::closedir(entries);
}

enum class Way { List, OpenEach };

void appendNumber(floors::Buffer& buffer, int number)
{
    char digits[12];
    const char* end = std::to_chars(digits, std::end(digits), number).ptr;
    buffer.append({digits, static_cast<std::size_t>(end - digits)});
}

void appendCell(floors::Buffer& buffer, int row, int column, int folder, bool there)
{
    buffer.append("\r\n    if ligne == ");
    appendNumber(buffer, row);
    buffer.append(" and colonne == ");
    appendNumber(buffer, column);
    buffer.append(" then\r\n    ");
    if (there) {
        char name[16] = {'e', 'v'};
        *std::to_chars(std::to_chars(name + 2, std::end(name), row).ptr, std::end(name), column).ptr = '\0';
        buffer.appendFile(folder, name);
    }
    buffer.append("\r\n    end\r\n\r\n");
}

void appendMap(floors::Buffer& buffer, Way way, const Path& events, const std::string& number)
{
    Cells there;
    there.fill(true);
    const int folder = ::open((events.native() + number).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (way == Way::List) {
        list(folder, there);
    }
    buffer.append("if map == \"");
    buffer.append(number);
    buffer.append("\" then\r\n");
    forEachCell([&](int row, int column) {
        appendCell(buffer, row, column, folder, there[static_cast<std::size_t>(slotOf(row, column))]);
    });
    buffer.append("end\r\n");
    ::close(folder);
}

void writeLeast(EventProject& project, Way way, int maps)
{
    project.buffer.clear();
    project.buffer.append("function runev(colonne,ligne,map)\r\n");
    for (int map = 1; map <= maps; ++map) {
        appendMap(project.buffer, way, project.events, MapNumberText(map));
    }
    project.buffer.append("\r\nend\r\n");
    floors::replaceFile(project.least, project.buffer.text());
}

void checkSameScript(EventProject& project, int maps)
{
    WriteEventScript(maps);
    for (const Way way : {Way::List, Way::OpenEach}) {
        writeLeast(project, way, maps);
        if (ReadWholeFile(project.least) != ReadWholeFile(ProjectFile("ev.lua"))) {
            throw std::runtime_error("the floor writes another script");
        }
    }
}

void addScript(const Filling& filling, int maps, int rounds)
{
    addContest("ev.lua, " + std::to_string(maps) + " maps, " + filling.name, rounds, [=, &filling] {
        const auto project = projectOf(filling);
        checkSameScript(*project, maps);
        const auto least = [=](Way way) {
            return [=] { return secondsOf(1, [&] { writeLeast(*project, way, maps); }); };
        };
        return Contestants{[=] { return secondsOf(1, [=] { WriteEventScript(maps); }); },
                           {least(Way::List), least(Way::OpenEach)}};
    });
}

} // namespace

void addEventScript()
{
    for (const Filling& filling : fillings) {
        addScript(filling, 1, 301);
        addScript(filling, 10, 101);
        addScript(filling, 100, 31);
        addScript(filling, largestProject, 7);
    }
}
