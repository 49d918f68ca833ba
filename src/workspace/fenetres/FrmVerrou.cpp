#include "FrmVerrou.h"

#include "store/Base.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/Messages.h"
#include "workspace/Verrou.h"

#include <QLabel>
#include <QLineEdit>
#include <QShortcut>

namespace {
const QString kRefus = QStringLiteral("Mot de passe incorrect : Korvane reste verrouillé.");
}

FrmVerrou::FrmVerrou(Verrou &verrou, const QString &login, QWidget *parent)
    : FenetreCompte(QStringLiteral("FrmVerrou"), QSize(420, 176), parent), verrou_(verrou) {
    entete->setText(QStringLiteral("Korvane est verrouillé"));
    creerLogo(24);
    Compte = creerLibelle(QStringLiteral("Compte « %1 »").arg(login.trimmed()));
    Compte->setObjectName(QStringLiteral("Compte"));
    QLabel *libellePass = creerLibelle(QStringLiteral("Mot de passe"));
    Pass = creerMotDePasse(QStringLiteral("Pass"));
    Avis = new QLabel(FondBleu);
    Avis->setObjectName(QStringLiteral("Avis"));
    Avis->setStyleSheet(QStringLiteral("color: #b3261e; background: transparent;"));
    Avis->setWordWrap(true);

    creerOK();
    ChangerCompte = new BoutonImage(FondBleu);
    ChangerCompte->setObjectName(QStringLiteral("ChangerCompte"));
    ChangerCompte->definirCommande(QStringLiteral("system-users"), QStringLiteral("Changer de compte"));
    Quitter = new BoutonImage(FondBleu);
    Quitter->setObjectName(QStringLiteral("Quitter"));
    Quitter->definirCommande(QStringLiteral("application-exit"), QStringLiteral("Quitter"));

    Compte->setGeometry(100, 12, 300, 24);
    libellePass->setGeometry(100, 46, 100, 26);
    Pass->setGeometry(200, 46, 200, 26);
    Avis->setGeometry(100, 76, 300, 40);
    ChangerCompte->setGeometry(18, 128, 172, 32);
    Quitter->setGeometry(198, 128, 100, 32);
    OK->setGeometry(326, 128, 74, 32);

    minuterie_.setInterval(1000);
    connect(&minuterie_, &QTimer::timeout, this, &FrmVerrou::seconde);
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
    Avis->setText(kRefus);
    Messages::information(kRefus);
    attendre(Verrou::attentePour(verrou_.echecs()));
    Pass->setFocus();
}

void FrmVerrou::attendre(int secondes) {
    restantes_ = secondes;
    if (secondes <= 0) return;
    Pass->setEnabled(false);
    OK->setEnabled(false);
    minuterie_.start();
    direAttente();
}

void FrmVerrou::direAttente() {
    Avis->setText(QStringLiteral("%1 essais manqués de suite : prochain essai possible dans %2 s.").arg(verrou_.echecs()).arg(restantes_));
}

void FrmVerrou::seconde() {
    if (--restantes_ > 0) {
        direAttente();
        return;
    }
    minuterie_.stop();
    Avis->setText(QStringLiteral("Vous pouvez essayer de nouveau."));
    Pass->setEnabled(true);
    OK->setEnabled(true);
    Pass->setFocus();
}
