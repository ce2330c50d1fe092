/// The welcome view: three ways into the program.
#pragma once

#include "toolkit/view.h"

class PressLabel;

class Acc : public View
{
    Q_OBJECT

public:
    explicit Acc(Workspace& workspace);

    /// Another view became active: the welcome view hides.
    void deactivated() override;

private:
    void entry(int number, const QString& icon, const QString& caption, void (Acc::*chosen)());
    void Label2_Click();
    void Label3_Click();
    void Label4_Click();

    QWidget* panel_ = nullptr;
};
