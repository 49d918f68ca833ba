#pragma once
// Changes the password of the current account.

#include "ui/fenetres/FenetreCadre.h"

#include <array>

class QLabel;
class QLineEdit;

class FrmModifLogin : public FenetreCadre {
    Q_OBJECT
public:
    explicit FrmModifLogin(QWidget *parent = nullptr);

    QLineEdit *Login = nullptr;
    QLineEdit *Pass = nullptr;
    QLineEdit *Pass2 = nullptr;
    BoutonImage *OK = nullptr;
    enum : int { LibelleVerification, LibelleEntete, NbLibelles };
    std::array<QLabel *, NbLibelles> L{};

private:
    void ChercherLogin();
    void clicOK();
    bool eventFilter(QObject *objet, QEvent *evenement) override;
};
