#pragma once
// The sidebar of the owner-drawn menus: its text split into lines, and the band
// rendered from a picture or a text, at the height of the menu's first column.

#include "menus/fenetres/TypesMenus.h"

#include <QString>
#include <QStringList>

class QFontMetrics;

namespace modMenus {

constexpr int kLargeurBarreMin = 35;

// An attribute of a caption's block, and a whole number read from one (defaut when
// it holds none).
QString attribut(const QString &bloc, const char *cle);
int entier(const QString &valeur, int defaut);

// Splits the lines of a sidebar's text. Every "<br!>" of the last line always breaks.
// Past the first pass, the first "<br>" found breaks, or failing that the blank
// nearest the middle of the first line wider than largeurMax - 6 (its end without a
// blank); nothing found gives the empty text. The answer is the lines joined by CR LF,
// "<br>" and "<br0>" shown as blanks.
QString ComposerLignes(QStringList &lignes, bool premierePasse, const QFontMetrics &mesures, int largeurMax);

// The default of a sidebar that has neither picture nor text.
QString barreParDefaut();

// The band of the panel rendered H pixels high from the picture and the block's
// attributes (Width:, Align:, BColor:, GColor:, Transparent).
void rendreBarreImage(TypePanneau &panneau, const QImage &image, const QString &bloc, int H);
// The band rendered from the block's text, at the largest size and then the fewest
// lines that fit along H; the sidebar's record takes the band's width.
void rendreBarreTexte(TypePanneau &panneau, TypeItemMenu &item, QString bloc, int H);

}  // namespace modMenus
