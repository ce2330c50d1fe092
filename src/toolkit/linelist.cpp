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
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Q_EMIT chosen(row(item)); });
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

void LineList::mouseDoubleClickEvent(QMouseEvent* event)
{
    QListWidget::mouseDoubleClickEvent(event);
    Q_EMIT opened();
}

void LineList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT opened();
        return;
    }
    const int before = selectedRow();
    QListWidget::keyPressEvent(event);
    if (selectedRow() != before && selectedRow() >= 0) {
        Q_EMIT chosen(selectedRow());
    }
}
