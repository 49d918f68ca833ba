#pragma once
// The per-user settings (application "Korvane"): every key with its default in one
// place. Keys and sections are matched without regard to case, whichever form wrote
// them; numbers and colours are decimal text, booleans -1 and 0.

#include <QString>

namespace Reglages {

enum class Cle {
    Username,     // Login: login as last typed
    Demarrage,    // Settings: 0 until the first start has registered .kvx
    Windowstate,  // Settings: 2 maximised, else normal
    MainLeft,     // Settings: main window left, in twips
    MainTop,      // Settings: main window top, in twips
    Edition,      // Settings: export format chosen
    Options,      // Settings: options page last shown
    Backcolor,    // Couleurs
    CouleurTitre,
    CouleurSection,
    CouleurParent,
    CouleurFils,
    CouleurSelection,
    FontName,  // Font
    FontColor,
    PressePapiers,  // Settings: seconds before a copy leaves the clipboard, 0 never
    MotsDePasse,    // Affichage: passwords shown in the grid (-1) or as dots (0)
    Verrouillage,   // Securite: minutes without input before the window locks, 0 never
};

struct Definition {
    const char *section;
    const char *nom;
    const char *defaut;  // nullptr: the reader supplies one (position centred, no font)
};

const Definition &definition(Cle cle);

QString lireTexte(Cle cle);
// A value that is no number reads as the default.
int lireNombre(Cle cle);
// For keys whose default depends on the reader (MainLeft, MainTop).
int lireNombre(Cle cle, int defaut);
void ecrire(Cle cle, const QString &valeur);
void ecrire(Cle cle, int valeur);

// "Colonne" + blank + index: column shown (-1, the default, and what is no number) or
// hidden (any other number; 0 is written).
bool colonneVisible(int index);
void ecrireColonneVisible(int index, bool visible);

// The folder-name colour as the document dialog reads it: white by default there.
int couleurParentDialogue();

// Low level, for keys outside the table.
QString lire(const QString &section, const QString &nom, const QString &defaut);
void ecrire(const QString &section, const QString &nom, const QString &valeur);

// Where the settings file lives; tests point it at a folder of their own.
QString cheminFichier();
void definirDossier(const QString &dossier);

}  // namespace Reglages
