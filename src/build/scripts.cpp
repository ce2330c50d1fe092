#include "build/scripts.h"

#include "events/eventstore.h"
#include "maps/mapmodel.h"
#include "store/store.h"
#include "variables/variables.h"

#include <unordered_set>
#include <vector>

namespace
{

constexpr std::size_t branchBytes = 60; // an empty branch, for room ahead

/// The event files of one map: their folder is listed once, so that the many cells without an event cost no
/// look at the disk each.
class MapEvents
{
public:
    explicit MapEvents(const Path& path)
        : folder_(path)
    {
        std::vector<std::string> names;
        listed_ = !folder_.isOpen() || !folder_.list(names); // no folder, no names
        names_.insert(names.begin(), names.end());
    }

    /// A cell's event, until the next one is asked for.
    const std::string& text(int row, int column)
    {
        const std::string name = EventFileName(row, column);
        text_.clear();
        // A folder may be readable by name and yet not tell its names.
        if (!listed_ || names_.contains(name)) {
            folder_.readFile(name, text_);
        }
        return text_;
    }

private:
    platform::Folder folder_;
    bool listed_ = false;
    std::unordered_set<std::string> names_;
    std::string text_;
};

void appendCell(std::string& script, int row, int column, const std::string& event)
{
    script.append("\r\n    if ligne == ").append(std::to_string(row));
    script.append(" and colonne == ").append(std::to_string(column)).append(" then\r\n    ");
    script.append(event).append("\r\n    end\r\n\r\n");
}

void appendMap(std::string& script, const std::string& mapNumber)
{
    MapEvents events(EventFolder(mapNumber));
    script.append("if map == \"").append(mapNumber).append("\" then\r\n");
    for (int row = 1; row <= MapModel::storedRows; ++row) {
        for (int column = 1; column <= MapModel::columns && script.size() <= platform::largestFile;
             ++column) {
            appendCell(script, row, column, events.text(row, column));
        }
    }
    script += "end\r\n";
}

} // namespace

std::string EventScript(int maps)
{
    std::string script = "function runev(colonne,ligne,map)\r\n";
    script.reserve(script.size() +
                   static_cast<std::size_t>(maps) * MapModel::storedRows * MapModel::columns * branchBytes);
    // Beyond the largest file the script will not be written, and the events of many maps may be any size.
    for (int number = 1; number <= maps && script.size() <= platform::largestFile; ++number) {
        appendMap(script, MapNumberText(number));
    }
    return script.append("\r\nend");
}

void WriteEventScript(int maps)
{
    const Path file = ProjectFile("ev.lua");
    if (!file.empty()) {
        WriteWholeFile(EventScript(maps), file);
    }
}

std::string VariablesScript()
{
    constexpr std::size_t lineBytes = 32; // for room ahead
    const std::vector<std::string> values = StartValues();
    std::string script = "--Variables du jeu\r\nvar = {}\r\n";
    script.reserve(script.size() + values.size() * lineBytes);
    for (std::size_t index = 0; index < values.size(); ++index) {
        script.append("var[").append(std::to_string(index + 1)).append("] = \"");
        script.append(values[index]).append("\"\r\n");
    }
    return script;
}

void WriteVariablesScript()
{
    const Path file = ProjectFile("variables.lua");
    if (!file.empty()) {
        WriteWholeFile(VariablesScript(), file);
    }
}

std::string BootScript(std::string_view project)
{
    return "System.currentDirectory(\"projets/" + std::string(project) + "\")\r\ndofile(\"index.lua\")";
}

void WriteBootScript()
{
    WriteWholeFile(BootScript(CurrentProject()), AppDir() / "index.lua");
}
