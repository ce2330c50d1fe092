#include "maps/gridpicture.h"

#include "maps/gridaccess.h"
#include "maps/tilepictures.h"
#include "maps/tileset.h"
#include "store/numbers.h"
#include "toolkit/keys.h"
#include "toolkit/metrics.h"

#include <algorithm>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace
{

constexpr int markInset = 75;      // twips
constexpr int markFontPixels = 19; // 14 points at 96 to the inch

void drawMark(QPainter& painter, const QRect& cell, GridPicture::MarkPlace place)
{
    const int inset = place == GridPicture::MarkPlace::Inset ? px(markInset) : 0;
    painter.drawText(cell.adjusted(inset, 0, 0, 0), Qt::AlignLeft | Qt::AlignTop, u"X"_s);
}

// Spelled out: asked at every tick, and the texts are so short that a call for each costs more than they do.
bool sameText(const std::optional<std::string>& a, const std::optional<std::string>& b)
{
    if (!a || !b || a->size() != b->size()) {
        return a.has_value() == b.has_value() && !a;
    }
    for (std::size_t i = 0; i < a->size(); ++i) {
        if ((*a)[i] != (*b)[i]) {
            return false;
        }
    }
    return true;
}

/// The cell under the pointer; row 0 when there is none.
Cell cellUnder(const QMouseEvent& event)
{
    return cellAt(static_cast<int>(event.position().x() * twipsPerPixel),
                  static_cast<int>(event.position().y() * twipsPerPixel));
}

/// Whether two maps look the same: rows 1 to 8 are all that is drawn.
bool lookSame(const MapModel& a, const MapModel& b)
{
    for (std::size_t slot = 0; slot < std::size_t{MapModel::rows} * MapModel::columns; ++slot) {
        if (!sameText(a.tiles[slot], b.tiles[slot]) || !sameText(a.blocks[slot], b.blocks[slot])) {
            return false;
        }
    }
    return true;
}

} // namespace

QRect cellPlace(Cell cell)
{
    const QRect place = pxRect((cell.column - 1) * MapModel::cellWidth, (cell.row - 1) * MapModel::cellHeight,
                               MapModel::cellWidth, MapModel::cellHeight);
    return place & QRect(QPoint(), GridPicture::pixels);
}

GridPicture::GridPicture(QWidget* parent)
    : QWidget(parent)
    , canvas_(pixels, QImage::Format_ARGB32_Premultiplied)
{
    canvas_.fill(Qt::transparent);
    setFixedSize(pixels);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    QAccessible::installFactory(gridInterface); // once, however often it is asked for
}

void GridPicture::draw(const MapModel& map, const std::string& tileset, MarkPlace marks)
{
    if (drawn_ && drawn_->tileset == tileset && drawn_->marks == marks && lookSame(drawn_->map, map)) {
        return;
    }
    if (!drawn_) {
        drawn_ = Drawing{};
    }
    Drawing& next = *drawn_; // copied into what is there, which costs no memory
    if (next.tileset != tileset) {
        tiles_.clear();
    }
    next.map = map;
    next.tileset = tileset;
    next.marks = marks;
    paintCells();
    update();
}

void GridPicture::paintCells()
{
    const MapModel& map = drawn_->map;
    QPainter painter(&canvas_);
    QFont font = painter.font();
    font.setPixelSize(markFontPixels);
    painter.setFont(font);
    painter.setPen(Qt::white);
    for (int row = 1; row <= MapModel::rows; ++row) {
        for (int column = 1; column <= MapModel::columns; ++column) {
            const int slot = slotOf(row, column);
            const QImage* picture = tile(map.tiles[static_cast<std::size_t>(slot)]);
            if (picture == nullptr) {
                continue;
            }
            const QRect cell = cellPlace({row, column});
            painter.drawImage(cell.topLeft(), *picture);
            if (map.isBlocked(slot)) {
                drawMark(painter, cell, drawn_->marks);
            }
        }
    }
}

const QImage* GridPicture::tile(const std::optional<std::string>& code)
{
    for (const auto& [known, picture] : tiles_) {
        if (known == code) {
            return picture;
        }
    }
    const std::optional<int> number = TileNumber(code);
    const QImage* found = number ? &tilePicture(TilePicture(drawn_->tileset, *number)) : nullptr;
    return tiles_.emplace_back(code, found != nullptr && found->isNull() ? nullptr : found).second;
}

void GridPicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window()); // of this moment: the desktop may turn dark
    painter.drawImage(QPoint(), canvas_);
}

void GridPicture::mousePressEvent(QMouseEvent* event)
{
    walked_ = false;
    if (const Cell cell = cellUnder(*event); cell.row > 0) {
        walkTo(cell);
    }
    Q_EMIT mouseDown(static_cast<int>(event->position().x() * twipsPerPixel),
                     static_cast<int>(event->position().y() * twipsPerPixel));
}

void GridPicture::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event); // the second press of a quick pair is a press like any other
}

void GridPicture::mouseMoveEvent(QMouseEvent* event)
{
    point(cellUnder(*event));
}

void GridPicture::leaveEvent(QEvent*)
{
    point({});
}

void GridPicture::point(Cell cell)
{
    if (cell != pointed_) {
        pointed_ = cell;
        Q_EMIT pointed(cell);
    }
}

void GridPicture::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        point({}); // no move is told from now on
    }
    QWidget::changeEvent(event);
}

void GridPicture::press(Cell cell)
{
    Q_EMIT mouseDown((cell.column - 1) * MapModel::cellWidth + MapModel::cellWidth / 2,
                     (cell.row - 1) * MapModel::cellHeight + MapModel::cellHeight / 2);
}

void GridPicture::walkTo(Cell cell)
{
    current_ = {std::clamp(cell.row, 1, MapModel::storedRows), std::clamp(cell.column, 1, MapModel::columns)};
    announce(QAccessible::Focus);
    Q_EMIT walked();
}

/// False for a key that leads nowhere.
bool GridPicture::walkByKey(int key)
{
    Cell next = current_;
    switch (key) {
    case Qt::Key_Left:
        --next.column;
        break;
    case Qt::Key_Right:
        ++next.column;
        break;
    case Qt::Key_Up:
        --next.row;
        break;
    case Qt::Key_Down:
        ++next.row;
        break;
    case Qt::Key_Home:
        next.column = 1;
        break;
    case Qt::Key_End:
        next.column = MapModel::columns;
        break;
    default:
        return false;
    }
    walkTo(next);
    return true;
}

void GridPicture::keyPressEvent(QKeyEvent* event)
{
    const bool pressKey = isSpace(event) || isEnter(event);
    if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        return QWidget::keyPressEvent(event);
    }
    walked_ = true;
    if (pressKey && !event->isAutoRepeat()) { // a key held down is one press
        press(current_);
    } else if (!pressKey && !walkByKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

void GridPicture::focusInEvent(QFocusEvent*)
{
    walked_ = keysCameLast();
    announce(QAccessible::Focus);
    Q_EMIT walked();
}

void GridPicture::focusOutEvent(QFocusEvent*)
{
    Q_EMIT walked();
}

void GridPicture::announce(QAccessible::Event what)
{
    if (QAccessible::isActive() && hasFocus()) {
        QAccessibleEvent event(this, what);
        event.setChild(slotOf(current_.row, current_.column));
        QAccessible::updateAccessibility(&event);
    }
}
