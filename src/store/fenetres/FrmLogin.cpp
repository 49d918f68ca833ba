#include "FrmLogin.h"

#include "store/Base.h"
#include "store/Comptes.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "FrmConfirmationPass.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/Messages.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace {
// Runs a step that talks to the base; a failure is told to the user and changes nothing more.
template <typename F>
void sansPerte(F &&etape) {
    try {
        etape();
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
    }
}
}  // namespace

FrmLogin::FrmLogin(QWidget *parent) : FenetreCompte(QStringLiteral("FrmLogin"), QSize(380, 150), parent) {
    L[LibelleEntete] = entete;
    L[LibelleMotDePasse] = creerLibelle(QStringLiteral("Password"));
    L[LibelleLogin] = creerLibelle(QStringLiteral("Login"));
    Image1 = creerLogo(28);

    Login = new QComboBox(FondBleu);
    Login->setObjectName(QStringLiteral("Login"));
    Login->setEditable(true);
    Login->setInsertPolicy(QComboBox::NoInsert);
    Login->setMaxVisibleItems(12);

    Pass = creerMotDePasse(QStringLiteral("Pass"));
    toutChoisirAuFocus(Pass);

    creerOK();

    L[LibelleLogin]->setGeometry(100, 22, 90, 24);
    Login->setGeometry(190, 22, 170, 26);
    L[LibelleMotDePasse]->setGeometry(100, 60, 90, 24);
    Pass->setGeometry(190, 60, 170, 26);
    OK->setGeometry(286, 104, 74, 32);
    setTabOrder(Login, Pass);
    Login->setFocus();

    connect(Login, &QComboBox::activated, this, [this] { choixDansListe(); });
    Login->installEventFilter(this);
    connect(this, &FenetreCadre::fermetureDemandee, this, [this] { clicFermer(); });
}

void FrmLogin::charger() {
    ChoixListe = true;
    ChargerLogin();
    ChoixListe = false;
    L[LibelleEntete]->setText(Session::ModeLogin == Session::Mode::NouveauCompte ? QStringLiteral("Créer un nouveau compte") : QStringLiteral("Choisir un compte"));
}

void FrmLogin::ChargerLogin() {
    sansPerte([this] {
        const QString sauve = Reglages::lireTexte(Reglages::Cle::Username);
        const QList<Comptes::Compte> comptes = Comptes::lister();
        const QSignalBlocker bloque(Login);
        Login->clear();
        int selection = -1;
        for (const Comptes::Compte &c : comptes) {
            if (c.loginNul) continue;
            // The place in the list is the account number less one; gaps left by rows
            // removed from outside close up rather than stop the list.
            const int position = qBound(0, c.num - 1, Login->count());
            Login->insertItem(position, c.login);
            if (c.login == sauve) selection = position;
        }
        if (Session::ModeLogin != Session::Mode::NouveauCompte && Login->count() > 0 && selection < 0) selection = 0;
        Login->setCurrentIndex(selection);
        if (selection < 0) Login->setEditText(QString());
        if (selection >= 0) {
            // A selection made here is a choice like the user's: it runs a silent attempt.
            choixDansListe();
        }
    });
}

void FrmLogin::choixDansListe() {
    ChoixListe = true;
    OK->enfoncer();
    clicOK();
    ChoixListe = false;
}

void FrmLogin::clicOK() {
    if (!OK->estEnfonce()) return;
    NouveauNumCompte = 1;
    ChercherNumCompteValide();
    OK->relacher();
    ChercherLogin();
}

void FrmLogin::ChercherNumCompteValide() {
    sansPerte([this] { NouveauNumCompte = Comptes::prochainNumero(); });
}

void FrmLogin::ChercherLogin() {
    if (reussie_) return;
    sansPerte([this] {
        const QString cle = Comptes::cleLogin(Login->currentText());
        const std::optional<Comptes::Compte> compte = Comptes::chercher(cle);
        if (compte) {
            tagPass_ = DecrypterChamp(compte->passStocke);
            // Choosing an account shows a dummy twice as long as the password, which the user types over.
            if (ChoixListe) Pass->setText(QString(tagPass_.size() * 2, u'*'));
            if (Comptes::motDePasseCorrect(*compte, Pass->text())) {
                Session::NumCompteCourant = compte->num;
                Session::PassCourant = Pass->text();
                Session::LoginCourant = Login->currentText();
                Session::Ouverte = true;
                Reglages::ecrire(Reglages::Cle::Username, Login->currentText());
                reussie_ = true;
                emit reussite();
            } else if (!ChoixListe) {
                Messages::information(QStringLiteral("Veuillez saisir un mot de passe valide !"));
            }
            return;
        }
        if (!Messages::question(QStringLiteral("Compte inexistant, voulez vous le créer ?"))) return;
        if (cle.isEmpty()) {
            Messages::information(QStringLiteral("Veuillez saisir un login valide et recommencer !"));
            Login->setFocus();
            return;
        }
        if (Pass->text().trimmed().isEmpty()) {
            Messages::information(QStringLiteral("Veuillez saisir un mot de passe valide et recommencer !"));
            Pass->setFocus();
            return;
        }
        // A password the cipher can't keep could never be matched again.
        if (const QString refus = MessageHorsAlphabet(Pass->text()); !refus.isEmpty()) {
            Messages::information(refus);
            Pass->setFocus();
            return;
        }
        switch (FrmConfirmationPass::confirmer(Login->currentText(), Pass->text(), this)) {
        case FrmConfirmationPass::Resultat::Confirme:
            break;
        case FrmConfirmationPass::Resultat::Different:
            Messages::information(QStringLiteral("Les deux mots de passe ne sont pas identiques : le compte n'a pas été créé."));
            Pass->setFocus();
            return;
        case FrmConfirmationPass::Resultat::Annule:
            return;
        }
        // The number is allotted now, whatever path led here: Enter in the login box
        // never gives number 0, which belongs to the template folders.
        NouveauNumCompte = qMax(NouveauNumCompte, Comptes::prochainNumero());
        Comptes::creer(NouveauNumCompte, cle, Pass->text());
        const QSignalBlocker bloque(Login);
        const QString tape = Login->currentText();
        Login->insertItem(qBound(0, NouveauNumCompte - 1, Login->count()), tape);
        Login->setEditText(tape);
    });
}

void FrmLogin::clicFermer() {
    // Without an open session (program start, or a base just replaced) there is no
    // main window to go back to: closing means ending the program.
    if (!Session::ModeLogin || *Session::ModeLogin == Session::Mode::Principale || !Session::Ouverte) {
        ConfirmerQuitter();
        return;
    }
    emit retour();
}

bool FrmLogin::eventFilter(QObject *objet, QEvent *evenement) {
    // Enter in the login box is an attempt with what is typed, not a choice in the list.
    // The key arrives at the combo box, which has the focus and hands it to its text
    // behind any filter.
    if (Login && objet == Login && evenement->type() == QEvent::KeyPress) {
        const int touche = static_cast<QKeyEvent *>(evenement)->key();
        if (touche == Qt::Key_Return || touche == Qt::Key_Enter) {
            ChercherLogin();
            return true;
        }
    }
    return FenetreCompte::eventFilter(objet, evenement);
}
