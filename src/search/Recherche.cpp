#include "Recherche.h"

#include "grid/Colonnes.h"
#include "grid/ModeleGrille.h"

#include <QStringMatcher>
#include <QVarLengthArray>
#include <algorithm>

namespace Recherche {

namespace {

// A character as the search compares it: the first character of its canonical
// decomposition, in its folded case; 0 for a combining mark, which decomposed text
// writes after its letter. Worked out from Unicode's tables once a character, and
// kept with a mark of being known (0 is a character not met yet).
constexpr quint32 kConnu = 0x10000;
quint32 replis[0x10000];

quint32 calculer(char16_t c) {
    QChar q(c);
    if (q.isSurrogate()) return replis[c] = kConnu | c;
    if (q.category() == QChar::Mark_NonSpacing) return replis[c] = kConnu;
    while (q.decompositionTag() == QChar::Canonical) {
        const QString d = q.decomposition();
        if (d.isEmpty() || d.at(0) == q) break;
        q = d.at(0);
    }
    return replis[c] = kConnu | q.toCaseFolded().unicode();
}

// Into sortie, which holds texte.size() characters; returns how many were written.
qsizetype replier(QStringView texte, char16_t *sortie) {
    char16_t *o = sortie;
    for (const QChar q : texte) {
        const char16_t c = q.unicode();
        quint32 r = replis[c];
        if (!r) r = calculer(c);
        *o = char16_t(r);
        o += char16_t(r) != 0;
    }
    return o - sortie;
}

// Below U+00C0 a character has no accent to drop: case alone differs, as a plain
// case-blind comparison sees it.
bool sansAccent(QStringView texte) {
    char16_t plus = 0;
    for (const QChar q : texte) plus = qMax(plus, q.unicode());
    return plus < 0xC0;
}
}  // namespace

QString replier(QStringView texte) {
    QString sortie(texte.size(), Qt::Uninitialized);
    sortie.truncate(replier(texte, reinterpret_cast<char16_t *>(sortie.data())));
    return sortie;
}

QList<Resultat> chercher(const ModeleGrille &grille, const QString &texte, bool dossiers) {
    QList<Resultat> resultats;
    const QString cherche = replier(QStringView(texte).trimmed());
    if (cherche.isEmpty()) return resultats;
    const grille::Grille &g = grille.cellules();
    const int colonne = dossiers ? Colonne::Icone : Colonne::Titre;
    const QStringMatcher motif(cherche, Qt::CaseSensitive);
    // Most titles have no accent: when the text sought is plain ASCII they are
    // compared as they stand, case-blind; the others once folded.
    const QStringMatcher motifBrut(cherche, Qt::CaseInsensitive);
    const bool chercheAscii = std::all_of(cherche.cbegin(), cherche.cend(), [](QChar c) { return c.unicode() < 0x80; });
    QVarLengthArray<char16_t, 256> replie;
    // The cells are read where they lie, never copied: one comparison a row.
    const int fin = qMin(grille.NbLignes, g.Rows());
    for (int ligne = 2; ligne < fin; ++ligne) {
        const bool dossier = g.texte(ligne, Colonne::Type) == u'P';
        if (dossier != dossiers) continue;
        const QStringView cellule = g.texte(ligne, colonne);
        bool trouve = false;
        if (chercheAscii && sansAccent(cellule)) {
            trouve = motifBrut.indexIn(cellule) >= 0;
        } else {
            replie.resize(cellule.size());
            trouve = motif.indexIn(QStringView(replie.data(), replier(cellule, replie.data()))) >= 0;
        }
        if (trouve) resultats.append({ligne, cellule.toString()});
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
