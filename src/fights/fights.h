/// The fights of the current project, as its descriptor names them.
#pragma once

#include <optional>
#include <string>

/// The number of fights; nothing when the descriptor does not hold a count.
std::optional<int> FightCount();

/// What the fight editor shows for a fight: its name, empty when it has none; words for a new one while the
/// project holds no fight.
std::string FightTitle(int number);
