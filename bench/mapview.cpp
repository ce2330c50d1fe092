// A real map editor view, in a main window that no screen shows.
#include "app/Mainform.h"
#include "contest.h"
#include "contests.h"
#include "floors.h"
#include "maps/mapeditor.h"
#include "maps/maplist.h"
#include "maps/tilepictures.h"
#include "maps/tileset.h"
#include "store/store.h"
#include "toolfolder.h"
#include "toolkit/scrollbar.h"

#include <fcntl.h>
#include <memory>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

constexpr QSize tileSize(28, 29);
constexpr int tilesetTiles = 10;

std::vector<QImage> tilePictures()
{
    std::vector<QImage> pictures;
    for (int tile = 1; tile <= tilesetTiles; ++tile) {
        pictures.push_back(tilePicture(TilePicture("01", tile)));
        if (pictures.back().size() != tileSize) {
            throw std::runtime_error("a tile picture is missing");
        }
    }
    return pictures;
}

/// The least drawing: every cell's picture is at hand and goes to its place.
struct LeastPicture {
    QImage canvas{481, 249, QImage::Format_RGB32};
    std::vector<QImage> pictures = tilePictures();
    std::size_t first = 0;

    void draw()
    {
        ++first;
        QPainter painter(&canvas);
        for (int row = 1; row <= MapModel::rows; ++row) {
            for (int column = 1; column <= MapModel::columns; ++column) {
                const auto tile = (static_cast<std::size_t>(slotOf(row, column)) * 7 + first) % tilesetTiles;
                painter.drawImage((column - 1) * tileSize.width(), (row - 1) * tileSize.height(),
                                  pictures[tile]);
            }
        }
    }
};

MapModel modelOf(const std::string& number)
{
    MapModel map;
    map.read(ReadWholeFile(MapFile(number)), ReadWholeFile(BlockFile(number)));
    return map;
}

/// A project whose map 01 a view shows.
struct MapView {
    ToolFolder folder;
    Mainform window;
    mapeditor* view = nullptr;
    GridPicture* picture = nullptr;
    floors::Buffer buffer;

    MapView()
    {
        folder.makeProject();
        window.show();
        window.openMap("01");
        view = window.findChild<mapeditor*>();
        picture = view->findChild<GridPicture*>();
        QApplication::processEvents();
    }

    template <class Control> Control* control(const QString& name) const
    {
        return view->findChild<Control*>(name);
    }
};

/// Seconds of a job; what it leaves to the event loop (showing the picture on the screen) is done untimed.
template <class Job> double secondsAndSettle(Job job)
{
    const double seconds = secondsOf(1, job);
    QApplication::processEvents();
    return seconds;
}

Contestants redraw()
{
    const auto shown = std::make_shared<MapView>();
    const auto least = std::make_shared<LeastPicture>();
    const std::array maps = {modelOf("01"), modelOf("02")};
    auto turn = std::make_shared<std::size_t>(0);
    return {[=] {
                return secondsAndSettle([&] {
                    shown->picture->draw(maps[++*turn % maps.size()], "01", GridPicture::MarkPlace::Inset);
                });
            },
            {[=] { return secondsOf(1, [&] { least->draw(); }); }}};
}

Contestants tick()
{
    constexpr int calls = 50;
    const auto shown = std::make_shared<MapView>();
    const Path descriptor = Descriptor();
    shown->view->drawmap();
    const auto least = [=] {
        shown->buffer.clear();
        shown->buffer.appendFile(AT_FDCWD, descriptor.c_str());
        if (floors::valueOf(shown->buffer.text(), "Carte01", "texture") != "01") {
            throw std::runtime_error("the floor reads another tileset");
        }
    };
    return {[=] { return secondsOf(calls, [&] { shown->view->drawmap(); }); },
            {[=] { return secondsOf(calls, least); }}};
}

void pressCell(QWidget* picture, int row, int column)
{
    const QPointF place(column * tileSize.width() - 1, row * tileSize.height() - 1);
    QMouseEvent press(QEvent::MouseButtonPress, place, picture->mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(picture, &press);
}

/// Paints one cell after the other, in another tile at each pass.
class Painter
{
public:
    explicit Painter(const MapView& shown)
        : picture_(shown.picture)
        , tile_(shown.control<ScrollBar>(u"Choixtext"_s))
    {
    }

    /// Seconds of one click, which paints something new.
    double click()
    {
        const int cell = clicks_ % (MapModel::rows * MapModel::columns);
        const int pass = clicks_++ / (MapModel::rows * MapModel::columns);
        tile_->setValue(1 + (cell * 7 + pass + 1) % tilesetTiles);
        return secondsAndSettle(
            [&] { pressCell(picture_, cell / MapModel::columns + 1, cell % MapModel::columns + 1); });
    }

private:
    GridPicture* picture_;
    ScrollBar* tile_;
    int clicks_ = 0;
};

void checkThatItSaves(Painter& painter)
{
    const std::string before = ReadWholeFile(MapFile("01"));
    painter.click();
    if (ReadWholeFile(MapFile("01")) == before) {
        throw std::runtime_error("a click changes nothing on disk");
    }
}

/// Replaces copies of files by what they hold.
Run leastWrites(const std::vector<Path>& files)
{
    std::vector<std::pair<Path, std::string>> copies;
    copies.reserve(files.size());
    for (const Path& file : files) {
        copies.emplace_back(file.string() + ".least", ReadWholeFile(file));
    }
    return [=] {
        return secondsOf(1, [&] {
            for (const auto& [copy, content] : copies) {
                floors::replaceFile(copy, content);
            }
        });
    };
}

Contestants click()
{
    const auto shown = std::make_shared<MapView>();
    const auto painter = std::make_shared<Painter>(*shown);
    checkThatItSaves(*painter);
    return {[=] {
                static_cast<void>(shown); // the picture that is painted is its
                return painter->click();
            },
            {leastWrites({BlockFile("01"), MapFile("01")})}};
}

Contestants clickAfterRenaming()
{
    const auto shown = std::make_shared<MapView>();
    const auto painter = std::make_shared<Painter>(*shown);
    auto* name = shown->control<QLineEdit>(u"Text1"_s);
    checkThatItSaves(*painter);
    return {[=] {
                static_cast<void>(shown);
                name->setText(name->text() == "Cave"_L1 ? u"Lake"_s : u"Cave"_s);
                return painter->click();
            },
            {leastWrites({Descriptor(), BlockFile("01"), MapFile("01")})}};
}

Contestants load()
{
    const auto shown = std::make_shared<MapView>();
    const auto least = std::make_shared<LeastPicture>();
    const std::array files = {Descriptor(), BlockFile("01"), MapFile("01")};
    auto turn = std::make_shared<int>(0);
    return {[=] {
                shown->view->setMapField(MapNumberText(1 + ++*turn % 2));
                return secondsAndSettle([&] { shown->view->loadmap(); });
            },
            {[=] {
                return secondsOf(1, [&] {
                    for (const Path& file : files) {
                        shown->buffer.clear();
                        shown->buffer.appendFile(AT_FDCWD, file.c_str());
                    }
                    least->draw();
                });
            }}};
}

} // namespace

void addMapView()
{
    addContest("redraw of a changed map", 501, redraw);
    addContest("tick, nothing changed", 301, tick);
    addContest("painted click", 501, click);
    addContest("painted click after renaming the map", 501, clickAfterRenaming);
    addContest("loading a map", 501, load);
}
