#pragma once
// Reads an account's tree from the base, deciphered, in the order the grid shows it.

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace Chargement {

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

// Reads the account's tree: first its folders by name in French order, then every
// document of the account, deciphered, in the order the file holds them, with the
// place of its folder in that list (one pass over the table, each page of the file
// read once). A document whose folder is gone is left out. An account without
// folders first receives a copy of the template folders.
void lireArbre(int numCompte, const std::function<void(const QList<Dossier> &)> &recevoirDossiers,
               const std::function<void(int indiceDossier, const Document &)> &recevoirDocument);

// One document of the account by its row of the base, as lireArbre gives it; false
// when the account has no such row.
bool lireDocument(int numCompte, qint64 rowid, Document &document);

// The name and number of the account's folder of that row, and how many of the
// account's documents carry that number; false when there is no such folder.
bool lireDossier(int numCompte, qint64 rowid, QString &nom, int &num, int &documents);

// The orders of a load. A folder comes by name, in French order; equal names by
// their bytes, then their number. A document comes by title, in French order; equal
// titles by number, then by row of the base. Each answers positions into its list.
std::vector<int> ordreDesDossiers(const std::vector<QStringView> &noms, const std::vector<int> &nums);
struct RangDocument {
    QStringView titre;
    int num = 0;
    qint64 rowid = 0;
};
std::vector<int> ordreDesDocuments(const std::vector<RangDocument> &documents);
// Below 0 when a comes before b in that order, above 0 when after.
int comparerDocuments(const RangDocument &a, const RangDocument &b);

}  // namespace Chargement

// A number for a new folder: one above the highest of all accounts, 1 for none.
int ChercherNouveauNumDossier();

// Copies the template folders (account 0) to the account, with their numbers.
void GenererDossiersDefaut(int numCompte);
