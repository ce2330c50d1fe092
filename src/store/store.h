/// Where a project lies and how its files are read and written. Every part of the program goes through here.
///
/// Reading and writing report no error: a failed read is empty text, a failed write leaves the file as it
/// was. An empty path stands for "no folder": it reads as empty text and nothing is written. Texts are
/// Windows-1252 bytes.
#pragma once

#include "store/platform.h"

#include <string>
#include <string_view>

/// The folder of the program's executable: absolute, fixed when the program starts.
const Path& AppDir();

/// Fixes AppDir; called once, by the program's start (tests call it for each of their folders).
void SetAppDir(Path folder);

/// The name of the open project, as bytes; empty while none is open.
const std::string& CurrentProject();
void SetCurrentProject(std::string name);

/// The folder of a project of this name below AppDir/projets. Empty for a name that is not one plain
/// component of a path: such a project has no folder.
Path ProjectFolder(std::string_view name);

/// The folder of the current project; empty when there is none.
const Path& ProjectDir();

/// A file of the current project, for example ProjectFile("ev/map01"); empty when the project has no folder.
Path ProjectFile(std::string_view relative);

/// The descriptor of the current project.
const Path& Descriptor();

/// Removes what programs that were killed left beside the files that they wrote, in the folders of the
/// current project and beside the boot script. Nothing else is touched. Called when a project is opened.
void SweepProject();

/// A name or relative path on disk, made of the characters that the bytes stand for; "/" separates folders.
Path DiskName(std::string_view ansi);

/// The map number as it stands in names: "0" and the number below 10, else the plain decimal.
std::string MapNumberText(int number);

/// The value of a key (see IniValue), empty when the file, the section or the key is missing.
std::string ReadIni(std::string_view section, std::string_view key, const Path& file);

/// Sets the value of a key (see WithIniValue); makes the file when it is missing, but never its folder.
/// Programs that set keys of one file at the same time lose none.
void WriteIni(std::string_view section, std::string_view key, std::string_view value, const Path& file);

/// The whole content of a file, bytes unchanged.
std::string ReadWholeFile(const Path& path);

/// Whether something lies there that cannot be read: a failing disk, no permission, a file beyond the largest
/// size. What was read of it is empty, and writing that back would cost the content.
bool IsUnreadable(const Path& path);

/// Replaces the whole content of `path` by `content` and one CR LF. Its folder must exist.
void WriteWholeFile(std::string content, const Path& path);

/// The system's words for a failure, and the file or folder that it is about; a name beyond reason is cut.
std::string FailureText(const std::error_code& failure, std::string_view about);

/// Copies a file's bytes over `target`, whole. Failure: the reason; an older target is then untouched.
std::error_code CopyWholeFile(const Path& source, const Path& target);
