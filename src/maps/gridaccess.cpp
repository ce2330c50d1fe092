#include "maps/gridaccess.h"

#include "maps/gridoverlay.h"
#include "maps/gridpicture.h"

#include <algorithm>
#include <array>
#include <QAccessibleWidget>
#include <QPointer>

namespace
{

constexpr int cellCount = MapModel::storedRows * MapModel::columns;

class CellInterface : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    CellInterface(GridPicture* picture, Cell cell)
        : picture_(picture)
        , cell_(cell)
    {
    }

    bool isValid() const override { return !picture_.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent()->window(); }
    QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(picture_.data());
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? picture_->words(cell_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override
    {
        const QRect place = cellPlace(cell_);
        return {picture_->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = parent()->state();
        state.focused = picture_->hasFocus() && picture_->currentCell() == cell_;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override
    {
        return picture_->isEnabled() ? QStringList{pressAction()} : QStringList();
    }
    void doAction(const QString& action) override
    {
        if (action == pressAction() && picture_->isEnabled()) {
            picture_->press(cell_);
        }
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<GridPicture> picture_;
    Cell cell_;
};

/// Its cells come into being when they are asked for.
class GridInterface : public QAccessibleWidget
{
public:
    explicit GridInterface(GridPicture* picture)
        : QAccessibleWidget(picture, QAccessible::Table)
    {
    }
    ~GridInterface() override
    {
        for (const QAccessible::Id cell : cells_) {
            if (cell != 0) {
                QAccessible::deleteAccessibleInterface(cell);
            }
        }
    }
    GridInterface(const GridInterface&) = delete;
    GridInterface& operator=(const GridInterface&) = delete;

    int childCount() const override { return cellCount; }

    QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= cellCount) {
            return nullptr;
        }
        QAccessible::Id& cell = cells_[static_cast<std::size_t>(index)];
        if (cell == 0) {
            cell = QAccessible::registerAccessibleInterface(new CellInterface(picture(), cellOf(index)));
        }
        return QAccessible::accessibleInterface(cell);
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const QAccessible::Id id = QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child));
        const auto found = std::find(cells_.begin(), cells_.end(), id);
        return found == cells_.end() ? -1 : static_cast<int>(found - cells_.begin());
    }

    QAccessibleInterface* childAt(int x, int y) const override
    {
        for (int index = 0; index < cellCount; ++index) {
            if (cellPlace(cellOf(index)).contains(picture()->mapFromGlobal(QPoint(x, y)))) {
                return child(index);
            }
        }
        return nullptr;
    }

    QAccessibleInterface* focusChild() const override
    {
        const Cell current = picture()->currentCell();
        return picture()->hasFocus() ? child(slotOf(current.row, current.column)) : nullptr;
    }

private:
    GridPicture* picture() const { return static_cast<GridPicture*>(widget()); }

    mutable std::array<QAccessible::Id, cellCount> cells_ = {};
};

/// The marks tell those who see what the cells tell in words; they are not to be met beside them.
class MarksInterface : public QAccessibleWidget
{
public:
    explicit MarksInterface(GridOverlay* marks)
        : QAccessibleWidget(marks, QAccessible::Graphic)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.invisible = true;
        return state;
    }
};

} // namespace

QAccessibleInterface* gridInterface(const QString&, QObject* object)
{
    if (auto* marks = qobject_cast<GridOverlay*>(object)) {
        return new MarksInterface(marks);
    }
    auto* picture = qobject_cast<GridPicture*>(object);
    return picture == nullptr ? nullptr : new GridInterface(picture);
}
