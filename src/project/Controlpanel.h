/// The control panel: the hub of an open project. It shows the project's values and maps, leads to every
/// editor, and builds and starts the game.
#pragma once

#include "toolkit/view.h"

#include <array>

class LineList;
class PressLabel;
class QVBoxLayout;

class Controlpanel : public View
{
    Q_OBJECT

public:
    explicit Controlpanel(Workspace& workspace);

    /// Reads the project anew; asks to close the panel when no project is open.
    void activated() override;

    /// Refreshes the four values and writes the project's variables and event scripts. Nothing is reported.
    void compiler();
    /// Runs the compiler, writes the boot script and starts the player beside the program, without waiting
    /// for it. Failure to start it: a message that names the player.
    void tester();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildValues(QVBoxLayout* parts);
    void buildMenu(QVBoxLayout* parts);
    void buildMapList(QVBoxLayout* parts);
    void showValues();
    void listMaps();
    void Label9_Click(std::size_t index);
    void List1_DblClick();

    QLabel* Label5 = nullptr;
    QLabel* Label6 = nullptr;
    QLabel* Label7 = nullptr;
    QLabel* Label8 = nullptr;
    std::array<PressLabel*, 5> Image1 = {};
    std::array<PressLabel*, 5> Label9 = {};
    LineList* List1 = nullptr;
};
