/// The fights of the current project, as its descriptor names them.
#pragma once

#include <optional>
#include <string>

/// The number of fights; nothing when the descriptor does not hold a count.
std::optional<int> FightCount();

/// The name of a fight, empty when it has none.
std::string FightName(int number);
