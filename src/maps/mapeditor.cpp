#include "maps/mapeditor.h"

#include "maps/maplist.h"
#include "store/numbers.h"
#include "toolkit/boxes.h"
#include "toolkit/text.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTimer>

using namespace Qt::StringLiterals;

mapeditor::mapeditor(Workspace& workspace)
    : View(workspace, u"mapeditor"_s, u"Map editor"_s)
{
    buildGrid();
    buildConfiguration();
    buildMenus();
    buildMapChooser();
    buildTilesets();
    Frame6 = new EventPanel(*this, workspace, surface());
    fitSurface(false);
    connectButtons();
    connectChoosers();
    connectMarks();
    connectUndo();
    addToolTips();
    Timer1->start();
}

void mapeditor::open()
{
    if (MapCount() == 0) {
        messageBox(this, u"There is no map, a new map will be automatically created"_s);
        newMap();
    }
    Frame3->hide();
    Frame1->hide();
    loadmap();
    if (QMdiSubWindow* frame = frameWindow()) {
        frame->move(workspace().controlPanelWidth(), 0);
    }
    loadmap();
}

void mapeditor::setMapField(const std::string& mapNumber)
{
    Label1->setText(shown(mapNumber));
}

void mapeditor::activated()
{
    events_.reset();
    showWords();
}

std::string mapeditor::mapField() const
{
    return typed(Label1->text());
}

bool mapeditor::ownsProject() const
{
    return !project_.empty() && project_ == CurrentProject();
}

bool mapeditor::isForeign(const QString& word)
{
    if (!ownsProject()) {
        say(u"Not %1: the project of this map is not open."_s.arg(word));
    }
    return !ownsProject();
}

bool mapeditor::keepsForeignEvent()
{
    const bool keeps = project_ != CurrentProject() && !Frame6->isHidden();
    if (keeps) {
        messageBox(this,
                   u"The open event belongs to another project. \"Cancel\" it first, or open that project "
                   "and \"Save\" it."_s);
    }
    return keeps;
}

std::string mapeditor::tilesetKey() const
{
    return ownsProject() ? ReadIni(MapSection(mapField()), "texture", Descriptor()) : std::string();
}

void mapeditor::loadmap()
{
    Frame3->hide();
    Frame1->hide();
    if (CurrentProject().empty()) {
        messageBox(this, u"Erreur : carte invalide"_s, BoxIcon::Stop);
        return; // the view stays its project's, for the time when that is opened again
    }
    if (keepsForeignEvent()) {
        return;
    }
    if (project_ != CurrentProject()) {
        map_ = {}; // a map of another project is never saved as one of this
        project_ = CurrentProject();
    }
    const std::string number = mapField();
    const std::string tileset = tilesetKey();
    const std::string mapText = ReadWholeFile(MapFile(number));
    const std::string blockText = ReadWholeFile(BlockFile(number));
    Text1->setText(shown(MapName(number)));
    Text1->setCursorPosition(0); // a long name is to be seen from its beginning
    Label4->setText(shown(HeroStartColumn(mapText)));
    Label5->setText(shown(HeroStartRow(mapText)));
    currentMap_ = number;
    mapFound_ = !mapText.empty();
    unreadable_ = (mapText.empty() && IsUnreadable(MapFile(number))) ||
                  (blockText.empty() && IsUnreadable(BlockFile(number)));
    events_.reset();
    if (!mapFound_) {
        showChange();
        messageBox(this, u"Erreur : carte invalide"_s, BoxIcon::Stop);
        return;
    }
    map_.read(mapText, blockText);
    refreshChooser(tileset);
    CarteImg->draw(map_, tileset, GridPicture::MarkPlace::Corner);
    showChange();
}

QString mapeditor::hindrance() const
{
    if (unreadable_) {
        return u"a file of this map cannot be read. Mend it and load the map again."_s;
    }
    const bool startMissing = !CountFrom(typed(Label4->text())) || !CountFrom(typed(Label5->text()));
    if (!mapFound_ && startMissing) {
        return u"the file of this map is missing or empty. \"Change\" the hero's start to make it anew."_s;
    }
    return {};
}

void mapeditor::savemap()
{
    Frame3->hide();
    if (!ownsProject() || currentMap_.empty() || !hindrance().isEmpty()) {
        return;
    }
    const int startColumn = CountFrom(typed(Label4->text())).value_or(1);
    const int startRow = CountFrom(typed(Label5->text())).value_or(1);
    WriteIni(MapSection(currentMap_), "nom", typed(Text1->text()), Descriptor());
    WriteWholeFile(BlockFileText(map_), BlockFile(currentMap_));
    WriteWholeFile(MapFileText(map_, startColumn, startRow), MapFile(currentMap_));
}

void mapeditor::drawmap()
{
    if (!ownsProject()) {
        return; // the picture keeps what it holds until the map's project is current again
    }
    const std::string tileset = tilesetKey();
    if (!tileset.empty() && tileset != chooserTileset_) {
        refreshChooser(tileset); // another view changed the map's tileset
    }
    CarteImg->draw(map_, tileset, GridPicture::MarkPlace::Inset);
}

void mapeditor::Timer1_Timer()
{
    if (QApplication::activeModalWidget() == nullptr) { // what waits for a box is drawn when it has ended
        drawmap();
    }
}

void mapeditor::showPanel(bool shown)
{
    fitSurface(shown);
    fitWindow();
    showWords();
}

void mapeditor::enablePicture(bool enabled)
{
    CarteImg->setEnabled(enabled);
    if (enabled) {
        CarteImg->setFocus(); // what it was enabled for is a click on it
    }
}

void mapeditor::setModeMark(const QString& mark)
{
    setTag(CarteImg, mark);
}
