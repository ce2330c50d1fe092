/// What the random user types.
#pragma once

#include "chance.h"

#include <QString>

/// An answer: numbers at and beyond their limits, accents, quotes, Lua, INI and path syntax, up to 300
/// characters.
QString anyText(Chance& chance);

/// A name of a project: mostly one of a few, so that projects are met again.
QString projectName(Chance& chance);
