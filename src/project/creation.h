/// Making the folder of a new project.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Makes a project of this name below AppDir/projets (folders, descriptor, engine scripts, pictures, map 01)
/// and makes it the current project.
///
/// Failure: the system's description of the first step that failed; what was made before it stays, and the
/// current project is as it was. A missing script template is no failure: its copy then holds just CR LF.
std::optional<std::string> CreateProject(const std::string& name, std::string_view author);
