#pragma once
// The owner-drawn menus: what is global to every window that uses them. A window is
// attached once; from then on each QMenu it owns is prepared as it is about to show
// (its actions become records of cMenuItems), measured and painted by the engine's own
// style, and its choices are told apart from the application's commands.
//
// Qt has no window procedure to replace: the moments of a menu's life are the menu's
// own signals (about to show, hovered, triggered, about to hide) and the window's
// destruction, caught by one event filter and a few connections.

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <QStringList>

class ListeImages;
class QFontMetrics;
class QImage;
class QMenu;
class QPainter;
class QWidget;
class cTips;
class cMenuItems;

namespace modMenus {

// Attaches the engine to a window, or, for a window already attached, changes only
// whether it counts as menu-less (mode 3 has a menu, 4 and 5 are menu-less). The
// absolute value of mode is used; 1 names a container whose first tool bar child holds
// the menus. imageList is what IMG:i references read; tipReceiver may be null.
void AttacherMenus(QWidget *fenetre, const ListeImages *imageList, cTips *tipReceiver, int mode);

// The four drawing options, set before attaching.
void ChoisirSoulignement(bool actif);  // the selected item's text underlined
void ChoisirDegrade(bool actif);       // the selected item's back in a gradient
void ChoisirRelief(bool actif);        // no raised box round the image of a hovered item
void ChoisirBarreAuto(bool actif);     // the image column in the menu colour, two layers when selected
bool Soulignement();
bool DegradeActif();
bool Relief();
bool BarreAuto();

// The menu font's family, read once from the application.
QString PoliceMenus();

// The font cache: slot 1 the menu font, 2 bold, 3 reduced (bar titles), 4 and 5 the
// underlined 1 and 2, 6 a named font and 7 the same underlined. Made at the first
// attachment, freed with the last attached window.
const QFont &PolicesMenus(int slot);
bool policesCreees();
// Slot 6 (and 7) made for the named font, unless it already is.
void PoliceNommee(const QString &nom);

// The object of an attached window, or null.
cMenuItems *objetFenetre(const QWidget *fenetre);
int nombreFenetresAttachees();

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

// Splits the lines of a sidebar's text. Every "<br!>" of the last line always breaks.
// Past the first pass, the first "<br>" found breaks, or failing that the blank
// nearest the middle of the first line wider than largeurMax - 6 (its end without a
// blank); nothing found gives the empty text. The answer is the lines joined by CR LF,
// "<br>" and "<br0>" shown as blanks.
QString ComposerLignes(QStringList &lignes, bool premierePasse, const QFontMetrics &mesures, int largeurMax);

// The default of a sidebar that has neither picture nor text.
QString barreParDefaut();

}  // namespace modMenus

// For cMenuItems: the menu is drawn by the engine from now on, its sidebar band, when
// it has one, margeGauche pixels wide along its left edge.
namespace modMenus {
void preparerAffichage(QMenu *menu, int margeGauche);
// A submenu made by the engine is followed through its life like the window's own.
void suivreMenu(QMenu *menu);
}  // namespace modMenus
