#pragma once
// The main window, where the logged-in user works on the tree of folders and documents.

#include "ui/FenetreCadre.h"

class frmMain : public FenetreCadre {
    Q_OBJECT
public:
    explicit frmMain(QWidget *parent = nullptr);
};
