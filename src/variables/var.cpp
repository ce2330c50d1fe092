#include "variables/var.h"

#include "store/numbers.h"
#include "toolkit/boxes.h"
#include "toolkit/linelist.h"
#include "toolkit/text.h"
#include "toolkit/theme.h"
#include "variables/variables.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

std::string askStartValue(QWidget* parent)
{
    return typed(inputBox(parent, u"Taper la valeur de départ de la variable"_s));
}

} // namespace

var::var(Workspace& workspace)
    : View(workspace, u"var"_s, u"Variables of the game"_s)
{
    constexpr QSize listSize(380, 240);
    auto* Label1 = textLabel("Label1"_L1, u"Number of variables :"_s, surface());
    Label2 = textLabel("Label2"_L1, u"0"_s, surface());
    Label2->setFont(headingFont());
    Label2->setAccessibleDescription(Label1->text());
    auto* Command1 = named<QPushButton>("Command1"_L1, u"Add a variable"_s, surface());
    Command1->setToolTip(u"Asks for the start value; Cancel adds the variable with an empty one"_s);
    auto* Label3 = textLabel("Label3"_L1, u"Variables :"_s, surface());
    List1 = named<LineList>("List1"_L1, surface());
    List1->setMinimumSize(listSize);
    List1->setAccessibleName(u"Variables"_s);
    List1->setToolTip(u"Click a variable to change its start value; Cancel then empties it"_s);

    auto* grid = new QGridLayout(surface());
    grid->setContentsMargins(viewMargin, viewMargin, viewMargin, viewMargin);
    grid->setSpacing(controlGap);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    grid->addWidget(Label1, 0, 0);
    grid->addWidget(Label2, 0, 1);
    grid->addWidget(Command1, 0, 2);
    grid->addWidget(Label3, 1, 0);
    grid->addWidget(List1, 2, 0, 1, 3);
    connect(Command1, &QPushButton::clicked, this, &var::Command1_Click);
    connect(List1, &LineList::chosen, this, &var::List1_Click);
}

void var::activated()
{
    refresh();
}

/// Shows the count and the variables; false, after a message, when the count is not a number.
bool var::refresh()
{
    List1->clear();
    const std::string count = VariableCountText();
    Label2->setText(shown(count));
    if (count.empty()) {
        return true;
    }
    const auto number = CountFrom(count);
    if (!number) {
        report(BadVariableCount());
        return false;
    }
    std::vector<std::string> lines = StartValues(*number);
    for (std::size_t index = 0; index < lines.size(); ++index) {
        lines[index] = VariableLine(static_cast<int>(index) + 1, lines[index]);
    }
    List1->setLines(std::move(lines));
    return true;
}

void var::report(const std::string& failure)
{
    messageBox(this, u"Erreur : "_s + shown(failure));
}

void var::Command1_Click()
{
    const NextVariable next = VariableAfter(typed(Label2->text()));
    if (next.number == 0) {
        report(next.failure);
        return;
    }
    BeginVariable(next.number);
    FinishVariable(next.number, askStartValue(this));
    Label2->setText(QString::number(next.number));
    refresh();
}

void var::List1_Click(int row)
{
    SetStartValue(row + 1, askStartValue(this));
    refresh();
}
