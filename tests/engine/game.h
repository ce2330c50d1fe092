#pragma once

#include "tests/player/harness.h"

#include <string>
#include <string_view>

namespace engine::testing
{

using player::Buttons;
using player::Outcome;
using player::testing::Frame;
namespace button = player::button;

/// A game in a folder of its own: a new project, made by the editor's core, whose first map is an empty
/// meadow, and somebody who plays it. Each act takes up the frames it needs; the game runs when it is asked
/// to. One game at a time.
class Game : private player::testing::TempFolder, public player::testing::PlayerRun
{
public:
    static constexpr Frame framesPerCell = 14;

    Game();

    /// Writes, reads and removes a file of the project, bytes as they are.
    void file(const std::string& name, std::string_view content) const { write(project_ + name, content); }
    std::string content(const std::string& name) const { return read(project_ + name); }
    void remove(const std::string& name) const { TempFolder::remove(project_ + name); }

    /// A map with a start ("0405"), plain grass and these block flags: eight rows of 17; empty is no block.
    /// Its picture is there.
    void map(const std::string& number, const std::string& start, const std::string& blocks = "") const;

    /// Attaches lines to a cell. ev.lua is made of all of them when the game runs.
    void event(const std::string& map, int column, int row, const std::string& lines);
    void event(int column, int row, const std::string& lines) { event("01", column, row, lines); }

    /// A tap, so many times, and the time to react to it.
    void press(Buttons buttons, int times = 1);

    /// Holds a direction for so many cells (at a wall: for as long as they would take).
    void walk(Buttons direction, int cells);
    void wait(Frame frames) { now_ += frames; }

    /// From now on these buttons are held down.
    void hold(Buttons buttons) { PlayerRun::hold(now_, buttons); }

    /// "New game" from the title.
    void begin() { press(button::cross); }

    /// Begins a game and walks onto the next cell, to the right of the start, whose event has these lines.
    void enter(const std::string& lines);

    /// An expression's value of this moment; told by the run.
    const std::string& watch(const std::string& expression) { return PlayerRun::watch(now_, expression); }

    /// Runs all acts and closes the game after them.
    Outcome run();

    /// The hero's cell, "column,row".
    std::string place() { return value("hero.x .. ',' .. hero.y"); }

    /// The texts of every picture that showed texts: one line for each, its texts divided by "|".
    std::string pages() { return value("pages"); }

    /// The same, with each picture's texts as one running text.
    std::string told() { return value("(string.gsub(pages, '|', ' '))"); }

private:
    std::filesystem::path layOut() const;

    std::string project_ = "projets/Essai/";
    int mapsWithEvents_ = 0;
    Frame now_ = 5;
};

/// Whether `text` holds `part`.
inline bool contains(const std::string& text, std::string_view part)
{
    return text.find(part) != std::string::npos;
}

} // namespace engine::testing
