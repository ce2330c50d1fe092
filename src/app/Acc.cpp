#include "app/Acc.h"

#include "store/store.h"
#include "toolkit/entry.h"
#include "toolkit/paths.h"
#include "toolkit/pictures.h"
#include "toolkit/theme.h"

#include <QDesktopServices>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QUrl>

using namespace Qt::StringLiterals;

Acc::Acc(Workspace& workspace)
    : View(workspace, u"Acc"_s, u"Bienvenu"_s)
{
    constexpr QSize sceneSize(250, 330);
    constexpr int panelWidth = 290;
    constexpr int panelMargin = 28;
    panel_ = named<QWidget>("Entries"_L1, surface());
    panel_->setMinimumWidth(panelWidth);
    auto* grid = new QGridLayout(panel_);
    grid->setContentsMargins(panelMargin, panelMargin, panelMargin, panelMargin);
    grid->setHorizontalSpacing(viewMargin);
    grid->setVerticalSpacing(viewMargin);
    auto* heading = textLabel("Label1"_L1, u"Welcome to Questforge 3! What would you do?"_s, panel_);
    heading->setFont(headingFont(1.5));
    heading->setWordWrap(true);
    grid->addWidget(heading, 0, 0, 1, 2);
    entry(1, u"create"_s, u"Create a new project"_s, &Acc::Label2_Click);
    entry(2, u"open"_s, u"Open an existing project"_s, &Acc::Label3_Click);
    entry(3, u"documentation"_s, u"Documentation"_s, &Acc::Label4_Click);
    panel_->findChild<PressLabel*>("Label4"_L1)->setToolTip(u"Shows the handbook; this view stays open"_s);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(4, 1);

    auto* background = named<Scene>("Background"_L1, u"welcome"_s, sceneSize, surface());
    background->setAccessibleName(u"A road to a castle"_s);
    auto* row = new QHBoxLayout(surface());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(panel_);
    row->addWidget(background, 1);
}

/// The controls of entry 1, 2 or 3: icon Image1 beside label Label2, and so on.
void Acc::entry(int number, const QString& icon, const QString& caption, void (Acc::*chosen)())
{
    constexpr int iconSize = 40;
    auto* image = named<PressLabel>(u"Image%1"_s.arg(number), panel_);
    image->setPixmap(programPicture(icon, iconSize));
    image->setAccessibleName(caption);
    auto* label = named<PressLabel>(u"Label%1"_s.arg(number + 1), panel_);
    label->setText(caption);
    label->setAccessibleName(caption);
    label->setFocusPolicy(Qt::TabFocus);
    QFont large = label->font();
    large.setPointSizeF(large.pointSizeF() * 1.2);
    label->setFont(large);
    joinPressFeedback(image, label);
    connect(image, &PressLabel::clicked, this, chosen);
    connect(label, &PressLabel::clicked, this, chosen);
    auto* grid = qobject_cast<QGridLayout*>(panel_->layout());
    grid->addWidget(image, number, 0);
    grid->addWidget(label, number, 1, Qt::AlignLeft | Qt::AlignVCenter);
}

void Acc::deactivated()
{
    workspace().hideAcc();
}

void Acc::Label2_Click()
{
    workspace().showNouvprojet();
    frameWindow()->close();
}

void Acc::Label3_Click()
{
    workspace().showOpenp();
    frameWindow()->close();
}

void Acc::Label4_Click()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(qtPath(AppDir() / "Doc" / "index.html")));
}
