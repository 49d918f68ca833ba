#include "Navigation.h"

#include "options/Exports.h"
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

void finirSession() {
    // What the account copied or exported does not stay for the next one, nor over a
    // replaced base; at start, files a crash left behind go too.
    PressePapiers::instance().effacerSiIntact();
    if (principale) principale->finirSession();
    Exports::supprimerFichiers();
}

void afficherLogin() {
    finirSession();
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
