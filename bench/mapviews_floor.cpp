// The least program with map views: each a canvas of cached tiles, and a timer that reads the map's key and
// draws when it has changed. mapviews_floor APPDIR COUNT.
#include "floors.h"
#include "maps/mapmodel.h"

#include <cstdlib>
#include <fcntl.h>
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPainter>
#include <QTimer>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

constexpr QSize tileSize(28, 29);

class Canvas : public QWidget
{
public:
    Canvas(const Path& appDir, int number)
        : descriptor_(appDir / "projets/demo/projet.ini")
        , section_("Carte0" + std::to_string(number))
    {
        const QString tiles = QString::fromStdString(appDir / "data/images/terrains/terrain01/terrain0");
        for (int tile = 1; tile <= 10; ++tile) {
            tiles_.emplace_back(tiles + QString::number(tile) + u".JPG"_s);
        }
        setFixedSize(picture_.size());
        setAttribute(Qt::WA_OpaquePaintEvent);
        auto* timer = new QTimer(this);
        timer->callOnTimeout(this, [this] { tick(); });
        timer->start(100);
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(0, 0, picture_); }

private:
    void tick()
    {
        buffer_.clear();
        buffer_.appendFile(AT_FDCWD, descriptor_.c_str());
        const std::string_view tileset = floors::valueOf(buffer_.text(), section_, "texture");
        if (tileset != tileset_) {
            tileset_ = tileset;
            draw();
            update();
        }
    }

    void draw()
    {
        QPainter painter(&picture_);
        for (int slot = 0; slot < MapModel::rows * MapModel::columns; ++slot) {
            painter.drawImage(slot % MapModel::columns * tileSize.width(),
                              slot / MapModel::columns * tileSize.height(),
                              tiles_[static_cast<std::size_t>(slot * 7 % 10)]);
        }
    }

    Path descriptor_;
    std::string section_;
    std::string tileset_;
    floors::Buffer buffer_;
    std::vector<QImage> tiles_;
    QImage picture_{481, 249, QImage::Format_RGB32};
};

} // namespace

int main(int count, char** arguments)
{
    const QApplication application(count, arguments);
    if (count != 3) {
        return 2;
    }
    QMainWindow window;
    auto* area = new QMdiArea(&window);
    for (int view = 0; view < std::atoi(arguments[2]); ++view) {
        area->addSubWindow(new Canvas(arguments[1], 1 + view % 2));
    }
    window.setCentralWidget(area);
    window.resize(1280, 720); // the tool's opening size: both pay for as many pixels
    window.show();
    return QApplication::exec();
}
