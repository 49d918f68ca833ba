#pragma once
// Accounts protected by their own password. Every text of such an account's documents
// (Titre to Remarques) and every name of its folders is stored sealed with
// XChaCha20-Poly1305 under a random data key of the account; that key is stored
// wrapped by a key that Argon2id derives from the password and a salt of the account.
// All of it is libsodium's work. An account without protection has no row here and is
// stored exactly as before.

#include "Base.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <functional>
#include <memory>
#include <optional>

namespace Protection {

// 32 bytes of key in memory that libsodium guards: kept out of swap and of core
// dumps, wiped and freed with the object.
class Cle {
public:
    static constexpr size_t kTaille = 32;
    Cle();  // random bytes from the system's generator
    ~Cle();
    Cle(const Cle &) = delete;
    Cle &operator=(const Cle &) = delete;
    unsigned char *octets() { return octets_; }
    const unsigned char *octets() const { return octets_; }

private:
    unsigned char *octets_;
};

// The cost of Argon2id for the envelopes written from now on; each envelope keeps the
// cost it was written with, so a change never locks anyone out.
struct Cout {
    quint64 operations;
    quint64 memoire;  // bytes
};
Cout coutParDefaut();  // libsodium's "moderate" cost
void definirCout(Cout cout);  // the tests and benchmarks lower it

// The row that makes an account protected: the salt and cost of the derivation, and
// the data key sealed by the derived key (nonce first).
struct Enveloppe {
    int numCompte = 0;
    QByteArray sel;
    Cout cout{};
    QByteArray cleScellee;
};

// True when the account is protected. The table of envelopes exists only in a base
// where some account was protected.
bool estProtege(Base::Connexion &c, int numCompte);
bool estProtege(int numCompte);
std::optional<Enveloppe> lireEnveloppe(Base::Connexion &c, int numCompte);

// The data key when passe opens the envelope (one derivation, under a second at the
// default cost); null for a wrong password or a damaged envelope.
std::unique_ptr<Cle> ouvrirEnveloppe(const Enveloppe &enveloppe, const QString &passe);
// A new envelope of the data key for passe, with a fresh salt at the current cost.
Enveloppe fermerEnveloppe(int numCompte, const Cle &donnees, const QString &passe);
// Writes the envelope over the account's one (creating the table when it is missing).
void ecrireEnveloppe(Base::Connexion &c, const Enveloppe &enveloppe);

// Where a sealed text belongs: the field is bound to its account, its table, its row
// and its column, so that a sealed text copied anywhere else fails to open.
enum class Table : unsigned char { Documents = 'D', Dossiers = 'F' };
struct Place {
    int numCompte = 0;
    Table table = Table::Documents;
    qint64 rowid = 0;
    int colonne = 0;  // 3 to 10 for Titre to Remarques, 2 for a folder's Nom
};

// The stored form of a text: nonce, then the UTF-8 text sealed with its tag.
QByteArray sceller(const Cle &cle, const Place &place, QStringView clair);
// The text, or none when the stored form was damaged, moved or sealed by another key.
std::optional<QString> ouvrir(const Cle &cle, const Place &place, QByteArrayView scelle);

// A field holds kTailleChamp stored bytes; sealing adds kSurcout of them.
constexpr int kTailleChamp = 255;
constexpr int kSurcout = 24 + 16;
// The bytes the sealed form of clair takes.
qsizetype tailleScellee(QStringView clair);
// Empty when clair fits a protected field, else the French refusal saying the limit.
QString messageTropLong(QStringView clair);

// The data key of the account open in this session, if it is protected. Held from the
// login to the lock, the change of account or the end of the program.
void ouvrirSession(int numCompte, std::unique_ptr<Cle> cle);
const Cle *cleSession(int numCompte);
void fermerSession();

// What a long conversion reports: rows done and rows in all.
using Progression = std::function<void(qint64 faites, qint64 total)>;

// Seals every field and folder name of the account, in one transaction, under a new
// data key wrapped for passe. Throws Base::ErreurBase (nothing changed) on failure.
void proteger(int numCompte, const QString &passe, const Progression &progression = {});
// Brings every field back to its unprotected form, in one transaction. Throws
// Base::ErreurBase (nothing changed) when a field can't be opened or can't be stored
// back as it reads; the message names the document.
void deproteger(int numCompte, const Cle &donnees, const QString &passe, const Progression &progression = {});
// Wraps the same data key for a new password: one row, whatever the account's size.
void changerMotDePasse(int numCompte, const Cle &donnees, const QString &nouveau);

}  // namespace Protection
