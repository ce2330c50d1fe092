#include "maps/tilepictures.h"

#include "toolkit/paths.h"

#include <map>
#include <QImageReader>

namespace
{

QImage loaded(const Path& path)
{
    constexpr int largest = 1024;
    QImageReader reader(qtPath(path));
    const QSize size = reader.size();
    if (path.empty() || size.width() > largest || size.height() > largest) {
        return {};
    }
    return reader.read().convertToFormat(QImage::Format_RGB32);
}

} // namespace

const QImage& tilePicture(const Path& path)
{
    static std::map<Path, QImage> pictures;
    const auto known = pictures.find(path);
    return known != pictures.end() ? known->second : pictures.emplace(path, loaded(path)).first->second;
}
