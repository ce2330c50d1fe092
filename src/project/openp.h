/// The open-project view: a folder that holds a project is chosen and becomes the current project.
#pragma once

#include "toolkit/view.h"

class DirectoryList;

class openp : public View
{
    Q_OBJECT

public:
    explicit openp(Workspace& workspace);

private:
    void Command1_Click();

    DirectoryList* Dir1 = nullptr;
};
