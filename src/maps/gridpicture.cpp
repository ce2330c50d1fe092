#include "maps/gridpicture.h"

#include "maps/tilepictures.h"
#include "maps/tileset.h"
#include "store/numbers.h"
#include "toolkit/metrics.h"

#include <QMouseEvent>
#include <QPainter>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

constexpr int cellWidth = 420;  // twips: 28 pixels, the width of a tile picture
constexpr int cellHeight = 435; // twips: 29 pixels
constexpr QSize pictureSize(px(7215), px(3735));
constexpr int markInset = 75;      // twips
constexpr int markFontPixels = 19; // 14 points at 96 to the inch

/// The tile pictures of one drawing, each looked up once.
class Tiles
{
public:
    explicit Tiles(const std::string& tileset)
        : tileset_(tileset)
    {
    }

    /// Null when the code is no number or its picture cannot be drawn.
    const QImage* picture(const std::optional<std::string>& code)
    {
        const std::optional<int> number = code ? CountFrom(*code) : 0;
        if (!number) {
            return nullptr;
        }
        for (const auto& [known, picture] : pictures_) {
            if (known == *number) {
                return picture;
            }
        }
        const QImage& found = tilePicture(TilePicture(tileset_, *number + 1));
        return pictures_.emplace_back(*number, found.isNull() ? nullptr : &found).second;
    }

private:
    const std::string& tileset_;
    std::vector<std::pair<int, const QImage*>> pictures_;
};

void drawMark(QPainter& painter, const QRect& cell, GridPicture::MarkPlace place)
{
    const int inset = place == GridPicture::MarkPlace::Inset ? px(markInset) : 0;
    painter.drawText(cell.adjusted(inset, 0, 0, 0), Qt::AlignLeft | Qt::AlignTop, u"X"_s);
}

} // namespace

GridPicture::GridPicture(QWidget* parent)
    : QWidget(parent)
    , canvas_(pictureSize, QImage::Format_RGB32)
{
    canvas_.fill(palette().color(QPalette::Window));
    setFixedSize(pictureSize);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void GridPicture::draw(const MapModel& map, const std::string& tileset, MarkPlace marks)
{
    if (drawn_ && drawn_->map == map && drawn_->tileset == tileset && drawn_->marks == marks) {
        return;
    }
    drawn_ = Drawing{map, tileset, marks};
    paintCells();
    update();
}

void GridPicture::paintCells()
{
    const MapModel& map = drawn_->map;
    Tiles tiles(drawn_->tileset);
    QPainter painter(&canvas_);
    QFont font = painter.font();
    font.setPixelSize(markFontPixels);
    painter.setFont(font);
    painter.setPen(Qt::white);
    for (int row = 1; row <= MapModel::rows; ++row) {
        for (int column = 1; column <= MapModel::columns; ++column) {
            const int slot = slotOf(row, column);
            const QImage* tile = tiles.picture(map.tiles[static_cast<std::size_t>(slot)]);
            if (tile == nullptr) {
                continue;
            }
            const QRect cell =
                pxRect((column - 1) * cellWidth, (row - 1) * cellHeight, cellWidth, cellHeight);
            painter.drawImage(cell.topLeft(), *tile);
            if (map.isBlocked(slot)) {
                drawMark(painter, cell, drawn_->marks);
            }
        }
    }
}

void GridPicture::paintEvent(QPaintEvent*)
{
    QPainter(this).drawImage(QPoint(), canvas_);
}

void GridPicture::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT mouseDown(static_cast<int>(event->position().x() * twipsPerPixel),
                     static_cast<int>(event->position().y() * twipsPerPixel));
}

void GridPicture::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event); // the second press of a quick pair is a press like any other
}

Cell cellAt(int x, int y)
{
    const Cell cell{y / cellHeight + 1, x / cellWidth + 1};
    const bool inside =
        x >= 0 && y >= 0 && cell.row <= MapModel::storedRows && cell.column <= MapModel::columns;
    return inside ? cell : Cell{};
}
