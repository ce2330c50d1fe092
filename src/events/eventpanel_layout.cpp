// The look of the event panel: the open cell's lines at the left, the commands beside them, their frames at
// the right.
#include "events/eventpanel.h"

#include "toolkit/linelist.h"
#include "toolkit/scrollbar.h"
#include "toolkit/text.h"
#include "toolkit/view.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace
{

// Pixels within the panel.
constexpr QRect listPlace(10, 26, 282, 182);
constexpr int footTop = 214;
constexpr int commandLeft = 302;
constexpr int commandWidth = 172;
constexpr int commandTop = 26;
constexpr int commandStep = 30;
constexpr int buttonHeight = 26;
constexpr int frameLeft = 660;
constexpr int frameWidth = 172;
constexpr int frameTop = 14;
constexpr int frameHeight = 116;
constexpr int frameGap = 4;
constexpr int amountWidth = 52;

QGridLayout* gridOf(QWidget* frame)
{
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(8, 4, 8, 6);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(3);
    return grid;
}

QComboBox* choice(const QString& name, const QString& accessibleName, QWidget* parent)
{
    auto* box = named<QComboBox>(name, parent);
    box->setAccessibleName(accessibleName);
    // A width of its own: thousands of entries are never measured.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(10);
    return box;
}

} // namespace

void EventPanel::buildList()
{
    listev = named<LineList>("listev"_L1, this);
    listev->setGeometry(listPlace);
    listev->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    listev->setAccessibleName(u"Lines of the event"_s);
    listev->setToolTip(u"Double-click a line to delete it"_s);
    listev->appendLine("-- Evenements");

    auto* row = textLabel({}, u"Row"_s, this);
    row->setGeometry(listPlace.left(), footTop, 28, buttonHeight);
    ln = textLabel("ln"_L1, u"0"_s, this);
    ln->setGeometry(listPlace.left() + 30, footTop, 20, buttonHeight);
    auto* column = textLabel({}, u"Column"_s, this);
    column->setGeometry(listPlace.left() + 54, footTop, 46, buttonHeight);
    co = textLabel("co"_L1, u"0"_s, this);
    co->setGeometry(listPlace.left() + 102, footTop, 24, buttonHeight);
    Command2 = named<QPushButton>("Command2"_L1, u"Save"_s, this);
    Command2->setGeometry(listPlace.right() - 151, footTop, 74, buttonHeight);
    Command20 = named<QPushButton>("Command20"_L1, u"Cancel"_s, this);
    Command20->setGeometry(listPlace.right() - 73, footTop, 74, buttonHeight);
}

QPushButton* EventPanel::command(const QString& name, const QString& caption, int column, int line)
{
    auto* button = named<QPushButton>(name, caption, this);
    button->setGeometry(commandLeft + column * (commandWidth + 4), commandTop + line * commandStep,
                        commandWidth, buttonHeight);
    return button;
}

void EventPanel::buildCommands()
{
    Command8 = command("Command8"_L1, u"Display Text"_s, 0, 0);
    Command12 = command("Command12"_L1, u"Pause"_s, 0, 1);
    Command17 = command("Command17"_L1, u"Change the hero's HP"_s, 0, 2);
    Command23 = command("Command23"_L1, u"Change the position of hero"_s, 0, 3);
    Command19 = command("Command19"_L1, u"Change map"_s, 0, 4);
    Command13 = command("Command13"_L1, u"A condition"_s, 1, 0);
    Command15 = command("Command15"_L1, u"Close Condition"_s, 1, 1);
    Command18 = command("Command18"_L1, u"Change a variable"_s, 1, 2);
    Command16 = command("Command16"_L1, u"Start a fight"_s, 1, 3);
}

QGroupBox* EventPanel::commandFrame(const QString& name, const QString& caption, int column, int line)
{
    auto* frame = named<QGroupBox>(name, caption, this);
    frame->setGeometry(frameLeft + column * (frameWidth + frameGap),
                       frameTop + line * (frameHeight + frameGap), frameWidth, frameHeight);
    frame->hide();
    return frame;
}

void EventPanel::buildHpFrame()
{
    Frame10 = commandFrame("Frame10"_L1, u"Change the hero's HP"_s, 0, 0);
    QGridLayout* grid = gridOf(Frame10);
    const std::array captions = {u"Remove :"_s, u"Add :"_s, u"Replace with:"_s};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        Option2[i] = named<QRadioButton>(u"Option2_%1"_s.arg(i), captions[i], Frame10);
        grid->addWidget(Option2[i], static_cast<int>(i), 0);
    }
    Option2[0]->setChecked(true);
    Text2 = named<QLineEdit>("Text2"_L1, u"0"_s, Frame10);
    Text2->setAccessibleName(u"Amount"_s);
    Text2->setFixedWidth(amountWidth);
    grid->addWidget(Text2, 0, 1);
    Command22 = named<QPushButton>("Command22"_L1, u"OK"_s, Frame10);
    Command22->setFixedWidth(amountWidth);
    grid->addWidget(Command22, 2, 1);
}

void EventPanel::buildMapFrame()
{
    Frame9 = commandFrame("Frame9"_L1, u"Change Map"_s, 1, 0);
    QGridLayout* grid = gridOf(Frame9);
    Label12 = textLabel("Label12"_L1, u"01"_s, Frame9);
    Label14 = textLabel("Label14"_L1, u"Unnamed"_s, Frame9);
    Label14->setMinimumWidth(1); // a long name is cut, not the frame widened
    HScroll3 = named<ScrollBar>("HScroll3"_L1, Qt::Horizontal, 1, 1, Frame9);
    HScroll3->setAccessibleName(u"Target map"_s);
    Command21 = named<QPushButton>("Command21"_L1, u"OK"_s, Frame9);
    grid->addWidget(Label12, 0, 0);
    grid->addWidget(Label14, 0, 1);
    grid->setColumnStretch(1, 1);
    grid->addWidget(HScroll3, 1, 0, 1, 2);
    grid->addWidget(Command21, 2, 0, 1, 2);
}

void EventPanel::buildConditionFrame()
{
    Frame7 = commandFrame("Frame7"_L1, u"Conditions"_s, 0, 1);
    QGridLayout* grid = gridOf(Frame7);
    Combo1 = choice("Combo1"_L1, u"Variable"_s, Frame7);
    Combo2 = choice("Combo2"_L1, u"Operator"_s, Frame7);
    Combo2->setPlaceholderText(u"=  : égal | ! : différent"_s);
    Combo2->addItems({u"="_s, u"!"_s});
    Combo2->setCurrentIndex(-1);
    Text3 = named<QLineEdit>("Text3"_L1, u"0"_s, Frame7);
    Text3->setToolTip(u"Taper la valeur (texte ou nombre)"_s);
    Text3->setAccessibleName(u"Value"_s);
    Command3 = named<QPushButton>("Command3"_L1, u"Add"_s, Frame7);
    grid->addWidget(Combo1, 0, 0, 1, 2);
    grid->addWidget(Combo2, 1, 0, 1, 2);
    grid->addWidget(Text3, 2, 0);
    grid->addWidget(Command3, 2, 1);
}

void EventPanel::buildVariableFrame()
{
    Frame8 = commandFrame("Frame8"_L1, u"Variables"_s, 1, 1);
    List1 = named<LineList>("List1"_L1, Frame8);
    List1->setAccessibleName(u"Variables"_s);
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
}
