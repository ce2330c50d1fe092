/// The character editor: a place without controls, which nothing opens.
#pragma once

#include "toolkit/view.h"

class charactereditor : public View
{
    Q_OBJECT

public:
    explicit charactereditor(Workspace& workspace);
};
