// The commands of the event panel that test and change the game's variables.
#include "events/eventpanel.h"

#include "toolkit/boxes.h"
#include "toolkit/linelist.h"
#include "toolkit/text.h"
#include "variables/variables.h"

#include <QComboBox>
#include <QLineEdit>
#include <QStringList>

using namespace Qt::StringLiterals;

void EventPanel::Command13_Click()
{
    Frame7->setVisible(Frame7->isHidden());
    if (!host_.ownsProject()) {
        return;
    }
    QStringList entries;
    for (const std::string& value : StartValues()) {
        entries += shown(ConditionEntry(static_cast<int>(entries.size()) + 1, value));
    }
    Combo1->clear();
    Combo1->addItems(entries);
    Combo1->setCurrentIndex(-1);
}

void EventPanel::Command3_Click()
{
    if (Combo1->currentIndex() < 0 || Combo2->currentIndex() < 0) {
        return;
    }
    const Comparison comparison = Combo2->currentText() == "="_L1 ? Comparison::Equal : Comparison::Different;
    append(ConditionLine(Combo1->currentIndex() + 1, comparison, typed(Text3->text())));
    Frame7->hide();
}

void EventPanel::Command15_Click()
{
    append(CloseConditionLine());
}

void EventPanel::Command18_Click()
{
    Frame8->setVisible(Frame8->isHidden());
    if (!host_.ownsProject()) {
        return;
    }
    std::vector<std::string> names(static_cast<std::size_t>(VariableCount()));
    for (std::size_t index = 0; index < names.size(); ++index) {
        names[index] = "Variable" + std::to_string(index + 1);
    }
    List1->setLines(std::move(names));
}

void EventPanel::List1_Click(int row)
{
    append(AssignLine(row + 1, typed(inputBox(this, u"Taper la nouvelle valeur de la variable : "_s))));
    Frame8->hide();
}
