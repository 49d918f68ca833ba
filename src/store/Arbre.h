#pragma once
// An account's tree as the base holds it: its folders, its documents deciphered,
// and the numbers new folders and documents take.

#include "Base.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace Arbre {

struct Document {
    // What the grid receives for the row from its column 3: the eight fields
    // deciphered (empty where null), seven empty texts for the columns the grid
    // fills itself, then the rowid for column 18.
    QStringList infos;
    int icone = 0;  // as stored; 0 means none
    QString num;
    QString dossier;
    qint64 rowid = 0;  // the row of the base, the one key that names it alone
};

struct Dossier {
    int num = 0;
    qint64 rowid = 0;
    QString nom;  // as stored, without the grid's leading blank
};

// One read of an account's tree, on one connection: its folders, then its documents
// one by one in the order the file holds them, without an index, so that each page
// is read and deciphered once. The documents may be stepped on another thread than
// the one that made the read, one thread at a time.
class Lecture {
public:
    explicit Lecture(int numCompte);  // throws Base::ErreurBase

    // The account's folders in the order the file holds them.
    QList<Dossier> dossiers();

    // Steps to the next document of the account; false at the end.
    bool documentSuivant();
    // The folder number of the current document.
    int numDossier() const;
    // The current document, as the grid receives it; d's room is reused.
    void lireDocument(Document &d) const;

private:
    int numCompte_;
    Base::Connexion connexion_;
    std::optional<Base::Requete> documents_;
};

// One document of the account by its row of the base, as Lecture gives it; false
// when the account has no such row.
bool lireDocument(int numCompte, qint64 rowid, Document &document);

// The name and number of the account's folder of that row, and how many of the
// account's documents carry that number; false when there is no such folder.
bool lireDossier(int numCompte, qint64 rowid, QString &nom, int &num, int &documents);

}  // namespace Arbre

// A number for a new folder: one above the highest of all accounts, 1 for none.
int ChercherNouveauNumDossier();

// A number for a new document: one above the highest of all accounts, 1 for an
// empty table. Throws Base::ErreurBase when the base can't be read.
int ChercherNouveauNumDocument();

// Copies the template folders (account 0) to the account, with their numbers.
void GenererDossiersDefaut(int numCompte);
