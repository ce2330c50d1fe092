#pragma once

#include "player/error_report.h"
#include "player/machine.h"
#include "player/script_memory.h"

#include <lua.hpp>
#include <memory>
#include <string>
#include <string_view>

namespace player
{

enum class Outcome {
    /// The script came to its end.
    Ended,
    /// The game was closed while the script ran.
    Closed,
    /// An error ended the script.
    Failed
};

/// A Lua state that drives a machine. Scripts get the handheld's functions and of Lua's own libraries what
/// cannot leave the machine.
class Script
{
public:
    /// The machine must outlive the script. Failure: std::bad_alloc.
    explicit Script(Machine& machine);

    /// Runs a script file to its end; to be called once.
    Outcome run(std::string_view path);

    /// What ended the script if the outcome was Failed.
    const ErrorReport& error() const { return error_; }

    /// Valid until the script is destroyed.
    lua_State* state() { return state_.get(); }

private:
    struct CloseState {
        void operator()(lua_State* L) const { lua_close(L); }
    };

    static int runProtected(lua_State* L);
    static int recordError(lua_State* L);
    static void noteRefusal(void* script);
    void completeError(int status);

    Machine& machine_;
    ScriptMemory memory_;
    ErrorReport error_;
    lua_Debug memoryWasOutAt_{};
    std::string path_;
    int status_ = 0;
    // Last: its finalizers still use the rest.
    std::unique_ptr<lua_State, CloseState> state_;
};

} // namespace player
