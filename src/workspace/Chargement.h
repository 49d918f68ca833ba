#pragma once
// Reads an account's tree from the base, deciphered, in the order the grid shows it.

#include <QList>
#include <QString>
#include <QStringList>

namespace Chargement {

struct Document {
    // Fields 3 to 11 deciphered (empty where null), then the account, Num and
    // NumDossier as text, and one unused element: what the grid receives per row.
    QStringList infos;
    int icone = 0;  // as stored; 0 means none
    QString num;
    QString dossier;
    qint64 rowid = 0;  // the row of the base, the one key that names it alone
};

struct Dossier {
    int num = 0;
    qint64 rowid = 0;
    QString nom;                // as stored, without the grid's leading blank
    QList<Document> documents;  // by title as shown, in French order
};

// The folders of the account by name in French order, each with its documents. An account without
// folders first receives a copy of the template folders.
QList<Dossier> lireArbre(int numCompte);

}  // namespace Chargement

// A number for a new folder: one above the highest of all accounts, 1 for none.
int ChercherNouveauNumDossier();

// Copies the template folders (account 0) to the account, with their numbers.
void GénérerDossiersDefaut(int numCompte);
