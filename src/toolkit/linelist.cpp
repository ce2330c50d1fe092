#include "toolkit/linelist.h"

#include "toolkit/keys.h"
#include "toolkit/text.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QPointer>

/// The lines as the list asks for them.
class LineList::Lines : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    const std::vector<std::string>& all() const { return lines_; }

    void replace(std::vector<std::string> lines)
    {
        beginResetModel();
        lines_ = std::move(lines);
        endResetModel();
    }

    void append(std::string line)
    {
        const int row = rowCount({});
        beginInsertRows({}, row, row);
        lines_.push_back(std::move(line));
        endInsertRows();
    }

    void remove(int row)
    {
        beginRemoveRows({}, row, row);
        lines_.erase(lines_.begin() + row);
        endRemoveRows();
    }

    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(lines_.size());
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        constexpr std::size_t enough = 1000; // bytes, more than a shortened line shows
        if (role != Qt::DisplayRole) {
            return {};
        }
        const std::string_view line = lines_[static_cast<std::size_t>(index.row())];
        return shortened(shown(line.substr(0, enough)));
    }

private:
    std::vector<std::string> lines_;
};

LineList::LineList(QWidget* parent)
    : QListView(parent)
    , model_(new Lines(this))
{
    setModel(model_);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
}

void LineList::clear()
{
    model_->replace({});
}

void LineList::appendLine(std::string line)
{
    model_->append(std::move(line));
}

void LineList::setLines(std::vector<std::string> lines)
{
    if (lines == model_->all()) {
        return clearSelection(); // the keys go on where they were
    }
    model_->replace(std::move(lines));
}

void LineList::removeLine(int row)
{
    model_->remove(row);
}

int LineList::count() const
{
    return model_->rowCount({});
}

const std::vector<std::string>& LineList::lines() const
{
    return model_->all();
}

const std::string& LineList::line(int row) const
{
    return model_->all()[static_cast<std::size_t>(row)];
}

int LineList::selectedRow() const
{
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void LineList::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        rowBeforePress_ = selectedRow();
        QListView::mousePressEvent(event);
    }
}

// A choice counts once the button is up: what it leads to may be a modal box, which would swallow the
// release.
void LineList::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    QListView::mouseReleaseEvent(event);
    const int row = selectedRow();
    if (row >= 0 && (row != rowBeforePress_ || indexAt(event->pos()).row() == row)) {
        Q_EMIT chosen(row);
    }
}

void LineList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        QListView::mouseDoubleClickEvent(event);
        Q_EMIT opened();
    }
}

void LineList::keyPressEvent(QKeyEvent* event)
{
    const int row = selectedRow();
    const bool isArrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (isEnter(event) || (isSpace(event) && row >= 0)) {
        if (row >= 0 && !event->isAutoRepeat()) {
            choose(row, isEnter(event));
        }
        return;
    }
    if (row < 0 && isArrow && currentIndex().row() <= 0) {
        setCurrentIndex(model_->index(0)); // the first step into a list leads to its first line
    } else {
        QListView::keyPressEvent(event);
    }
    if (stepsChoose_ && selectedRow() >= 0 && selectedRow() != row) {
        choose(selectedRow(), false);
    }
}

/// Reports a line, and leaves the keys there even if that gave the list its lines anew.
void LineList::choose(int row, bool open)
{
    const QPointer<LineList> self(this); // what a line leads to may close the view
    Q_EMIT chosen(row);
    if (self && open) {
        Q_EMIT opened();
    }
    if (self && selectedRow() < 0 && row < count()) {
        setCurrentIndex(model_->index(row));
    }
}
