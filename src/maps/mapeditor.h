/// The map editor view: one map of the project it was loaded from, painted by clicks and saved after each.
#pragma once

#include "events/eventmarks.h"
#include "events/eventpanel.h"
#include "maps/gridpicture.h"
#include "maps/mapmodel.h"
#include "maps/undo.h"
#include "toolkit/view.h"

#include <array>
#include <string>

class CutLabel;
class GridOverlay;
class PressLabel;
class QTimer;
class TilePalette;

class mapeditor : public View, private EventPanelHost
{
    Q_OBJECT

public:
    explicit mapeditor(Workspace& workspace);

    /// What a view does once when it comes into being: makes map 01 when the project has no map, loads map
    /// 01, takes its place beside the control panel and loads it once more.
    void open();
    /// Writes the map field, the MapNumberText of the map to load.
    void setMapField(const std::string& mapNumber);
    /// Another view may have saved an event meanwhile: marks and words are read anew.
    void activated() override;

    /// Loads and draws the map that the map field names; the view then belongs to the current project. A
    /// missing or empty map file is reported, and the grid keeps what it holds. While no project is open
    /// nothing is loaded.
    void loadmap();
    /// Writes the held map's files and its name. Nothing is written while its project is not current, while
    /// a file of it could not be read, nor after a failed load while the hero's start is no number. In a map
    /// that was found such a start is saved as 1.
    void savemap();
    /// Draws rows 1 to 8 from the model, in the tileset that the descriptor names at this moment.
    void drawmap();

private:
    enum class Mode { Picture, Blocks, Event };

    // The look of the view (mapeditor_layout.cpp).
    void buildGrid();
    void buildPalette();
    void buildConfiguration();
    void buildModes();
    void buildStart();
    void buildSizes();
    void buildMenus();
    void buildMapChooser();
    void buildTilesets();
    void addToolTips();
    void connectButtons();
    void connectChoosers();
    void fitSurface(bool withPanel);

    void Timer1_Timer();
    /// Why nothing is saved though the project is open, for the author to read; empty when there is no
    /// reason.
    QString hindrance() const;

    // Clicks and the configuration frame (mapeditor_painting.cpp).
    void CarteImg_MouseDown(int x, int y);
    void placeStart(Cell cell);
    bool apply(Cell cell);
    Mode mode() const;
    void Choixtext_Change();
    void Image5_Click();
    void Command9_Click();
    void Command10_Click();
    void HScroll5_Change();
    void HScroll6_Change();
    void refreshChooser(const std::string& tileset);
    void showTile();

    // Marks and words about the grid (mapeditor_marks.cpp).
    void connectMarks();
    void CarteImg_Pointed(Cell cell);
    void CarteImg_Walked();
    void palette_Picked(int tile);
    /// The cells with an event; read when they are asked for, until something may have changed them.
    const CellSet& events();
    /// Row 0 when the labels name no cell.
    Cell startCell() const;
    QString words(Cell cell);
    void showMarks();
    /// Shows marks and the words at the foot.
    void showWords();
    /// Shows what became of the map: marks, words, and for screen readers.
    void showChange();
    /// Shows a message at the foot until something else is to be told there.
    void say(const QString& text);

    // Undo (mapeditor_undo.cpp).
    void connectUndo();
    HeroStart heroStart() const;
    std::string historyKey() const;
    StepRecorder recordClick() const;
    StepRecorder recordReset() const;
    /// Ends what changed the map: shows it and remembers it as a step of this name.
    void keepStep(const StepRecorder& recorder, std::string name);
    void sayRemembered(Remembered remembered);
    void undo();
    void redo();
    void takeStep(UndoResult (UndoHistory::*take)(std::string_view, MapModel&, HeroStart&),
                  const QString& word);
    /// Whether "Load map" would show the map as it is shown.
    bool showsItsFiles() const;
    void sayOutcome(const UndoResult& result, const QString& word);

    // Maps and tilesets (mapeditor_maps.cpp).
    void Command4_Click();
    void Command6_Click();
    void Command5_Click();
    void Command1_Click();
    void HScroll1_Change();
    void Command11_Click();
    void HScroll2_Change();
    void Command14_Click();
    void newMap();

    // What the event panel asks of its view.
    const std::string& heldMap() const override { return currentMap_; }
    bool ownsProject() const override;
    void showPanel(bool shown) override;
    void enablePicture(bool enabled) override;
    void setModeMark(const QString& mark) override;
    void saveEvent(int row, int column, const std::vector<std::string>& lines) override;

    /// Whether the map's project is not the current one. Says then that the map was not what `word` tells.
    bool isForeign(const QString& word);
    /// Whether an event is open that would become another project's by a load. Says so then.
    bool keepsForeignEvent();
    std::string mapField() const;
    /// The tileset number of the map in the map field, as the descriptor has it.
    std::string tilesetKey() const;

    MapModel map_;
    std::string currentMap_;     ///< MapNumberText of the map held; empty before the first load
    bool mapFound_ = false;      ///< whether the last load found a map file
    bool unreadable_ = false;    ///< whether it met a file that it could not read
    std::string project_;        ///< the project that the map held was loaded from
    std::string chooserTileset_; ///< the tileset that the tile chooser shows

    UndoHistory history_;           ///< of every map that the view held
    bool toldForgetting_ = false;   ///< whether the author knows that the oldest steps went
    Cell pointed_;                  ///< the cell under the pointer
    Cell told_;                     ///< the cell whose words stand at the foot
    Cell openCell_;                 ///< the cell that the event panel was opened for last
    std::optional<CellSet> events_; ///< see events()

    GridPicture* CarteImg = nullptr;
    GridOverlay* overlay_ = nullptr;
    QLabel* footLine_ = nullptr;
    TilePalette* palette_ = nullptr;
    ScrollBar* HScroll4 = nullptr;
    ScrollBar* VScroll1 = nullptr;
    QTimer* Timer1 = nullptr;
    EventPanel* Frame6 = nullptr;

    QGroupBox* Frame2 = nullptr;
    std::array<QRadioButton*, 3> Option1 = {};
    ScrollBar* Choixtext = nullptr;
    PressLabel* Image5 = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* Label5 = nullptr;
    QPushButton* Command9 = nullptr;
    QLineEdit* Text1 = nullptr;
    QLabel* Label15 = nullptr;
    QLabel* Label16 = nullptr;
    ScrollBar* HScroll5 = nullptr;
    ScrollBar* HScroll6 = nullptr;
    QPushButton* Command11 = nullptr;
    QPushButton* Command10 = nullptr;

    QPushButton* Command4 = nullptr;
    QGroupBox* Frame3 = nullptr;
    QPushButton* Command6 = nullptr;
    QPushButton* Command5 = nullptr;

    QGroupBox* Frame1 = nullptr;
    QLabel* Label1 = nullptr;
    CutLabel* Label3 = nullptr;
    ScrollBar* HScroll1 = nullptr;
    QPushButton* Command1 = nullptr;

    QGroupBox* Frame4 = nullptr;
    ScrollBar* HScroll2 = nullptr;
    std::array<QLabel*, 4> previews_ = {}; ///< Image1 to Image4
    QPushButton* Command14 = nullptr;
};
