#pragma once
// The account's tree in the grid: loaded whole, or brought up to date after a write
// in place. A load reads every document, which takes a second on a large account;
// in place only the row written is read, and put where a load would have put it.

#include <QtGlobal>

class ModeleGrille;

namespace MiseAJourGrille {

// The title and the columns' section, at the top of an empty grid.
void entetes(ModeleGrille &grille);
// The account's tree, below them. A base that can't be read throws Base::ErreurBase,
// leaving what was read so far, with the grid's painting still held.
void chargerArbre(ModeleGrille &grille, int numCompte);

// The document of that row of the base, read and put among its folder's, in their
// order. False, the grid untouched, when a load alone knows where it goes (no such
// row, or its folder is not in the grid).
bool placerDocument(ModeleGrille &grille, int numCompte, qint64 rowid);

// The folder of that row of the base, renamed or added, then every folder put in
// order with its documents. False, the grid untouched, when a load alone knows:
// another folder shares its number, or a new folder finds documents waiting for it.
bool placerDossier(ModeleGrille &grille, int numCompte, qint64 rowid);

}  // namespace MiseAJourGrille
