#include "Recherche.h"

#include "grid/ModeleGrille.h"

#include <QStringMatcher>

namespace Recherche {

namespace {
constexpr int kColonneType = 11;
constexpr int kColonneNomDossier = 1;
constexpr int kColonneTitre = 3;
}  // namespace

QList<Resultat> chercher(const ModeleGrille &grille, const QString &texte, bool dossiers) {
    QList<Resultat> resultats;
    const QString cherche = texte.trimmed().toLower();
    if (cherche.isEmpty()) return resultats;
    const grille::Grille &g = grille.cellules();
    const int colonne = dossiers ? kColonneNomDossier : kColonneTitre;
    const QStringMatcher motif(cherche, Qt::CaseInsensitive);
    // The cells are read where they lie, never copied: one comparison a row.
    const int fin = qMin(grille.NbLignes, g.Rows());
    for (int ligne = 2; ligne < fin; ++ligne) {
        const bool dossier = g.texte(ligne, kColonneType) == u'P';
        if (dossier != dossiers) continue;
        const QStringView cellule = g.texte(ligne, colonne);
        if (motif.indexIn(cellule) >= 0) resultats.append({ligne, cellule.toString()});
    }
    return resultats;
}

QString cleResultat(int ligne) { return QStringLiteral("A  %1").arg(ligne); }

int ligneDeCle(const QString &cle) {
    bool ok = false;
    const int ligne = cle.mid(1).trimmed().toInt(&ok);
    return ok ? ligne : -1;
}

}  // namespace Recherche
