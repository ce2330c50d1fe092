#include "project/openp.h"

#include "store/store.h"
#include "toolkit/boxes.h"
#include "toolkit/directorylist.h"
#include "toolkit/paths.h"
#include "toolkit/theme.h"

#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

openp::openp(Workspace& workspace)
    : View(workspace, u"openp"_s, u"Open"_s)
{
    constexpr QSize listSize(320, 240);
    auto* prompt = textLabel({}, u"Choose the project's folder:"_s, surface());
    Dir1 = named<DirectoryList>("Dir1"_L1, surface());
    Dir1->setMinimumSize(listSize);
    Dir1->setAccessibleName(prompt->text());
    Dir1->setToolTip(u"Double-click a folder to open it"_s);
    if (!Dir1->setPath(qtPath(AppDir() / "projets"))) {
        Dir1->setPath(qtPath(AppDir()));
    }
    auto* Command1 = named<QPushButton>("Command1"_L1, u"Open"_s, surface());
    Command1->setToolTip(u"Opens the project that lies in the open folder of the list"_s);
    connect(Command1, &QPushButton::clicked, this, &openp::Command1_Click);

    auto* column = new QVBoxLayout(surface());
    column->setContentsMargins(viewMargin, viewMargin, viewMargin, viewMargin);
    column->setSpacing(controlGap);
    column->addWidget(prompt);
    column->addWidget(Dir1, 1);
    column->addWidget(Command1, 0, Qt::AlignRight);
    setFocusProxy(Dir1);
}

void openp::Command1_Click()
{
    const Path folder = corePath(Dir1->path());
    std::string name = folder.empty() ? std::string() : ReadIni("Jeu", "nom", folder / "projet.ini");
    if (name.empty()) {
        messageBox(this, u"Erreur : Projet invalide !"_s);
        return;
    }
    SetCurrentProject(std::move(name));
    SweepProject();
    workspace().showControlpanel();
    workspace().openMap("01");
    frameWindow()->close();
}
