/// The pictures that ship with the program: vectors, drawn for the place and the screen where they are shown.
#pragma once

#include <QIcon>
#include <QLabel>

/// A square picture by its file's name without ending; size: device-independent pixels.
QPixmap programPicture(const QString& name, int size);

/// The program's sign, for its windows.
QIcon programIcon();

/// A picture that covers its place, whatever its size, and is cut where it does not fit.
class Scene : public QLabel
{
    Q_OBJECT

public:
    /// name: see programPicture; smallest: the place that it takes at least.
    Scene(const QString& name, QSize smallest, QWidget* parent);

    QSize sizeHint() const override { return smallest_; }
    QSize minimumSizeHint() const override { return smallest_; }

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void draw();

    QString name_;
    QSize smallest_;
};
