#pragma once
// The login window: choose an account, type its password, or create an account on the spot.

#include "store/fenetres/FenetreCompte.h"

#include <array>

class QComboBox;
class QLineEdit;
class QLabel;

class FrmLogin : public FenetreCompte {
    Q_OBJECT
public:
    explicit FrmLogin(QWidget *parent = nullptr);

    // The load: fills the list and makes the silent attempt of the entry it selects.
    void charger();

    QComboBox *Login = nullptr;
    QLineEdit *Pass = nullptr;
    enum : int { LibelleEntete = 1,
                 LibelleMotDePasse,
                 LibelleLogin,
                 NbLibelles };  // "Password", "Login"
    std::array<QLabel *, NbLibelles> L{};
    QLabel *Image1 = nullptr;

    bool connexionReussie() const { return reussie_; }

signals:
    void reussite();  // the session globals are set; the main window takes over
    void retour();    // closed outside program start: back to the main window

private:
    void ChargerLogin();
    void ChercherNumCompteValide();
    void ChercherLogin();
    void choixDansListe();
    void clicOK() override;
    void clicFermer();
    bool eventFilter(QObject *objet, QEvent *evenement) override;

    int NouveauNumCompte = 0;
    bool ChoixListe = false;
    QString tagPass_;  // deciphered stored password of the account last looked up
    bool reussie_ = false;
};
