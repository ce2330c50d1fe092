#include "project/nouvprojet.h"

#include "project/creation.h"
#include "toolkit/boxes.h"
#include "toolkit/text.h"
#include "toolkit/theme.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

nouvprojet::nouvprojet(Workspace& workspace)
    : View(workspace, u"nouvprojet"_s, u"Create a project"_s)
{
    constexpr int fieldWidth = 260;
    Text1 = named<QLineEdit>("Text1"_L1, u"Untitled"_s, surface());
    Text1->setMinimumWidth(fieldWidth);
    Text1->setAccessibleName(u"Project's Name"_s);
    Text1->setToolTip(u"The name of the game and of its folder"_s);
    Text2 = named<QLineEdit>("Text2"_L1, u"Kestrel"_s, surface());
    Text2->setAccessibleName(u"Project's Creator"_s);
    Text2->setToolTip(u"Who makes the game; the control panel shows it"_s);
    auto* Command1 = named<QPushButton>("Command1"_L1, u"Create!"_s, surface());
    Command1->setToolTip(u"Makes the project with its first map and opens it"_s);
    connect(Command1, &QPushButton::clicked, this, &nouvprojet::Command1_Click);
    connect(Text1, &QLineEdit::returnPressed, this, &nouvprojet::Command1_Click);
    connect(Text2, &QLineEdit::returnPressed, this, &nouvprojet::Command1_Click);

    auto* column = new QVBoxLayout(surface());
    column->setContentsMargins(viewMargin, viewMargin, viewMargin, viewMargin);
    column->setSpacing(viewMargin);
    auto* form = new QFormLayout;
    form->setSpacing(controlGap);
    form->addRow(u"Project's Name :"_s, Text1);
    form->addRow(u"Project's Creator :"_s, Text2);
    column->addLayout(form);
    column->addWidget(Command1, 0, Qt::AlignRight);
    column->addStretch(1);
    Text1->selectAll();
    setFocusProxy(Text1);
}

void nouvprojet::Command1_Click()
{
    if (const auto failure = CreateProject(typed(Text1->text()), typed(Text2->text()))) {
        messageBox(
            this,
            u"Erreur , des données essentiels au fonctionnement du programme sont manquantes ou corrompus , "
            "veuillez réinstaller Questforge 3\r\n"_s +
                shown(*failure),
            BoxIcon::Stop);
        return;
    }
    workspace().showControlpanel();
    workspace().openMap("01");
    frameWindow()->close();
}
