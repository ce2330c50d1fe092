/// A project with one map, and what an author does again and again in its map editor.
#pragma once

#include "program.h"

#include "toolkit/scrollbar.h"

class MapView : public Program
{
protected:
    MapView()
    {
        addTiles("01", 10);
        app.makeProject();
    }

    /// Opens the project; `map` is its view of map 01 from now on.
    void open()
    {
        openProject("demo");
        map = &view("mapeditor");
    }

    void newMap() const
    {
        click(*map, "Command4");
        click(*map, "Command5");
    }
    /// Loads the map that the map field names.
    void load() const
    {
        click(*map, "Command4");
        click(*map, "Command6");
        click(*map, "Command1");
    }
    /// Presses beside the cells, which saves the map as it is.
    void saveMap() const { pressGrid(*map, 7150, 100); }
    void askForStart()
    {
        answers.message("Click the box to the starting position of the hero on this map");
        click(*map, "Command9");
    }
    void reset(Reply reply = Reply::Yes)
    {
        answers.question(" Are you sure you want to return the card to zero?", reply);
        click(*map, "Command10");
    }
    void chooseTile(int number) const { moveBar(*map, "Choixtext", number); }

    /// What the files of the map hold.
    std::string tiles(const std::string& number = "01") const
    {
        return app.read("projets/demo/map" + number + ".map");
    }
    std::string blocks() const { return app.read("projets/demo/map01.ev"); }
    static void setCount(const std::string& count) { WriteIni("Jeu", "cartes", count, Descriptor()); }

    std::string foot() const { return text(*map, "FootLine"); }
    std::string start() const { return text(*map, "Label4") + ' ' + text(*map, "Label5"); }
    int bound(const char* bar) const { return control<ScrollBar>(*map, bar).maximum(); }

    /// What an action changes below the tool folder; empty when nothing.
    template <class Action> std::string changes(const Action& action) const
    {
        const Snapshot before = app.snapshot();
        action();
        return Changes(before, app.snapshot());
    }

    QWidget* map = nullptr;
};
