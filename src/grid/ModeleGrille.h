#pragma once
// The logic of MyCoolGrid, apart from any widget: a two-level tree of folders and
// documents drawn as marks into a flat grid of 20 cells a row.
//
// Row 0 is the title, row 1 the section with the column titles, then each folder
// row ("P" in column 11) followed by its document rows ("F"). Columns 0 to 2 hold
// pictures, 3 to 10 the eight fields, 11 to 19 the hidden data of the row: its kind,
// the folder's state or number, icon numbers and the keys of the base. Everything a
// caller wants to know of a row is read back from the cells.
//
// Rows and columns that don't exist are refused quietly: reading gives the empty
// text, writing does nothing, and the grid stays usable.

#include "Grille.h"
#include "ListeImages.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <array>
#include <vector>

class ModeleGrille {
public:
    ModeleGrille();
    virtual ~ModeleGrille() = default;

    int LigneCourante = 0;  // row of the last click
    int NbLignes = 0;       // rows added since the last Clear; deletions don't count

    // Rows and operations.
    void AddTitle(const QString &Titre);
    void AddSection(const QStringList &Titres, int Image1, int Image2);
    // Cle comes in as the folder's key of the base (kept in column 17) and goes
    // out as the folder's number in the grid, the one AddFils takes.
    void AddParent(const QString &Nom, QVariant &Cle);
    // Parent is the folder's number; it is one higher on return.
    void AddFils(const QStringList &Infos, int &Parent, int Icone, int Icone2, const QString &Cle1,
                 const QString &Cle2, const QString &Cle3);
    // Loading in bulk: a document appended at the end of the grid, whatever its
    // folder, then all of them put in place at once. ordreParDossier gives, for each
    // folder number, its documents' rows in the order AddFils would have been called
    // for them; the grid is then what those calls would have made it.
    int ajouterFilsEnVrac(const QStringList &Infos, int Parent, int Icone, int Icone2, const QString &Cle1,
                          const QString &Cle2, const QString &Cle3);
    void rangerFilsEnVrac(const std::vector<std::vector<int>> &ordreParDossier);
    // Changes made in place, without reading the base again. oublierMarques goes
    // first, while the marked rows are where they were; commeCharge last: every
    // folder open, folder numbers and rows counted again, as a load leaves them.
    void oublierMarques();
    void insererFils(int Ligne, const QStringList &Infos, int Parent, int Icone, int Icone2, const QString &Cle1,
                     const QString &Cle2, const QString &Cle3);
    // Puts the folders, each with its documents, in the order given by their numbers.
    void rangerDossiers(const std::vector<int> &ordre);
    // The name shown by a folder's row, as AddParent writes it.
    void renommerParent(int Ligne, const QString &Nom);
    void commeCharge();
    // The first and the last row of folder numero's documents (fin < debut when it has none).
    void lignesFils(int numero, int &debut, int &fin) const;
    // Keeps the row of the base (column 18) on a grid row, without repainting.
    void definirRowid(int Ligne, qint64 Rowid);
    // A folder's row or a document's row goes, the same single step; nothing else of
    // the folders is counted again, as the owner reloads after it.
    void DelParent(int Ligne);
    void DelFils(int Ligne) { DelParent(Ligne); }
    // Closes every open folder, or opens every closed one, each as a click would. Part
    // of the grid's public face though the program itself never calls it.
    void Expend(bool Fermer);
    QString GetParentEtat(int Ligne) const;
    bool HasLigneFils(int Ligne) const;
    bool IsLigneParent(int Ligne) const;
    void SelectLine(int Ligne);  // as a click on the row would, Click included
    // The keyboard's move: as a click on the row, Click included, but a folder is
    // neither opened nor closed.
    void AllerALigne(int Ligne);
    // Rows a user can see and choose (from row 2, not inside a closed folder): the
    // next one after Ligne in the direction sens (+1 or -1), the first and the last;
    // -1 when there is none.
    int LigneVisibleVoisine(int Ligne, int sens) const;
    int PremiereLigneVisible() const { return LigneVisibleVoisine(1, 1); }
    int DerniereLigneVisible() const { return LigneVisibleVoisine(flxGrd.Rows(), -1); }
    // The row of the folder of key Num (column 17), or of the document of keys Num
    // and NumDossier (columns 16 and 17), and of row Rowid of the base (column 18)
    // when one is given; -1 when the grid has none.
    int LigneDeCle(bool dossier, const QString &NumDossier, const QString &Num = QString(),
                   const QString &Rowid = QString()) const;
    void Clear();
    // limite is the row after the next folder's row, or 0 for the last folder.
    void OuvrirParent(int Ligne, int limite);
    void FermerParent(int Ligne, int limite);
    void MarquerLigne();

