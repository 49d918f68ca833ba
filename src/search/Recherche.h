#pragma once
// The scan of the search window over the rows the main window's grid holds: folder
// names or document titles that contain the text sought, in the order of the grid.

#include <QList>
#include <QString>

class ModeleGrille;

namespace Recherche {

struct Resultat {
    int ligne = 0;
    QString texte;  // the cell as the grid holds it, leading blank of a folder included
};

// Folders (dossiers) on their name, or documents on their title; the text is
// trimmed, and compared without regard to case or accents ("impots" finds
// "Impôts"). An empty text finds nothing.
QList<Resultat> chercher(const ModeleGrille &grille, const QString &texte, bool dossiers);

// The text as the search compares it: accents dropped, case folded.
QString replier(QStringView texte);

// The key of a hit in the list: "A", two blanks, the row; and back.
QString cleResultat(int ligne);
int ligneDeCle(const QString &cle);  // -1 when the key names no row

}  // namespace Recherche
