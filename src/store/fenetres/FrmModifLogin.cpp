#include "FrmModifLogin.h"

#include "store/Base.h"
#include "store/Comptes.h"
#include "store/Cryptage.h"
#include "store/Session.h"
#include "ui/Art.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

FrmModifLogin::FrmModifLogin(QWidget *parent) : FenetreCadre(parent) {
    setObjectName(QStringLiteral("FrmModifLogin"));
    setWindowTitle(Messages::kTitre);
    setAttribute(Qt::WA_DeleteOnClose, false);
    definirTailleContenu(QSize(380, 180));
    centrer();

    L[LibelleEntete] = entete;
    L[LibelleEntete]->setText(QStringLiteral("Modification du mot de passe"));
    L[LibelleVerification] = new QLabel(QStringLiteral("Vérification"), FondBleu);
    auto *libelleLogin = new QLabel(QStringLiteral("Login"), FondBleu);
    auto *libellePass = new QLabel(QStringLiteral("Password"), FondBleu);
    for (QLabel *l : {L[LibelleVerification], libelleLogin, libellePass}) {
        l->setStyleSheet(QStringLiteral("color: #1f2a44; font-weight: bold; background: transparent;"));
        activerDeplacement(l);
    }
    auto *image = new QLabel(FondBleu);
    image->setPixmap(Art::pixmap(QStringLiteral("korvane"), QSize(64, 64)));
    activerDeplacement(image);

    Login = new QLineEdit(FondBleu);
    Login->setObjectName(QStringLiteral("Login"));
    Login->setReadOnly(true);
    Pass = new QLineEdit(FondBleu);
    Pass->setObjectName(QStringLiteral("Pass"));
    Pass2 = new QLineEdit(FondBleu);
    Pass2->setObjectName(QStringLiteral("Pass2"));
    for (QLineEdit *e : {Pass, Pass2}) {
        e->setEchoMode(QLineEdit::Password);
        e->installEventFilter(this);
        connect(e, &QLineEdit::returnPressed, this, [this] {
            OK->enfoncer();
            clicOK();
        });
    }

    OK = creerBoutonOK();
    connect(OK, &QAbstractButton::clicked, this, [this] { clicOK(); });

    image->setGeometry(18, 30, 64, 64);
    libelleLogin->setGeometry(100, 16, 90, 24);
    Login->setGeometry(190, 16, 170, 26);
    libellePass->setGeometry(100, 52, 90, 24);
    Pass->setGeometry(190, 52, 170, 26);
    L[LibelleVerification]->setGeometry(100, 88, 90, 24);
    Pass2->setGeometry(190, 88, 170, 26);
    OK->setGeometry(286, 134, 74, 32);
    setTabOrder(Login, Pass);
    setTabOrder(Pass, Pass2);
    EnteteB->definirTexte(Chaine(154).trimmed());

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

bool FrmModifLogin::eventFilter(QObject *objet, QEvent *evenement) {
    if ((objet == Pass || objet == Pass2) && evenement->type() == QEvent::FocusIn)
        QTimer::singleShot(0, static_cast<QLineEdit *>(objet), &QLineEdit::selectAll);
    return FenetreCadre::eventFilter(objet, evenement);
}
