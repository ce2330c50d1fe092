// The look of the event panel: the open cell's lines at the left, the commands beside them in groups, their
// frames at the right.
#include "events/eventpanel.h"

#include "toolkit/cutlabel.h"
#include "toolkit/linelist.h"
#include "toolkit/scrollbar.h"
#include "toolkit/text.h"
#include "toolkit/theme.h"
#include "toolkit/view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace
{

// Pixels.
constexpr int leastListWidth = 240;
constexpr int leastFrameWidth = 166;
constexpr int tightGap = 4;
constexpr int leastAmountWidth = 52;

QGridLayout* gridOf(QWidget* frame)
{
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(controlGap, tightGap, controlGap, tightGap);
    grid->setHorizontalSpacing(tightGap);
    grid->setVerticalSpacing(2);
    return grid;
}

/// listWidth: of the list that it drops down, in pixels.
QComboBox* choice(const QString& name, const QString& accessibleName, int listWidth, QWidget* parent)
{
    auto* box = named<QComboBox>(name, parent);
    box->setAccessibleName(accessibleName);
    // Widths of its own, and one height: thousands of entries are never measured.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(10);
    auto* list = named<QListView>(name + u"List"_s, box);
    list->setUniformItemSizes(true);
    list->setMinimumWidth(listWidth);
    box->setView(list);
    return box;
}

/// A frame that is hidden keeps its place, so that the others stay where they are.
void addFrame(QGridLayout* frames, QGroupBox* frame, int row, int column)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setRetainSizeWhenHidden(true);
    frame->setSizePolicy(policy);
    frame->setMinimumWidth(leastFrameWidth);
    frames->addWidget(frame, row, column);
}

} // namespace

void EventPanel::build()
{
    auto* parts = new QHBoxLayout(this);
    parts->setContentsMargins(controlGap, tightGap, controlGap, controlGap);
    parts->setSpacing(viewMargin);
    auto* cell = new QGridLayout;
    cell->setHorizontalSpacing(viewMargin);
    cell->setVerticalSpacing(controlGap);
    cell->setColumnStretch(0, 1);
    cell->setRowStretch(0, 1);
    cell->addLayout(buildList(), 0, 0);
    cell->addLayout(buildCommands(), 0, 1);
    parts->addLayout(cell, 1);
    parts->addLayout(buildFrames());
    cell->addLayout(buildFoot(), 1, 0, 1, 2);
}

QLayout* EventPanel::buildList()
{
    auto* column = new QVBoxLayout;
    addHeading(u"Lines"_s, column);
    listev = named<LineList>("listev"_L1, this);
    listev->setMinimumWidth(leastListWidth);
    listev->setFont(codeFont());
    listev->setAccessibleName(u"Lines of the event"_s);
    listev->setToolTip(u"Double-click a line to delete it"_s);
    listev->appendLine("-- Evenements");
    column->addWidget(listev, 1);
    return column;
}

QLayout* EventPanel::buildFoot()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(controlGap);
    row->addWidget(textLabel({}, u"Row"_s, this));
    ln = textLabel("ln"_L1, u"0"_s, this);
    ln->setAccessibleDescription(u"Row"_s);
    row->addWidget(ln);
    row->addSpacing(controlGap);
    row->addWidget(textLabel({}, u"Column"_s, this));
    co = textLabel("co"_L1, u"0"_s, this);
    co->setAccessibleDescription(u"Column"_s);
    row->addWidget(co);
    row->addStretch(1);
    Command2 = named<QPushButton>("Command2"_L1, u"Save"_s, this);
    Command2->setToolTip(u"Saves the lines and closes the panel"_s);
    row->addWidget(Command2);
    Command20 = named<QPushButton>("Command20"_L1, u"Cancel"_s, this);
    Command20->setToolTip(u"Closes the panel; the lines are as they were saved last"_s);
    row->addWidget(Command20);
    return row;
}

void EventPanel::addHeading(const QString& text, QVBoxLayout* column)
{
    if (column->count() > 0) {
        column->addSpacing(tightGap);
    }
    column->setSpacing(tightGap);
    auto* heading = textLabel({}, text, this);
    heading->setFont(headingFont());
    column->addWidget(heading);
}

