#pragma once
// The painter of the owner-drawn menus: the four drawing options, the font cache,
// the colours, and the drawing of one item, of a gradient, of a 3-D frame.

#include "menus/fenetres/TypesMenus.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QImage;
class QPainter;
class QStyleOptionMenuItem;

namespace modMenus {

// The four drawing options, set before attaching.
void ChoisirSoulignement(bool actif);  // the selected item's text underlined
void ChoisirDegrade(bool actif);       // the selected item's back in a gradient
void ChoisirRelief(bool actif);        // no raised box round the image of a hovered item
void ChoisirBarreAuto(bool actif);     // the image column in the menu colour, two layers when selected
bool Soulignement();
bool DegradeActif();
bool Relief();
bool BarreAuto();
// The last move in the open menu came from the keyboard: a hovered item's picture
// then goes without its raised box.
void definirSurvolClavier(bool clavier);

// The menu font's family, read once from the application.
QString PoliceMenus();

// The font cache: slot 1 the menu font, 2 bold, 3 reduced (bar titles), 4 and 5 the
// underlined 1 and 2, 6 a named font and 7 the same underlined. Made at the first
// use, freed by oublierPolices (with the last attached window).
const QFont &PolicesMenus(int slot);
bool policesCreees();
void preparerPolices();  // made now, the underlined ones too when the option asks for them
void oublierPolices();
// Slot 6 (and 7) made for the named font, unless it already is.
void PoliceNommee(const QString &nom);

// Colours are numbers with red in the low byte; system colours resolved.
QColor versCouleur(int couleur);
int CouleurMenu();  // system colour 4, the menu's back

// Fills rect in bands from colourA to colourB, across for horizontal, downwards
// otherwise (then from B to A). A gradient longer than a fifth of the screen uses
// bands of two pixels.
void Degrade(int couleurA, int couleurB, bool horizontal, QPainter &p, const QRect &rect);
// A 3-D frame: light at the top and left, shadow at the bottom and right when raised;
// the two exchanged when sunken. A rect of height 0 or 1 is a 3-D line.
void Bordure3D(QPainter &p, const QRect &rect, bool raised, int largeur = 1);
// Draws the source scaled into dest (down only, proportions kept, centred), leaving
// out the pixels of couleurMasque; a negative colour means the source's top left pixel.
void DessinerTransparent(QPainter &p, const QRect &dest, const QImage &source, int couleurMasque);

// One item, stage by stage, with the picture it shows (or a null image); a stage that
// fails leaves the item as painted so far. colonne: the width of the menu's image
// column, 16 unless a picture is wider.
void DessinerItem(QPainter &p, const TypeItemMenu &item, const QImage &image, const QStyleOptionMenuItem &opt, int colonne);

}  // namespace modMenus
