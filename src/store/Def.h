#pragma once
// Shared operations: the writes of documents and folders, and the file association.

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QStringList>

// What the store operations need to know of the grid: the keys the selected row
// keeps out of sight.
enum class CleGrille {
    NumDocument,
    NumDossier,
    // SQLite's rowid of the row's document or folder: numbers may repeat in a base
    // edited by hand, this key never does.
    Rowid,
};
class SelectionGrille {
public:
    virtual ~SelectionGrille() = default;
    virtual QString texteSelection(CleGrille cle) const = 0;
};

namespace Def {

constexpr int kLongueurChamp = 255;

// The grid the operations read their keys from; the main window registers its own.
void definirSelectionGrille(const SelectionGrille *grille);
// Forgets the grid if it is still the registered one (a window that goes after its successor came).
void oublierSelectionGrille(const SelectionGrille *grille);

// A field of a document by its position (3 to 11), or empty when there is none.
QString nomChampDocument(int indice);

// Cuts a value to the 255 characters a field holds, never inside a character.
QString couperChamp(const QString &valeur);

}  // namespace Def

// Writes field indice (3 to 10) of the selected document; the caller enciphers first.
// Returns false when nothing was written (other index, no selection, document gone).
bool MajChampDocument(int indice, const QString &valeur);
// Writes the icon number of the selected document, so that an icon chosen in the main
// window survives the next reload. False when the grid has no document selected;
// throws Base::ErreurBase when its row has left the base.
bool EcrireIconeDocument(int icone);
bool SupprimerDocument();
bool SupprimerDossier(int num);
// A whole new document (fields 3 to 11) written in one go: all of it or nothing.
// rowid, when given, receives the row written.
bool EcrireDocument(int num, const QStringList &champs, qint64 *rowid = nullptr);
// Fields of the selected document (3 to 11, in their stored form) written over its
// row, all in one go. False when the grid has no document selected; throws
// Base::ErreurBase when its row has left the base.
bool ModifierDocument(const QList<QPair<int, QString>> &champs);
bool EcrireDossier(const QString &nom, int num, qint64 *rowid = nullptr);

// Registers .kvx files with Korvane for the current user. Run from its own folder, Korvane
// writes the type, its entry and icon; installed, the package has them and only the choice
// of Korvane as default application is written.
void AssocierExtension();
// Installed, removes the user's own desktop entry that a copy run from its folder wrote:
// it would hide the package's entry and start that copy.
void OterEntreePortable();
