#pragma once

#include "tests/player/harness.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace engine::testing
{

using player::Buttons;
using player::Outcome;
using player::testing::Frame;
namespace button = player::button;

/// The folder with the engine's scripts and the pictures that a project starts with.
std::filesystem::path sourceFolder();

/// The bytes of a file of that folder.
std::string sourceText(const std::filesystem::path& name);

/// A text of the engine as it lies in a project: Windows-1252, CR LF, and one CR LF more.
std::string projectText(std::string_view text);

/// A game in a folder of its own, laid out as a new project whose first map is an empty meadow, and somebody
/// who plays it. Each act takes up the frames it needs; the game runs when it is asked to.
class Game
{
public:
    static constexpr Frame framesPerCell = 14;

    Game();

    /// Writes a file of the project, bytes as they are.
    void file(const std::string& name, std::string_view content) const;
    std::string content(const std::string& name) const { return folder_.read(project_ / name); }
    void remove(const std::string& name) const;

    /// A map with a start ("0405"), plain grass and these block flags: eight rows of 17; empty is no block.
    /// Its picture is there.
    void map(const std::string& number, const std::string& start, const std::string& blocks = "") const;

    /// Attaches lines to a cell. ev.lua is made of all of them, as the editor does, when the game runs.
    void event(const std::string& map, int column, int row, const std::string& lines);
    void event(int column, int row, const std::string& lines) { event("01", column, row, lines); }

    /// A tap, and the time to react to it.
    void press(Buttons buttons);

    /// Holds a direction for so many cells (at a wall: for as long as they would take).
    void walk(Buttons direction, int cells);
    void wait(Frame frames) { now_ += frames; }

    /// From now on these buttons are held down.
    void hold(Buttons buttons) { player().hold(now_, buttons); }

    /// "New game" from the title.
    void begin();

    /// Begins a game and walks onto the next cell, to the right of the start, whose event has these lines.
    void enter(const std::string& lines)
    {
        event(5, 5, lines);
        begin();
        walk(button::right, 1);
    }

    /// The frame that the next act starts with.
    Frame now() const { return now_; }

    /// Keeps an expression's value, or the picture, of this moment.
    Frame watch(const std::string& expression);
    Frame capture();

    /// Runs all acts and closes the game after them.
    Outcome run();

    /// Of the finished run.
    std::string value(const std::string& expression) { return player().value(expression); }

    std::string valueAt(Frame frame, const std::string& expression)
    {
        return player().watched(frame, expression);
    }
    const player::Image& pictureAt(Frame frame) { return player().captured(frame); }

    /// The hero's cell, "column,row".
    std::string place() { return value(placeOfHero); }
    static constexpr const char* placeOfHero = "hero.x .. ',' .. hero.y";

    /// The texts of every picture that showed texts: one line for each, its texts divided by "|".
    std::string pages() { return value("pages"); }

    /// The same, with each picture's texts as one running text.
    std::string told();

    player::testing::PlayerRun& player();

private:
    player::testing::TempFolder folder_;
    std::filesystem::path project_ = "projets/Essai";
    void writeEvents() const;

    /// By map, row and column.
    std::map<std::string, std::map<std::pair<int, int>, std::string>> events_;
    std::optional<player::testing::PlayerRun> player_;
    Frame now_ = 5;
};

/// Whether `text` holds `part`.
inline bool contains(const std::string& text, std::string_view part)
{
    return text.find(part) != std::string::npos;
}

} // namespace engine::testing
