#include "Chargement.h"

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

namespace Chargement {

namespace {
const QCollator &collateurFrancais() {
    static const QCollator collateur = [] {
        QCollator c{QLocale(QLocale::French, QLocale::France)};
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    return collateur;
}

// The folders in the order the grid shows them.
QList<Dossier> ordonnerDossiers(const QList<Dossier> &lus) {
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
    octets.reserve(noms.size());
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
    Arbre::Lecture lecture(numCompte);
    QList<Dossier> dossiers = ordonnerDossiers(lecture.dossiers());
    if (dossiers.isEmpty()) {
        GenererDossiersDefaut(numCompte);
        dossiers = ordonnerDossiers(lecture.dossiers());
    }
    QHash<int, int> indexDossier;
    for (int i = 0; i < dossiers.size(); ++i) indexDossier.insert(dossiers[i].num, i);
    recevoirDossiers(dossiers);

    // The documents in the table's own order: each page is read and deciphered once,
    // where a walk by folder would come back to the same pages again and again.
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
            while (lecture.documentSuivant()) {
                const auto it = indexDossier.constFind(lecture.numDossier());
                if (it == indexDossier.constEnd()) continue;  // its folder is gone: nowhere to show it
                if (n == lot.size()) lot.emplace_back();
                lot[n].dossier = *it;
                lecture.lireDocument(lot[n].document);
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

}  // namespace Chargement
