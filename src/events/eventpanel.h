/// The event panel of a map editor view: the open cell's list of Lua lines and the commands that append to
/// it.
#pragma once

#include "events/eventlines.h"
#include "store/platform.h"
#include "toolkit/workspace.h"

#include <array>
#include <QGroupBox>
#include <string>
#include <vector>

class CutLabel;
class LineList;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QVBoxLayout;
class ScrollBar;

/// What the panel asks of the view that it lies in.
class EventPanelHost
{
public:
    EventPanelHost() = default;
    virtual ~EventPanelHost() = default;
    EventPanelHost(const EventPanelHost&) = delete;
    EventPanelHost& operator=(const EventPanelHost&) = delete;

    /// MapNumberText of the map that the view holds.
    virtual const std::string& heldMap() const = 0;
    /// Whether the held map's project is the current one. While it is not, its files are neither read nor
    /// written.
    virtual bool ownsProject() const = 0;
    virtual void showPanel(bool shown) = 0;
    /// Lets the picture take clicks, and keys at once; or neither.
    virtual void enablePicture(bool enabled) = 0;
    /// The mark on the picture that gives the next click on a cell to the hero's move.
    virtual void setModeMark(const QString& mark) = 0;
    /// Saves the lines of a cell, counted from 1, in the map that the view holds.
    virtual void saveEvent(int row, int column, const std::vector<std::string>& lines) = 0;
};

/// The mode mark of a hero's move.
inline constexpr QLatin1StringView heroMoveMark("dephero");

class EventPanel : public QGroupBox
{
    Q_OBJECT

public:
    EventPanel(EventPanelHost& host, Workspace& workspace, QWidget* parent);

    /// Opens the event of a cell, row and column counted from 1; the picture takes no clicks until the panel
    /// closes.
    void openCell(int row, int column);
    /// Takes a cell as the hero's new position; the keys go back to the lines.
    void placeHero(int row, int column);

private:
    // The look of the panel (eventpanel_layout.cpp).
    void build();
    QLayout* buildList();
    QLayout* buildFoot();
    QLayout* buildCommands();
    QLayout* buildFrames();
    void buildHpFrame();
    void buildMapFrame();
    void buildConditionFrame();
    void buildVariableFrame();
    void addHeading(const QString& text, QVBoxLayout* column);
    QPushButton* command(const QString& name, const QString& caption, const QString& toolTip,
                         QVBoxLayout* column);
    QGroupBox* commandFrame(const QString& name, const QString& caption);
    void connectControls();

    // The list (eventpanel.cpp).
    void Command2_Click();
    void Command20_Click();
    void listev_DblClick();

    // Texts, time, the hero and maps (eventpanel_commands.cpp).
    void Command8_Click();
    void Command12_Click();
    void Command17_Click();
    void Command22_Click();
    void Command23_Click();
    void Command19_Click();
    void Command21_Click();
    void HScroll3_Change();

    // Conditions and variables (eventpanel_variables.cpp).
    void Command13_Click();
    void Command3_Click();
    void Command15_Click();
    void Command18_Click();
    void List1_Click(int row);

    void append(const std::string& line);
    Path openFile() const;

    EventPanelHost& host_;
    Workspace& workspace_;

    LineList* listev = nullptr;
    QLabel* ln = nullptr;
    QLabel* co = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command20 = nullptr;
    QPushButton* Command8 = nullptr;
    QPushButton* Command12 = nullptr;
    QPushButton* Command17 = nullptr;
    QPushButton* Command23 = nullptr;
    QPushButton* Command19 = nullptr;
    QPushButton* Command16 = nullptr;
    QPushButton* Command13 = nullptr;
    QPushButton* Command15 = nullptr;
    QPushButton* Command18 = nullptr;

    QGroupBox* Frame10 = nullptr;
    std::array<QRadioButton*, 3> Option2 = {};
    QLineEdit* Text2 = nullptr;
    QPushButton* Command22 = nullptr;

    QGroupBox* Frame9 = nullptr;
    QLabel* Label12 = nullptr;
    CutLabel* Label14 = nullptr;
    ScrollBar* HScroll3 = nullptr;
    QPushButton* Command21 = nullptr;

    QGroupBox* Frame7 = nullptr;
    QComboBox* Combo1 = nullptr;
    QComboBox* Combo2 = nullptr;
    QLineEdit* Text3 = nullptr;
    QPushButton* Command3 = nullptr;

    QGroupBox* Frame8 = nullptr;
    LineList* List1 = nullptr;
};
