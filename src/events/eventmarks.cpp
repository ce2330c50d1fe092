#include "events/eventmarks.h"

#include "events/eventstore.h"

#include <algorithm>

namespace
{

/// Whether EventEntries finds one; asked of every file of a map, so nothing is copied.
bool hasEntry(std::string_view text)
{
    return text.find("\r\n", 2) != std::string_view::npos;
}

} // namespace

CellSet CellsWithEvents(std::string_view mapNumber)
{
    CellSet cells;
    const Path path = EventFolder(mapNumber);
    if (path.empty()) {
        return cells;
    }
    const platform::Folder folder(path);
    std::vector<std::string> names;
    folder.list(names);
    std::sort(names.begin(), names.end());
    std::string content;
    for (int row = 1; row <= MapModel::storedRows; ++row) {
        for (int column = 1; column <= MapModel::columns; ++column) {
            const std::string name = EventFileName(row, column);
            cells[static_cast<std::size_t>(slotOf(row, column))] =
                std::binary_search(names.begin(), names.end(), name) && !folder.readFile(name, content) &&
                hasEntry(content);
        }
    }
    return cells;
}
