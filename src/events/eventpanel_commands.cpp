// The commands of the event panel that show texts, pause, and change the hero and the map.
#include "events/eventpanel.h"

#include "maps/maplist.h"
#include "store/numbers.h"
#include "toolkit/boxes.h"
#include "toolkit/cutlabel.h"
#include "toolkit/linelist.h"
#include "toolkit/scrollbar.h"
#include "toolkit/text.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

void EventPanel::Command8_Click()
{
    append(DisplayTextLine(typed(inputBox(this, u"Type the text! :"_s))));
}

void EventPanel::Command12_Click()
{
    const auto frames = typedNumber(inputBox(this, u"Type the time frame"_s));
    if (!frames) {
        messageBox(this, u"Incorrect Value!"_s, BoxIcon::Stop);
        return;
    }
    append(PauseLine(*frames));
}

void EventPanel::Command17_Click()
{
    Frame10->setVisible(Frame10->isHidden());
}

void EventPanel::Command22_Click()
{
    const HpChange change = Option2[0]->isChecked()   ? HpChange::Remove
                            : Option2[1]->isChecked() ? HpChange::Add
                                                      : HpChange::Replace;
    append(HpLine(change, typed(Text2->text())));
    Frame10->hide();
}

void EventPanel::Command23_Click()
{
    messageBox(this, u"Click the new position of hero"_s, BoxIcon::None, u"Event"_s);
    host_.setModeMark(heroMoveMark);
    host_.enablePicture(true);
}

void EventPanel::placeHero(int row, int column)
{
    for (const std::string& line : HeroMoveLines(column, row)) {
        append(line);
    }
    // After "Save" the panel is out of sight, and only its buttons make the picture usable again.
    host_.showPanel(true);
    host_.enablePicture(false);
    host_.setModeMark({});
    listev->setFocus();
}

void EventPanel::Command19_Click()
{
    Frame9->setVisible(Frame9->isHidden());
    if (!host_.ownsProject()) {
        return; // no folder to read from: the project was left, not spoilt
    }
    // Any number is one here: "2.0" or "-1", written by hand, is no reason to end the program.
    const int maps = WholeNumber16(ReadIni("Jeu", "cartes", Descriptor())).value_or(0);
    if (maps == 0) {
        messageBox(this,
                   u"Erreur : Fichier projet.ini corrompus ou introuvable, veuillez reporter ce bug sur "_s +
                       supportSite + u"\r\nLe programme va s'arrêter"_s,
                   BoxIcon::Stop, u"Erreur"_s);
        workspace_.endProgram();
        return;
    }
    HScroll3->setBound(maps);
    Label14->setValue(shown(MapName(host_.heldMap())));
}

void EventPanel::HScroll3_Change()
{
    const std::string mapNumber = MapNumberText(HScroll3->value());
    if (host_.ownsProject()) {
        HScroll3->setBound(MapCount().value_or(0));
        Label14->setValue(shown(MapName(mapNumber)));
    }
    Label12->setText(shown(mapNumber));
}

void EventPanel::Command21_Click()
{
    append(ChangeMapLine(typed(Label12->text())));
    Frame9->hide();
}
