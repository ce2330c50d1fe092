// What the view tells of its grid: marks over the picture, a line of words at its foot.
#include "maps/mapeditor.h"

#include "maps/gridoverlay.h"
#include "maps/tilepalette.h"
#include "store/numbers.h"
#include "toolkit/scrollbar.h"
#include "toolkit/text.h"

#include <QAccessible>
#include <QLabel>
#include <QRadioButton>

using namespace Qt::StringLiterals;

void mapeditor::connectMarks()
{
    CarteImg->setTeller([this](Cell cell) { return words(cell); });
    connect(CarteImg, &GridPicture::pointed, this, &mapeditor::CarteImg_Pointed);
    connect(CarteImg, &GridPicture::walked, this, &mapeditor::CarteImg_Walked);
    connect(palette_, &TilePalette::picked, this, &mapeditor::palette_Picked);
    connect(Option1[2], &QRadioButton::toggled, this, [this] {
        events_.reset(); // other views save events too
        showMarks();
    });
}

void mapeditor::CarteImg_Pointed(Cell cell)
{
    pointed_ = cell;
    told_ = cell.row == 0 && CarteImg->isWalked() ? CarteImg->currentCell() : cell;
    showWords(); // the map is as it was: a screen reader has nothing to tell anew
}

void mapeditor::CarteImg_Walked()
{
    if (CarteImg->isWalked()) {
        told_ = CarteImg->currentCell();
        const QPoint middle = cellPlace(told_).center();
        ensureVisible(middle.x(), middle.y());
    }
    showWords();
}

void mapeditor::palette_Picked(int tile)
{
    if (tile == Choixtext->value()) {
        Choixtext_Change(); // the tile is chosen anew, and with it the mode
    } else {
        Choixtext->setValue(tile);
    }
}

const CellSet& mapeditor::events()
{
    static const CellSet none;
    if (!ownsProject() || currentMap_.empty()) {
        return none;
    }
    if (!events_) {
        events_ = CellsWithEvents(currentMap_);
    }
    return *events_;
}

Cell mapeditor::startCell() const
{
    const Cell cell{CountFrom(typed(Label5->text())).value_or(0),
                    CountFrom(typed(Label4->text())).value_or(0)};
    const bool inside = cell.row >= 1 && cell.row <= MapModel::storedRows && cell.column >= 1 &&
                        cell.column <= MapModel::columns;
    return inside ? cell : Cell{};
}

QString mapeditor::words(Cell cell)
{
    if (cell.row == 0) {
        return {};
    }
    const auto slot = static_cast<std::size_t>(slotOf(cell.row, cell.column));
    const std::optional<int> tile = TileNumber(map_.tiles[slot]);
    QString text = u"Row %1, column %2: "_s.arg(cell.row).arg(cell.column);
    text += tile ? u"tile %1"_s.arg(*tile) : u"no tile"_s;
    text += map_.isBlocked(static_cast<int>(slot)) ? u", blocked"_s : QString();
    text += cell == startCell() ? u", start of the hero"_s : QString();
    text += events()[slot] ? u", event"_s : QString();
    return text;
}

void mapeditor::showMarks()
{
    GridMarks marks;
    marks.pointed = pointed_;
    marks.walked = CarteImg->isWalked() ? CarteImg->currentCell() : Cell{};
    marks.start = startCell();
    marks.open = Frame6->isHidden() ? Cell{} : openCell_;
    marks.events = mode() == Mode::Event ? events() : CellSet();
    overlay_->setMarks(marks);
}

void mapeditor::showWords()
{
    showMarks();
    footLine_->setText(words(told_));
}

void mapeditor::showChange()
{
    showWords();
    CarteImg->announceChange();
}

void mapeditor::say(const QString& text)
{
    footLine_->setText(text);
    QAccessibleEvent alert(footLine_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
