#include "store/store.h"

#include "store/codepage.h"
#include "store/ini.h"
#include "store/leftovers.h"
#include "store/numbers.h"

#include <utility>

namespace
{

struct State {
    Path appDir;
    std::string currentProject;
    // Follow from the two above, and are asked for at every tick of every map view.
    Path projectDir;
    Path descriptor;
};

State& state()
{
    static State theState;
    return theState;
}

// Windows cuts blanks and dots off the end of a name, so that nothing is left of one made of them.
constexpr bool systemCutsNames = Path::preferred_separator == '\\';

/// Whether a name stays one component below its folder, in the system's own reading of it.
bool isPlainName(std::string_view name, const Path& onDisk)
{
    if (systemCutsNames && name.find_first_not_of(". ") == std::string_view::npos) {
        return false;
    }
    return !name.empty() && name.find('\0') == std::string_view::npos && onDisk == onDisk.filename() &&
           onDisk != Path(".") && onDisk != Path("..");
}

void settlePaths()
{
    state().projectDir = ProjectFolder(CurrentProject());
    state().descriptor = ProjectFile("projet.ini");
}

} // namespace

const Path& AppDir()
{
    return state().appDir;
}

void SetAppDir(Path folder)
{
    state().appDir = std::move(folder);
    settlePaths();
}

const std::string& CurrentProject()
{
    return state().currentProject;
}

void SetCurrentProject(std::string name)
{
    state().currentProject = std::move(name);
    settlePaths();
}

Path ProjectFolder(std::string_view name)
{
    const Path onDisk = DiskName(name);
    return isPlainName(name, onDisk) ? AppDir() / "projets" / onDisk : Path();
}

const Path& ProjectDir()
{
    return state().projectDir;
}

Path ProjectFile(std::string_view relative)
{
    const Path& folder = ProjectDir();
    return folder.empty() ? Path() : folder / DiskName(relative);
}

const Path& Descriptor()
{
    return state().descriptor;
}

void SweepProject()
{
    constexpr int depth = 3; // of images/personnages/hero
    if (const Path& folder = ProjectDir(); !folder.empty()) {
        SweepLeftovers(folder, depth);
        SweepLeftovers(AppDir(), 0); // where the boot script lies
    }
}

Path DiskName(std::string_view ansi)
{
    const std::string utf8 = Utf8FromAnsi(ansi);
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string MapNumberText(int number)
{
    return TwoDigits(number);
}

std::string ReadIni(std::string_view section, std::string_view key, const Path& file)
{
    return IniValue(ReadWholeFile(file), section, key);
}

void WriteIni(std::string_view section, std::string_view key, std::string_view value, const Path& file)
{
    if (file.empty()) {
        return;
    }
    const platform::FolderLock lock(file.parent_path()); // another program's key must not be lost
    std::string text;
    const std::error_code failure = platform::readFile(file, text);
    if (failure && failure != std::errc::no_such_file_or_directory) {
        return; // It is there but cannot be read: writing would cost its other keys.
    }
    const auto changed = WithIniValue(text, section, key, value);
    if (changed && *changed != text) {
        platform::replaceFile(file, *changed);
    }
}

std::string ReadWholeFile(const Path& path)
{
    std::string content;
    platform::readFile(path, content);
    return content;
}

bool IsUnreadable(const Path& path)
{
    std::string ignored;
    const std::error_code failure = platform::readFile(path, ignored);
    return failure && failure != std::errc::no_such_file_or_directory;
}

void WriteWholeFile(std::string content, const Path& path)
{
    if (path.empty()) {
        return;
    }
    platform::replaceFile(path, content.append("\r\n"));
}

std::string FailureText(const std::error_code& failure, std::string_view about)
{
    constexpr std::size_t longestShown = 100;
    const std::string name(about.substr(0, longestShown));
    return platform::systemWords(failure) + " (" + name + (about.size() > longestShown ? "...)" : ")");
}

std::error_code CopyWholeFile(const Path& source, const Path& target)
{
    std::string content;
    if (const std::error_code failure = platform::readFile(source, content)) {
        return failure;
    }
    return platform::replaceFile(target, content);
}
