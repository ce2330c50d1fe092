/// The file calls of the system that the store stands on. Everything that is one system's own lies behind
/// here.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

using Path = std::filesystem::path;

namespace platform
{

/// The largest file, in bytes, that is read or written.
constexpr std::size_t largestFile = std::size_t{256} * 1024 * 1024;

/// To be called once, at the program's start: a write beyond the largest file that the user may make fails
/// from then on, as on a full disk, where the system would end the program.
void failOversizedWrites();

/// Reads a whole regular file of at most the largest size into `content`.
///
/// Failure: the reason; `content` is then empty. Folders, pipes and devices are not read.
std::error_code readFile(const Path& path, std::string& content);

/// Puts `content` in place of the whole file, or makes the file.
///
/// The bytes go to a file beside it that is renamed over it at the end, so that at any moment the file holds
/// its old or its new content. A link keeps pointing where it points, permissions are kept. Failure: the
/// reason; the older file is then untouched and nothing is left beside it, unless the folder takes nothing
/// away any more. A program that is killed meanwhile leaves at most the file beside, which is named as
/// LeftoverName says. A file marked read-only, one that is too large to be read, content of such a size and
/// anything but a regular file is refused. Other hard links to the file keep its old content.
std::error_code replaceFile(const Path& path, std::string_view content);

/// Keeps other programs that take the same lock out as long as it lives. No file is made for it, and a
/// program that is killed lets go of it. Who holds it for about a second hangs and is waited for no longer.
/// Failure: nobody is kept out.
class FolderLock
{
public:
    explicit FolderLock(const Path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int descriptor_;
};

/// The number that the system gave this program.
int ownProcess();

/// Whether a program of this number runs on this machine, whoever started it.
bool isRunning(int process);

/// The system's own words for a failure, as Windows-1252 bytes.
std::string systemWords(const std::error_code& failure);

/// Makes one folder, whose parent must exist. Failure: the reason; an existing folder is one.
std::error_code makeFolder(const Path& path);

/// A folder that is held open, so that reading many of its files does not cost the way along its path each
/// time.
class Folder
{
public:
    /// Failure: nothing can be listed or read.
    explicit Folder(const Path& path);
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    /// False when the folder is missing or may not be entered.
    bool isOpen() const { return descriptor_ >= 0; }

    /// The names in the folder as UTF-8, in no order; in small letters on a system that finds a file by a
    /// name of any case. Failure: the reason; `names` is then empty.
    std::error_code list(std::vector<std::string>& names) const;

    /// As the function readFile, for a file in the folder.
    std::error_code readFile(const std::string& name, std::string& content) const;

private:
    int descriptor_;
};

} // namespace platform
