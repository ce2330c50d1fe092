/// The numbered variables of the current project, held in its descriptor.
#pragma once

#include <optional>
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

/// First half of adding variable `number`: its section, before its value is asked for.
void BeginVariable(int number);

/// Second half: its start value and the new count.
void FinishVariable(int number, std::string_view value);

void SetStartValue(int number, std::string_view value);
