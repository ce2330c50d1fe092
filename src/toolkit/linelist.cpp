#include "toolkit/linelist.h"

#include "toolkit/text.h"

#include <QKeyEvent>

namespace
{

constexpr int wholeLine = Qt::UserRole;

QListWidgetItem* itemOf(const std::string& line)
{
    auto* item = new QListWidgetItem(shortened(shown(std::string_view(line).substr(0, 1000))));
    item->setData(wholeLine, QByteArray::fromStdString(line));
    return item;
}

} // namespace

LineList::LineList(QWidget* parent)
    : QListWidget(parent)
{
    setUniformItemSizes(true);
}

void LineList::appendLine(const std::string& line)
{
    addItem(itemOf(line));
}

void LineList::setLines(const std::vector<std::string>& lines)
{
    clear();
    for (const std::string& line : lines) {
        appendLine(line);
    }
}

std::vector<std::string> LineList::lines() const
{
    std::vector<std::string> result;
    result.reserve(static_cast<std::size_t>(count()));
    for (int row = 0; row < count(); ++row) {
        result.push_back(line(row));
    }
    return result;
}

std::string LineList::line(int row) const
{
    return item(row)->data(wholeLine).toByteArray().toStdString();
}

int LineList::selectedRow() const
{
    const QList<QListWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? -1 : row(selected.first());
}

void LineList::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        rowBeforePress_ = selectedRow();
        QListWidget::mousePressEvent(event);
    }
}

// A choice counts once the button is up: what it leads to may be a modal box, which would swallow the
// release.
void LineList::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    QListWidget::mouseReleaseEvent(event);
    const int row = selectedRow();
    if (row >= 0 && (row != rowBeforePress_ || item(row) == itemAt(event->pos()))) {
        Q_EMIT chosen(row);
    }
}

void LineList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        QListWidget::mouseDoubleClickEvent(event);
        Q_EMIT opened();
    }
}

void LineList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (selectedRow() >= 0) {
            Q_EMIT opened();
        }
        return;
    }
    const int before = selectedRow();
    if (before < 0 && (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)) {
        setCurrentRow(0); // the first step into a list leads to its first line
    } else {
        QListWidget::keyPressEvent(event);
    }
    if (selectedRow() != before && selectedRow() >= 0) {
        Q_EMIT chosen(selectedRow());
    }
}
