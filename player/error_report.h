#pragma once

#include <string>
#include <string_view>
#include <vector>

struct lua_State;

namespace player
{

/// What went wrong in a script. All texts are Windows-1252.
struct ErrorReport {
    /// Empty if no script was running.
    std::string file;
    /// Counted from 1; 0 if not known.
    int line = 0;
    std::string message;
    /// The calls that led there, the innermost first.
    std::vector<std::string> trace;

    /// "file:line: message", or the message alone.
    std::string headline() const;
};

/// A report from a message that may start with "file:line: ".
ErrorReport reportOf(std::string_view message);

/// The report of the error value on top of the stack, whatever its type; made inside the error's handler, it
/// has the trace. Uses no memory of Lua's and raises no error.
ErrorReport describeError(lua_State* L);

} // namespace player
