#include "Protection.h"

#include "Cryptage.h"

#include <sodium.h>

#include <QtEndian>
#include <array>
#include <atomic>
#include <limits>
#include <mutex>
#include <new>
#include <stdexcept>
#include <vector>

using Base::Connexion;
using Base::Requete;

namespace Protection {

namespace {
constexpr int kNonce = crypto_aead_xchacha20poly1305_ietf_NPUBBYTES;
constexpr int kTag = crypto_aead_xchacha20poly1305_ietf_ABYTES;
static_assert(kNonce + kTag == kSurcout);
static_assert(Cle::kTaille == crypto_aead_xchacha20poly1305_ietf_KEYBYTES);

void initialiser() {
    static const bool pret = sodium_init() >= 0;
    if (!pret) throw std::runtime_error("libsodium");
}

std::atomic<quint64> coutOperations{crypto_pwhash_OPSLIMIT_MODERATE};
std::atomic<quint64> coutMemoire{crypto_pwhash_MEMLIMIT_MODERATE};

// The associated data of a field: its account, table, row and column.
std::array<unsigned char, 14> donneesAssociees(const Place &p) {
    std::array<unsigned char, 14> ad{};
    qToLittleEndian<qint32>(p.numCompte, ad.data());
    ad[4] = static_cast<unsigned char>(p.table);
    qToLittleEndian<qint64>(p.rowid, ad.data() + 5);
    ad[13] = static_cast<unsigned char>(p.colonne);
    return ad;
}

// The envelope's data key is bound to its account in the same way.
std::array<unsigned char, 5> donneesEnveloppe(int numCompte) {
    std::array<unsigned char, 5> ad{};
    qToLittleEndian<qint32>(numCompte, ad.data());
    ad[4] = 'K';
    return ad;
}

// The key derived from the password, or null when the derivation had no memory.
std::unique_ptr<Cle> deriver(const QString &passe, const QByteArray &sel, Cout cout) {
    if (sel.size() != crypto_pwhash_SALTBYTES) return nullptr;
    auto cle = std::make_unique<Cle>();
    QByteArray utf8 = passe.toUtf8();
    const int r = crypto_pwhash(cle->octets(), Cle::kTaille, utf8.constData(), quint64(utf8.size()),
                                reinterpret_cast<const unsigned char *>(sel.constData()), cout.operations,
                                size_t(cout.memoire), crypto_pwhash_ALG_ARGON2ID13);
    sodium_memzero(utf8.data(), size_t(utf8.size()));
    return r == 0 ? std::move(cle) : nullptr;
}

std::mutex verrouSession;
int compteSession = 0;
std::unique_ptr<Cle> cleOuverte;

const char *const kColonnes[] = {"Titre", "LoginDoc", "MotDePasse", "Url", "Fichier", "DateDebut", "DateFin", "Remarques"};
constexpr int kChamps = 8;

qint64 compter(Connexion &c, const char *sql, int numCompte) {
    Requete r(c, sql);
    r.lier(1, numCompte);
    return r.suivante() ? r.entierLong(0) : 0;
}

// A row of an account read for a conversion: its rowid, number and fields (null ones
// absent), as the file holds them.
struct LigneBrute {
    qint64 rowid = 0;
    int num = 0;
    std::array<std::optional<QByteArray>, kChamps> champs;
};

// Calls traiter on every row of the table for the account, by batches in rowid order:
// a batch is read whole before any row of it is written, since a statement must not
// read rows that the same connection changes under it.
template <typename Traiter>
void parLots(Connexion &c, int numCompte, bool documents, Traiter traiter) {
    qint64 apres = std::numeric_limits<qint64>::min();
    std::vector<LigneBrute> lot;
    for (;;) {
        lot.clear();
        {
            Requete r(c, documents ? "SELECT rowid, Num, Titre, LoginDoc, MotDePasse, Url, Fichier, DateDebut, DateFin, Remarques "
                                     "FROM Documents WHERE NumCompte=? AND rowid>? ORDER BY rowid LIMIT 2048"
                                   : "SELECT rowid, Num, Nom FROM Dossiers WHERE NumCompte=? AND rowid>? ORDER BY rowid LIMIT 2048");
            r.lier(1, numCompte).lier(2, apres);
            const int champs = documents ? kChamps : 1;
            while (r.suivante()) {
                LigneBrute &l = lot.emplace_back();
                l.rowid = r.entierLong(0);
                l.num = r.entier(1);
                for (int i = 0; i < champs; ++i)
                    if (!r.estNull(2 + i)) l.champs[size_t(i)] = r.octets(2 + i);
            }
        }
        if (lot.empty()) return;
        apres = lot.back().rowid;
        for (const LigneBrute &l : lot) traiter(l);
    }
}

// A text that tells nothing, for the password column of a protected account.
QString passeSansSens() {
    std::array<unsigned char, 18> alea{};
    randombytes_buf(alea.data(), alea.size());
    return CrypterChamp(QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(alea.data()), alea.size()).toBase64()));
}

