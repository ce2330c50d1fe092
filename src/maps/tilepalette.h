/// The tiles of a tileset, all in sight at once, to choose from.
#pragma once

#include <optional>
#include <QAbstractScrollArea>
#include <string>

class TilePalette : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit TilePalette(QWidget* parent);

    /// Shows tiles 1 to `count` of a tileset, `chosen` of them outlined. Only those in sight are loaded.
    void setTiles(const std::string& tileset, int count, int chosen);

    int count() const { return count_; }
    int chosen() const { return chosen_; }

    /// The place of a tile on the viewport, in pixels; beyond it when the tile is scrolled out of sight.
    QRect placeOf(int tile) const;

Q_SIGNALS:
    /// A tile was clicked, or chosen by a key; counted from 1.
    void picked(int tile);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int perRow() const;
    int tileAt(QPoint place) const;
    std::optional<int> afterKey(int key) const;
    void fitScrollBar();
    void bringIntoSight();

    std::string tileset_;
    int count_ = 0;
    int chosen_ = 0;
};
