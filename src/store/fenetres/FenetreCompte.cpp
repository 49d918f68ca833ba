#include "FenetreCompte.h"

#include "ui/Apparence.h"
#include "ui/Art.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

FenetreCompte::FenetreCompte(const QString &nom, const QSize &contenu, QWidget *parent) : FenetreCadre(parent) {
    setObjectName(nom);
    setWindowTitle(Messages::kTitre);
    definirTailleContenu(contenu);
    centrer();
    EnteteB->definirTexte(Chaine(154).trimmed());
}

QLabel *FenetreCompte::creerLogo(int y) {
    auto *logo = new QLabel(FondBleu);
    logo->setPixmap(Art::pixmap(QStringLiteral("korvane"), QSize(64, 64)));
    logo->setGeometry(18, y, 64, 64);
    activerDeplacement(logo);
    return logo;
}

QLabel *FenetreCompte::creerLibelle(const QString &texte) {
    auto *libelle = new QLabel(texte, FondBleu);
    libelle->setStyleSheet(Apparence::kStyleLibelle);
    activerDeplacement(libelle);
    return libelle;
}

QLineEdit *FenetreCompte::creerMotDePasse(const QString &nom) {
    auto *boite = new QLineEdit(FondBleu);
    boite->setObjectName(nom);
    boite->setEchoMode(QLineEdit::Password);
    connect(boite, &QLineEdit::returnPressed, this, [this] {
        OK->enfoncer();
        clicOK();
    });
    return boite;
}

void FenetreCompte::toutChoisirAuFocus(QLineEdit *boite) {
    toutAuFocus_.append(boite);
    boite->installEventFilter(this);
}

void FenetreCompte::creerOK() {
    OK = creerBoutonOK();
    connect(OK, &QAbstractButton::clicked, this, [this] { clicOK(); });
}

bool FenetreCompte::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::FocusIn)
        for (QLineEdit *boite : std::as_const(toutAuFocus_))
            if (objet == boite) QTimer::singleShot(0, boite, &QLineEdit::selectAll);
    return FenetreCadre::eventFilter(objet, evenement);
}
