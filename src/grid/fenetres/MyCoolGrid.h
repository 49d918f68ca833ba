#pragma once
// The grid of folders and documents of the main window. The rows, the click logic
// and the cells are ModeleGrille's; this widget paints the rows in view, scrolls
// under the title and column headings (which stay in view), and turns the mouse
// and the keyboard into the grid's click, double click and requests.

#include "grid/ModeleGrille.h"
#include "store/Def.h"

#include <QAbstractScrollArea>
#include <QFontMetrics>
#include <QHash>
#include <QPixmap>
#include <vector>

class MyCoolGrid : public QAbstractScrollArea, public ModeleGrille, public SelectionGrille {
    Q_OBJECT
public:
    explicit MyCoolGrid(QWidget *parent = nullptr);

    // The picture of column 1 of the row: the folder picture, a document's icon,
    // or the band of the title or section row, at its own size. Repainting stays
    // off until the next operation.
    QPixmap GetCellPicture(int Ligne);
    // As a click on the row would; the row is also scrolled into view.
    void SelectLine(int Ligne);
    // Scrolls just enough for the row to stand in view under the headings.
    void rendreVisible(int Ligne);
    // Height of the rows that never scroll: the title and the column headings.
    int hauteurEntetes() const;

    // For the store: the hidden keys of the row of the last click.
    QString texteSelection(CleGrille cle) const override;

    QSize sizeHint() const override { return {465, 320}; }

    // Passwords are painted as a fixed row of dots, whatever their length, unless shown.
    void definirMotsDePasseVisibles(bool visibles);
    bool motsDePasseVisibles() const { return motsDePasseVisibles_; }
    // The text a cell paints: its own, or the dots of a hidden password.
    QStringView texteAffiche(int ligne, int colonne) const;

    // Who opened the icon picker: "A" for the document dialog, empty for the main window.
    QString Tag;

signals:
    void Click();
    void DblClick();
    // The cell under a double click (a row from 2, a column from 0).
    void DoubleClicCellule(int ligne, int colonne);
    // The row's menu, by the right button or from the keyboard, at a point of the screen.
    void MenuDemande(const QPoint &position);
    // Keys on the selected row: Enter (but on a folder) or F2, and Delete.
    void EditionDemandee();
    void SuppressionDemandee();

protected:
    void paintEvent(QPaintEvent *evenement) override;
    void resizeEvent(QResizeEvent *evenement) override;
    void mousePressEvent(QMouseEvent *evenement) override;
    void mouseReleaseEvent(QMouseEvent *evenement) override;
    void mouseDoubleClickEvent(QMouseEvent *evenement) override;
    void contextMenuEvent(QContextMenuEvent *evenement) override;
    void keyPressEvent(QKeyEvent *evenement) override;
    void focusInEvent(QFocusEvent *evenement) override;
    void focusOutEvent(QFocusEvent *evenement) override;
    bool viewportEvent(QEvent *evenement) override;
    void changeEvent(QEvent *evenement) override;

    void demanderAffichage() override;
    void leverClick() override { emit Click(); }
    void appliquerCadre() override;
    void appliquerEnabled() override { setEnabled(Enabled()); }
    int decalageVertical(int ligne) const override;

private:
    void actualiserDefilement();
    int ligneSous(const QPoint &position) const;
    int colonneSous(const QPoint &position) const;  // -1 beyond the painted columns
    int lignePage(int sens) const;                  // a screen further down (+1) or up (-1)
    void bordsColonnes(int *bords) const;
    // The text of the cell under the point when it shows cut, for its tool tip.
    QString texteCoupe(const QPoint &position);
    void peindreLignes(QPainter &p, int premiere, int derniere, int decalage, const QRect &zone, const int *bords);
    void peindreLigne(QPainter &p, int ligne, const QRect &rect, const int *bords);
    // bandeLigne: the band picture under the whole row, 0 for none.
    void peindreCellule(QPainter &p, const grille::Cellule &cel, QStringView texte, const QRect &rect, int bandeLigne);
    struct Police {
        QFont police;
        QFontMetrics mesures;
    };
    const Police &policePour(const grille::Cellule &cel);
    QPixmap imageTitre(int numero);
    QPixmap icone(int numero);

    bool affichagePrevu_ = false;
    bool motsDePasseVisibles_ = false;
    int lignePressee_ = -1;
    QHash<int, Police> polices_;  // by size and weight
    QHash<int, QPixmap> imagesTitre_;
    QHash<int, QPixmap> icones_;  // the library at the size of a cell by Num, made on first use
    quint64 generationIcones_ = ~quint64(0);
};
