#pragma once
// What every window shares of the look, and the conversions between the stored forms
// and Qt's: the palette and style sheets, the colour numbers of the settings, the
// keys of the icon library and the dates typed in the boxes.

#include <QColor>
#include <QDate>
#include <QString>

namespace Apparence {

// ---- The palette ---------------------------------------------------------------
inline const QColor kEncre(0x1f, 0x2a, 0x44);    // text on the light backgrounds
inline const QColor kMarine(0x2e, 0x3f, 0x66);   // strips, headers, selections
inline const QColor kOr(0xe0, 0xa5, 0x26);       // what the pointer or the focus is on
inline const QColor kArdoise(0x8c, 0x98, 0xb0);  // borders at rest
inline const QColor kAmbre(255, 204, 59);        // in-place boxes, calendar panels

// ---- Style sheets --------------------------------------------------------------
// The captions of the boxes in the windows' light content.
inline const QString kStyleLibelle = QStringLiteral("color: #1f2a44; font-weight: bold; background: transparent;");
// The captions that stand on a black tag of their own, beside a box.
inline const QString kStyleEtiquette =
    QStringLiteral("background: #000000; color: #ffffff; font-weight: bold; border-radius: 3px;");
// Text on the navy strips of the frame.
inline const QString kStyleSurBande = QStringLiteral("color: white; background: transparent;");
// Options and check boxes drawn in the program's colours, their mark always visible.
extern const QString kStyleChoix;

// ---- Colour numbers ------------------------------------------------------------
// The settings keep a colour as a number with red in the low byte.
inline QColor couleur(int nombre) { return QColor(nombre & 0xff, (nombre >> 8) & 0xff, (nombre >> 16) & 0xff); }
inline int nombre(const QColor &c) { return c.red() | (c.green() << 8) | (c.blue() << 16); }

// ---- Keys of the icon library --------------------------------------------------
// "A ", then the icon's Num as the base holds it.
QString cleIcone(int num);
QString cleIcone(const QString &num);
// The Num of a key, from its third character; ok says whether it holds one.
int numDeCle(const QString &cle, bool *ok = nullptr);

// ---- Dates ---------------------------------------------------------------------
// A date typed as dd/mm/yyyy (one or two digits for day and month); invalid when it is none.
QDate lireDate(const QString &texte);
// A date as the boxes show and the base keeps it: dd/mm/yyyy.
QString ecrireDate(const QDate &date);

}  // namespace Apparence
