// The look of the map editor. Places in twips are the system's; pixels place what lies within a frame.
#include "maps/mapeditor.h"

#include "maps/gridoverlay.h"
#include "maps/tilepalette.h"
#include "store/numbers.h"
#include "toolkit/cutlabel.h"
#include "toolkit/entry.h"
#include "toolkit/metrics.h"
#include "toolkit/scrollbar.h"
#include "toolkit/text.h"
#include "toolkit/theme.h"

#include <algorithm>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

constexpr int redrawInterval = 100; // ms
constexpr QSize surfaceClosed(1028, 338);
constexpr int surfaceOpenHeight = 652;
constexpr QSize tileSize(28, 29);
constexpr QRect footLinePlace(4, 266, 696, 20); // below the bar under the picture
constexpr QRect palettePlace(506, 8, 192, 252); // between the picture and "Configuration"

/// A place among the texts. With larger letters it moves and grows by as much as its text needs, lest texts
/// be cut or lie over each other; with the usual ones it is where the twips say. The picture does not grow.
QRect grown(const QRect& place)
{
    const qreal scale = letterScale();
    return QRectF(QPointF(place.topLeft()) * scale, QSizeF(place.size()) * scale).toRect();
}

template <class Control> Control* at(Control* control, int x, int y, int width, int height)
{
    control->setGeometry(grown({x, y, width, height}));
    return control;
}

QLabel* pictureLabel(const QString& name, const QString& accessibleName, QWidget* parent)
{
    auto* label = named<QLabel>(name, parent);
    label->setFixedSize(tileSize);
    label->setAccessibleName(accessibleName);
    return label;
}

ScrollBar* bar(const QString& name, const QString& accessibleName, int minimum, int maximum, QWidget* parent)
{
    auto* scrollBar = named<ScrollBar>(name, Qt::Horizontal, minimum, maximum, parent);
    scrollBar->setAccessibleName(accessibleName);
    return scrollBar;
}

} // namespace

void mapeditor::buildGrid()
{
    CarteImg = named<GridPicture>("CarteImg"_L1, surface());
    CarteImg->move(0, 0);
    CarteImg->setAccessibleName(u"Map"_s);
    overlay_ = named<GridOverlay>("GridMarks"_L1, surface());
    overlay_->setGeometry(CarteImg->geometry());
    HScroll4 = bar("HScroll4"_L1, u"Map, left and right"_s, 1, 1, surface());
    HScroll4->setGeometry(pxRect(0, 3720, 7215, 240));
    VScroll1 = named<ScrollBar>("VScroll1"_L1, Qt::Vertical, 1, 1, surface());
    VScroll1->setAccessibleName(u"Map, up and down"_s);
    VScroll1->setGeometry(pxRect(7200, 0, 240, 3735));
    Timer1 = named<QTimer>("Timer1"_L1, this);
    Timer1->setInterval(redrawInterval);
    connect(Timer1, &QTimer::timeout, this, &mapeditor::Timer1_Timer);
    connect(CarteImg, &GridPicture::mouseDown, this, &mapeditor::CarteImg_MouseDown);
    footLine_ = textLabel("FootLine"_L1, {}, surface());
    footLine_->setGeometry(footLinePlace);
    buildPalette();
}

void mapeditor::buildPalette()
{
    palette_ = named<TilePalette>("Palette"_L1, surface());
    palette_->setGeometry(palettePlace);
    palette_->setAccessibleName(u"Tiles"_s);
}

void mapeditor::buildConfiguration()
{
    Command4 = at(named<QPushButton>("Command4"_L1, u"Main Menu"_s, surface()), px(10560), px(120), 153, 28);
    Frame2 = named<QGroupBox>("Frame2"_L1, u"Configuration"_s, surface());
    Frame2->setGeometry(grown(pxRect(10560, 840, 2295, 4095)));
    buildModes();
    buildStart();
    buildSizes();
    Command11 = at(named<QPushButton>("Command11"_L1, u"Change Texture"_s, Frame2), 7, 223, 139, 22);
    Command10 = at(named<QPushButton>("Command10"_L1, u"Reset the map to zero"_s, Frame2), 7, 247, 139, 22);
}

