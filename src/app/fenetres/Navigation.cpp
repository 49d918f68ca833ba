#include "Navigation.h"

#include "store/fenetres/FrmLogin.h"
#include "store/Session.h"
#include "ui/PressePapiers.h"
#include "workspace/fenetres/frmMain.h"

#include <QPointer>

namespace Navigation {

namespace {
QPointer<FrmLogin> login;
QPointer<frmMain> principale;

// The window that comes takes the keyboard: typing goes to it at once.
void montrer(QWidget *w) {
    w->show();
    w->raise();
    w->activateWindow();
}

void fermer(QWidget *w) {
    if (!w) return;
    w->hide();
    w->deleteLater();
}
}  // namespace

FrmLogin *fenetreLogin() { return login; }
frmMain *fenetrePrincipale() { return principale; }

void afficherPrincipale() {
    // The main window shows the tree of the logged-in account only.
    if (!Session::Ouverte) return;
    fermer(login);
    login = nullptr;
    fermer(principale);
    principale = new frmMain;
    QObject::connect(principale, &frmMain::loginDemande, principale, [] { afficherLogin(); });
    montrer(principale);
}

void afficherLogin() {
    // What the account copied does not stay for the next one, nor over a replaced base.
    PressePapiers::instance().effacerSiIntact();
    fermer(principale);
    principale = nullptr;
    fermer(login);
    login = new FrmLogin;
    QObject::connect(login, &FrmLogin::reussite, login, [] { afficherPrincipale(); });
    QObject::connect(login, &FrmLogin::retour, login, [] { afficherPrincipale(); });
    login->charger();
    if (login && !login->connexionReussie()) montrer(login);
}

void fermerTout() {
    fermer(login);
    fermer(principale);
    login = nullptr;
    principale = nullptr;
}

}  // namespace Navigation
