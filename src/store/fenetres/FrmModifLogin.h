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
    std::array<QLabel *, 2> L{};  // 0 "Vérification", 1 the heading

private:
    void ChercherLogin();
    void clicOK();
    bool eventFilter(QObject *objet, QEvent *evenement) override;
};
