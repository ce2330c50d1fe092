// The frames with which a view changes its map: "Main Menu", "Load a map" and "Change texture(Tileset)".
#include "maps/mapeditor.h"

#include "maps/maplist.h"
#include "maps/tilepictures.h"
#include "maps/tileset.h"
#include "toolkit/boxes.h"
#include "toolkit/cutlabel.h"
#include "toolkit/scrollbar.h"
#include "toolkit/text.h"

#include <QLabel>

using namespace Qt::StringLiterals;

void mapeditor::Command4_Click()
{
    Frame3->setVisible(Frame3->isHidden());
}

void mapeditor::Command6_Click()
{
    Frame1->setVisible(Frame1->isHidden());
}

void mapeditor::Command5_Click()
{
    newMap();
}

void mapeditor::newMap()
{
    Frame3->hide();
    if (keepsForeignEvent()) {
        return;
    }
    const NewMapResult made = NewMap();
    if (made.mapNumber.empty()) {
        messageBox(this, u"No map was made.\n"_s + shown(made.failure), BoxIcon::Stop);
        return;
    }
    setMapField(made.mapNumber);
    loadmap();
}

void mapeditor::HScroll1_Change()
{
    const std::string mapNumber = MapNumberText(HScroll1->value());
    if (ownsProject()) {
        HScroll1->setBound(MapCount().value_or(0));
        Label3->setValue(shown(MapName(mapNumber)));
    }
    setMapField(mapNumber);
}

void mapeditor::Command1_Click()
{
    loadmap();
}

void mapeditor::Command11_Click()
{
    Frame4->setVisible(Frame4->isHidden());
    HScroll2->setBound(TilesetCount());
    if (!Frame4->isHidden()) {
        HScroll2_Change(); // the frame opens with the chosen tileset in sight
    }
}

void mapeditor::HScroll2_Change()
{
    const std::string tileset = MapNumberText(HScroll2->value());
    int tile = 0;
    for (QLabel* preview : previews_) {
        preview->setPixmap(QPixmap::fromImage(tilePicture(TilePicture(tileset, ++tile))));
    }
}

void mapeditor::Command14_Click()
{
    const std::string tileset = MapNumberText(HScroll2->value());
    const std::string mapNumber = mapField();
    std::string failure;
    Frame4->hide();
    if (!isForeign(u"changed"_s)) {
        WriteIni(MapSection(mapNumber), "texture", tileset, Descriptor());
        failure = CopyTilesetSheet(tileset, mapNumber);
    }
    drawmap();
    if (!failure.empty()) {
        messageBox(this, u"The tileset's picture was not copied for the game.\n"_s + shown(failure),
                   BoxIcon::Stop);
    }
}
