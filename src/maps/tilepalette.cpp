#include "maps/tilepalette.h"

#include "maps/tilepictures.h"
#include "maps/tileset.h"

#include <algorithm>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{

constexpr QSize tileSize(28, 29);
constexpr int margin = 3; // pixels on each side of a tile, for the outline
constexpr QSize fieldSize(tileSize.width() + 2 * margin, tileSize.height() + 2 * margin);

/// The palette as a screen reader meets it: one value, the number of the chosen tile, that its keys change.
class PaletteInterface : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit PaletteInterface(TilePalette* palette)
        : QAccessibleWidget(palette, QAccessible::Slider)
        , palette_(palette)
    {
    }

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return palette_->chosen(); }
    QVariant minimumValue() const override { return 1; }
    QVariant maximumValue() const override { return palette_->count(); }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override
    {
        if (const int tile = value.toInt(); tile >= 1 && tile <= palette_->count()) {
            Q_EMIT palette_->picked(tile);
        }
    }

private:
    TilePalette* palette_;
};

QAccessibleInterface* paletteInterface(const QString&, QObject* object)
{
    auto* palette = qobject_cast<TilePalette*>(object);
    return palette == nullptr ? nullptr : new PaletteInterface(palette);
}

} // namespace

TilePalette::TilePalette(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Window);
    verticalScrollBar()->setSingleStep(fieldSize.height());
    QAccessible::installFactory(paletteInterface); // once; the toolkit knows it the next time
}

void TilePalette::setTiles(const std::string& tileset, int count, int chosen)
{
    if (tileset == tileset_ && count == count_ && chosen == chosen_) {
        return;
    }
    tileset_ = tileset;
    count_ = count;
    chosen_ = chosen;
    setAccessibleDescription(u"Tile %1 of %2"_s.arg(chosen).arg(count));
    fitScrollBar();
    bringIntoSight();
    viewport()->update();
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, chosen);
        QAccessible::updateAccessibility(&event);
    }
}

int TilePalette::perRow() const
{
    return std::max(1, viewport()->width() / fieldSize.width());
}

QRect TilePalette::placeOf(int tile) const
{
    const int index = tile - 1;
    const QPoint corner(index % perRow() * fieldSize.width(),
                        index / perRow() * fieldSize.height() - verticalScrollBar()->value());
    return QRect(corner, fieldSize).adjusted(margin, margin, -margin, -margin);
}

/// The tile of a place on the viewport; 0 when there is none.
int TilePalette::tileAt(QPoint place) const
{
    const int column = place.x() / fieldSize.width();
    const int row = (place.y() + verticalScrollBar()->value()) / fieldSize.height();
    const int tile = row * perRow() + column + 1;
    return column < perRow() && tile <= count_ ? tile : 0;
}

void TilePalette::fitScrollBar()
{
    const int rows = (count_ + perRow() - 1) / perRow();
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, rows * fieldSize.height() - viewport()->height()));
}

void TilePalette::bringIntoSight()
{
    const QRect place = placeOf(chosen_).adjusted(0, -margin, 0, margin);
    const int above = std::min(0, place.top());
    const int below = std::max(0, place.bottom() + 1 - viewport()->height());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + above + below);
}

void TilePalette::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Mid));
    const int first = verticalScrollBar()->value() / fieldSize.height() * perRow() + 1;
    const int rows = viewport()->height() / fieldSize.height() + 2;
    for (int tile = first; tile < first + rows * perRow() && tile <= count_; ++tile) {
        const QImage& picture = tilePicture(TilePicture(tileset_, tile));
        if (picture.isNull()) {
            painter.drawRect(placeOf(tile)); // there is a tile, though nobody sees what it looks like
        } else {
            painter.drawImage(placeOf(tile), picture);
        }
    }
    const QRect place = placeOf(chosen_);
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText), 2));
    painter.drawRect(place.adjusted(-2, -2, 3, 3));
}

void TilePalette::resizeEvent(QResizeEvent*)
{
    fitScrollBar();
    bringIntoSight();
}

void TilePalette::mousePressEvent(QMouseEvent* event)
{
    if (const int tile = tileAt(event->position().toPoint()); event->button() == Qt::LeftButton && tile > 0) {
        Q_EMIT picked(tile);
    }
}

/// The tile that a key leads to, maybe beyond the first or last one; nothing for a key that leads nowhere.
std::optional<int> TilePalette::afterKey(int key) const
{
    switch (key) {
    case Qt::Key_Left:
        return chosen_ - 1;
    case Qt::Key_Right:
        return chosen_ + 1;
    case Qt::Key_Up:
        return chosen_ - perRow();
    case Qt::Key_Down:
        return chosen_ + perRow();
    case Qt::Key_Home:
        return 1;
    case Qt::Key_End:
        return count_;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return chosen_;
    default:
        return std::nullopt;
    }
}

void TilePalette::keyPressEvent(QKeyEvent* event)
{
    const bool held = (event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier;
    const std::optional<int> tile = held ? std::nullopt : afterKey(event->key());
    if (!tile) {
        QAbstractScrollArea::keyPressEvent(event);
    } else if (*tile > 0 && *tile <= count_) {
        Q_EMIT picked(*tile);
    }
}

void TilePalette::focusInEvent(QFocusEvent*)
{
    viewport()->update();
}

void TilePalette::focusOutEvent(QFocusEvent*)
{
    viewport()->update();
}
