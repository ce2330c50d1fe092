/// The picture of a map's grid: a canvas that keeps what was drawn on it and reports where it is clicked.
#pragma once

#include "maps/mapmodel.h"

#include <optional>
#include <QImage>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

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
    /// Null when the code is no number or its picture cannot be drawn.
    const QImage* tile(const std::optional<std::string>& code);

    QImage canvas_;
    std::optional<Drawing> drawn_;
    /// The tile pictures drawn so far, by code, each looked up once as long as the tileset stays.
    std::vector<std::pair<std::optional<std::string>, const QImage*>> tiles_;
};
