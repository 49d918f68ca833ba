#pragma once
// What the dialogs share: the modal display over the window that opens them, the
// two stock pictures of that window's grid in the frame, and the colours of the
// settings. A dialog is handed what it reads (the grid, the image list) by its
// caller, and tells what it wrote by its signals: it never reaches the main window.

#include "ui/fenetres/FenetreCadre.h"

#include <QPixmap>
#include <QPointer>

class QLabel;
class MyCoolGrid;

// A frame part that shows a picture handed over at run time: stretched (a band)
// or at its own size in the middle (a picture).
class PanneauStock : public PanneauImage {
    Q_OBJECT
public:
    PanneauStock(bool etire, QWidget *parent);
    void definirImage(const QPixmap &image);
    QPixmap image() const { return image_; }

protected:
    void paintEvent(QPaintEvent *) override;

private:
    bool etire_;
    QPixmap image_;
};

class FenetreDialogue : public FenetreCadre {
    Q_OBJECT
public:
protected:
    // The grid of the window that opened the dialog, or null.
    MyCoolGrid *grille() const;

    // grille may be null: the dialog then works alone and reloads nothing.
    FenetreDialogue(QWidget *parent, MyCoolGrid *grille);

    // Fond[FondBande] takes the band of the grid's title row, Fond[FondDossier] the
    // folder picture of its first folder row; the artwork stands in when the grid has none.
    void chargerImagesStock();
    // Writes text in colour on the label, on a background it can be read on.
    static void colorerLibelle(QLabel *libelle, int couleur, bool pastille);

    void finDeplacement() override;

    // A dialog whose typing may be lost: what it holds differs from what it showed when
    // it came up (noted by memoriserEtatInitial at that moment). Closing it other than
    // by its own store then asks whether to store, and enregistrer does it.
    virtual void memoriserEtatInitial() {}
    virtual bool modifie() const { return false; }
    // Stores what the dialog holds; false, the reason told, keeps it open.
    virtual bool enregistrer() { return true; }
    // Closes after a store, without the question.
    void fermerEnregistre();

    void showEvent(QShowEvent *e) override;
    void closeEvent(QCloseEvent *e) override;

private:
    QPointer<MyCoolGrid> grille_;
    bool enregistre_ = false;
};
