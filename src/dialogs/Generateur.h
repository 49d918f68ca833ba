#pragma once
// Passwords drawn from the system's random generator, among the characters of the
// field cipher's alphabet only, so that a generated password can later be edited in
// the grid like any other text.

#include <QString>
#include <QStringList>

class QRandomGenerator;

namespace Generateur {

constexpr int kLongueurMin = 8;
constexpr int kLongueurMax = 64;
constexpr int kLongueurDefaut = 20;
// Characters easy to take one for another on paper or on screen.
inline const QString kSosies = QStringLiteral("0Oo1lI|");

struct Options {
    int longueur = kLongueurDefaut;
    bool minuscules = true;
    bool majuscules = true;
    bool chiffres = true;
    bool signes = true;
    bool sansSosies = false;
};

// The characters of each chosen class, in the alphabet's order; a class emptied by
// the exclusions is left out.
QStringList classes(const Options &options);

// Bits of entropy of a password drawn with these options: the base-2 logarithm of
// how many passwords of that length hold every chosen class. 0 when none is chosen.
double entropie(const Options &options);

// A password of the length asked, each character drawn uniformly from the chosen
// classes, drawn again until every class appears in it. Empty when no class is chosen.
QString generer(const Options &options, QRandomGenerator &source);
QString generer(const Options &options);  // from the system's generator

// A number drawn uniformly in [0, n), n above 0: values of the source past the last
// whole multiple of n are drawn again, so that no number comes more often than another.
quint32 tirer(quint32 n, QRandomGenerator &source);

}  // namespace Generateur
