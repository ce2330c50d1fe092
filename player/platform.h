#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace player
{

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

enum class FileMode { Read, Write, Append, ReadAndWrite, WriteAndRead, AppendAndRead };

/// Opens a regular file, bytes as they are. A link in the last place of the path is not followed, and a pipe,
/// a device or a folder is refused without waiting for it, and so is writing to a file that has a second
/// name. Failure: null, and errno says why.
FileHandle openRegularFile(const std::filesystem::path& path, FileMode mode);

/// A path of the file system from UTF-8 and back.
std::filesystem::path pathFromUtf8(const std::string& name);
std::string utf8FromPath(const std::filesystem::path& path);

} // namespace player
