#include "fights/combateditor.h"

#include "fights/fights.h"
#include "store/numbers.h"
#include "toolkit/pictures.h"
#include "toolkit/scrollbar.h"
#include "toolkit/text.h"
#include "toolkit/theme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

constexpr int boundBeforeFirstMove = largestCount;
constexpr int largestPoints = 10000;
constexpr int pointsPage = 100;
constexpr int pictureSize = 64;

ScrollBar* pointsBar(const QString& name, const QString& accessibleName, int minimum, int value,
                     QWidget* parent)
{
    auto* bar = named<ScrollBar>(name, Qt::Horizontal, minimum, largestPoints, parent);
    bar->setPageStep(pointsPage);
    bar->setValue(value);
    bar->setMinimumWidth(80);
    bar->setAccessibleName(accessibleName);
    bar->setToolTip(u"Not kept so far; does not change the number beside it"_s);
    return bar;
}

QLineEdit* field(const QString& name, const QString& text, const QString& accessibleName, QWidget* parent)
{
    auto* edit = named<QLineEdit>(name, text, parent);
    edit->setMinimumWidth(60);
    edit->setAccessibleName(accessibleName);
    edit->setToolTip(u"Not kept so far"_s);
    return edit;
}

QGridLayout* gridOf(QWidget* frame)
{
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(controlGap, controlGap, controlGap, controlGap);
    grid->setVerticalSpacing(controlGap / 2);
    return grid;
}

} // namespace

combateditor::combateditor(Workspace& workspace)
    : View(workspace, u"combateditor"_s, u"Fight Editor"_s)
{
    auto* grid = new QGridLayout(surface());
    grid->setContentsMargins(viewMargin, viewMargin, viewMargin, viewMargin);
    grid->setSpacing(controlGap);
    grid->addWidget(selectorStrip(), 0, 0, 1, 3);
    grid->addWidget(heroFrame(u"   Hero 1"_s, u"Check1"_s), 1, 0);
    grid->addWidget(heroFrame(u"    Hero 2"_s, u"Check2"_s), 1, 1);
    grid->addWidget(heroFrame(u"    Hero 3"_s, u"Check2"_s), 1, 2);
    for (int column = 0; column < 3; ++column) {
        grid->setColumnStretch(column, 1);
    }
    connect(HScroll1, &ScrollBar::valueChanged, this, &combateditor::HScroll1_Change);
}

QWidget* combateditor::selectorStrip()
{
    constexpr int selectorWidth = 120;
    auto* strip = named<QWidget>("Strip"_L1, surface());
    auto* Label1 = textLabel("Label1"_L1, u"Fight : "_s, strip);
    auto* Label2 = textLabel("Label2"_L1, u"1"_s, strip);
    HScroll1 = named<ScrollBar>("HScroll1"_L1, Qt::Horizontal, 0, boundBeforeFirstMove, strip);
    HScroll1->setFixedWidth(selectorWidth);
    HScroll1->setAccessibleName(u"Fight"_s);
    Text1 = field(u"Text1"_s, {}, u"Name of the fight"_s, strip);
    HScroll1->setToolTip(u"Shows the name of the next or the previous fight"_s);
    Text1->setToolTip(u"The name is shown only; what is typed here is not kept"_s);
    auto* Command1 = named<QPushButton>("Command1"_L1, u"New"_s, strip);
    Command1->setToolTip(u"Not made so far: does nothing"_s);

    auto* grid = new QGridLayout(strip);
    grid->setContentsMargins(0, 0, 0, 4);
    grid->addWidget(Label1, 0, 0);
    grid->addWidget(Label2, 0, 1, Qt::AlignLeft);
    grid->addWidget(HScroll1, 1, 0, 1, 2);
    grid->addWidget(Text1, 0, 2, 2, 1);
    grid->addWidget(Command1, 0, 3, 2, 1);
    grid->setColumnStretch(2, 1);
    return strip;
}

QWidget* combateditor::heroFrame(const QString& caption, const QString& activeCaption)
{
    auto* frame = new QGroupBox(caption, surface());
    auto* Label3 = textLabel("Label3"_L1, u"Name :"_s, frame);
    auto* hnom = field(u"hnom"_s, {}, u"Name of the hero"_s, frame);
    auto* Label4 = textLabel("Label4"_L1, u"HP : "_s, frame);
    auto* h1vie = field(u"h1vie"_s, u"100"_s, u"Life points"_s, frame);
    auto* HScroll2 = pointsBar(u"HScroll2"_s, u"Life points"_s, 1, 100, frame);
    auto* hactive = named<QCheckBox>("hactive"_L1, activeCaption, frame);
    auto* Command2 = named<QPushButton>("Command2"_L1, u"Load"_s, frame);
    hactive->setToolTip(u"Not kept so far"_s);
    Command2->setToolTip(u"Not made so far: does nothing"_s);
    auto* Picture1 = named<QLabel>("Picture1"_L1, frame);
    Picture1->setPixmap(programPicture(u"fighter"_s, pictureSize));
    Picture1->setAccessibleName(u"Picture of the hero"_s);

    QGridLayout* grid = gridOf(frame);
    grid->addWidget(Label3, 0, 0);
    grid->addWidget(hnom, 0, 1, 1, 2);
    grid->addWidget(Label4, 1, 0);
    grid->addWidget(h1vie, 1, 1);
    grid->addWidget(HScroll2, 1, 2);
    grid->addWidget(Picture1, 2, 0, 2, 2);
    grid->addWidget(hactive, 2, 2);
    grid->addWidget(Command2, 3, 2);
    for (int attack = 1; attack <= 3; ++attack) {
        grid->addWidget(attackFrame(attack, frame), 3 + attack, 0, 1, 3);
    }
    return frame;
}

QWidget* combateditor::attackFrame(int attack, QWidget* parent)
{
    const QString name = u"Attack%1"_s.arg(attack);
    auto* frame = new QGroupBox(name + u" : "_s, parent);
    QGridLayout* grid = gridOf(frame);
    grid->addWidget(textLabel({}, u"Name :"_s, frame), 0, 0);
    grid->addWidget(field({}, name, u"Name of the attack"_s, frame), 0, 1, 1, 2);
    grid->addWidget(textLabel({}, u"Damage :"_s, frame), 1, 0);
    grid->addWidget(field({}, u"10"_s, u"Damage"_s, frame), 1, 1);
    grid->addWidget(pointsBar({}, u"Damage"_s, 0, 0, frame), 1, 2);
    return frame;
}

void combateditor::HScroll1_Change()
{
    HScroll1->setBound(FightCount().value_or(0));
    Text1->setText(shown(FightTitle(HScroll1->value())));
    Text1->setCursorPosition(0); // a long name is to be seen from its beginning
}
