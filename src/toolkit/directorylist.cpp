#include "toolkit/directorylist.h"

#include "toolkit/keys.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QStringList>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace
{

constexpr int folderPath = Qt::UserRole;

/// A folder and those that it lies in, the outermost first.
QStringList withAncestors(const QString& path)
{
    QStringList folders{path};
    QDir folder(path);
    while (folder.cdUp()) {
        folders.prepend(folder.absolutePath());
    }
    return folders;
}

/// Looks the same on a line that is selected, where the style would tint it with the ground's own colour.
QIcon untinted(const QIcon& icon, const QSize& size)
{
    QIcon same;
    for (const auto mode : {QIcon::Normal, QIcon::Selected}) {
        same.addPixmap(icon.pixmap(size), mode);
        same.addPixmap(icon.pixmap(size * 2), mode); // for screens of a larger scale
    }
    return same;
}

} // namespace

DirectoryList::DirectoryList(QWidget* parent)
    : QListWidget(parent)
{
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    setIconSize({side, side});
    open_ = untinted(style()->standardIcon(QStyle::SP_DirOpenIcon), iconSize());
    closed_ = untinted(style()->standardIcon(QStyle::SP_DirIcon), iconSize());
    setUniformItemSizes(true);
}

bool DirectoryList::setPath(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isDir() || !info.isReadable()) {
        return false;
    }
    path_ = QDir(path).absolutePath();
    clear();
    int depth = 0;
    for (const QString& folder : withAncestors(path_)) {
        const QString name = QFileInfo(folder).fileName();
        addFolder(name.isEmpty() ? folder : name, folder, depth++);
    }
    setCurrentRow(count() - 1);
    const QStringList inner = QDir(path_).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot,
                                                    QDir::Name | QDir::IgnoreCase | QDir::LocaleAware);
    for (const QString& name : inner) {
        addFolder(name, QDir(path_).filePath(name), depth);
    }
    scrollToItem(currentItem(), QAbstractItemView::PositionAtTop);
    return true;
}

void DirectoryList::addFolder(const QString& name, const QString& path, int depth)
{
    constexpr int stepsShown = 8; // deeper folders would leave no room for their names
    const QString indent = u"  "_s.repeated(std::min(depth, stepsShown));
    auto* item = new QListWidgetItem(path_.startsWith(path) ? open_ : closed_, indent + name);
    item->setData(folderPath, path);
    item->setData(Qt::AccessibleTextRole, path);
    addItem(item);
}

void DirectoryList::openSelected()
{
    if (const QListWidgetItem* item = currentItem()) {
        setPath(item->data(folderPath).toString());
    }
}

void DirectoryList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (itemAt(event->pos()) != nullptr) {
        openSelected();
    }
}

void DirectoryList::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(event)) {
        return openSelected();
    }
    QListWidget::keyPressEvent(event);
}

void DirectoryList::showEvent(QShowEvent* event)
{
    QListWidget::showEvent(event);
    setPath(path_); // folders may have come and gone while nobody looked
}
