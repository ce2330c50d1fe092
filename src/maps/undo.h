/// What the clicks of a map editor view changed, and the way back: the map, the hero's start and the files.
#pragma once

#include "maps/mapmodel.h"
#include "store/platform.h"

#include <array>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The hero's start as a view shows it.
struct HeroStart {
    std::string column;
    std::string row;

    bool operator==(const HeroStart&) const = default;
};

/// What there was of a file, so far as it takes to know it again.
struct FileMark {
    enum class Kind : unsigned char { Missing, Whole, Unreadable };

    Kind kind = Kind::Missing;
    std::size_t size = 0;
    std::size_t hash = 0;

    bool operator==(const FileMark&) const = default;
};

// Of each pair below the first is what was before the click, the second what was after it.

/// How a file of the current project changed; only what differs is kept.
struct FileChange {
    Path::string_type name; ///< below the project's folder
    std::size_t offset = 0; ///< where the two contents begin to differ
    std::array<std::string, 2> parts;
    std::array<FileMark, 2> marks;
};

/// How a slot of the map changed: tiles come first, then blocks.
struct SlotChange {
    std::size_t slot = 0;
    std::array<std::optional<std::string>, 2> texts;
};

/// How the name of a map changed. Its key alone is written: the descriptor holds much else.
struct NameChange {
    std::string section; ///< of the descriptor
    std::array<std::string, 2> names;
};

/// One click, a reset, or an event that was saved.
struct UndoStep {
    std::string map;  ///< the map that it belongs to; any text
    std::string name; ///< what it was, for the author
    std::vector<SlotChange> slots;
    std::vector<HeroStart> starts; ///< two; none when the start stayed
    std::vector<FileChange> files; ///< also those that came out as they were
    std::optional<NameChange> renaming;

    /// Memory that it takes, in bytes.
    std::size_t size() const;
};

/// Notes what a click finds, to tell what it left.
class StepRecorder
{
public:
    /// files: those of the current project that the click may change; read now. Empty paths are passed over.
    ///
    /// section: the descriptor's section whose name the click may change; empty when it changes none.
    StepRecorder(const MapModel& map, HeroStart start, const std::vector<Path>& files,
                 std::string section = {});

    /// Reads the files again. Nothing when the click changed nothing.
    std::optional<UndoStep> finish(const MapModel& map, const HeroStart& start) const;

private:
    struct Found {
        Path path;
        FileMark mark;
        std::string content;
    };

    MapModel map_;
    HeroStart start_;
    std::vector<Found> files_;
    std::string section_;
    std::string name_;
};

enum class UndoOutcome {
    Nothing,          ///< there is no step left
    Done,             ///< map, start, files and name are what they were
    ChangedElsewhere, ///< a file or the name is not what the step left; nothing was written
    NotWritten        ///< a file could not be written; some may be, and trying again does the rest
};

struct UndoResult {
    UndoOutcome outcome = UndoOutcome::Nothing;
    std::string name;                   ///< of the step
    std::optional<std::string> mapName; ///< the map's name from now on, when the step changed it
};

/// What became of the steps when one more was added.
enum class Remembered {
    All,
    NotTheOldest, ///< the oldest had to go
    Nothing       ///< the new one alone takes too much: it is forgotten, and all before it on its map
};

/// The steps of the maps that one view held, each map's own in the order in which they were done. They take
/// a bounded amount of memory: the oldest are forgotten first.
class UndoHistory
{
public:
    static constexpr std::size_t usualLimit = std::size_t{4} * 1024 * 1024; // bytes

    explicit UndoHistory(std::size_t limit = usualLimit)
        : limit_(limit)
    {
    }

    /// Adds a step; what was taken back on its map cannot be done again from now on.
    Remembered add(UndoStep step);

    /// Takes the last step on a map back, or does again the one taken back last. The project that the steps
    /// were recorded in must be the current one. Unless Done, map and start stay as they are and so do the
    /// steps.
    UndoResult undo(std::string_view mapName, MapModel& map, HeroStart& start);
    UndoResult redo(std::string_view mapName, MapModel& map, HeroStart& start);

private:
    using Steps = std::deque<UndoStep>;

    UndoResult move(Steps& from, Steps& to, std::size_t wanted, std::string_view mapName, MapModel& map,
                    HeroStart& start);
    void drop(Steps& steps, std::string_view mapName);
    void dropOldest();

    std::size_t limit_;
    std::size_t size_ = 0;
    Steps done_;
    Steps undone_;
};
