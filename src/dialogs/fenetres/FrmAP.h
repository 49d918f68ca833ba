#pragma once
// The about box: the program's name, what it is for, its version.

#include "FenetreDialogue.h"

#include <array>

class QLabel;

class FrmAP : public FenetreDialogue {
    Q_OBJECT
public:
    explicit FrmAP(QWidget *parent = nullptr, MyCoolGrid *grille = nullptr);

    enum : int { LibelleTexte,
                 LibelleEntete,
                 NbLibelles };
    std::array<QLabel *, NbLibelles> L{};
    QLabel *Image1 = nullptr;
};
