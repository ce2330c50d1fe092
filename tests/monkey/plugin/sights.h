/// What the random user sees: the windows and controls that are there to be used.
#pragma once

#include <filesystem>
#include <QJsonObject>
#include <QJsonValue>
#include <QPointer>
#include <QWidget>

/// The program's main window; null before it is made and once it is gone.
QWidget* mainWindow();

/// The topmost shown view of a name; null when there is none.
QWidget* findView(const QString& name);

/// The name of the project that is open, as the control panel tells it; empty without that view.
std::filesystem::path openProject();

/// Whether a box or a menu waits for its answer.
bool isBoxOpen();

class Sights
{
public:
    /// All that can be seen now: "popup" and "box" when there is one, "views", the lowest first, and "main",
    /// each a scene with its number, name and controls; and the name of the "project". A control has a
    /// number, the kind of its use, its name, that of its parent and how many rows it lists.
    QJsonObject look();

    /// What has a number in the last look, or is named: "menu", or "box" or a view, and below it what has
    /// each name or class in turn, as in "mapeditor/Frame2/Text1". Null when it is gone.
    QWidget* find(const QJsonValue& control) const;

private:
    int note(QWidget* widget);
    QJsonObject describe(QWidget* scene);

    QList<QPointer<QWidget>> seen_;
};

/// What a person does with titles and scroll bars to reach a control that cannot be seen whole.
void bringIntoSight(QWidget* control);
