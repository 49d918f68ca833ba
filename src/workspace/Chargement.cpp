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
constexpr int kColonnesInfos = 16;  // grid columns 3 to 18

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
    while (r.suivante()) dossiers.append({r.entier(0), r.entierLong(2), r.texte(1)});
    trierEnFrancais(dossiers, [](const Dossier &d) { return d.nom; });
    return dossiers;
}
}  // namespace

void lireArbre(int numCompte, const std::function<void(const QList<Dossier> &)> &recevoirDossiers,
               const std::function<void(int, QList<Document> &)> &recevoirDocuments) {
    Connexion c;
    QList<Dossier> dossiers = lireDossiers(c, numCompte);
    if (dossiers.isEmpty()) {
        GénérerDossiersDefaut(numCompte);
        dossiers = lireDossiers(c, numCompte);
    }
    QHash<int, int> indexDossier;
    for (int i = 0; i < dossiers.size(); ++i) indexDossier.insert(dossiers[i].num, i);
    recevoirDossiers(dossiers);

    // One pass over the account's documents, folder after folder; each folder's put
    // in the order of the titles as the user reads them, deciphered, and handed over.
    // Columns by name: a base with columns of its own added keeps the fields in place.
    Requete r(c, "SELECT NumCompte, Num, NumDossier, Titre, LoginDoc, MotDePasse, Url, Fichier, DateDebut, DateFin,"
                 " Remarques, Icone, rowid FROM Documents WHERE NumCompte=? ORDER BY NumDossier ASC, Num ASC");
    r.lier(1, numCompte);
    QList<Document> documents;
    int indiceCourant = -1;
    auto remettre = [&] {
        if (indiceCourant < 0 || documents.isEmpty()) return;
        trierEnFrancais(documents, [](const Document &d) { return d.infos.at(0); });
        recevoirDocuments(indiceCourant, documents);
        documents.clear();
    };
    int numDossierCourant = 0;
    bool premier = true;
    while (r.suivante()) {
        const int numDossier = r.entier(2);
        if (premier || numDossier != numDossierCourant) {
            remettre();
            premier = false;
            numDossierCourant = numDossier;
            indiceCourant = indexDossier.value(numDossier, -1);
        }
        if (indiceCourant < 0) continue;  // its folder is gone: nowhere to show it
        Document d;
        d.infos.reserve(kColonnesInfos);
        for (int j = 3; j < kChamps - 1; ++j) d.infos.append(r.estNull(j) ? QString() : DecrypterChamp(r.texteUtf8(j)));
        d.num = r.texte(1);
        d.dossier = r.texte(2);
        d.icone = r.entier(11);
        d.rowid = r.entierLong(kChamps);
        d.infos.resize(kColonnesInfos - 1);
        d.infos.append(QString::number(d.rowid));
        documents.append(std::move(d));
    }
    remettre();
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
