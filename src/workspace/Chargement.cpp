#include "Chargement.h"

#include "store/Base.h"
#include "store/Cryptage.h"

#include <QCollator>
#include <QHash>
#include <QLocale>

#include <algorithm>
#include <numeric>
#include <vector>

using Base::Connexion;
using Base::Requete;

namespace Chargement {

namespace {
constexpr int kChamps = 12;  // fields of a Documents row

// Puts the elements in French order of their text, blind to case, and to accents at
// the first level ("École" before "zèbre"); equal texts keep the order they came in.
template <typename T, typename Texte>
void trierEnFrancais(QList<T> &elements, Texte texte) {
    static const QCollator collateur = [] {
        QCollator c{QLocale(QLocale::French, QLocale::France)};
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    std::vector<QCollatorSortKey> cles;
    cles.reserve(size_t(elements.size()));
    for (const T &e : elements) cles.push_back(collateur.sortKey(texte(e)));
    std::vector<qsizetype> ordre(size_t(elements.size()));
    std::iota(ordre.begin(), ordre.end(), 0);
    std::stable_sort(ordre.begin(), ordre.end(), [&cles](qsizetype a, qsizetype b) { return cles[size_t(a)].compare(cles[size_t(b)]) < 0; });
    QList<T> tries;
    tries.reserve(elements.size());
    for (const qsizetype i : ordre) tries.append(std::move(elements[i]));
    elements = std::move(tries);
}

QList<Dossier> lireDossiers(Connexion &c, int numCompte) {
    Requete r(c, "SELECT Num, Nom, rowid FROM Dossiers WHERE NumCompte=? ORDER BY Nom ASC, Num ASC");
    r.lier(1, numCompte);
    QList<Dossier> dossiers;
    while (r.suivante()) dossiers.append({r.entier(0), r.entierLong(2), r.texte(1), {}});
    trierEnFrancais(dossiers, [](const Dossier &d) { return d.nom; });
    return dossiers;
}
}  // namespace

QList<Dossier> lireArbre(int numCompte) {
    Connexion c;
    QList<Dossier> dossiers = lireDossiers(c, numCompte);
    if (dossiers.isEmpty()) {
        GénérerDossiersDefaut(numCompte);
        dossiers = lireDossiers(c, numCompte);
    }

    QHash<int, int> indexDossier;
    for (int i = 0; i < dossiers.size(); ++i) indexDossier.insert(dossiers[i].num, i);

    // One pass over the account's documents, shared out to their folders, then each
    // folder's put in the order of the titles as the user reads them, deciphered.
    // Columns by name: a base with columns of its own added keeps the fields in place.
    Requete r(c, "SELECT NumCompte, Num, NumDossier, Titre, LoginDoc, MotDePasse, Url, Fichier, DateDebut, DateFin,"
                 " Remarques, Icone, rowid FROM Documents WHERE NumCompte=? ORDER BY NumDossier ASC, Num ASC");
    r.lier(1, numCompte);
    const QString compte = QString::number(numCompte);
    while (r.suivante()) {
        const auto it = indexDossier.constFind(r.entier(2));
        if (it == indexDossier.constEnd()) continue;  // its folder is gone: nowhere to show it
        Document d;
        d.infos.reserve(kChamps + 1);
        for (int j = 3; j < kChamps; ++j) d.infos.append(r.estNull(j) ? QString() : DecrypterChamp(r.texte(j)));
        d.num = r.texte(1);
        d.dossier = r.texte(2);
        d.icone = r.entier(11);
        d.rowid = r.entierLong(kChamps);
        d.infos << compte << d.num << d.dossier << QString();
        dossiers[*it].documents.append(std::move(d));
    }
    for (Dossier &dossier : dossiers) trierEnFrancais(dossier.documents, [](const Document &d) { return d.infos.at(0); });
    return dossiers;
}

}  // namespace Chargement

void GénérerDossiersDefaut(int numCompte) {
    Connexion c;
    Requete r(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) SELECT ?, Num, Nom FROM Dossiers WHERE NumCompte=0 ORDER BY Nom");
    r.lier(1, numCompte).executer();
}

int ChercherNouveauNumDossier() {
    Connexion c;
    Requete r(c, "SELECT max(Num) FROM Dossiers");
    return r.suivante() && !r.estNull(0) ? qMax(1, r.entier(0) + 1) : 1;
}
