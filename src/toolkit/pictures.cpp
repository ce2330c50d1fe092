#include "toolkit/pictures.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace
{

/// Draws a picture so that it covers the place, its middle in the place's middle.
QPixmap covering(const QString& name, QSize place, qreal pixelRatio)
{
    QPixmap picture(place * pixelRatio);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QSvgRenderer renderer(u":/pictures/"_s + name + u".svg"_s);
    const QSizeF whole = QSizeF(renderer.defaultSize()).scaled(place, Qt::KeepAspectRatioByExpanding);
    QRectF target(QPointF(), whole);
    target.moveCenter(QRectF(QPointF(), place).center());
    QPainter painter(&picture);
    renderer.render(&painter, target);
    return picture;
}

} // namespace

QPixmap programPicture(const QString& name, int size)
{
    return covering(name, {size, size}, qApp->devicePixelRatio());
}

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {32, 64}) {
        icon.addPixmap(covering(u"questforge"_s, {size, size}, 1));
    }
    return icon;
}

Scene::Scene(const QString& name, QSize smallest, QWidget* parent)
    : QLabel(parent)
    , name_(name)
    , smallest_(smallest)
{
}

void Scene::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    draw();
}

void Scene::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    if (isVisible()) { // before, the place may still change
        draw();
    }
}

void Scene::draw()
{
    setPixmap(covering(name_, size(), devicePixelRatio()));
}
