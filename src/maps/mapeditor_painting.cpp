// What clicks on the grid do, and the controls of the "Configuration" frame.
#include "maps/mapeditor.h"

#include "events/eventstore.h"
#include "maps/tilepalette.h"
#include "maps/tilepictures.h"
#include "maps/tileset.h"
#include "toolkit/boxes.h"
#include "toolkit/entry.h"
#include "toolkit/scrollbar.h"
#include "toolkit/text.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

void mapeditor::CarteImg_MouseDown(int x, int y)
{
    if (isForeign(u"changed"_s)) {
        return; // what such a click changed could never be shown or saved
    }
    const Cell cell = cellAt(x, y);
    if (cell.row > 0 && tag(Command9) == "True"_L1) {
        return placeStart(cell);
    }
    if (cell.row > 0 && tag(CarteImg) == heroMoveMark) {
        return Frame6->placeHero(cell.row, cell.column);
    }
    const StepRecorder before = recordClick();
    if (cell.row > 0 && !apply(cell)) {
        return;
    }
    drawmap();
    savemap();
    keepStep(before, cell.row == 0
                         ? "Saving"
                         : "Row " + std::to_string(cell.row) + ", column " + std::to_string(cell.column));
    if (const QString reason = hindrance(); !reason.isEmpty()) {
        say(u"Not saved: "_s + reason);
    }
}

void mapeditor::placeStart(Cell cell)
{
    const StepRecorder before(map_, heroStart(), {});
    Label4->setText(QString::number(cell.column));
    Label5->setText(QString::number(cell.row));
    setTag(Command9, u"False"_s);
    keepStep(before, "Start of the hero");
}

/// Does the painting mode's action on a cell; false when the click ends there.
bool mapeditor::apply(Cell cell)
{
    const int slot = slotOf(cell.row, cell.column);
    switch (mode()) {
    case Mode::Picture:
        if (currentMap_.empty()) {
            return false;
        }
        map_.tiles[static_cast<std::size_t>(slot)] = std::to_string(Choixtext->value() - 1);
        break;
    case Mode::Event:
        if (IsEventUnreadable(eventpath(currentMap_, cell.row, cell.column))) {
            say(u"The event of this cell cannot be opened: its file cannot be read, or holds more than 16 MB."_s);
            return false;
        }
        openCell_ = cell;
        Frame6->openCell(cell.row, cell.column);
        break;
    case Mode::Blocks:
        map_.toggleBlock(slot);
        break;
    }
    return true;
}

mapeditor::Mode mapeditor::mode() const
{
    return Option1[0]->isChecked() ? Mode::Picture : Option1[2]->isChecked() ? Mode::Event : Mode::Blocks;
}

void mapeditor::Choixtext_Change()
{
    refreshChooser(ownsProject() ? tilesetKey() : chooserTileset_);
    Option1[0]->setChecked(true);
}

void mapeditor::Image5_Click()
{
    Option1[0]->setChecked(true);
}

void mapeditor::refreshChooser(const std::string& tileset)
{
    chooserTileset_ = tileset;
    Choixtext->setBound(TileCount(tileset));
    showTile();
}

void mapeditor::showTile()
{
    Image5->setPixmap(QPixmap::fromImage(tilePicture(TilePicture(chooserTileset_, Choixtext->value()))));
    palette_->setTiles(chooserTileset_, Choixtext->maximum(), Choixtext->value());
}

void mapeditor::Command9_Click()
{
    messageBox(this, u"Click the box to the starting position of the hero on this map"_s);
    setTag(Command9, u"True"_s);
    CarteImg->setFocus();
}

void mapeditor::Command10_Click()
{
    if (!askYesNo(this, u" Are you sure you want to return the card to zero?"_s) || isForeign(u"reset"_s)) {
        return;
    }
    const StepRecorder before = recordReset();
    map_.reset();
    ClearEvents(currentMap_);
    events_.reset();
    keepStep(before, "Reset of the map");
}

void mapeditor::HScroll5_Change()
{
    Label15->setText(u"Largeur = "_s + QString::number(HScroll5->value()));
    HScroll4->setBound(HScroll5->value() - (MapModel::columns - 1));
}

void mapeditor::HScroll6_Change()
{
    Label16->setText(u"Hauteur = "_s + QString::number(HScroll6->value()));
    VScroll1->setBound(HScroll6->value() - (MapModel::rows - 1));
}
