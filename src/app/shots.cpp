// Renders each window of Korvane to a PNG, over a sample base, so that anyone can look at them.
// Usage: korvane_shots <folder>

#include "app/Navigation.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/Comptes.h"
#include "store/FrmLogin.h"
#include "store/FrmModifLogin.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "ui/Messages.h"
#include "workspace/frmMain.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>
#include <cstdio>

namespace {
bool enregistrer(QWidget *w, const QString &dossier, const QString &nom) {
    w->show();
    QApplication::processEvents();
    const QString chemin = QDir(dossier).filePath(nom + QStringLiteral(".png"));
    const bool ok = w->grab().save(chemin);
    std::printf("%s %s\n", ok ? "wrote" : "FAILED", qPrintable(chemin));
    return ok;
}
}  // namespace

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    const QString sortie = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("shots");
    QDir().mkpath(sortie);
    QTemporaryDir programme;
    Chemins::definirDossierProgramme(programme.path());
    Reglages::definirDossier(programme.filePath(QStringLiteral("config")));
    Messages::preparerPourTests();
    Base::preparerBase();
    Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("secret"));
    Comptes::creer(2, QStringLiteral("bruno"), QStringLiteral("azerty"));
    Reglages::ecrire(Reglages::Cle::Username, QStringLiteral("alice"));
    Reglages::ecrire(Reglages::Cle::Demarrage, 1);  // leave the user's desktop associations alone

    bool ok = true;
    Navigation::afficherLogin();
    ok &= enregistrer(Navigation::fenetreLogin(), sortie, QStringLiteral("login"));

    Session::ModeLogin = 1;
    Navigation::afficherLogin();
    Navigation::fenetreLogin()->Login->setEditText(QStringLiteral("camille"));
    Navigation::fenetreLogin()->Pass->setText(QStringLiteral("nouveau"));
    ok &= enregistrer(Navigation::fenetreLogin(), sortie, QStringLiteral("login_creation"));

    Session::NumCompteCourant = 1;
    Session::LoginCourant = QStringLiteral("alice");
    Session::PassCourant = QStringLiteral("secret");
    Navigation::afficherPrincipale();
    ok &= enregistrer(Navigation::fenetrePrincipale(), sortie, QStringLiteral("main"));

    FrmModifLogin modif;
    ok &= enregistrer(&modif, sortie, QStringLiteral("modif_login"));
    Navigation::fermerTout();
    return ok ? 0 : 1;
}
