// The look of the control panel.
#include "project/Controlpanel.h"

#include "toolkit/entry.h"
#include "toolkit/linelist.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

Controlpanel::Controlpanel(Workspace& workspace)
    : View(workspace, u"Controlpanel"_s, u"Control Panel"_s)
{
    constexpr int panelWidth = 232; // the banner's
    auto* grid = new QGridLayout(surface());
    grid->setContentsMargins(0, 0, 0, 8);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(2, 1);
    surface()->setFixedWidth(panelWidth);

    auto* banner = named<QLabel>("Picture1"_L1, surface());
    banner->setPixmap(programPicture(u"banner"_s));
    banner->setAlignment(Qt::AlignCenter);
    banner->setAccessibleName(u"Questforge"_s);
    grid->addWidget(banner, 0, 0, 1, 3);
    buildValues(grid);
    buildMenu(grid);

    List1 = named<LineList>("List1"_L1, surface());
    List1->setMinimumHeight(150);
    List1->setAccessibleName(u"Maps"_s);
    List1->setToolTip(u"Double-click a map to edit it"_s);
    auto* listRow = new QVBoxLayout;
    listRow->setContentsMargins(8, 4, 8, 0);
    listRow->addWidget(List1);
    grid->addLayout(listRow, grid->rowCount(), 0, 1, 3);
    connect(List1, &LineList::opened, this, &Controlpanel::List1_DblClick);
}

void Controlpanel::buildValues(QGridLayout* grid)
{
    const auto value = [this, grid](const QString& caption, const QString& name, const QString& preset) {
        const int row = grid->rowCount();
        auto* heading = textLabel({}, caption, surface());
        heading->setContentsMargins(8, 0, 0, 0);
        grid->addWidget(heading, row, 0, 1, 2);
        auto* label = textLabel(name, preset, surface());
        label->setMinimumWidth(1); // a long value is cut, not the panel widened
        label->setContentsMargins(0, 0, 8, 0);
        grid->addWidget(label, row, 2);
        return label;
    };
    Label5 = value(u"Game Name:"_s, u"Label5"_s, u"Untitled"_s);
    Label6 = value(u"Creator:"_s, u"Label6"_s, u"Anonymous"_s);
    Label7 = value(u"Number of maps:"_s, u"Label7"_s, u"Many"_s);
    Label8 = value(u"Number of fights:"_s, u"Label8"_s, u"less"_s);
}

void Controlpanel::buildMenu(QGridLayout* grid)
{
    const std::array captions = {u"Fight Editor"_s, u"Editor of variables"_s, u"Game Setup"_s, u"Test Game"_s,
                                 u"Finalize and publish"_s};
    const std::array icons = {u"fight"_s, u"variables"_s, u"setup"_s, u"test"_s, u"publish"_s};

    // On a widget of their own: a value that changes while an entry is pressed must not lay the entry out
    // anew.
    auto* menu = named<QWidget>("Entries"_L1, surface());
    grid->addWidget(menu, grid->rowCount(), 0, 1, 3);
    auto* entries = new QGridLayout(menu);
    entries->setContentsMargins(0, 0, 0, 0);
    entries->setVerticalSpacing(grid->verticalSpacing());
    entries->setColumnMinimumWidth(0, 32);
    entries->setColumnStretch(1, 1);

    auto* heading = textLabel({}, u"Menu"_s, menu);
    heading->setContentsMargins(8, 6, 0, 0);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    entries->addWidget(heading, 0, 0, 1, 2);
    for (std::size_t i = 0; i < captions.size(); ++i) {
        Image1[i] = named<PressLabel>(u"Image1_%1"_s.arg(i), menu);
        Image1[i]->setPixmap(programPicture(icons[i]));
        Image1[i]->setAccessibleName(captions[i]);
        Label9[i] = named<PressLabel>(u"Label9_%1"_s.arg(i), menu);
        Label9[i]->setText(captions[i]);
        Label9[i]->setFocusPolicy(Qt::TabFocus);
        joinPressFeedback(Image1[i], Label9[i]);
        connect(Label9[i], &PressLabel::clicked, this, [this, i] { Label9_Click(i); });
        const int row = static_cast<int>(i) + 1;
        entries->addWidget(Image1[i], row, 0, Qt::AlignRight);
        entries->addWidget(Label9[i], row, 1, Qt::AlignLeft);
    }
}
