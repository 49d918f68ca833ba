#pragma once
// Changes the password of the current account.

#include "store/fenetres/FenetreCompte.h"

#include <array>

class QLabel;
class QLineEdit;

class FrmModifLogin : public FenetreCompte {
    Q_OBJECT
public:
    explicit FrmModifLogin(QWidget *parent = nullptr);

    QLineEdit *Login = nullptr;
    QLineEdit *Pass = nullptr;
    QLineEdit *Pass2 = nullptr;
    enum : int { LibelleVerification,
                 LibelleEntete,
                 NbLibelles };
    std::array<QLabel *, NbLibelles> L{};

private:
    void ChercherLogin();
    void clicOK() override;
};
