#include "FrmConfirmationPass.h"

#include "ui/fenetres/BoutonImage.h"

#include <QLabel>
#include <QLineEdit>

FrmConfirmationPass::FrmConfirmationPass(const QString &login, QWidget *parent)
    : FenetreCompte(QStringLiteral("FrmConfirmationPass"), QSize(380, 150), parent) {
    entete->setText(QStringLiteral("Confirmer le mot de passe"));
    connect(this, &FenetreCadre::fermetureDemandee, this, &QWidget::close);

    creerLogo(28);
    Consigne = creerLibelle(QStringLiteral("Retapez le mot de passe du nouveau compte « %1 ».").arg(login.trimmed()));
    Consigne->setObjectName(QStringLiteral("Consigne"));
    Consigne->setWordWrap(true);

    Pass = creerMotDePasse(QStringLiteral("Pass"));
    creerOK();

    Consigne->setGeometry(100, 14, 260, 40);
    Pass->setGeometry(100, 60, 260, 26);
    OK->setGeometry(286, 104, 74, 32);
    Pass->setFocus();
}

FrmConfirmationPass::Resultat FrmConfirmationPass::confirmer(const QString &login, const QString &pass, QWidget *parent) {
    FrmConfirmationPass fenetre(login, parent);
    fenetre.executer();
    if (!fenetre.valide_) return Resultat::Annule;
    return fenetre.Pass->text() == pass ? Resultat::Confirme : Resultat::Different;
}

void FrmConfirmationPass::clicOK() {
    if (!OK->estEnfonce()) return;
    OK->relacher();
    valide_ = true;
    close();
}
