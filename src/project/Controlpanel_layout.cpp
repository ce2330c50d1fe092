// The look of the control panel.
#include "project/Controlpanel.h"

#include "toolkit/cutlabel.h"
#include "toolkit/entry.h"
#include "toolkit/linelist.h"
#include "toolkit/pictures.h"
#include "toolkit/theme.h"

#include <algorithm>
#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace
{

constexpr QSize bannerSize(232, 64);
constexpr int iconSize = 24;
constexpr int panelMargin = 12;

struct MenuEntry {
    QString caption;
    QString icon;
    QString toolTip;
};

QLabel* headingLabel(const QString& text, QWidget* parent)
{
    auto* heading = textLabel({}, text, parent);
    heading->setFont(headingFont());
    return heading;
}

} // namespace

Controlpanel::Controlpanel(Workspace& workspace)
    : View(workspace, u"Controlpanel"_s, u"Control Panel"_s)
{
    auto* banner = named<Scene>("Picture1"_L1, u"banner"_s, bannerSize, surface());
    banner->setAccessibleName(u"A castle by the road"_s);
    auto* column = new QVBoxLayout(surface());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(banner);
    auto* parts = new QVBoxLayout;
    parts->setContentsMargins(panelMargin, panelMargin, panelMargin, panelMargin);
    parts->setSpacing(viewMargin);
    column->addLayout(parts, 1);
    buildValues(parts);
    buildMenu(parts);
    buildMapList(parts);
    surface()->setFixedWidth(std::max(bannerSize.width(), column->minimumSize().width()));
}

void Controlpanel::buildValues(QVBoxLayout* parts)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(controlGap);
    grid->setVerticalSpacing(controlGap / 2);
    grid->setColumnStretch(1, 1);
    const auto value = [this, grid](const QString& caption, const QString& name, const QString& preset) {
        const int row = grid->rowCount();
        grid->addWidget(textLabel({}, caption, surface()), row, 0);
        auto* label = named<CutLabel>(name, preset, surface());
        label->setFont(headingFont());
        label->setAccessibleDescription(caption);
        grid->addWidget(label, row, 1);
        return label;
    };
    Label5 = value(u"Game Name:"_s, u"Label5"_s, u"Untitled"_s);
    Label6 = value(u"Creator:"_s, u"Label6"_s, u"Anonymous"_s);
    Label7 = value(u"Number of maps:"_s, u"Label7"_s, u"Many"_s);
    Label8 = value(u"Number of fights:"_s, u"Label8"_s, u"less"_s);
    parts->addLayout(grid);
}

void Controlpanel::buildMenu(QVBoxLayout* parts)
{
    const std::array entries = {
        MenuEntry{u"Fight Editor"_s, u"fight"_s, u"Shows the names of the fights"_s},
        MenuEntry{u"Editor of variables"_s, u"variables"_s,
                  u"Adds variables and changes their start values"_s},
        MenuEntry{u"Game Setup"_s, u"setup"_s, u"Opens the game's options; there are none so far"_s},
        MenuEntry{u"Test Game"_s, u"test"_s, u"Writes the scripts and starts the game in the player"_s},
        MenuEntry{u"Finalize and publish"_s, u"publish"_s, u"Not made so far: shows a message only"_s}};

    // On a widget of their own: a value that changes while an entry is pressed must not lay the entry out
    // anew.
    auto* menu = named<QWidget>("Entries"_L1, surface());
    parts->addWidget(menu);
    auto* grid = new QGridLayout(menu);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(controlGap);
    grid->setVerticalSpacing(controlGap / 2);
    grid->setColumnStretch(1, 1);
    grid->addWidget(headingLabel(u"Menu"_s, menu), 0, 0, 1, 2);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        Image1[i] = named<PressLabel>(u"Image1_%1"_s.arg(i), menu);
        Image1[i]->setPixmap(programPicture(entries[i].icon, iconSize));
        Label9[i] = named<PressLabel>(u"Label9_%1"_s.arg(i), menu);
        Label9[i]->setText(entries[i].caption);
        Label9[i]->setFocusPolicy(Qt::TabFocus);
        for (PressLabel* part : {Image1[i], Label9[i]}) {
            part->setAccessibleName(entries[i].caption);
        }
        Label9[i]->setToolTip(entries[i].toolTip); // a click on the icon leads nowhere
        joinPressFeedback(Image1[i], Label9[i]);
        connect(Label9[i], &PressLabel::clicked, this, [this, i] { Label9_Click(i); });
        const int row = static_cast<int>(i) + 1;
        grid->addWidget(Image1[i], row, 0);
        grid->addWidget(Label9[i], row, 1, Qt::AlignLeft);
    }
}

void Controlpanel::buildMapList(QVBoxLayout* parts)
{
    constexpr int leastHeight = 130;
    List1 = named<LineList>("List1"_L1, surface());
    List1->setMinimumHeight(leastHeight);
    List1->setAccessibleName(u"Maps"_s);
    List1->setToolTip(u"Double-click a map to edit it"_s);
    parts->addWidget(List1, 1);
    connect(List1, &LineList::opened, this, &Controlpanel::List1_DblClick);
}
