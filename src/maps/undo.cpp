#include "maps/undo.h"

#include "store/store.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace
{

constexpr std::size_t before = 0;
constexpr std::size_t after = 1;
constexpr std::string_view nameKey = "nom";

FileMark read(const Path& path, std::string& content)
{
    if (const std::error_code failure = platform::readFile(path, content)) {
        return {failure == std::errc::no_such_file_or_directory ? FileMark::Kind::Missing
                                                                : FileMark::Kind::Unreadable};
    }
    return {FileMark::Kind::Whole, content.size(), std::hash<std::string>()(content)};
}

Path::string_type nameBelowProject(const Path& path)
{
    return path.native().substr(ProjectDir().native().size() + 1);
}

/// The part in which two contents differ.
void keepDifference(FileChange& change, std::string_view old, std::string_view now)
{
    const auto heads = std::mismatch(old.begin(), old.end(), now.begin(), now.end());
    const auto same = static_cast<std::size_t>(heads.first - old.begin());
    old.remove_prefix(same);
    now.remove_prefix(same);
    const auto tails = std::mismatch(old.rbegin(), old.rend(), now.rbegin(), now.rend());
    const auto tail = static_cast<std::size_t>(tails.first - old.rbegin());
    change.offset = same;
    change.parts = {std::string(old.substr(0, old.size() - tail)),
                    std::string(now.substr(0, now.size() - tail))};
}

std::optional<std::string>& slotOfMap(MapModel& map, std::size_t slot)
{
    return slot < MapModel::slots ? map.tiles[slot] : map.blocks[slot - MapModel::slots];
}

void addSlotChanges(std::vector<SlotChange>& changes, const MapModel::Slots& old, const MapModel::Slots& now,
                    std::size_t first)
{
    for (std::size_t slot = 0; slot < old.size(); ++slot) {
        if (old[slot] != now[slot]) {
            changes.push_back({first + slot, {old[slot], now[slot]}});
        }
    }
}

/// What is to become of one file.
struct Replacement {
    Path path;
    std::string content;
    bool remove = false;
};

/// Plans how a file gets what it held at one side of the click. A file that holds it already needs nothing.
UndoOutcome plan(const FileChange& change, std::size_t wanted, std::vector<Replacement>& plans)
{
    Replacement next{ProjectDir() / change.name, {}};
    const FileMark found = read(next.path, next.content);
    if (found == change.marks[wanted]) {
        return UndoOutcome::Done;
    }
    if (found != change.marks[1 - wanted]) {
        return UndoOutcome::ChangedElsewhere;
    }
    if (change.marks[wanted].kind == FileMark::Kind::Unreadable) {
        return UndoOutcome::NotWritten;
    }
    next.content.replace(change.offset, change.parts[1 - wanted].size(), change.parts[wanted]);
    next.remove = change.marks[wanted].kind == FileMark::Kind::Missing;
    plans.push_back(std::move(next));
    return UndoOutcome::Done;
}

bool carryOut(const Replacement& replacement)
{
    std::error_code failure;
    if (replacement.remove) {
        std::filesystem::remove(replacement.path, failure);
    } else {
        failure = platform::replaceFile(replacement.path, replacement.content);
    }
    return !failure;
}

/// Whether the name is what the step left, or already what is wanted.
bool isNameKnown(const NameChange& renaming)
{
    const std::string found = ReadIni(renaming.section, nameKey, Descriptor());
    return found == renaming.names[before] || found == renaming.names[after];
}

bool rename(const NameChange& renaming, std::size_t wanted)
{
    const std::string& name = renaming.names[wanted];
    for (const std::string& value : {name, '"' + name + '"'}) { // a name may begin with a blank or a quote
        WriteIni(renaming.section, nameKey, value, Descriptor());
        if (ReadIni(renaming.section, nameKey, Descriptor()) == name) {
            return true;
        }
    }
    return false;
}

/// All is looked at before anything is written.
UndoOutcome restore(const UndoStep& step, std::size_t wanted)
{
    if (step.renaming && !isNameKnown(*step.renaming)) {
        return UndoOutcome::ChangedElsewhere;
    }
    std::vector<Replacement> plans;
    for (const FileChange& change : step.files) {
        if (const UndoOutcome outcome = plan(change, wanted, plans); outcome != UndoOutcome::Done) {
            return outcome;
        }
    }
    const bool written = std::all_of(plans.begin(), plans.end(), carryOut) &&
                         (!step.renaming || rename(*step.renaming, wanted));
    return written ? UndoOutcome::Done : UndoOutcome::NotWritten;
}

bool isOf(const UndoStep& step, std::string_view mapName)
{
    return step.map == mapName;
}

} // namespace

