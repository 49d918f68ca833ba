#include "FrmConfirmationPass.h"

#include "ui/Art.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"

#include <QLabel>
#include <QLineEdit>

FrmConfirmationPass::FrmConfirmationPass(const QString &login, QWidget *parent) : FenetreCadre(parent) {
    setObjectName(QStringLiteral("FrmConfirmationPass"));
    setWindowTitle(Messages::kTitre);
    definirTailleContenu(QSize(380, 150));
    entete->setText(QStringLiteral("Confirmer le mot de passe"));
    EnteteB->definirTexte(Chaine(154).trimmed());
    connect(this, &FenetreCadre::fermetureDemandee, this, &QWidget::close);

    auto *image = new QLabel(FondBleu);
    image->setPixmap(Art::pixmap(QStringLiteral("korvane"), QSize(64, 64)));
    activerDeplacement(image);
    Consigne = new QLabel(QStringLiteral("Retapez le mot de passe du nouveau compte « %1 ».").arg(login.trimmed()), FondBleu);
    Consigne->setObjectName(QStringLiteral("Consigne"));
    Consigne->setWordWrap(true);
    Consigne->setStyleSheet(QStringLiteral("color: #1f2a44; font-weight: bold; background: transparent;"));
    activerDeplacement(Consigne);

    Pass = new QLineEdit(FondBleu);
    Pass->setObjectName(QStringLiteral("Pass"));
    Pass->setEchoMode(QLineEdit::Password);
    connect(Pass, &QLineEdit::returnPressed, this, [this] {
        OK->enfoncer();
        clicOK();
    });
    OK = creerBoutonOK();
    connect(OK, &QAbstractButton::clicked, this, [this] { clicOK(); });

    image->setGeometry(18, 28, 64, 64);
    Consigne->setGeometry(100, 14, 260, 40);
    Pass->setGeometry(100, 60, 260, 26);
    OK->setGeometry(286, 104, 74, 32);
    centrer();
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
