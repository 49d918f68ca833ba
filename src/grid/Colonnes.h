#pragma once
// The columns of a row of the grid, by what they hold. Columns 0 to 10 are painted;
// 11 to 18 keep the row's data out of sight.

namespace Colonne {

// A folder's row writes its name from column 1 on; a document's row shows its icon there.
constexpr int Icone = 1;
constexpr int Nom = 2;  // a folder's name, after a blank

// The eight fields of a document, in the order of the base.
constexpr int Titre = 3;
constexpr int Login = 4;
constexpr int MotDePasse = 5;
constexpr int Url = 6;
constexpr int Fichier = 7;
constexpr int DateDebut = 8;
constexpr int DateFin = 9;
constexpr int Remarques = 10;
constexpr int PremierChamp = Titre;
constexpr int DernierChamp = Remarques;
constexpr int NbChamps = DernierChamp - PremierChamp + 1;

// Hidden.
constexpr int Type = 11;         // "P" folder, "F" document
constexpr int Etat = 12;         // folder: "B" open, "A" closed; document: its folder's place
constexpr int Numero = 13;       // folder: its place; document: its icon's number
constexpr int Icone2 = 14;       // a document's second icon, always 0
constexpr int NumCompte = 15;    // a document's account
constexpr int NumDocument = 16;  // a document's number
constexpr int NumDossier = 17;   // the folder's number, on both kinds of rows
// SQLite's rowid of the row's document or folder: numbers may repeat in a base
// edited by hand, this key never does.
constexpr int Rowid = 18;

}  // namespace Colonne
