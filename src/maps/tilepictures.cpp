#include "maps/tilepictures.h"

#include <map>
#include <QBuffer>
#include <QImageReader>

namespace
{

QImage loaded(const Path& path)
{
    constexpr int largest = 1024;
    std::string bytes;
    if (platform::readFile(path, bytes)) {
        return {}; // what the store would not read (a pipe, say) is no picture either
    }
    QByteArray content = QByteArray::fromStdString(bytes);
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (size.width() > largest || size.height() > largest) {
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
