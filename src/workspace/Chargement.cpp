#include "Chargement.h"

#include "grid/Colonnes.h"

#include "store/Base.h"
#include "store/Cryptage.h"

#include <QCollator>
#include <QHash>
#include <QLocale>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <numeric>
#include <vector>

using Base::Connexion;
using Base::Requete;

namespace Chargement {

namespace {
constexpr int kChampsTexte = Colonne::NbChamps;  // Titre to Remarques
constexpr int kColonnesInfos = Colonne::Rowid - Colonne::PremierChamp + 1;  // the fields to the rowid

// Columns by name: a base with columns of its own added keeps the fields in place.
constexpr const char *kColonnesDocument =
    "SELECT Num, NumDossier, Titre, LoginDoc, MotDePasse, Url, Fichier, DateDebut, DateFin, Remarques, Icone, rowid";

// A row of kColonnesDocument as the grid receives it.
void lireDocument(const Requete &r, Document &d) {
    d.infos.clear();
    for (int j = 2; j < 2 + kChampsTexte; ++j) d.infos.append(r.estNull(j) ? QString() : LireChampDocument(r.texteUtf8(j)));
    d.num = r.texte(0);
    d.dossier = r.texte(1);
    d.icone = r.entier(2 + kChampsTexte);
    d.rowid = r.entierLong(3 + kChampsTexte);
    d.infos.resize(kColonnesInfos - 1);
    d.infos.append(QString::number(d.rowid));
}

const QCollator &collateurFrancais() {
    static const QCollator collateur = [] {
        QCollator c{QLocale(QLocale::French, QLocale::France)};
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    return collateur;
}

QList<Dossier> lireDossiers(Connexion &c, int numCompte) {
    Requete r(c, "SELECT Num, Nom, rowid FROM Dossiers WHERE NumCompte=?");
    r.lier(1, numCompte);
    QList<Dossier> lus;
    while (r.suivante()) lus.append({r.entier(0), r.entierLong(2), r.texte(1)});
    std::vector<QStringView> noms;
    std::vector<int> nums;
    for (const Dossier &d : lus) {
        noms.push_back(d.nom);
        nums.push_back(d.num);
    }
    QList<Dossier> dossiers;
    dossiers.reserve(lus.size());
    for (const int i : ordreDesDossiers(noms, nums)) dossiers.append(lus[i]);
    return dossiers;
}

// The French order of the texts, blind to case, and to accents at the first level
// ("École" before "zèbre"); equal texts keep the order they came in.
std::vector<int> ordreFrancais(const std::vector<QStringView> &textes) {
    const QCollator &collateur = collateurFrancais();
    std::vector<QCollatorSortKey> cles;
    cles.reserve(textes.size());
    for (const QStringView t : textes) cles.push_back(collateur.sortKey(t.toString()));
    std::vector<int> ordre(textes.size());
    std::iota(ordre.begin(), ordre.end(), 0);
    std::stable_sort(ordre.begin(), ordre.end(), [&cles](int a, int b) { return cles[size_t(a)].compare(cles[size_t(b)]) < 0; });
    return ordre;
}

// The positions ordered by the ties first, then put in French order keeping them.
template <typename Avant>
std::vector<int> enFrancaisPuis(const std::vector<QStringView> &textes, Avant avant) {
    std::vector<int> parLiens(textes.size());
    std::iota(parLiens.begin(), parLiens.end(), 0);
    std::stable_sort(parLiens.begin(), parLiens.end(), avant);
    std::vector<QStringView> ranges;
    ranges.reserve(textes.size());
    for (const int i : parLiens) ranges.push_back(textes[size_t(i)]);
    std::vector<int> ordre;
    ordre.reserve(textes.size());
    for (const int i : ordreFrancais(ranges)) ordre.push_back(parLiens[size_t(i)]);
    return ordre;
}
}  // namespace

std::vector<int> ordreDesDossiers(const std::vector<QStringView> &noms, const std::vector<int> &nums) {
    std::vector<QByteArray> octets;
    for (const QStringView n : noms) octets.push_back(n.toUtf8());
    return enFrancaisPuis(noms, [&](int a, int b) {
        return octets[size_t(a)] != octets[size_t(b)] ? octets[size_t(a)] < octets[size_t(b)] : nums[size_t(a)] < nums[size_t(b)];
    });
}

std::vector<int> ordreDesDocuments(const std::vector<RangDocument> &documents) {
    std::vector<QStringView> titres;
    titres.reserve(documents.size());
    for (const RangDocument &d : documents) titres.push_back(d.titre);
    return enFrancaisPuis(titres, [&](int a, int b) {
        const RangDocument &x = documents[size_t(a)], &y = documents[size_t(b)];
        return x.num != y.num ? x.num < y.num : x.rowid < y.rowid;
    });
}

int comparerDocuments(const RangDocument &a, const RangDocument &b) {
    if (const int c = collateurFrancais().compare(a.titre, b.titre); c != 0) return c;
    if (a.num != b.num) return a.num < b.num ? -1 : 1;
    return a.rowid < b.rowid ? -1 : (a.rowid > b.rowid ? 1 : 0);
}

void lireArbre(int numCompte, const std::function<void(const QList<Dossier> &)> &recevoirDossiers,
               const std::function<void(int, const Document &)> &recevoirDocument) {
    Connexion c;
    QList<Dossier> dossiers = lireDossiers(c, numCompte);
    if (dossiers.isEmpty()) {
        GenererDossiersDefaut(numCompte);
        dossiers = lireDossiers(c, numCompte);
    }
    QHash<int, int> indexDossier;
    for (int i = 0; i < dossiers.size(); ++i) indexDossier.insert(dossiers[i].num, i);
    recevoirDossiers(dossiers);

    // The table in its own order, without an index: each page is read and deciphered
    // once, where a walk by folder would come back to the same pages again and again.
    Requete r(c, (QByteArray(kColonnesDocument) + " FROM Documents NOT INDEXED WHERE NumCompte=?").constData());
    r.lier(1, numCompte);

    // The reading and deciphering run beside the caller's work on what was read, in
    // batches: on a large account each takes about half of the time. The caller
    // waits for the end either way, and the connection is only used by the reader.
    constexpr size_t kLot = 512;
    struct Lu {
        int dossier;
        Document document;
    };
    std::mutex verrou;
    std::condition_variable signal;
    std::deque<std::vector<Lu>> prets;
    std::vector<std::vector<Lu>> rendus;  // emptied batches, their strings' room reused
    bool fini = false;
    bool abandon = false;  // the caller failed: the reader stops at its next batch
    std::exception_ptr erreur;
    std::thread lecteur([&] {
        try {
            std::vector<Lu> lot;
            auto livrer = [&] {
                std::unique_lock<std::mutex> l(verrou);
                // Never more than a few batches ahead: memory stays that of a few batches.
                signal.wait(l, [&] { return prets.size() < 4 || abandon; });
                if (abandon) throw std::runtime_error("abandon");
                prets.push_back(std::move(lot));
                lot.clear();
                if (!rendus.empty()) {
                    lot = std::move(rendus.back());
                    rendus.pop_back();
                }
                signal.notify_all();
            };
            size_t n = 0;
            while (r.suivante()) {
                const auto it = indexDossier.constFind(r.entier(1));
                if (it == indexDossier.constEnd()) continue;  // its folder is gone: nowhere to show it
                if (n == lot.size()) lot.emplace_back();
                lot[n].dossier = *it;
                lireDocument(r, lot[n].document);
                if (++n == kLot) {
                    livrer();
                    n = 0;
                }
            }
            lot.resize(n);
            if (n > 0) livrer();
        } catch (...) {
            erreur = std::current_exception();
        }
        std::lock_guard<std::mutex> l(verrou);
        fini = true;
        signal.notify_all();
    });
    try {
        for (;;) {
            std::vector<Lu> lot;
            {
                std::unique_lock<std::mutex> l(verrou);
                signal.wait(l, [&] { return !prets.empty() || fini; });
                if (prets.empty()) break;
                lot = std::move(prets.front());
                prets.pop_front();
                signal.notify_all();
            }
            for (const Lu &lu : lot) recevoirDocument(lu.dossier, lu.document);
            std::lock_guard<std::mutex> l(verrou);
            rendus.push_back(std::move(lot));
        }
    } catch (...) {
        {
            std::lock_guard<std::mutex> l(verrou);
            abandon = true;
            signal.notify_all();
        }
        lecteur.join();
        throw;
    }
    lecteur.join();
    if (erreur) std::rethrow_exception(erreur);
}

bool lireDossier(int numCompte, qint64 rowid, QString &nom, int &num, int &documents) {
    Connexion c;
    Requete r(c, "SELECT Num, Nom FROM Dossiers WHERE NumCompte=? AND rowid=?");
    r.lier(1, numCompte).lier(2, rowid);
    if (!r.suivante()) return false;
    num = r.entier(0);
    nom = r.texte(1);
    Requete n(c, "SELECT count(*) FROM Documents WHERE NumCompte=? AND NumDossier=?");
    n.lier(1, numCompte).lier(2, num);
    documents = n.suivante() ? n.entier(0) : 0;
    return true;
}

bool lireDocument(int numCompte, qint64 rowid, Document &document) {
    Connexion c;
    Requete r(c, (QByteArray(kColonnesDocument) + " FROM Documents WHERE NumCompte=? AND rowid=?").constData());
    r.lier(1, numCompte).lier(2, rowid);
    if (!r.suivante()) return false;
    lireDocument(r, document);
    return true;
}

}  // namespace Chargement

void GenererDossiersDefaut(int numCompte) {
    Connexion c;
    Requete r(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) SELECT ?, Num, Nom FROM Dossiers WHERE NumCompte=0 ORDER BY Nom");
    r.lier(1, numCompte).executer();
}

int ChercherNouveauNumDossier() {
    Connexion c;
    Requete r(c, "SELECT max(Num) FROM Dossiers");
    return r.suivante() && !r.estNull(0) ? qMax(1, r.entier(0) + 1) : 1;
}
