// The program's SVG artwork (icons built into the program) as pixmaps and icons.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace tarvelle {

// The picture drawn square at side x side device pixels; null when it cannot be read.
QPixmap PixmapFromSvg(const QString& resource, int side, qreal devicePixelRatio = 1.0);

// An icon with the picture at the sizes buttons and title bars use.
QIcon IconFromSvg(const QString& resource);

} // namespace tarvelle
