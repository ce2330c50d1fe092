/// The new-project view: a name and an author become a complete project.
#pragma once

#include "toolkit/view.h"

class QLineEdit;

class nouvprojet : public View
{
    Q_OBJECT

public:
    explicit nouvprojet(Workspace& workspace);

private:
    void Command1_Click();

    QLineEdit* Text1 = nullptr;
    QLineEdit* Text2 = nullptr;
};
