#include "Recherche.h"

#include "grid/ModeleGrille.h"

#include <QStringMatcher>
#include <QVarLengthArray>
#include <array>

namespace Recherche {

namespace {
constexpr int kColonneType = 11;
constexpr int kColonneNomDossier = 1;
constexpr int kColonneTitre = 3;

// A character as the search compares it: the first character of its canonical
// decomposition, in its folded case; 0 for a combining mark, which decomposed text
// writes after its letter. Worked out from Unicode's tables once a character.
char16_t replier(char16_t c) {
    static constexpr char16_t kInconnu = 0xFFFF;
    static std::array<char16_t, 0x10000> table = [] {
        std::array<char16_t, 0x10000> t;
        t.fill(kInconnu);
        return t;
    }();
    char16_t &r = table[c];
    if (r != kInconnu) return r;
    QChar q(c);
    if (q.isSurrogate()) return r = c;
    if (q.category() == QChar::Mark_NonSpacing) return r = 0;
    while (q.decompositionTag() == QChar::Canonical) {
        const QString d = q.decomposition();
        if (d.isEmpty() || d.at(0) == q) break;
        q = d.at(0);
    }
    return r = q.toCaseFolded().unicode();
}

// Into sortie, which holds texte.size() characters; returns how many were written.
// ASCII, most of what is typed, takes the short way.
qsizetype replier(QStringView texte, char16_t *sortie) {
    char16_t *o = sortie;
    for (const QChar q : texte) {
        const char16_t c = q.unicode();
        if (c < 0x80)
            *o++ = c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c;
        else if (const char16_t r = replier(c))
            *o++ = r;
    }
    return o - sortie;
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
    const int colonne = dossiers ? kColonneNomDossier : kColonneTitre;
    const QStringMatcher motif(cherche, Qt::CaseSensitive);
    QVarLengthArray<char16_t, 256> replie;
    // The cells are read where they lie, never copied: one comparison a row.
    const int fin = qMin(grille.NbLignes, g.Rows());
    for (int ligne = 2; ligne < fin; ++ligne) {
        const bool dossier = g.texte(ligne, kColonneType) == u'P';
        if (dossier != dossiers) continue;
        const QStringView cellule = g.texte(ligne, colonne);
        replie.resize(cellule.size());
        if (motif.indexIn(QStringView(replie.data(), replier(cellule, replie.data()))) >= 0)
            resultats.append({ligne, cellule.toString()});
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
