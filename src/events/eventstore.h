/// The event of a map cell: an ordered list of Lua lines in one small file per cell.
#pragma once

#include "store/store.h"

#include <string>
#include <string_view>
#include <vector>

/// The name of a cell's event file within its map's folder; row and column count from 1.
std::string EventFileName(int row, int column);

/// The folder of a map's cell event files, in the current project; empty when it has no folder.
Path EventFolder(std::string_view mapNumber);

/// The cell event file of the current project; empty when it has no folder.
Path eventpath(std::string_view mapNumber, int row, int column);

/// The entries of an event file's text. Pairs of CR LF end an entry; what follows the last pair is not
/// loaded.
std::vector<std::string> EventEntries(std::string_view text);

/// The entries of a file; none when it is missing or cannot be read.
std::vector<std::string> loadevent(const Path& path);

/// Whether something lies there that cannot be opened as an event: a file that cannot be read or holds more
/// than 16 MB, each line of which would cost the list many times its bytes. To save over it would cost the
/// content.
bool IsEventUnreadable(const Path& path);

/// Writes the entries that are not empty, each after a CR LF, and a closing CR LF. Failure: silent, as every
/// write.
void saveevent(const Path& path, const std::vector<std::string>& entries);

/// Empties the cell event files of rows 1 to 8 of a map.
void ClearEvents(std::string_view mapNumber);