// The title of a document for a message: as the account shows it, when it opens.
QString titrePourMessage(const QString &titre, int num) {
    return titre.isEmpty() ? QStringLiteral("n° %1").arg(num) : QStringLiteral("« %1 »").arg(titre);
}
}  // namespace

Cle::Cle() {
    initialiser();
    octets_ = static_cast<unsigned char *>(sodium_malloc(kTaille));
    if (!octets_) throw std::bad_alloc();
    randombytes_buf(octets_, kTaille);
}

Cle::~Cle() { sodium_free(octets_); }  // wipes before it frees

Cout coutParDefaut() { return {crypto_pwhash_OPSLIMIT_MODERATE, crypto_pwhash_MEMLIMIT_MODERATE}; }

void definirCout(Cout cout) {
    coutOperations = cout.operations;
    coutMemoire = cout.memoire;
}

bool estProtege(Connexion &c, int numCompte) {
    Requete t(c, "SELECT 1 FROM sqlite_master WHERE type='table' AND name='CompteProtege'");
    if (!t.suivante()) return false;
    Requete r(c, "SELECT 1 FROM CompteProtege WHERE NumCompte=?");
    return r.lier(1, numCompte).suivante();
}

bool estProtege(int numCompte) {
    Connexion c;
    return estProtege(c, numCompte);
}

std::optional<Enveloppe> lireEnveloppe(Connexion &c, int numCompte) {
    if (!estProtege(c, numCompte)) return std::nullopt;
    Requete r(c, "SELECT Sel, Operations, Memoire, Cle FROM CompteProtege WHERE NumCompte=?");
    r.lier(1, numCompte);
    if (!r.suivante()) return std::nullopt;
    return Enveloppe{numCompte, r.octets(0), {quint64(r.entierLong(1)), quint64(r.entierLong(2))}, r.octets(3)};
}

std::unique_ptr<Cle> ouvrirEnveloppe(const Enveloppe &e, const QString &passe) {
    initialiser();
    if (e.cleScellee.size() != kNonce + int(Cle::kTaille) + kTag) return nullptr;
    // A cost beyond libsodium's limits is a damaged envelope, not a reason to stop.
    if (e.cout.operations < crypto_pwhash_OPSLIMIT_MIN || e.cout.operations > quint64(crypto_pwhash_OPSLIMIT_SENSITIVE) * 4 ||
        e.cout.memoire < crypto_pwhash_MEMLIMIT_MIN || e.cout.memoire > quint64(crypto_pwhash_MEMLIMIT_SENSITIVE) * 4)
        return nullptr;
    const std::unique_ptr<Cle> derivee = deriver(passe, e.sel, e.cout);
    if (!derivee) return nullptr;
    auto donnees = std::make_unique<Cle>();
    const auto ad = donneesEnveloppe(e.numCompte);
    const auto *s = reinterpret_cast<const unsigned char *>(e.cleScellee.constData());
    unsigned long long taille = 0;
    if (crypto_aead_xchacha20poly1305_ietf_decrypt(donnees->octets(), &taille, nullptr, s + kNonce,
                                                   quint64(e.cleScellee.size() - kNonce), ad.data(), ad.size(), s,
                                                   derivee->octets()) != 0 ||
        taille != Cle::kTaille)
        return nullptr;
    return donnees;
}

Enveloppe fermerEnveloppe(int numCompte, const Cle &donnees, const QString &passe) {
    initialiser();
    Enveloppe e{numCompte, QByteArray(crypto_pwhash_SALTBYTES, '\0'), {coutOperations, coutMemoire}, {}};
    randombytes_buf(e.sel.data(), size_t(e.sel.size()));
    const std::unique_ptr<Cle> derivee = deriver(passe, e.sel, e.cout);
    if (!derivee) throw Base::ErreurBase(QStringLiteral("La mémoire manque pour protéger le compte. Rien n'a été modifié."));
    e.cleScellee = QByteArray(kNonce + int(Cle::kTaille) + kTag, '\0');
    auto *s = reinterpret_cast<unsigned char *>(e.cleScellee.data());
    randombytes_buf(s, kNonce);
    const auto ad = donneesEnveloppe(numCompte);
    crypto_aead_xchacha20poly1305_ietf_encrypt(s + kNonce, nullptr, donnees.octets(), Cle::kTaille, ad.data(), ad.size(),
                                               nullptr, s, derivee->octets());
    return e;
}

