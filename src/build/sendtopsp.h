/// The publish view: options and a target folder for a step that does not exist yet. Nothing opens it.
#pragma once

#include "toolkit/view.h"

class DirectoryList;
class QComboBox;

class sendtopsp : public View
{
    Q_OBJECT

public:
    explicit sendtopsp(Workspace& workspace);

private:
    QWidget* options();
    QWidget* folderChooser();
    void Drive1_Change();

    QComboBox* Drive1 = nullptr;
    DirectoryList* Dir1 = nullptr;
};
