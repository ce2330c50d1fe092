/// The picture of a map's grid: a canvas that keeps what was drawn on it and reports where it is clicked.
#pragma once

#include "maps/mapmodel.h"
#include "toolkit/metrics.h"

#include <functional>
#include <optional>
#include <QAccessible>
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

    static constexpr QSize pixels{px(7215), px(3735)};

    explicit GridPicture(QWidget* parent);

    /// Paints rows 1 to 8 over what was there. A slot never set is tile 0; a cell whose tile cannot be drawn
    /// keeps what it shows. Costs a comparison when nothing differs from the last drawing.
    void draw(const MapModel& map, const std::string& tileset, MarkPlace marks);

    /// What tells a cell in words, for those who do not see it.
    void setTeller(std::function<QString(Cell)> teller) { teller_ = std::move(teller); }
    QString words(Cell cell) const { return teller_ ? teller_(cell) : QString(); }

    /// The cell that the arrow keys walked to, or that was clicked last; the ninth row is among them.
    Cell currentCell() const { return current_; }
    /// Whether the author is at the keyboard: the current cell is then to be seen.
    bool isWalked() const { return walked_ && hasFocus(); }
    /// Tells screen readers that the words of the current cell are others now.
    void announceChange() { announce(QAccessible::NameChanged); }

    /// A press on the middle of a cell.
    void press(Cell cell);

    /// What was drawn; clear where nothing was.
    const QImage& canvas() const { return canvas_; }

Q_SIGNALS:
    /// A mouse button went down; twips from the picture's top-left corner.
    void mouseDown(int x, int y);
    /// The pointer came over another cell; row 0 when it is over none.
    void pointed(Cell cell);
    /// The current cell, or whether it is to be seen, changed.
    void walked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// What the last drawing was made from.
    struct Drawing {
        MapModel map;
        std::string tileset;
        MarkPlace marks = MarkPlace::Corner;
    };

    void point(Cell cell);
    /// Makes a cell the current one, the nearest when it lies outside.
    void walkTo(Cell cell);
    bool walkByKey(int key);
    void announce(QAccessible::Event what);

    void paintCells();
    /// Null when the code is no number or its picture cannot be drawn.
    const QImage* tile(const std::optional<std::string>& code);

    std::function<QString(Cell)> teller_;
    Cell current_{1, 1};
    Cell pointed_;
    bool walked_ = false;

    QImage canvas_;
    std::optional<Drawing> drawn_;
    /// The tile pictures drawn so far, by code, each looked up once as long as the tileset stays.
    std::vector<std::pair<std::optional<std::string>, const QImage*>> tiles_;
};

/// The place of a cell on the picture, in pixels; the part of the ninth row that the picture has room for.
QRect cellPlace(Cell cell);
