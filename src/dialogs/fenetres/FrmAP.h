#pragma once
// The about box: the program's name, what it is for, its version.

#include "FenetreDialogue.h"

#include <array>

class QLabel;

class FrmAP : public FenetreDialogue {
    Q_OBJECT
public:
    explicit FrmAP(QWidget *parent = nullptr, MyCoolGrid *grille = nullptr);

    std::array<QLabel *, 2> L{};  // 1 the heading
    QLabel *Image1 = nullptr;
};
