#pragma once
// The plain cell grid under MyCoolGrid: rows of 20 cells with their text, picture,
// colours, bold and alignment, a height per row and a merge flag per row. It knows
// nothing of folders and documents; ModeleGrille draws the tree into it.
//
// Heights and widths are kept in twips, the unit the grid's rules are written in;
// the pixel view (15 twips to the pixel) is what the painting and the mouse use.

#include <QString>
#include <QStringView>
#include <array>
#include <memory>
#include <vector>

namespace grille {

constexpr int kColonnes = 20;
constexpr int kTwipsParPixel = 15;
constexpr int kHauteurDefaut = 240;  // twips, a document row
constexpr int kLargeurDefaut = 960;  // twips, the columns nobody sizes

// Where a cell's picture comes from: the fixed pictures of title, section and
// folder rows, or the icon library. Both are numbered from 1.
enum class Source : quint8 { Aucune,
                             Titre,
                             Contenu };

// Cell alignments, numbered as the grid's callers know them.
enum Alignement : quint8 {
    GaucheHaut = 0,
    GaucheCentre = 1,
    CentreCentre = 4,
    General = 9,  // text at the left, centred in height
};

// The look of a cell. Its text is kept apart, with the other texts of its row, so
// that a row of 20 cells costs one allocation for its texts instead of twenty.
struct Cellule {
    int couleurTexte = 0;  // colour number, red in the low byte
    int couleurFond = 0;   // 0: no colour of its own, the grid's shows
    int image = 0;         // number in the list named by source
    Source source = Source::Aucune;
    quint8 alignement : 4 = General;
    quint8 alignementImage : 4 = General;
    bool gras = false;
    quint8 taillePolice = 0;  // points; 0 for the grid's own font

    void definirImage(Source s, int numero) {
        source = numero > 0 ? s : Source::Aucune;
        image = numero > 0 ? numero : 0;
    }
    void effacerImage() { definirImage(Source::Aucune, 0); }
};

// A number written in a cell, as the grid reads it back; what isn't one counts as 0.
inline int nombre(QStringView texte) {
    bool ok = false;
    const int n = texte.trimmed().toInt(&ok);
    return ok ? n : 0;
}

class Grille {
public:
    Grille();

    int Rows() const { return int(stockage_.size() - (finTrou_ - debutTrou_)); }
    // Grows with empty rows of the default height, or cuts at the end.
    void definirRows(int total);
    void AddItem(int position);  // an empty row before position (Rows() appends)
    void RemoveItem(int l);
    // Puts the rows in a new order: row i becomes the row that was ancienne[i]. The
    // list names every row once.
    void reordonner(const std::vector<int> &ancienne);
    void Clear() { definirRows(0); }

    bool existe(int ligne, int colonne = 0) const {
        return ligne >= 0 && ligne < Rows() && colonne >= 0 && colonne < kColonnes;
    }
    // All of these require existe(ligne, colonne).
    Cellule &cellule(int l, int colonne) { return rangee(l).cellules[size_t(colonne)]; }
    const Cellule &cellule(int l, int colonne) const { return rangee(l).cellules[size_t(colonne)]; }
    // The text of a cell, read in place: valid until the row's texts change.
    QStringView texte(int l, int colonne) const;
    void definirTexte(int l, int colonne, QStringView texte);
    // All the row's texts end to end, shared rather than copied: a later change to the
    // row leaves this copy as it was, and another thread may read it. texte(l, c)
    // points into it.
    QString textesPartages(int l) const { return rangee(l).textes; }
    // The texts of columns premiere, premiere + 1... of the row in one go.
    void definirTextes(int l, int premiere, const QStringView *textes, int nombre);

    int RowHeight(int l) const { return rangee(l).hauteur; }
    void RowHeight(int l, int twips);
    bool MergeRow(int l) const { return rangee(l).fusion; }
    void MergeRow(int l, bool fusion) { rangee(l).fusion = fusion; }
    int ColWidth(int colonne) const { return largeurs_[size_t(colonne)]; }
    void ColWidth(int colonne, int twips) { largeurs_[size_t(colonne)] = twips < 0 ? 0 : twips; }

    // The pixel view. A row of height 0 takes no pixel and is never found by ligneAuPixel.
    static int enPixels(int twips) { return (twips + kTwipsParPixel / 2) / kTwipsParPixel; }
    int hauteurPixels(int l) const { return enPixels(RowHeight(l)); }
    int largeurPixels(int colonne) const { return enPixels(ColWidth(colonne)); }
    int hautPixels(int l) const;  // top of the row from the top of row 0
    int hauteurTotalePixels() const { return hautPixels(Rows()); }
    int ligneAuPixel(int y) const;  // the row that covers y, or -1

    int BackColor = 16777215;     // behind cells without a colour of their own
    int BackColorBkg = 16777215;  // below the last row
    int GridColor = 16777215;     // the lines between cells

private:
    // A text is cut at 65,535 characters, far beyond any field of the base.
    static constexpr int kLongueurMax = 0xFFFF;
    struct Ligne {
        std::array<Cellule, kColonnes> cellules;
        QString textes;  // the cells' texts end to end
        std::array<quint16, kColonnes> longueurs{};
        int hauteur = kHauteurDefaut;
        bool fusion = false;

        int debut(int colonne) const {
            int d = 0;
            for (int c = 0; c < colonne; ++c) d += longueurs[size_t(c)];
            return d;
        }
    };

    // Rows are held by pointer in a vector with a gap where the last insertion
    // happened. Documents go in one after the other at the same place, right below
    // their folder, so each insertion costs the same however long the grid is.
    using PtrLigne = std::unique_ptr<Ligne>;
    size_t indice(int l) const { return size_t(l) < debutTrou_ ? size_t(l) : size_t(l) + (finTrou_ - debutTrou_); }
    Ligne &rangee(int l) { return *stockage_[indice(l)]; }
    const Ligne &rangee(int l) const { return *stockage_[indice(l)]; }
    void deplacerTrou(size_t position);
    void inserer(size_t position);

    std::vector<PtrLigne> stockage_;
    size_t debutTrou_ = 0;
    size_t finTrou_ = 0;
    std::array<int, kColonnes> largeurs_{};

    // Pixel heights as a Fenwick tree: the top of a row and the row under a pixel
    // in log time, whatever the number of rows of height 0. Rebuilt on demand after
    // rows come or go; kept up to date when a height changes.
    void construireArbre() const;
    mutable std::vector<int> arbre_;
    mutable bool arbreValide_ = false;
};

}  // namespace grille
