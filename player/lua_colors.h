#pragma once

#include "player/image.h"

#include <lua.hpp>

namespace player
{

/// The colour argument at `index`, or `otherwise` if there is none. Raises Lua's argument error for anything
/// else.
Pixel colorArgument(lua_State* L, int index, Pixel otherwise);

/// Pushes a colour object.
void pushColor(lua_State* L, Pixel color);

} // namespace player
