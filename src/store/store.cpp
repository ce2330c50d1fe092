#include "store/store.h"

#include "store/codepage.h"
#include "store/ini.h"

#include <utility>

namespace
{

struct State {
    Path appDir;
    std::string currentProject;
};

State& state()
{
    static State theState;
    return theState;
}

/// Whether a name stays one component below its folder, in the system's own reading of it.
bool isPlainName(std::string_view name, const Path& onDisk)
{
    return !name.empty() && name.find('\0') == std::string_view::npos && onDisk == onDisk.filename() &&
           onDisk != Path(".") && onDisk != Path("..");
}

} // namespace

const Path& AppDir()
{
    return state().appDir;
}

void SetAppDir(Path folder)
{
    state().appDir = std::move(folder);
}

const std::string& CurrentProject()
{
    return state().currentProject;
}

void SetCurrentProject(std::string name)
{
    state().currentProject = std::move(name);
}

Path ProjectFolder(std::string_view name)
{
    const Path onDisk = DiskName(name);
    return isPlainName(name, onDisk) ? AppDir() / "projets" / onDisk : Path();
}

Path ProjectDir()
{
    return ProjectFolder(CurrentProject());
}

Path ProjectFile(std::string_view relative)
{
    const Path folder = ProjectDir();
    return folder.empty() ? Path() : folder / DiskName(relative);
}

Path Descriptor()
{
    return ProjectFile("projet.ini");
}

Path DiskName(std::string_view ansi)
{
    const std::string utf8 = Utf8FromAnsi(ansi);
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string MapNumberText(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
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

void WriteWholeFile(std::string_view content, const Path& path)
{
    if (path.empty()) {
        return;
    }
    std::string whole;
    whole.reserve(content.size() + 2);
    platform::replaceFile(path, whole.append(content).append("\r\n"));
}

std::error_code CopyWholeFile(const Path& source, const Path& target)
{
    std::string content;
    if (const std::error_code failure = platform::readFile(source, content)) {
        return failure;
    }
    return platform::replaceFile(target, content);
}