void mapeditor::buildModes()
{
    const std::array captions = {u"Picture"_s, u"Blocks"_s, u"Event"_s};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        Option1[i] = named<QRadioButton>(u"Option1_%1"_s.arg(i), captions[i], Frame2);
        at(Option1[i], 8, 21 + 20 * static_cast<int>(i), 66, 20);
    }
    Option1[0]->setChecked(true);
    auto* Frame5 = at(named<QGroupBox>("Frame5"_L1, u"Déssin"_s, Frame2), 76, 18, 70, 68);
    Image5 = at(named<PressLabel>("Image5"_L1, Frame5), 21, 19, tileSize.width(), tileSize.height());
    Image5->setAccessibleName(u"Chosen tile"_s);
    connect(Image5, &PressLabel::clicked, this, &mapeditor::Image5_Click);
    Choixtext = at(bar("Choixtext"_L1, u"Tile"_s, 1, 1, Frame5), 4, 51, 62, 14);
}

void mapeditor::buildStart()
{
    auto* Label6 = at(textLabel("Label6"_L1, u"Starting position of the hero"_s, Frame2), 8, 86, 138, 28);
    Label6->setWordWrap(true);
    at(textLabel("Label9"_L1, u"X :"_s, Frame2), 8, 117, 20, 18);
    Label4 = at(textLabel("Label4"_L1, u"1"_s, Frame2), 28, 117, 18, 18);
    at(textLabel("Label10"_L1, u"Y :"_s, Frame2), 48, 117, 20, 18);
    Label5 = at(textLabel("Label5"_L1, u"1"_s, Frame2), 68, 117, 18, 18);
    Command9 = at(named<QPushButton>("Command9"_L1, u"Change"_s, Frame2), 88, 115, 58, 22);
    setTag(Command9, u"False"_s);
    at(textLabel("Label7"_L1, u"Map Name:"_s, Frame2), 8, 142, 64, 18);
    Text1 = at(named<QLineEdit>("Text1"_L1, u"Name"_s, Frame2), 72, 140, 74, 22);
    Text1->setAccessibleName(u"Map Name"_s);
}

void mapeditor::buildSizes()
{
    Label15 = at(textLabel("Label15"_L1, u"Width : 17"_s, Frame2), 8, 163, 138, 15);
    HScroll5 = at(bar("HScroll5"_L1, u"Width"_s, 17, 50, Frame2), 8, 179, 137, 14);
    Label16 = at(textLabel("Label16"_L1, u"Height : 8"_s, Frame2), 8, 193, 138, 15);
    HScroll6 = at(bar("HScroll6"_L1, u"Height"_s, 8, 50, Frame2), 8, 208, 137, 14);
}

void mapeditor::buildMenus()
{
    Frame3 = at(named<QGroupBox>("Frame3"_L1, u"Main Menu"_s, surface()), px(12840), px(840), 168, 78);
    Command6 = at(named<QPushButton>("Command6"_L1, u"Load map"_s, Frame3), 8, 21, 152, 24);
    Command5 = at(named<QPushButton>("Command5"_L1, u"New Map"_s, Frame3), 8, 48, 152, 24);
    Frame3->hide();
}

void mapeditor::buildMapChooser()
{
    constexpr int boundBeforeFirstChange = largestCount;
    Frame1 = at(named<QGroupBox>("Frame1"_L1, u"Load a map"_s, surface()), px(12960), px(2040), 160, 62);
    at(textLabel("Label2"_L1, u"Map No. :"_s, Frame1), 6, 19, 54, 16);
    Label1 = at(textLabel("Label1"_L1, u"01"_s, Frame1), 61, 19, 36, 16);
    Label3 = at(named<CutLabel>("Label3"_L1, u"Unnamed"_s, Frame1), 98, 19, 58, 16);
    HScroll1 = at(bar("HScroll1"_L1, u"Map to load"_s, 1, boundBeforeFirstChange, Frame1), 6, 40, 108, 16);
    Command1 = at(named<QPushButton>("Command1"_L1, u"OK"_s, Frame1), 118, 37, 36, 22);
    Frame1->hide();
}

