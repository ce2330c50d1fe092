#pragma once

#include "player/lua_call.h"

namespace player
{

/// The kind of the one object that stands for the machine's screen; it can do what images can.
inline constexpr ObjectKind screenKind{"Screen"};

/// What every image can do from a script.
extern const luaL_Reg imageMethods[];

} // namespace player