void ecrireEnveloppe(Connexion &c, const Enveloppe &e) {
    c.executer(
        "CREATE TABLE IF NOT EXISTS CompteProtege (NumCompte INTEGER PRIMARY KEY, Sel BLOB, Operations INTEGER, "
        "Memoire INTEGER, Cle BLOB);");
    Requete r(c, "INSERT OR REPLACE INTO CompteProtege (NumCompte, Sel, Operations, Memoire, Cle) VALUES (?, ?, ?, ?, ?)");
    r.lier(1, e.numCompte).lierOctets(2, e.sel).lier(3, qint64(e.cout.operations)).lier(4, qint64(e.cout.memoire));
    r.lierOctets(5, e.cleScellee).executer();
}

QByteArray sceller(const Cle &cle, const Place &place, QStringView clair) {
    const QByteArray utf8 = clair.toUtf8();
    QByteArray scelle(kNonce + utf8.size() + kTag, Qt::Uninitialized);
    auto *s = reinterpret_cast<unsigned char *>(scelle.data());
    randombytes_buf(s, kNonce);
    const auto ad = donneesAssociees(place);
    crypto_aead_xchacha20poly1305_ietf_encrypt(s + kNonce, nullptr, reinterpret_cast<const unsigned char *>(utf8.constData()),
                                               quint64(utf8.size()), ad.data(), ad.size(), nullptr, s, cle.octets());
    return scelle;
}

std::optional<QString> ouvrir(const Cle &cle, const Place &place, QByteArrayView scelle) {
    if (scelle.size() < kNonce + kTag) return std::nullopt;
    // Fields hold a few hundred bytes: the text is opened on the stack.
    std::array<unsigned char, 1024> pile;
    QByteArray tas;
    unsigned char *clair = pile.data();
    const qsizetype taille = scelle.size() - kNonce - kTag;
    if (taille > qsizetype(pile.size())) {
        tas.resize(taille);
        clair = reinterpret_cast<unsigned char *>(tas.data());
    }
    const auto *s = reinterpret_cast<const unsigned char *>(scelle.data());
    const auto ad = donneesAssociees(place);
    if (crypto_aead_xchacha20poly1305_ietf_decrypt(clair, nullptr, nullptr, s + kNonce, quint64(scelle.size() - kNonce), ad.data(),
                                                   ad.size(), s, cle.octets()) != 0)
        return std::nullopt;
    QString texte = depuisUtf8(QByteArrayView(reinterpret_cast<const char *>(clair), taille));
    sodium_memzero(clair, size_t(taille));
    return texte;
}

qsizetype tailleScellee(QStringView clair) { return kSurcout + clair.toUtf8().size(); }

QString messageTropLong(QStringView clair) {
    if (tailleScellee(clair) <= kTailleChamp) return {};
    return QStringLiteral("Ce texte est trop long pour un compte protégé : un champ y garde au plus %1 caractères "
                          "(une lettre accentuée en compte 2, un emoji 4).")
        .arg(kTailleChamp - kSurcout);
}

void ouvrirSession(int numCompte, std::unique_ptr<Cle> cle) {
    std::lock_guard<std::mutex> l(verrouSession);
    compteSession = numCompte;
    cleOuverte = std::move(cle);
}

const Cle *cleSession(int numCompte) {
    std::lock_guard<std::mutex> l(verrouSession);
    return cleOuverte && compteSession == numCompte ? cleOuverte.get() : nullptr;
}

void fermerSession() {
    std::lock_guard<std::mutex> l(verrouSession);
    cleOuverte.reset();
    compteSession = 0;
}

void proteger(int numCompte, const QString &passe, const Progression &progression) {
    Connexion c;
    c.debutTransaction();
    if (estProtege(c, numCompte)) throw Base::ErreurBase(QStringLiteral("Ce compte est déjà protégé."));
    const Cle donnees;
    ecrireEnveloppe(c, fermerEnveloppe(numCompte, donnees, passe));
    const qint64 total = compter(c, "SELECT count(*) FROM Documents WHERE NumCompte=?", numCompte) +
                         compter(c, "SELECT count(*) FROM Dossiers WHERE NumCompte=?", numCompte);
    qint64 faites = 0;
    Requete majDocument(c, "UPDATE Documents SET Titre=?, LoginDoc=?, MotDePasse=?, Url=?, Fichier=?, DateDebut=?, DateFin=?, "
                           "Remarques=? WHERE rowid=?");
    parLots(c, numCompte, true, [&](const LigneBrute &l) {
        for (int i = 0; i < kChamps; ++i) {
            if (const auto &champ = l.champs[size_t(i)])
                majDocument.lierOctets(1 + i, sceller(donnees, {numCompte, Table::Documents, l.rowid, 3 + i}, LireChampDocument(QByteArrayView(*champ))));
            else
                majDocument.lierNull(1 + i);
        }
        majDocument.lier(9, l.rowid).executer();
        if (progression && ++faites % 1024 == 0) progression(faites, total);
    });
    Requete majDossier(c, "UPDATE Dossiers SET Nom=? WHERE rowid=?");
    parLots(c, numCompte, false, [&](const LigneBrute &l) {
        if (l.champs[0])
            majDossier.lierOctets(1, sceller(donnees, {numCompte, Table::Dossiers, l.rowid, 2}, depuisUtf8(*l.champs[0])));
        else
            majDossier.lierNull(1);
        majDossier.lier(2, l.rowid).executer();
        ++faites;
    });
    Requete(c, "UPDATE Compte SET Pass=? WHERE NumCompte=?").lier(1, passeSansSens()).lier(2, numCompte).executer();
    c.valider();
    if (progression) progression(total, total);
}

