/// A folder tree seen from one current folder: its ancestors, itself and its subfolders.
#pragma once

#include <QIcon>
#include <QListWidget>
#include <QString>

class DirectoryList : public QListWidget
{
    Q_OBJECT

public:
    explicit DirectoryList(QWidget* parent);

    /// The current folder, absolute.
    QString path() const { return path_; }
    /// Makes a folder the current one. Failure: false, for a folder that cannot be listed; nothing changes
    /// then.
    bool setPath(const QString& path);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void openSelected();
    void addFolder(const QString& name, const QString& path, int depth);

    QString path_;
    QIcon open_;
    QIcon closed_;
};
