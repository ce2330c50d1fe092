#pragma once

#include "player/machine.h"

#include <exception>
#include <lua.hpp>
#include <string_view>
#include <type_traits>

/// Where C++ and Lua meet. Lua leaves a function with an error by a jump that skips destructors, so every
/// function here keeps one order: read the arguments, then own C++ objects, let them go, then push results.
/// Exceptions become Lua errors in one place, guarded(), when no C++ object of the call is left.
namespace player
{

/// The machine that the script of this state drives.
Machine& machineOf(lua_State* L);

/// Makes machineOf() answer `machine`, which must outlive the state. May raise a Lua error.
void tieMachine(lua_State* L, Machine& machine);

/// A text that outlives a call's C++ objects until it is pushed; one at a time.
class Message
{
public:
    void set(const char* text) noexcept;
    const char* text() const { return text_; }

private:
    char text_[480] = {};
};

static_assert(std::is_trivially_destructible_v<Message>);

/// Raises a Lua error with the script's line in front of the text.
int raiseError(lua_State* L, const Message& message);

/// Raises the error that ends a script because the game is to be closed; from then on every step that the
/// script takes raises it again, so that no pcall holds it.
int raiseClosed(lua_State* L);

/// A Lua function around `body`: what the body throws leaves as a Lua error.
template <int (*body)(lua_State*)> int guarded(lua_State* L)
{
    Message message;
    bool closed = false;
    try {
        return body(L);
    } catch (const Closed&) {
        closed = true;
    } catch (const std::exception& failure) {
        message.set(failure.what());
    }
    return closed ? raiseClosed(L) : raiseError(L, message);
}

/// One of the kinds of objects that the player hands to scripts; told apart by address.
struct ObjectKind {
    const char* name;
};

/// Sets functions as fields of the table on top of the stack; the list ends with a null name.
void setFunctions(lua_State* L, const luaL_Reg* functions);

/// Makes a global table of functions.
void setLibrary(lua_State* L, const char* name, const luaL_Reg* functions);

/// Pops a table of methods and makes the kind's metatable of it, which scripts can neither see nor replace.
/// finalizer and equals may be null.
void defineKind(lua_State* L, const ObjectKind& kind, lua_CFunction finalizer, lua_CFunction equals);

/// Pushes a new object of a kind with room for `size` bytes, which are zero.
void* pushObject(lua_State* L, const ObjectKind& kind, std::size_t size);

/// The object at `index` if it is of this kind, else null.
void* objectAt(lua_State* L, int index, const ObjectKind& kind);

/// The object at `index`; raises Lua's argument error if it is not of this kind.
void* checkObject(lua_State* L, int index, const ObjectKind& kind);

template <class T> T& check(lua_State* L, int index, const ObjectKind& kind)
{
    return *static_cast<T*>(checkObject(L, index, kind));
}

/// A string argument, which lives as long as it is on the stack.
std::string_view checkText(lua_State* L, int index);

/// Calls `work`, which may throw, and tells whether it came through; if not, `message` says why.
/// Failure: Closed goes on.
template <class Work> bool succeeds(Message& message, Work work)
{
    try {
        work();
        return true;
    } catch (const std::exception& failure) {
        message.set(failure.what());
        return false;
    }
}

/// Puts `guard` in front of a function of the library on top of the stack, which becomes its upvalue.
void guardFunction(lua_State* L, const char* name, lua_CFunction guard);

/// From now on the script's steps are counted and looked at: whether the game was closed, whether memory runs
/// short, whether a frame was shown lately.
void watchSteps(lua_State* L);

/// What each subject adds to a fresh state.
void openLibraries(lua_State* L);
void openCoroutines(lua_State* L);
void openSystem(lua_State* L);
void openFiles(lua_State* L);
void openColors(lua_State* L);
void openImages(lua_State* L);
void openScreen(lua_State* L);
void openControls(lua_State* L);
void openTimers(lua_State* L);

/// The Lua function dofile: runs the script whose path is its argument and returns what that returns.
int runScriptFile(lua_State* L);

} // namespace player
