#pragma once
// The program's artwork, drawn as SVG under resources/art and rendered at the size asked.

#include <QPixmap>
#include <QString>

class QPainter;
class QRectF;

namespace Art {

// The picture name ("enteteh", "ok", ...) rendered at size; a null pixmap when the art is missing.
QPixmap pixmap(const QString &nom, const QSize &taille);
// Same picture, made lighter and warmer, for the hover state of picture buttons.
QPixmap eclaircie(const QPixmap &source);
// Draws the picture stretched over rect; false when the art is missing.
bool dessiner(QPainter &p, const QString &nom, const QRectF &rect);

}  // namespace Art