void mapeditor::buildTilesets()
{
    Frame4 = at(named<QGroupBox>("Frame4"_L1, u"Change texture(Tileset)"_s, surface()), px(12960), px(3000),
                160, 108);
    for (std::size_t i = 0; i < previews_.size(); ++i) {
        previews_[i] = pictureLabel(u"Image%1"_s.arg(i + 1), u"Tile %1 of the tileset"_s.arg(i + 1), Frame4);
        previews_[i]->move(12 + static_cast<int>(i) * 36, 23);
    }
    HScroll2 = at(bar("HScroll2"_L1, u"Tileset"_s, 1, 1, Frame4), 6, 60, 148, 16);
    Command14 = at(named<QPushButton>("Command14"_L1, u"OK"_s, Frame4), 50, 80, 60, 23);
    Frame4->hide();
}

void mapeditor::fitSurface(bool withPanel)
{
    constexpr int foot = 4;
    const QSize closed = (QSizeF(surfaceClosed) * letterScale()).toSize();
    QRect panel =
        grown({px(120), px(5880), surfaceClosed.width() - 2 * px(120), surfaceOpenHeight - px(5880) - foot});
    panel.setSize(panel.size().expandedTo(Frame6->minimumSizeHint()));
    Frame6->setGeometry(panel);
    Frame6->setVisible(withPanel);
    surface()->setMinimumSize(std::max(closed.width(), panel.right() + panel.left()),
                              withPanel ? panel.bottom() + 1 + foot : closed.height());
}

void mapeditor::addToolTips()
{
    const std::pair<QWidget*, QString> toolTips[] = {
        {palette_, u"Click a tile to paint with it"_s},
        {HScroll4, u"Moves nothing so far: the map shows all its columns"_s},
        {VScroll1, u"Moves nothing so far: the map shows all its rows"_s},
        {Command4, u"Shows loading and making maps; a second click hides them"_s},
        {Option1[0], u"A click on the map paints the chosen tile"_s},
        {Option1[1], u"A click on the map blocks a cell, or frees it"_s},
        {Option1[2], u"A click on the map opens the event of a cell"_s},
        {Image5, u"The chosen tile; a click sets the mode to Picture"_s},
        {Choixtext, u"Chooses the tile to paint with, and the mode Picture"_s},
        {Command9, u"The next click on the map is where the hero starts"_s},
        {Text1, u"The name of this map; the next click on the map saves it"_s},
        {HScroll5, u"Sets how far the bar below the map goes; the map keeps 17 columns"_s},
        {HScroll6, u"Sets how far the bar beside the map goes; the map keeps its rows"_s},
        {Command11, u"Shows the tilesets to choose from; a second click hides them"_s},
        {Command10, u"Empties the map and its events. On the map, Ctrl+Z takes back the last click "
                    u"or reset, Ctrl+Y does it again"_s},
        {Command6, u"Shows the maps to choose from; a second click hides them"_s},
        {Command5, u"Adds a map to the project and loads it"_s},
        {HScroll1, u"Chooses the map to load"_s},
        {Command1, u"Loads the chosen map"_s},
        {HScroll2, u"Shows the first tiles of each tileset"_s},
        {Command14, u"Gives the map this tileset"_s}};
    for (const auto& [control, toolTip] : toolTips) {
        control->setToolTip(toolTip);
    }
}

void mapeditor::connectButtons()
{
    const auto onClick = [this](QPushButton* button, void (mapeditor::*handler)()) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    onClick(Command9, &mapeditor::Command9_Click);
    onClick(Command10, &mapeditor::Command10_Click);
    onClick(Command4, &mapeditor::Command4_Click);
    onClick(Command6, &mapeditor::Command6_Click);
    onClick(Command5, &mapeditor::Command5_Click);
    onClick(Command1, &mapeditor::Command1_Click);
    onClick(Command11, &mapeditor::Command11_Click);
    onClick(Command14, &mapeditor::Command14_Click);
}

void mapeditor::connectChoosers()
{
    const auto onChange = [this](ScrollBar* scrollBar, void (mapeditor::*handler)()) {
        connect(scrollBar, &ScrollBar::valueChanged, this, handler);
    };
    onChange(Choixtext, &mapeditor::Choixtext_Change);
    onChange(HScroll5, &mapeditor::HScroll5_Change);
    onChange(HScroll6, &mapeditor::HScroll6_Change);
    onChange(HScroll1, &mapeditor::HScroll1_Change);
    onChange(HScroll2, &mapeditor::HScroll2_Change);
}
