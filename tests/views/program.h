/// The program as an author meets it: its main window over a tool folder of its own, driven by mouse and
/// keys.
#pragma once

#include "answers.h"
#include "app/Mainform.h"
#include "appdir.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <QImage>
#include <QWidget>
#include <stdexcept>
#include <string>
#include <vector>

class Program : public testing::Test
{
protected:
    using Reply = Answers::Reply;

    Program();
    void TearDown() override;

    /// The view opened last under this name; thrown when there is none.
    QWidget& view(const char* name) const;
    QWidget* findView(const char* name) const;
    std::vector<QWidget*> views(const char* name) const;
    bool isShown(const char* name) const;

    /// Chooses an existing project in the open-project view; its control panel and map 01 open.
    void openProject(const std::string& name) const;
    void closePanel(Reply reply);
    /// Clicks an entry of the control panel's menu.
    void chooseEntry(int index) const;
    /// Makes a project's window the active one, as a click on its title does.
    void activate(QWidget& someView) const;

    /// A tileset with real tile pictures, each different.
    void addTiles(const std::string& tileset, int count) const;
    QImage tile(const std::string& tileset, int number) const;

    TemporaryAppDir app;
    Answers answers;
    std::unique_ptr<Mainform> mainform = std::make_unique<Mainform>();
};

// Messages that several views lead to.
inline const std::string emptyValue =
    "Erreur : Une donnée de votre jeu n'a pu être chargée , le programme risque d'être instable , il est "
    "conseillé de le redémarrer , si le problème persiste , contacter Marlowe sur le forum de "
    "www.questforge.example/forum";
inline const std::string invalidMap = "Erreur : carte invalide";

/// A control by its name; thrown when the view has none.
template <class Control = QWidget> Control& control(const QWidget& within, const char* name)
{
    if (auto* found = within.findChild<Control*>(QLatin1StringView(name))) {
        return *found;
    }
    throw std::runtime_error(std::string("no control ") + name);
}

/// The text of a label, button, text box or frame, UTF-8.
std::string text(const QWidget& within, const char* name);
void setText(const QWidget& within, const char* name, const std::string& text);
inline bool isVisible(const QWidget& within, const char* name)
{
    return control(within, name).isVisible();
}

/// Clicks a control, which must be visible.
void click(QWidget& control);
inline void click(const QWidget& within, const char* name)
{
    click(control(within, name));
}
/// Presses keys on a control.
void keys(QWidget& control, std::initializer_list<Qt::Key> pressed);
void moveBar(const QWidget& within, const char* name, int value);

/// The lines that a list shows, UTF-8.
std::vector<std::string> lines(const QWidget& within, const char* name);
/// Clicks a line of a list, counted from 0, twice for a double click.
void clickLine(const QWidget& within, const char* name, int row);
void doubleClickLine(const QWidget& within, const char* name, int row);

/// Presses the mouse on the grid of a map editor: at a cell counted from 1, or at a place in twips.
void pressCell(const QWidget& editor, int row, int column);
void pressGrid(const QWidget& editor, int x, int y);
/// Waits for the next periodic redraw.
void awaitRedraw(const QWidget& editor);
/// The picture of a cell as it is on the screen.
QImage cell(const QWidget& editor, int row, int column);

/// Lets the events that are due happen, the removal of closed views among them.
void settle();

/// One cell that differs from the rest of a grid.
struct Dot {
    int row;
    int column;
    char code;
};
/// Rows 1 to 8 of a map or block file: `rest` everywhere but at the dots.
std::string grid(std::initializer_list<Dot> dots = {}, char rest = '0');
/// A map file as the editor saves it, row 9 empty; `start` is column and row of the hero, "0101".
std::string savedMap(const std::string& start, const std::string& rows);
/// A block file likewise.
std::string savedBlocks(const std::string& rows);
