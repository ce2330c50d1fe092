/// The ways from one view to another. Views know each other through this alone; the main window keeps it.
#pragma once

#include <string>

class View;

class Workspace
{
public:
    Workspace() = default;
    virtual ~Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    // The views of which there is one: made when it is missing, shown and made the active view.
    virtual void showAcc() = 0;
    virtual void showNouvprojet() = 0;
    virtual void showOpenp() = 0;
    virtual void showControlpanel() = 0;
    virtual void showVar() = 0;
    virtual void showGameoptions() = 0;

    virtual void hideAcc() = 0;

    /// Opens a map, by its MapNumberText, in a new map editor view beside the control panel.
    virtual void openMap(const std::string& mapNumber) = 0;
    virtual void openCombateditor() = 0;

    /// Moves a view's window to the top-left corner of the work area.
    virtual void placeTopLeft(View& view) = 0;
    /// Width of the control panel's window in pixels, 0 while there is none.
    virtual int controlPanelWidth() const = 0;
    /// Ends the program at once, asking nothing.
    virtual void endProgram() = 0;
};
