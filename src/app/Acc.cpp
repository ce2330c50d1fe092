#include "app/Acc.h"

#include "store/store.h"
#include "toolkit/entry.h"
#include "toolkit/paths.h"

#include <QDesktopServices>
#include <QGridLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QUrl>

using namespace Qt::StringLiterals;

Acc::Acc(Workspace& workspace)
    : View(workspace, u"Acc"_s, u"Bienvenu"_s)
{
    constexpr int panelWidth = 268; // the picture is calm so far
    auto* background = named<QLabel>("Background"_L1, surface());
    background->setPixmap(programPicture(u"welcome"_s));
    background->setAccessibleName(u"Questforge"_s);
    const QSize size = background->pixmap().deviceIndependentSize().toSize();
    background->setGeometry(QRect({}, size));
    surface()->setFixedSize(size);

    panel_ = named<QWidget>("Entries"_L1, surface());
    panel_->setFixedWidth(panelWidth);
    auto* grid = new QGridLayout(panel_);
    auto* heading = textLabel("Label1"_L1, u"Welcome to Questforge 3! What would you do?"_s, panel_);
    QFont large = heading->font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    large.setBold(true);
    heading->setFont(large);
    heading->setWordWrap(true);
    grid->addWidget(heading, 0, 0, 1, 2);
    entry(1, u"create"_s, u"Create a new project"_s, &Acc::create);
    entry(2, u"open"_s, u"Open an existing project"_s, &Acc::openExisting);
    entry(3, u"documentation"_s, u"Documentation"_s, &Acc::documentation);
    grid->setColumnStretch(1, 1);
    panel_->move(28, 66);
    panel_->adjustSize();
}

/// The controls of entry 1, 2 or 3: icon Image1 beside label Label2, and so on.
void Acc::entry(int number, const QString& icon, const QString& caption, void (Acc::*chosen)())
{
    auto* image = named<PressLabel>(u"Image%1"_s.arg(number), panel_);
    image->setPixmap(programPicture(icon));
    image->setAccessibleName(caption);
    auto* label = named<PressLabel>(u"Label%1"_s.arg(number + 1), panel_);
    label->setText(caption);
    label->setFocusPolicy(Qt::TabFocus);
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

void Acc::create()
{
    workspace().showNouvprojet();
    frameWindow()->close();
}

void Acc::openExisting()
{
    workspace().showOpenp();
    frameWindow()->close();
}

void Acc::documentation()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(qtPath(AppDir() / "Doc" / "index.html")));
}
