/// The fight editor: shows the names of the project's fights. Its hero and attack fields exist on screen
/// alone.
#pragma once

#include "toolkit/view.h"

class QLineEdit;
class ScrollBar;

class combateditor : public View
{
    Q_OBJECT

public:
    explicit combateditor(Workspace& workspace);

private:
    QWidget* selectorStrip();
    QWidget* heroFrame(const QString& caption, const QString& activeCaption);
    QWidget* attackFrame(int attack, QWidget* parent);
    void HScroll1_Change();

    ScrollBar* HScroll1 = nullptr;
    QLineEdit* Text1 = nullptr;
};
