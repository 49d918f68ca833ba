#pragma once
// The search window: folders by name or documents by title, among the rows the main
// window's grid holds; a hit chosen takes the user to its row.

#include "dialogs/fenetres/FenetreDialogue.h"

#include <array>

class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;

class FrmRecherche : public FenetreDialogue {
    Q_OBJECT
public:
    // Searches the rows of grille and takes the user to the one chosen; null finds nothing.
    FrmRecherche(QWidget *parent, MyCoolGrid *grille);

    QLineEdit *Saisie = nullptr;
    std::array<QRadioButton *, 2> OptRec{};     // 0 folders, 1 documents
    std::array<BoutonImage *, 1> OInterface{};  // 0 "Valider"
    QListWidget *Liste = nullptr;               // the hits; each item's key is in its data
    enum : int { LibelleListe,
                 LibelleEntete,
                 NbLibelles };  // above the list, the heading
    std::array<QLabel *, NbLibelles> L{};

private:
    void clicValider();
    void choisirResultat();
    bool eventFilter(QObject *objet, QEvent *evenement) override;
};
