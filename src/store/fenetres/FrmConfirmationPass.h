#pragma once
// The new account's password typed a second time, before the account is made: a
// typo in the first box would otherwise lock its owner out of it.

#include "store/fenetres/FenetreCompte.h"

class QLabel;
class QLineEdit;

class FrmConfirmationPass : public FenetreCompte {
    Q_OBJECT
public:
    FrmConfirmationPass(const QString &login, QWidget *parent = nullptr);

    enum class Resultat { Confirme,
                          Different,
                          Annule };
    // Asks over parent for the password once more and compares it with pass.
    static Resultat confirmer(const QString &login, const QString &pass, QWidget *parent);

    QLabel *Consigne = nullptr;
    QLineEdit *Pass = nullptr;

private:
    void clicOK() override;
    bool valide_ = false;
};
