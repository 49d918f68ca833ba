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
    std::array<QLabel *, 2> L{};  // 0 "Vérification", 1 the heading

private:
    void ChercherLogin();
    void clicOK() override;
};
