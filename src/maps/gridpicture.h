/// The picture of a map's grid: a canvas that keeps what was drawn on it and reports where it is clicked.
#pragma once

#include "maps/mapmodel.h"

#include <optional>
#include <QImage>
#include <QWidget>
#include <string>

class GridPicture : public QWidget
{
    Q_OBJECT

public:
    /// Where the mark of a blocked cell stands within its cell.
    enum class MarkPlace { Corner, Inset };

    explicit GridPicture(QWidget* parent);

    /// Paints rows 1 to 8 over what was there. A slot never set is tile 0; a cell whose tile cannot be drawn
    /// keeps what it shows. Costs a comparison when nothing differs from the last drawing.
    void draw(const MapModel& map, const std::string& tileset, MarkPlace marks);

    /// What the picture shows, 481 × 249 pixels.
    const QImage& canvas() const { return canvas_; }

Q_SIGNALS:
    /// A mouse button went down; twips from the picture's top-left corner.
    void mouseDown(int x, int y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    /// What the last drawing was made from.
    struct Drawing {
        MapModel map;
        std::string tileset;
        MarkPlace marks = MarkPlace::Corner;
    };

    void paintCells();

    QImage canvas_;
    std::optional<Drawing> drawn_;
};

/// A cell of the grid, counted from 1.
struct Cell {
    int row = 0;
    int column = 0;
};

/// The cell at a place of the picture, in twips; row 0 when there is none.
Cell cellAt(int x, int y);
