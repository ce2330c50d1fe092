/// The random user's choice of what to do next.
#pragma once

#include "chance.h"
#include "hands.h"

/// Decides on one act and gives its movements to the hands. Answers its name, for the log.
QString chooseAct(Chance& chance, Hands& hands);

/// One step towards an empty work area: answers boxes, closes views. False when nothing is left.
bool tidyUp();
