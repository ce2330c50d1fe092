/// The event panel's commands in a sample game's source.
#pragma once

#include "sourcelines.h"

/// Appends what the panel appends for one command: "text T", "pause N", "hp remove|add|replace N",
/// "hero C,R", "map NN", "if K = V", "if K ! V", "close", "set K V"; V as it is typed in the panel.
/// Failure: SourceLine::fail.
void appendCommand(std::vector<std::string>& lines, const SourceLine& line);
