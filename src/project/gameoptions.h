/// The game setup view: a place without controls.
#pragma once

#include "toolkit/view.h"

class gameoptions : public View
{
    Q_OBJECT

public:
    explicit gameoptions(Workspace& workspace);
};
