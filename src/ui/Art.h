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
// A picture of the program's icon theme (Papirus, the same on every desktop), by its
// freedesktop name ("document-save"), cote pixels square: the drawing of the actions
// set when it has one; the program's logo when the theme lacks the name.
QPixmap iconeTheme(const QString &nom, int cote);
// Draws the picture stretched over rect; false when the art is missing.
bool dessiner(QPainter &p, const QString &nom, const QRectF &rect);

}  // namespace Art
