#include "player/sandbox.h"

#include "player/code_page.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace player
{

namespace fs = std::filesystem;

namespace
{

[[noreturn]] void refuse(std::string_view path, std::string_view reason)
{
    throw PathRefused(std::string(path).append(": ").append(reason));
}

[[noreturn]] void refuse(std::string_view path, int error)
{
    refuse(path, std::generic_category().message(error));
}

std::string shownName(const fs::path& path)
{
    return cp1252FromUtf8(utf8FromPath(path));
}

// The true place of a path whose last part may not exist yet.
fs::path realPath(const fs::path& path, std::error_code& error)
{
    fs::path real = fs::canonical(path, error);
    if (error == std::errc::no_such_file_or_directory && path.has_filename()) {
        real = fs::canonical(path.parent_path(), error) / path.filename();
    }
    return real;
}

constexpr std::array<std::string_view, 2> editorFolders = {"ev", "images"};
constexpr std::array<std::string_view, 4> editorExtensions = {".ini", ".map", ".ev", ".lua"};

// A name as file systems compare it that care neither for letter case nor for dots and blanks at the end.
std::string plainName(const fs::path& part)
{
    std::string name = utf8FromPath(part);
    name.erase(name.find_last_not_of(". ") + 1);
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return name;
}

template <std::size_t count>
bool contains(const std::array<std::string_view, count>& names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool startsWith(const fs::path& path, const fs::path& folder)
{
    const auto [inFolder, inPath] = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
    return inFolder == folder.end();
}

} // namespace

Sandbox::Sandbox(const fs::path& startFolder)
    : start_(fs::canonical(startFolder))
    , current_(start_)
{
    if (!fs::is_directory(start_ / "projets")) {
        root_ = start_;
    }
}

std::string Sandbox::currentDirectory() const
{
    return shownName(current_);
}

fs::path Sandbox::located(std::string_view path) const
{
    std::string name(path);
    std::replace(name.begin(), name.end(), '\\', '/');
    // A script that kept currentDirectory() hands back the shown name, which may have lost letters.
    const fs::path& base = root_ ? *root_ : start_;
    const std::string shown = shownName(base);
    if (name == shown || name.starts_with(shown + '/')) {
        return base / pathFromUtf8(utf8From1252(name.substr(std::min(shown.size() + 1, name.size()))));
    }
    return current_ / pathFromUtf8(utf8From1252(name));
}

fs::path Sandbox::resolved(std::string_view path) const
{
    if (const std::size_t end = path.find('\0'); path.empty() || end != std::string_view::npos) {
        refuse(path.substr(0, end), "is not a file name");
    }
    std::error_code error;
    fs::path real = realPath(located(path), error);
    if (error) {
        refuse(path, error.value());
    }
    return real;
}

bool Sandbox::mayBeRoot(const fs::path& folder) const
{
    std::error_code error;
    return folder.parent_path() == fs::canonical(start_ / "projets", error);
}

bool Sandbox::isInside(const fs::path& file) const
{
    return root_ ? startsWith(file, *root_) : file.parent_path() == start_;
}

// Whether a file is one that a game may write: a saved game, not a part of the project.
bool Sandbox::isOfTheGame(const fs::path& file) const
{
    const fs::path inRoot = file.lexically_relative(*root_);
    const auto isHidden = [](const fs::path& part) { return part != "." && part.native().front() == '.'; };
    const std::string folder = plainName(*inRoot.begin());
    const std::string extension = fs::path(plainName(file.filename())).extension().string();
    return std::none_of(inRoot.begin(), inRoot.end(), isHidden) && !contains(editorFolders, folder) &&
           !contains(editorExtensions, extension);
}

bool Sandbox::exists(std::string_view path) const
{
    std::error_code ignored;
    return fs::exists(located(path), ignored);
}

void Sandbox::changeDirectory(std::string_view path)
{
    const fs::path folder = resolved(path);
    if (!fs::is_directory(folder)) {
        refuse(path, "is not a folder");
    }
    const bool allowed = isBooting() ? folder == start_ || mayBeRoot(folder) : isInside(folder);
    if (!allowed) {
        refuse(path, "lies outside the project folder");
    }
    if (isBooting() && folder != start_) {
        root_ = folder;
    }
    current_ = folder;
}

FileHandle Sandbox::open(std::string_view path, FileMode mode) const
{
    const fs::path file = resolved(path);
    if (!isInside(file) || (isBooting() && mode != FileMode::Read)) {
        refuse(path, "lies outside the project folder");
    }
    if (mode != FileMode::Read && !isOfTheGame(file)) {
        refuse(path, "is a part of the project, which a game may not write");
    }
    FileHandle handle = openRegularFile(file, mode);
    if (!handle) {
        refuse(path, errno);
    }
    return handle;
}

std::string Sandbox::read(std::string_view path, std::size_t limit) const
{
    const FileHandle file = open(path, FileMode::Read);
    std::string content;
    std::array<char, 16384> block{};
    std::size_t got = 0;
    while ((got = std::fread(block.data(), 1, block.size(), file.get())) > 0) {
        if (content.size() + got > limit) {
            refuse(path, "is too large");
        }
        content.append(block.data(), got);
    }
    if (std::ferror(file.get()) != 0) {
        refuse(path, errno);
    }
    return content;
}

} // namespace player