void deproteger(int numCompte, const Cle &donnees, const QString &passe, const Progression &progression) {
    if (const QString refus = MessageHorsAlphabet(passe); !refus.isEmpty()) throw Base::ErreurBase(refus);
    Connexion c;
    c.debutTransaction();
    if (!estProtege(c, numCompte)) throw Base::ErreurBase(QStringLiteral("Ce compte n'est pas protégé."));
    const qint64 total = compter(c, "SELECT count(*) FROM Documents WHERE NumCompte=?", numCompte) +
                         compter(c, "SELECT count(*) FROM Dossiers WHERE NumCompte=?", numCompte);
    qint64 faites = 0;
    Requete majDocument(c, "UPDATE Documents SET Titre=?, LoginDoc=?, MotDePasse=?, Url=?, Fichier=?, DateDebut=?, DateFin=?, "
                           "Remarques=? WHERE rowid=?");
    parLots(c, numCompte, true, [&](const LigneBrute &l) {
        std::array<std::optional<QString>, kChamps> clairs;
        for (int i = 0; i < kChamps; ++i)
            if (const auto &champ = l.champs[size_t(i)]) clairs[size_t(i)] = ouvrir(donnees, {numCompte, Table::Documents, l.rowid, 3 + i}, *champ);
        const QString titre = clairs[0].value_or(QString());
        for (int i = 0; i < kChamps; ++i) {
            if (!l.champs[size_t(i)]) {
                majDocument.lierNull(1 + i);
                continue;
            }
            if (!clairs[size_t(i)])
                throw Base::ErreurBase(QStringLiteral("Le champ « %1 » du document %2 est illisible : la protection "
                                                      "reste en place. Corrigez ou supprimez ce document d'abord.")
                                           .arg(QString::fromLatin1(kColonnes[i]), titrePourMessage(titre, l.num)));
            const std::optional<QString> forme = ChampDuDialogue(*clairs[size_t(i)]);
            if (!forme || forme->size() > kTailleChamp)
                throw Base::ErreurBase(QStringLiteral("Le champ « %1 » du document %2 ne peut pas être gardé sans "
                                                      "protection : la protection reste en place.")
                                           .arg(QString::fromLatin1(kColonnes[i]), titrePourMessage(titre, l.num)));
            majDocument.lier(1 + i, *forme);
        }
        majDocument.lier(9, l.rowid).executer();
        if (progression && ++faites % 1024 == 0) progression(faites, total);
    });
    Requete majDossier(c, "UPDATE Dossiers SET Nom=? WHERE rowid=?");
    parLots(c, numCompte, false, [&](const LigneBrute &l) {
        if (l.champs[0]) {
            const std::optional<QString> nom = ouvrir(donnees, {numCompte, Table::Dossiers, l.rowid, 2}, *l.champs[0]);
            if (!nom)
                throw Base::ErreurBase(QStringLiteral("Le nom d'un dossier est illisible : la protection reste en place. "
                                                      "Renommez ou supprimez ce dossier d'abord."));
            majDossier.lier(1, *nom);
        } else {
            majDossier.lierNull(1);
        }
        majDossier.lier(2, l.rowid).executer();
        ++faites;
    });
    Requete(c, "UPDATE Compte SET Pass=? WHERE NumCompte=?").lier(1, CrypterChamp(passe)).lier(2, numCompte).executer();
    Requete(c, "DELETE FROM CompteProtege WHERE NumCompte=?").lier(1, numCompte).executer();
    // With no protected account left, the base has its four tables and nothing more.
    if (!Requete(c, "SELECT 1 FROM CompteProtege LIMIT 1").suivante()) c.executer("DROP TABLE CompteProtege;");
    c.valider();
    if (progression) progression(total, total);
}

void changerMotDePasse(int numCompte, const Cle &donnees, const QString &nouveau) {
    const Enveloppe e = fermerEnveloppe(numCompte, donnees, nouveau);
    Connexion c;
    c.debutTransaction();
    if (!estProtege(c, numCompte)) throw Base::ErreurBase(QStringLiteral("Ce compte n'est pas protégé."));
    ecrireEnveloppe(c, e);
    c.valider();
}

}  // namespace Protection
