#include "FrmModifLogin.h"

#include "store/Base.h"
#include "store/Comptes.h"
#include "store/Cryptage.h"
#include "store/Session.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/Messages.h"

#include <QLabel>
#include <QLineEdit>

FrmModifLogin::FrmModifLogin(QWidget *parent)
    : FenetreCompte(QStringLiteral("FrmModifLogin"), QSize(380, 180), parent) {
    L[LibelleEntete] = entete;
    L[LibelleEntete]->setText(QStringLiteral("Modification du mot de passe"));
    L[LibelleVerification] = creerLibelle(QStringLiteral("Vérification"));
    auto *libelleLogin = creerLibelle(QStringLiteral("Login"));
    auto *libellePass = creerLibelle(QStringLiteral("Password"));
    creerLogo(30);

    Login = new QLineEdit(FondBleu);
    Login->setObjectName(QStringLiteral("Login"));
    Login->setReadOnly(true);
    Pass = creerMotDePasse(QStringLiteral("Pass"));
    Pass2 = creerMotDePasse(QStringLiteral("Pass2"));
    toutChoisirAuFocus(Pass);
    toutChoisirAuFocus(Pass2);

    creerOK();

    libelleLogin->setGeometry(100, 16, 90, 24);
    Login->setGeometry(190, 16, 170, 26);
    libellePass->setGeometry(100, 52, 90, 24);
    Pass->setGeometry(190, 52, 170, 26);
    L[LibelleVerification]->setGeometry(100, 88, 90, 24);
    Pass2->setGeometry(190, 88, 170, 26);
    OK->setGeometry(286, 134, 74, 32);
    setTabOrder(Login, Pass);
    setTabOrder(Pass, Pass2);

    Login->setText(Session::LoginCourant);
    Pass->setText(QString(Session::PassCourant.size() * 2, u'*'));

    connect(this, &FenetreCadre::fermetureDemandee, this, &QWidget::close);
}

void FrmModifLogin::clicOK() {
    if (OK->estEnfonce()) ChercherLogin();
    OK->relacher();
}

void FrmModifLogin::ChercherLogin() {
    try {
        const QString cle = Comptes::cleLogin(Login->text());
        if (!Comptes::chercher(cle)) return;
        if (Pass->text() != Pass2->text()) {
            Messages::information(QStringLiteral("Veuillez saisir un mot de passe valide et recommencer !"));
            return;
        }
        // A password the cipher can't keep could never be matched again.
        if (const QString refus = MessageHorsAlphabet(Pass->text()); !refus.isEmpty()) {
            Messages::information(refus);
            Pass->setFocus();
            return;
        }
        Comptes::changerMotDePasse(cle, Pass->text());
        Session::PassCourant = Pass->text();
        Messages::information(QStringLiteral("Votre nouveau mot de passe a été pris en compte !"));
        close();
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
    }
}
