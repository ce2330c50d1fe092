#include "project/Controlpanel.h"

#include "build/scripts.h"
#include "maps/maplist.h"
#include "store/numbers.h"
#include "toolkit/boxes.h"
#include "toolkit/linelist.h"
#include "toolkit/paths.h"
#include "toolkit/text.h"

#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QMdiSubWindow>
#include <QProcess>
#include <QTextDocument>

using namespace Qt::StringLiterals;

void Controlpanel::activated()
{
    if (CurrentProject().empty()) {
        frameWindow()->close();
        return;
    }
    showValues();
    for (const QLabel* value : {Label5, Label6, Label7, Label8}) {
        if (value->text().isEmpty()) {
            messageBox(this,
                       u"Erreur : Une donnée de votre jeu n'a pu être chargée , le programme risque d'être "
                       "instable , il est conseillé de le redémarrer , si le problème persiste , contacter "
                       "Marlowe sur le forum de "_s +
                           supportSite);
            break;
        }
    }
    listMaps();
    workspace().hideAcc();
    workspace().placeTopLeft(*this);
}

void Controlpanel::showValues()
{
    Label5->setText(shown(CurrentProject()));
    Label6->setText(shown(ReadIni("Jeu", "Auteur", Descriptor())));
    Label7->setText(shown(ReadIni("Jeu", "cartes", Descriptor())));
    Label8->setText(shown(ReadIni("Jeu", "combats", Descriptor())));
    for (QLabel* value : {Label5, Label6}) {
        value->setToolTip(Qt::convertFromPlainText(shortened(value->text()))); // the panel may be too narrow
    }
}

void Controlpanel::listMaps()
{
    std::vector<std::string> lines = MapNames(MapCount().value_or(0));
    for (std::size_t index = 0; index < lines.size(); ++index) {
        lines[index].insert(0, std::to_string(index + 1));
    }
    List1->setLines(std::move(lines));
}

void Controlpanel::List1_DblClick()
{
    if (const int row = List1->selectedRow(); row >= 0) {
        workspace().openMap(MapNumberText(row + 1));
    }
}

void Controlpanel::Label9_Click(std::size_t index)
{
    switch (index) {
    case 0:
        return workspace().openCombateditor();
    case 1:
        return workspace().showVar();
    case 2:
        return workspace().showGameoptions();
    case 3:
        return tester();
    default:
        messageBox(this, u"Creation ..."_s);
    }
}

void Controlpanel::compiler()
{
    showValues();
    WriteVariablesScript();
    WriteEventScript(CountFrom(typed(Label7->text())).value_or(0));
}

void Controlpanel::tester()
{
    compiler();
    const QString folder = qtPath(AppDir());
    QDir::setCurrent(folder);
    WriteBootScript();
    const QString player = qtPath(AppDir() / "luaplayer.exe");
    if (!QProcess::startDetached(player, {u"index.lua"_s}, folder)) {
        messageBox(this, u"The game cannot be started: the player is missing or is no program.\n"_s + player,
                   BoxIcon::Stop);
    }
}

void Controlpanel::closeEvent(QCloseEvent* event)
{
    View::closeEvent(event);
    if (!event->isAccepted()) {
        return;
    }
    event->setAccepted(askYesNo(this, u"Quitter Questforge ?"_s));
    if (event->isAccepted()) {
        SetCurrentProject({});
    }
}
