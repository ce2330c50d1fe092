#pragma once

#include "player/platform.h"

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace player
{

/// A path that a script may not use or that leads nowhere; what() starts with the path as the script gave it.
class PathRefused : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The folder that a script may touch: the game's project and nothing outside.
///
/// A start folder without a "projets" folder is a project itself. Otherwise it holds the boot script: only
/// the files directly in it can be read, until the first change into "projets/NAME" makes that folder the
/// root for good. Links and ".." are followed and refused when they lead out of the root.
///
/// Paths of scripts are Windows-1252 bytes, relative to the current folder; both slashes separate folders.
class Sandbox
{
public:
    /// Failure: std::filesystem::filesystem_error if there is no such folder.
    explicit Sandbox(const std::filesystem::path& startFolder);

    /// The current folder, absolute, as a script sees it. It is accepted again by every other call, even
    /// where its true name has letters that the code page lacks.
    std::string currentDirectory() const;

    /// Failure: PathRefused; the current folder stays.
    void changeDirectory(std::string_view path);

    /// Whether the path leads to anything at all.
    bool exists(std::string_view path) const;

    /// Opens a file of the root. What the editor makes (descriptor, maps, events, scripts, pictures) and
    /// hidden files are not opened for writing. Failure: PathRefused with the reason.
    FileHandle open(std::string_view path, FileMode mode) const;

    /// The whole content of a file of at most `limit` bytes. Failure: PathRefused with the reason.
    std::string read(std::string_view path, std::size_t limit) const;

private:
    bool isBooting() const { return !root_.has_value(); }
    std::filesystem::path located(std::string_view path) const;
    std::filesystem::path resolved(std::string_view path) const;
    bool mayBeRoot(const std::filesystem::path& folder) const;
    bool isInside(const std::filesystem::path& file) const;
    bool isOfTheGame(const std::filesystem::path& file) const;

    std::filesystem::path start_;
    std::optional<std::filesystem::path> root_;
    std::filesystem::path current_;
};

} // namespace player
