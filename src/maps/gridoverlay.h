/// The marks that lie over the picture of a map's grid. The picture beneath does not know of them.
#pragma once

#include "events/eventmarks.h"

#include <QWidget>

/// What is marked; row 0 where nothing is.
struct GridMarks {
    Cell pointed; ///< under the mouse pointer
    Cell walked;  ///< where the arrow keys stand
    Cell start;   ///< the hero's
    Cell open;    ///< whose event is open
    CellSet events;

    bool operator==(const GridMarks&) const = default;
};

/// A sheet over the picture, of the same size, that lets clicks through.
class GridOverlay : public QWidget
{
    Q_OBJECT

public:
    explicit GridOverlay(QWidget* parent);

    void setMarks(const GridMarks& marks);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    GridMarks marks_;
};
