/// The variables view: the numbered variables of the game and their start values.
#pragma once

#include "toolkit/view.h"

class LineList;

class var : public View
{
    Q_OBJECT

public:
    explicit var(Workspace& workspace);

    /// Reads the variables anew.
    void activated() override;

private:
    bool refresh();
    void report(const std::string& failure);
    void Command1_Click();
    void List1_Click(int row);

    QLabel* Label2 = nullptr;
    LineList* List1 = nullptr;
};
