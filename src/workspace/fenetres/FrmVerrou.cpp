#include "FrmVerrou.h"

#include "store/Base.h"
#include "ui/Art.h"
#include "ui/Chaines.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/Messages.h"
#include "workspace/Verrou.h"

#include <QLabel>
#include <QLineEdit>
#include <QShortcut>

namespace {
const QString kStyleLibelle = QStringLiteral("color: #1f2a44; font-weight: bold; background: transparent;");
}

FrmVerrou::FrmVerrou(Verrou &verrou, const QString &login, QWidget *parent) : FenetreCadre(parent), verrou_(verrou) {
    setObjectName(QStringLiteral("FrmVerrou"));
    setWindowTitle(Messages::kTitre);
    definirTailleContenu(QSize(420, 176));
    entete->setText(QStringLiteral("Korvane est verrouillé"));
    EnteteB->definirTexte(Chaine(154).trimmed());

    auto *image = new QLabel(FondBleu);
    image->setPixmap(Art::pixmap(QStringLiteral("korvane"), QSize(64, 64)));
    activerDeplacement(image);
    Compte = new QLabel(QStringLiteral("Compte « %1 »").arg(login.trimmed()), FondBleu);
    Compte->setObjectName(QStringLiteral("Compte"));
    auto *libellePass = new QLabel(QStringLiteral("Mot de passe"), FondBleu);
    for (QLabel *l : {Compte, libellePass}) {
        l->setStyleSheet(kStyleLibelle);
        activerDeplacement(l);
    }
    Pass = new QLineEdit(FondBleu);
    Pass->setObjectName(QStringLiteral("Pass"));
    Pass->setEchoMode(QLineEdit::Password);
    Avis = new QLabel(FondBleu);
    Avis->setObjectName(QStringLiteral("Avis"));
    Avis->setStyleSheet(QStringLiteral("color: #9b1c1c; background: transparent;"));
    Avis->setWordWrap(true);

    OK = creerBoutonOK();
    ChangerCompte = new BoutonImage(FondBleu);
    ChangerCompte->setObjectName(QStringLiteral("ChangerCompte"));
    ChangerCompte->definirCommande(QStringLiteral("system-users"), QStringLiteral("Changer de compte"));
    Quitter = new BoutonImage(FondBleu);
    Quitter->setObjectName(QStringLiteral("Quitter"));
    Quitter->definirCommande(QStringLiteral("application-exit"), QStringLiteral("Quitter"));

    image->setGeometry(18, 24, 64, 64);
    Compte->setGeometry(100, 12, 300, 24);
    libellePass->setGeometry(100, 46, 100, 26);
    Pass->setGeometry(200, 46, 200, 26);
    Avis->setGeometry(100, 76, 300, 40);
    ChangerCompte->setGeometry(18, 128, 172, 32);
    Quitter->setGeometry(198, 128, 100, 32);
    OK->setGeometry(326, 128, 74, 32);
    setTabOrder(Pass, OK);
    setTabOrder(OK, ChangerCompte);
    setTabOrder(ChangerCompte, Quitter);
    centrer();

    minuterie_.setInterval(1000);
    connect(&minuterie_, &QTimer::timeout, this, &FrmVerrou::seconde);
    connect(Pass, &QLineEdit::returnPressed, this, [this] {
        OK->enfoncer();
        clicOK();
    });
    connect(OK, &QAbstractButton::clicked, this, [this] { clicOK(); });
    // The keys of the same commands in the main window.
    ChangerCompte->setToolTip(QStringLiteral("Changer de compte (Ctrl+W)"));
    Quitter->setToolTip(QStringLiteral("Quitter (Ctrl+Q)"));
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this), &QShortcut::activated, ChangerCompte, &QAbstractButton::click);
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this), &QShortcut::activated, Quitter, &QAbstractButton::click);
    connect(ChangerCompte, &QAbstractButton::clicked, this, [this] {
        ChangerCompte->relacher();
        emit changementDeCompte();
    });
    connect(Quitter, &QAbstractButton::clicked, this, [this] {
        Quitter->relacher();
        emit sortie();
    });
    // Closing the window is no way around the password: it means leaving the program.
    connect(this, &FenetreCadre::fermetureDemandee, this, [this] {
        Im_Commande->relacher();
        emit sortie();
    });
    attendre(Verrou::attentePour(verrou_.echecs()));
}

void FrmVerrou::clicOK() {
    if (!OK->estEnfonce()) return;
    OK->relacher();
    if (restantes_ > 0) return;
    bool ouvert = false;
    try {
        ouvert = verrou_.deverrouiller(Pass->text());
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
        return;
    }
    if (ouvert) {
        Pass->clear();
        emit deverrouillee();
        return;
    }
    Pass->clear();
    Avis->setText(QStringLiteral("Mot de passe incorrect : Korvane reste verrouillé."));
    Messages::information(QStringLiteral("Mot de passe incorrect : Korvane reste verrouillé."));
    attendre(Verrou::attentePour(verrou_.echecs()));
    Pass->setFocus();
}

void FrmVerrou::attendre(int secondes) {
    restantes_ = secondes;
    if (secondes <= 0) return;
    Pass->setEnabled(false);
    OK->setEnabled(false);
    minuterie_.start();
    Avis->setText(QStringLiteral("%1 essais manqués de suite : prochain essai possible dans %2 s.").arg(verrou_.echecs()).arg(restantes_));
}

void FrmVerrou::seconde() {
    if (--restantes_ > 0) {
        Avis->setText(QStringLiteral("%1 essais manqués de suite : prochain essai possible dans %2 s.").arg(verrou_.echecs()).arg(restantes_));
        return;
    }
    minuterie_.stop();
    Avis->setText(QStringLiteral("Vous pouvez essayer de nouveau."));
    Pass->setEnabled(true);
    OK->setEnabled(true);
    Pass->setFocus();
}
