/// The numbered variables of the current project, held in its descriptor.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The count as it stands in the descriptor; empty when it is missing.
std::string VariableCountText();

/// The number of variables; 0 when the count is missing or not a number.
int VariableCount();

/// The start values of variables 1 to `count`, empty where there is none; one pass over the descriptor.
std::vector<std::string> StartValues(int count);

/// The start values of all variables; none when the count is missing or not a number.
std::vector<std::string> StartValues();

/// A variable's line in the variables view.
std::string VariableLine(int number, std::string_view startValue);

/// A variable's entry in the list of the event panel's conditions.
std::string ConditionEntry(int number, std::string_view startValue);

/// What adding a variable to a number of them leads to.
struct NextVariable {
    int number = 0;      ///< its number; 0 when none can be added
    std::string failure; ///< why none can be added, for the author to read
};

/// The variable that follows a count as it is shown; none without a project.
NextVariable VariableAfter(std::string_view count);

/// The words for a count that is not a number, or has no descriptor to stand in.
std::string BadVariableCount();

/// First half of adding variable `number`: its section, before its value is asked for.
void BeginVariable(int number);

/// Second half: its start value and the new count.
void FinishVariable(int number, std::string_view value);

/// Writes the start value of variable `number`, counted from 1; the count stays. Failure: silent, nothing
/// changes.
void SetStartValue(int number, std::string_view value);
