/// The scripts that a test run writes: the events, the variables and the boot script that leads into the
/// project.
#pragma once

#include <string>
#include <string_view>

/// The text of ev.lua for maps 1 to `maps` of the current project: function runev with one branch per cell of
/// rows 1 to 9, each holding the cell's event file as it stands; a file that is missing counts as empty.
/// It ends early once it is larger than any file that can be written.
std::string EventScript(int maps);

/// Writes ev.lua of the current project. Failure: silent, an older script stays.
void WriteEventScript(int maps);

/// The text of variables.lua: the table var with the start values as strings, as they stand.
std::string VariablesScript();

/// Writes variables.lua of the current project. Failure: silent, an older script stays.
void WriteVariablesScript();

/// The text of the boot script, which moves the player into a project's folder and hands over to its
/// index.lua.
std::string BootScript(std::string_view project);

/// Writes the boot script for the current project into AppDir. Failure: silent.
void WriteBootScript();
