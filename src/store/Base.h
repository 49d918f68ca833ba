#pragma once
// The encrypted base korvane.kvx: connections, statements, schema and creation.
// No connection stays open between operations; each one opens, works and closes.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <stdexcept>

struct sqlite3;
struct sqlite3_stmt;

namespace Base {

// A failure of the base, with a French message for the user.
class ErreurBase : public std::runtime_error {
public:
    explicit ErreurBase(const QString &message, int code = 0);
    QString message() const { return message_; }
    int code() const { return code_; }  // the engine's result code, 0 when the failure is not the engine's

private:
    QString message_;
    int code_ = 0;
};

class Connexion {
public:
    // Opens the base (korvane.kvx by default) with its key. Throws ErreurBase.
    // A missing file is an error unless creer is set. Messages name the file
    // nomAffiche when one is given (a base being built under a temporary name).
    // lecture opens the file for reading only. A base found damaged at start, or that
    // its owner made read-only, is opened so whatever is asked.
    explicit Connexion(const QString &chemin = QString(), bool creer = false, const QString &nomAffiche = QString(),
                       bool lecture = false);
    ~Connexion();
    Connexion(const Connexion &) = delete;
    Connexion &operator=(const Connexion &) = delete;

    sqlite3 *db() const { return db_; }
    const QString &nomAffiche() const { return affiche_; }
    void executer(const char *sql);  // statements without parameters or results
    void verifier(int code) const;   // Base::verifier for this base
    int changements() const;         // rows changed by the last statement
    qint64 dernierRowid() const;     // row of the last insertion

    // Everything between debut and valider is written whole or not at all.
    void debutTransaction();
    void valider();

private:
    sqlite3 *db_ = nullptr;
    QString chemin_;
    QString affiche_;
    bool transaction_ = false;
    bool endommagee_ = false;
};

// A statement with bound parameters (indexes from 1), stepped row by row.
class Requete {
public:
    Requete(Connexion &connexion, const char *sql);
    ~Requete();
    Requete(const Requete &) = delete;
    Requete &operator=(const Requete &) = delete;

    Requete &lier(int indice, int valeur);
    Requete &lier(int indice, qint64 valeur);
    Requete &lier(int indice, const QString &valeur);
    Requete &lierOctets(int indice, const QByteArray &valeur);
    Requete &lierNull(int indice);

    bool suivante();  // true while there is a row
    void executer();  // runs to the end, then is ready to be bound and run again

    bool estNull(int colonne) const;
    int entier(int colonne) const;
    qint64 entierLong(int colonne) const;
    QString texte(int colonne) const;  // null reads as the empty text
    // The UTF-8 bytes of a text column where the engine holds them: valid until the
    // next row.
    QByteArrayView texteUtf8(int colonne) const;
    QByteArray octets(int colonne) const;
    // The bytes of a blob column where the engine holds them, valid until the next
    // row; empty for any other kind of value (a text is not taken for a blob).
    QByteArrayView octetsBlob(int colonne) const;

private:
    Connexion &connexion_;
    sqlite3_stmt *stmt_ = nullptr;
};

// Translates an engine result code into ErreurBase, in French, naming the file
// nom; does nothing on success.
void verifier(int code, const QString &nom);

// Makes sure the base exists: a missing file is created, for the user alone, with
// its schema, the template folders and the stock icons. An existing file must be a
// Korvane base opened by our key, or ErreurBase says why; its content is never
// changed here, but rights that let other users read it (its own and its copy's)
// are narrowed to the user's. A base that the engine's integrity check finds
// damaged is kept read-only for the run: the French notice returned says so and
// names the copy of the base before it; empty when the base is sound.
QString preparerBase(const QString &chemin = QString());

// True when the file opens with our key, has the four tables with all their
// columns and passes the engine's integrity check; otherwise raison says in French
// what is wrong. The file is only read.
bool estBaseKorvane(const QString &chemin, QString *raison = nullptr);

// The base at chemin (korvane.kvx by default) was found damaged at start: no
// connection writes to it. oublierEndommagee when a sound base took its place.
bool estEndommagee(const QString &chemin = QString());
void oublierEndommagee(const QString &chemin = QString());

// The files that go with a base: the copy of the base it replaced, and the lock
// that keeps a second copy of Korvane off it.
QString cheminSauvegarde(const QString &chemin = QString());
QString cheminVerrou(const QString &chemin = QString());

// The template folders a new base receives, under account 0.
QStringList dossiersModeles();

}  // namespace Base
