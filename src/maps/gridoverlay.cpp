#include "maps/gridoverlay.h"

#include "maps/gridaccess.h"
#include "maps/gridpicture.h"
#include "toolkit/metrics.h"

#include <QAccessible>
#include <QPainter>

namespace
{

// Every mark has a dark and a light line, so that one of them stands out on any tile.
const QColor dark(0, 0, 0);
const QColor light(255, 255, 255);
const QColor eventColour(255, 176, 0);
const QColor startColour(64, 224, 96);

void frame(QPainter& painter, const QRect& place, std::initializer_list<QColor> lines)
{
    int inset = 0;
    for (const QColor& colour : lines) {
        painter.setPen(colour);
        painter.drawRect(place.adjusted(inset, inset, -inset - 1, -inset - 1));
        ++inset;
    }
}

/// A dot in the lower right corner.
void drawEvent(QPainter& painter, const QRect& cell)
{
    constexpr int size = 9; // pixels
    const QRect place(cell.right() - size - 1, cell.bottom() - size - 1, size, size);
    painter.setPen(dark);
    painter.setBrush(light);
    painter.drawEllipse(place);
    painter.setPen(Qt::NoPen);
    painter.setBrush(eventColour);
    painter.drawEllipse(place.adjusted(2, 2, -1, -1));
    painter.setBrush(Qt::NoBrush);
}

/// A flag in the lower left corner.
void drawStart(QPainter& painter, const QRect& cell)
{
    const QPoint foot(cell.left() + 3, cell.bottom() - 2);
    painter.setPen(QPen(light, 3));
    painter.drawLine(foot, foot - QPoint(0, 12));
    painter.setPen(QPen(dark, 1));
    painter.drawLine(foot, foot - QPoint(0, 12));
    painter.setBrush(startColour);
    const QPolygon cloth({foot - QPoint(0, 12), foot + QPoint(9, -9), foot - QPoint(0, 5)});
    painter.setPen(QPen(light, 3));
    painter.drawPolygon(cloth);
    painter.setPen(QPen(dark, 1));
    painter.drawPolygon(cloth);
    painter.setBrush(Qt::NoBrush);
}

bool isMarked(Cell cell)
{
    return cell.row > 0;
}

} // namespace

GridOverlay::GridOverlay(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    QAccessible::installFactory(gridInterface);
}

void GridOverlay::setMarks(const GridMarks& marks)
{
    if (marks != marks_) {
        marks_ = marks;
        update();
    }
}

void GridOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isMarked(marks_.start)) {
        drawStart(painter, cellPlace(marks_.start));
    }
    for (std::size_t slot = 0; slot < marks_.events.size(); ++slot) {
        if (marks_.events[slot]) {
            drawEvent(painter, cellPlace(cellOf(static_cast<int>(slot))));
        }
    }
    if (isMarked(marks_.pointed)) {
        frame(painter, cellPlace(marks_.pointed), {dark, light});
    }
    if (isMarked(marks_.open)) {
        frame(painter, cellPlace(marks_.open), {dark, light, eventColour, dark});
    }
    if (isMarked(marks_.walked)) {
        frame(painter, cellPlace(marks_.walked), {dark, light, light, dark});
        frame(painter, rect(), {dark, light});
    }
}
