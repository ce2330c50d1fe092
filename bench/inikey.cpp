// Reading one key of a descriptor: the last one, behind everything else.
#include "contest.h"
#include "contests.h"
#include "floors.h"
#include "project/creation.h"
#include "store/store.h"
#include "toolfolder.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <memory>
#include <stdexcept>

namespace
{

constexpr int projectLines = 11; // of a new project: eight keys in three sections
constexpr int variableLines = 3;

/// A project of one map with as many variables as make the descriptor that long; gives the last one's
/// section.
std::string lengthen(int lines)
{
    std::string text = ReadWholeFile(Descriptor());
    const int variables = (lines - projectLines) / variableLines;
    for (int number = 1; number <= variables; ++number) {
        const std::string digits = std::to_string(number);
        text.append("[Variable").append(digits).append("]\r\nnumero=").append(digits);
        text.append("\r\nvaleur=").append(digits).append("\r\n");
    }
    text.resize(text.size() - 2); // every whole write ends with a line end of its own
    WriteWholeFile(text, Descriptor());
    return variables == 0 ? "Variables" : "Variable" + std::to_string(variables);
}

struct Key {
    ToolFolder folder;
    Path file;
    std::string section;
    std::string name;
    floors::Buffer buffer;

    explicit Key(int lines)
    {
        if (CreateProject("demo", "Kestrel")) {
            throw std::runtime_error("no project");
        }
        section = lengthen(lines);
        name = lines == projectLines ? "nombre" : "valeur";
        file = Descriptor();
        if (ours() != least() || ours().empty()) {
            throw std::runtime_error("the floor reads another value");
        }
    }

    std::string ours() const { return ReadIni(section, name, file); }

    std::string least()
    {
        buffer.clear();
        buffer.appendFile(AT_FDCWD, file.c_str());
        return std::string(floors::valueOf(buffer.text(), section, name));
    }
};

void addKey(int lines, int rounds, int calls)
{
    addContest("one key of " + std::to_string(lines) + " lines", rounds, [=] {
        const auto key = std::make_shared<Key>(lines);
        return Contestants{
            [=] { return secondsOf(calls, [&] { benchmark::DoNotOptimize(key->ours()); }); },
            {[=] { return secondsOf(calls, [&] { benchmark::DoNotOptimize(key->least()); }); }}};
    });
}

} // namespace

void addIniKey()
{
    addKey(11, 301, 50);
    addKey(300, 301, 50);
    addKey(30000, 301, 2);
}