std::size_t UndoStep::size() const
{
    std::size_t bytes = sizeof(UndoStep) + map.capacity() + name.capacity();
    bytes += slots.capacity() * sizeof(SlotChange) + starts.capacity() * sizeof(HeroStart) +
             files.capacity() * sizeof(FileChange);
    for (const FileChange& change : files) {
        bytes += change.parts[before].capacity() + change.parts[after].capacity();
        bytes += change.name.capacity() * sizeof(Path::value_type);
    }
    if (renaming) {
        bytes += renaming->section.capacity() + renaming->names[before].capacity() +
                 renaming->names[after].capacity();
    }
    return bytes;
}

StepRecorder::StepRecorder(const MapModel& map, HeroStart start, const std::vector<Path>& files,
                           std::string section)
    : map_(map)
    , start_(std::move(start))
    , section_(std::move(section))
    , name_(section_.empty() ? std::string() : ReadIni(section_, nameKey, Descriptor()))
{
    files_.reserve(files.size());
    for (const Path& path : files) {
        if (!path.empty()) {
            Found& found = files_.emplace_back(Found{path, {}, {}});
            found.mark = read(path, found.content);
        }
    }
}

std::optional<UndoStep> StepRecorder::finish(const MapModel& map, const HeroStart& start) const
{
    UndoStep step;
    addSlotChanges(step.slots, map_.tiles, map.tiles, 0);
    addSlotChanges(step.slots, map_.blocks, map.blocks, MapModel::slots);
    if (start != start_) {
        step.starts = {start_, start};
    }
    bool changed = !step.slots.empty() || !step.starts.empty();
    std::string content;
    step.files.reserve(files_.size());
    for (const Found& found : files_) {
        FileChange& change = step.files.emplace_back();
        change.name = nameBelowProject(found.path);
        change.marks = {found.mark, read(found.path, content)};
        keepDifference(change, found.content, content);
        changed = changed || change.marks[before] != change.marks[after];
    }
    if (!section_.empty()) {
        std::string name = ReadIni(section_, nameKey, Descriptor());
        if (name != name_) {
            step.renaming = {section_, {name_, std::move(name)}};
            changed = true;
        }
    }
    return changed ? std::optional(std::move(step)) : std::nullopt;
}

Remembered UndoHistory::add(UndoStep step)
{
    drop(undone_, step.map);
    const std::size_t size = step.size();
    if (size > limit_) {
        drop(done_, step.map); // nothing before it can be reached any more
        return Remembered::Nothing;
    }
    size_ += size;
    done_.push_back(std::move(step));
    const bool whole = size_ <= limit_;
    while (size_ > limit_) {
        dropOldest();
    }
    return whole ? Remembered::All : Remembered::NotTheOldest;
}

void UndoHistory::drop(Steps& steps, std::string_view mapName)
{
    std::erase_if(steps, [&](const UndoStep& step) {
        const bool gone = isOf(step, mapName);
        size_ -= gone ? step.size() : 0;
        return gone;
    });
}

void UndoHistory::dropOldest()
{
    Steps& steps = done_.empty() ? undone_ : done_;
    size_ -= steps.front().size();
    steps.pop_front();
}

UndoResult UndoHistory::undo(std::string_view mapName, MapModel& map, HeroStart& start)
{
    return move(done_, undone_, before, mapName, map, start);
}

UndoResult UndoHistory::redo(std::string_view mapName, MapModel& map, HeroStart& start)
{
    return move(undone_, done_, after, mapName, map, start);
}

UndoResult UndoHistory::move(Steps& from, Steps& to, std::size_t wanted, std::string_view mapName,
                             MapModel& map, HeroStart& start)
{
    const auto last =
        std::find_if(from.rbegin(), from.rend(), [&](const UndoStep& step) { return isOf(step, mapName); });
    if (last == from.rend()) {
        return {};
    }
    UndoResult result{restore(*last, wanted), last->name, {}};
    if (result.outcome != UndoOutcome::Done) {
        return result;
    }
    for (const SlotChange& change : last->slots) {
        slotOfMap(map, change.slot) = change.texts[wanted];
    }
    if (!last->starts.empty()) {
        start = last->starts[wanted];
    }
    if (last->renaming) {
        result.mapName = last->renaming->names[wanted];
    }
    to.push_back(std::move(*last));
    from.erase(std::next(last).base());
    return result;
}
