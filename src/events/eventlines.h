/// The Lua lines that the commands of the event panel append. Texts go into the line as they are, without
/// escaping.
#pragma once

#include <array>
#include <string>
#include <string_view>

/// Shows a text box in the game.
std::string DisplayTextLine(std::string_view text);

/// Lets the game wait; `frames` at 60 a second, in the range of 16 bits.
std::string PauseLine(int frames);

enum class HpChange { Remove, Add, Replace };

/// Changes the hero's life points; `amount` as typed.
std::string HpLine(HpChange change, std::string_view amount);

/// Moves the hero to a cell, counted from 1: first the column's line, then the row's.
std::array<std::string, 2> HeroMoveLines(int column, int row);

/// Changes to another map, named by its MapNumberText.
std::string ChangeMapLine(std::string_view mapNumber);

enum class Comparison { Equal, Different };

/// Opens a block that runs while the variable compares so with `value`. Only the test for equality quotes the
/// value.
std::string ConditionLine(int variable, Comparison comparison, std::string_view value);

/// Closes the innermost block.
std::string CloseConditionLine();

/// Gives a variable a new value, in quotes.
std::string AssignLine(int variable, std::string_view value);
