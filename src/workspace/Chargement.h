#pragma once
// Reads an account's tree from the base, deciphered, in the order the grid shows it.

#include "store/Arbre.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace Chargement {

// The rows of the tree, as the store reads them.
using Arbre::Document;
using Arbre::Dossier;

// Reads the account's tree: first its folders by name in French order, then every
// document of the account, deciphered, in the order the file holds them, with the
// place of its folder in that list (one pass over the table, each page of the file
// read once). A document whose folder is gone is left out. An account without
// folders first receives a copy of the template folders.
void lireArbre(int numCompte, const std::function<void(const QList<Dossier> &)> &recevoirDossiers,
               const std::function<void(int indiceDossier, const Document &)> &recevoirDocument);

// One document, or one folder, of the account by its row of the base.
using Arbre::lireDocument;
using Arbre::lireDossier;

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