    // Colours, pictures and widths.
    void ChargerParamCouleurs();
    bool ChargerIconesDatabase();  // false, and no icons, when the base can't be read
    void ReChargerIcones(const ListeImages &source);
    void ReDessiner();
    void Refresh();
    void Redimensionner(int largeurInterieure);  // in pixels

    // Cell access. Geometry is in pixels: the cell's width, its top from the top of
    // the control as it is scrolled, and its height (0 inside a closed folder).
    bool SetColumnInfos(int Ligne, int Colonne, const QVariant &Valeur);
    void MajColumnInfos(int Ligne, int Colonne, const QVariant &Valeur);
    QString GetColumnInfos(int Ligne, int Colonne);
    QString GetColumnInfos(int Ligne, int Colonne, int &Largeur, int &Haut, int &Hauteur);

    // Properties.
    int NbColonnes() const { return nbColonnes_; }
    void NbColonnes(int valeur) { nbColonnes_ = valeur; }
    int Backcolor() const { return backcolor_; }
    void Backcolor(int valeur);
    int GridColor() const { return gridColor_; }
    void GridColor(int valeur);
    int LineColor1() const { return lineColor1_; }
    void LineColor1(int valeur) { lineColor1_ = valeur; }
    int LineColor2() const { return lineColor2_; }
    void LineColor2(int valeur) { lineColor2_ = valeur; }
    int Appearance() const { return appearance_; }
    void Appearance(int valeur);
    int BorderStyle() const { return borderStyle_; }
    void BorderStyle(int valeur);
    bool Enabled() const { return enabled_; }
    void Enabled(bool valeur);
    bool Redraw() const { return redraw_; }
    void Redraw(bool valeur);

    // Read access for the painting and for the checks of the tests.
    const grille::Grille &cellules() const { return flxGrd; }
    const ListeImages &imagesContenu() const { return imgCONTENU; }
    QString texte(int ligne, int colonne) const;    // empty when the cell doesn't exist
    QStringView vue(int ligne, int colonne) const;  // the same, read in place
    int ligneMarquee() const { return LigneMarquee; }
    int ligneGras() const { return LigneGras; }
    int couleurSelection() const { return CouleurSelection; }
    int nbParents() const { return NbParents; }
    int ligneParent(int numero) const;  // -1 for a number never given

    // The picture of column 1 of the row, as GetCellPicture hands it out.
    struct ImageCellule {
        grille::Source source = grille::Source::Aucune;
        int numero = 0;
    };
    ImageCellule imageColonne1(int Ligne);

protected:
    virtual void demanderAffichage() {}  // something changed while Redraw is on
    virtual void leverClick() {}
    virtual void appliquerCadre() {}  // Appearance or BorderStyle changed
    virtual void appliquerEnabled() {}
    // How far the row lies above where row 0 would put it: the scroll, for the rows that scroll.
    virtual int decalageVertical(int ligne) const {
        (void)ligne;
        return 0;
    }

private:
    void logiqueClic(bool basculer = true);
    void basculerParent(int ligne);
    void effacerMarque();  // the marked row gets its colour back
    void calculerLargeurs();
    void ecrire(int ligne, int colonne, QStringView valeur);
    void remplirFils(int ligne, const QStringList &Infos, int Parent, int Icone, int Icone2, const QString &Cle1,
                     const QString &Cle2, const QString &Cle3);

    grille::Grille flxGrd;
    ListeImages imgCONTENU;
    int ligneSel_ = 0;  // the row the next click logic works on

    int NbParents = 0;
    std::vector<int> LignesParents{0};  // row of each folder, by folder number
    int LigneMarquee = 0;               // row in the selection colour; 0 for none
    int LigneGras = 0;                  // folder row whose name is bold; 0 for none
    QString CouleurMarquee;             // back colour the marked row had
    bool AlternanceLigne = false;

    int CouleurTitre = 0;
    int CouleurSection = 16777215;
    int CouleurParent = 0;
    int CouleurFils = 0;
    int CouleurSelection = 14737632;
    std::array<double, 8> ProportionsColonnes{};
    int largeurInterieure_ = 0;

    int nbColonnes_ = 0;
    int backcolor_ = 16777215;
    int gridColor_ = 16777215;
    int lineColor1_ = 16777215;
    int lineColor2_ = 16777215;
    int appearance_ = 0;
    int borderStyle_ = 1;
    bool enabled_ = true;
    bool redraw_ = true;
};
