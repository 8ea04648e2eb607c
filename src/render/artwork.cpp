#include "render/artwork.h"

#include <QPainter>
#include <QSvgRenderer>

namespace tarvelle {

QPixmap PixmapFromSvg(const QString& resource, int side, qreal devicePixelRatio) {
    QSvgRenderer renderer(resource);
    if (!renderer.isValid()) return {};
    const int pixels = qRound(side * devicePixelRatio);
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QIcon IconFromSvg(const QString& resource) {
    QIcon icon;
    for (int side : {24, 32, 48, 64}) {
        const QPixmap pixmap = PixmapFromSvg(resource, side);
        if (!pixmap.isNull()) icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace tarvelle