QPushButton* EventPanel::command(const QString& name, const QString& caption, const QString& toolTip,
                                 QVBoxLayout* column)
{
    auto* button = named<QPushButton>(name, caption, this);
    button->setToolTip(toolTip);
    column->addWidget(button);
    return button;
}

QLayout* EventPanel::buildCommands()
{
    auto* first = new QVBoxLayout;
    addHeading(u"Texts and time"_s, first);
    Command8 = command("Command8"_L1, u"Display Text"_s, u"Asks for a text that the game shows"_s, first);
    Command12 = command("Command12"_L1, u"Pause"_s, u"Asks for how many frames the game waits"_s, first);
    addHeading(u"Hero"_s, first);
    Command17 = command("Command17"_L1, u"Change the hero's HP"_s,
                        u"Shows the frame for it; a second click hides it"_s, first);
    Command23 = command("Command23"_L1, u"Change the position of hero"_s,
                        u"The next click on the map is the hero's place; Cancel gives it up"_s, first);
    Command16 = command("Command16"_L1, u"Start a fight"_s, u"Not made so far: does nothing"_s, first);
    first->addStretch(1);

    auto* second = new QVBoxLayout;
    addHeading(u"Maps"_s, second);
    Command19 = command("Command19"_L1, u"Change map"_s, u"Shows the frame for it; a second click hides it"_s,
                        second);
    addHeading(u"Conditions and variables"_s, second);
    Command13 = command("Command13"_L1, u"A condition"_s,
                        u"Shows the frame for it; a second click hides it"_s, second);
    Command15 =
        command("Command15"_L1, u"Close Condition"_s, u"Ends what runs under the last condition"_s, second);
    Command18 = command("Command18"_L1, u"Change a variable"_s,
                        u"Shows the variables to choose from; a second click hides them"_s, second);
    second->addStretch(1);

    auto* columns = new QHBoxLayout;
    columns->setSpacing(controlGap);
    columns->addLayout(first);
    columns->addLayout(second);
    return columns;
}

QLayout* EventPanel::buildFrames()
{
    buildHpFrame();
    buildMapFrame();
    buildConditionFrame();
    buildVariableFrame();
    auto* frames = new QGridLayout;
    frames->setHorizontalSpacing(controlGap);
    frames->setVerticalSpacing(tightGap);
    addFrame(frames, Frame10, 0, 0);
    addFrame(frames, Frame9, 0, 1);
    addFrame(frames, Frame7, 1, 0);
    addFrame(frames, Frame8, 1, 1);
    return frames;
}

QGroupBox* EventPanel::commandFrame(const QString& name, const QString& caption)
{
    auto* frame = named<QGroupBox>(name, caption, this);
    frame->hide();
    return frame;
}

void EventPanel::buildHpFrame()
{
    Frame10 = commandFrame("Frame10"_L1, u"Change the hero's HP"_s);
    QGridLayout* grid = gridOf(Frame10);
    const std::array captions = {u"Remove :"_s, u"Add :"_s, u"Replace with:"_s};
    const std::array toolTips = {u"The hero loses the amount"_s, u"The hero gains the amount"_s,
                                 u"The amount is what the hero has from then on"_s};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        Option2[i] = named<QRadioButton>(u"Option2_%1"_s.arg(i), captions[i], Frame10);
        Option2[i]->setToolTip(toolTips[i]);
        grid->addWidget(Option2[i], static_cast<int>(i), 0);
    }
    Option2[0]->setChecked(true);
    Text2 = named<QLineEdit>("Text2"_L1, u"0"_s, Frame10);
    Text2->setAccessibleName(u"Amount"_s);
    Text2->setMinimumWidth(leastAmountWidth);
    Text2->setToolTip(u"Life points; Lua may stand here, too"_s);
    grid->addWidget(Text2, 0, 1);
    Command22 = named<QPushButton>("Command22"_L1, u"OK"_s, Frame10);
    Command22->setMinimumWidth(leastAmountWidth);
    Command22->setToolTip(u"Adds the line and hides this frame"_s);
    grid->addWidget(Command22, 2, 1);
}

