#include "events/eventstore.h"

#include "maps/mapmodel.h"

std::string EventFileName(int row, int column)
{
    return "ev" + std::to_string(row) + std::to_string(column);
}

Path EventFolder(std::string_view mapNumber)
{
    return ProjectFile("ev/map" + std::string(mapNumber));
}

Path eventpath(std::string_view mapNumber, int row, int column)
{
    const Path folder = EventFolder(mapNumber);
    return folder.empty() ? Path() : folder / EventFileName(row, column);
}

std::vector<std::string> EventEntries(std::string_view text)
{
    // Positions count from 1 here: an entry stands between the LF at `start` and the CR before the LF at `i`.
    // The first pair of a file is never tested (the loop begins behind it), so the first entry brings that
    // pair's LF along.
    std::vector<std::string> entries;
    std::size_t start = 1;
    for (std::size_t i = 4; i <= text.size(); ++i) {
        if (text[i - 2] == '\r' && text[i - 1] == '\n') {
            entries.emplace_back(text.substr(start, i - start - 2));
            start = i;
        }
    }
    if (!entries.empty()) {
        entries.front().erase(0, 1);
    }
    return entries;
}

std::vector<std::string> loadevent(const Path& path)
{
    return EventEntries(ReadWholeFile(path));
}

bool IsEventUnreadable(const Path& path)
{
    constexpr std::uintmax_t largestEvent = 16 << 20; // bytes
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    return IsUnreadable(path) || (!failure && size > largestEvent);
}

void saveevent(const Path& path, const std::vector<std::string>& entries)
{
    std::string text;
    for (const std::string& entry : entries) {
        if (!entry.empty()) {
            text.append("\r\n").append(entry);
        }
    }
    WriteWholeFile(text, path);
}

void ClearEvents(std::string_view mapNumber)
{
    for (int row = 1; row <= MapModel::rows; ++row) {
        for (int column = 1; column <= MapModel::columns; ++column) {
            WriteWholeFile("", eventpath(mapNumber, row, column));
        }
    }
}
