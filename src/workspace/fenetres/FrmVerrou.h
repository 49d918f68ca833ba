#pragma once
// The window of a locked session: the account's name, its password asked again, and
// the ways out that need no password (another account, or quit). Nothing of the
// account's documents is shown while it stands.

#include "store/fenetres/FenetreCompte.h"

#include <QTimer>

class QLabel;
class QLineEdit;
class Verrou;

class FrmVerrou : public FenetreCompte {
    Q_OBJECT
public:
    FrmVerrou(Verrou &verrou, const QString &login, QWidget *parent = nullptr);

    QLineEdit *Pass = nullptr;
    QLabel *Compte = nullptr;
    QLabel *Avis = nullptr;  // why the password was refused, or how long to wait
    BoutonImage *ChangerCompte = nullptr;
    BoutonImage *Quitter = nullptr;

signals:
    void deverrouillee();
    void changementDeCompte();
    void sortie();

private:
    void clicOK() override;
    void attendre(int secondes);
    void seconde();
    void direAttente();

    Verrou &verrou_;
    QTimer minuterie_;
    int restantes_ = 0;
};