void EventPanel::buildMapFrame()
{
    Frame9 = commandFrame("Frame9"_L1, u"Change Map"_s);
    QGridLayout* grid = gridOf(Frame9);
    Label12 = textLabel("Label12"_L1, u"01"_s, Frame9);
    Label14 = named<CutLabel>("Label14"_L1, u"Unnamed"_s, Frame9);
    HScroll3 = named<ScrollBar>("HScroll3"_L1, Qt::Horizontal, 1, 1, Frame9);
    HScroll3->setAccessibleName(u"Target map"_s);
    Command21 = named<QPushButton>("Command21"_L1, u"OK"_s, Frame9);
    Command21->setToolTip(u"Adds the line and hides this frame"_s);
    HScroll3->setToolTip(u"The map that the game changes to"_s);
    grid->addWidget(Label12, 0, 0);
    grid->addWidget(Label14, 0, 1);
    grid->setColumnStretch(1, 1);
    grid->addWidget(HScroll3, 1, 0, 1, 2);
    grid->addWidget(Command21, 2, 0, 1, 2);
}

void EventPanel::buildConditionFrame()
{
    Frame7 = commandFrame("Frame7"_L1, u"Conditions"_s);
    QGridLayout* grid = gridOf(Frame7);
    Combo1 = choice("Combo1"_L1, u"Variable"_s, 300, Frame7);
    Combo1->setToolTip(u"The variable that the condition looks at"_s);
    Combo2 = choice("Combo2"_L1, u"Operator"_s, 60, Frame7);
    Combo2->setToolTip(u"Whether the variable has to be the value, or to differ from it"_s);
    Combo2->setPlaceholderText(u"=  : égal | ! : différent"_s);
    Combo2->addItems({u"="_s, u"!"_s});
    Combo2->setCurrentIndex(-1);
    Text3 = named<QLineEdit>("Text3"_L1, u"0"_s, Frame7);
    Text3->setToolTip(u"Taper la valeur (texte ou nombre)"_s);
    Text3->setAccessibleName(u"Value"_s);
    Command3 = named<QPushButton>("Command3"_L1, u"Add"_s, Frame7);
    Command3->setToolTip(u"Adds the line and hides this frame"_s);
    grid->addWidget(Combo1, 0, 0, 1, 2);
    grid->addWidget(Combo2, 1, 0, 1, 2);
    grid->addWidget(Text3, 2, 0);
    grid->addWidget(Command3, 2, 1);
}

void EventPanel::buildVariableFrame()
{
    Frame8 = commandFrame("Frame8"_L1, u"Variables"_s);
    List1 = named<LineList>("List1"_L1, Frame8);
    List1->setAccessibleName(u"Variable to change"_s);
    List1->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    List1->setToolTip(u"Click a variable to give it a new value"_s);
    gridOf(Frame8)->addWidget(List1, 0, 0);
}

void EventPanel::connectControls()
{
    const auto onClick = [this](QPushButton* button, void (EventPanel::*handler)()) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    onClick(Command2, &EventPanel::Command2_Click);
    onClick(Command20, &EventPanel::Command20_Click);
    onClick(Command8, &EventPanel::Command8_Click);
    onClick(Command12, &EventPanel::Command12_Click);
    onClick(Command17, &EventPanel::Command17_Click);
    onClick(Command22, &EventPanel::Command22_Click);
    onClick(Command23, &EventPanel::Command23_Click);
    onClick(Command19, &EventPanel::Command19_Click);
    onClick(Command21, &EventPanel::Command21_Click);
    onClick(Command13, &EventPanel::Command13_Click);
    onClick(Command3, &EventPanel::Command3_Click);
    onClick(Command15, &EventPanel::Command15_Click);
    onClick(Command18, &EventPanel::Command18_Click);
    connect(HScroll3, &ScrollBar::valueChanged, this, &EventPanel::HScroll3_Change);
    connect(listev, &LineList::opened, this, &EventPanel::listev_DblClick);
    connect(List1, &LineList::chosen, this, &EventPanel::List1_Click);
    List1->chooseBySteps();
}
