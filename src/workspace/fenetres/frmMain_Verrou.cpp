// frmMain: the lock, and the end of the session.

#include "frmMain.h"

#include "EditionEnPlace.h"
#include "FrmVerrou.h"
#include "options/Exports.h"
#include "options/fenetres/FrmOptions.h"
#include "search/fenetres/FrmRecherche.h"
#include "store/Session.h"
#include "ui/fenetres/Messages.h"
#include "ui/PressePapiers.h"
#include "workspace/Verrou.h"

#include <QApplication>
#include <QLineEdit>
#include <QToolTip>

void frmMain::installerVerrou() {
    verrou_ = new Verrou(this);
    connect(verrou_, &Verrou::verrouillageDemande, this, &frmMain::cacherSession);
}

FrmVerrou *frmMain::fenetreVerrou() const { return fenetreVerrou_; }

void frmMain::verrouiller() { verrou_->verrouiller(); }

void frmMain::cacherSession() {
    if (fenetreVerrou_) return;
    // An open edit is stored, quietly: what can't be stored stays in its box, untouched,
    // and the reason is told after the unlock.
    if (Edition->SaisieVisible) {
        Messages::Retenue retenue;
        Edition->fermerSaisie();
        messagesDuVerrou_ = retenue.textes();
    }
    while (QWidget *menu = QApplication::activePopupWidget()) menu->close();
    // The search and the options close; the options are built anew at their next
    // opening, with their exports, whose files go now.
    for (QWidget *w : QApplication::topLevelWidgets())
        if (qobject_cast<FrmRecherche *>(w) && w->isVisible()) w->close();
    if (options_) {
        options_->close();
        delete options_;
    }
    Exports::supprimerFichiers();
    PressePapiers::instance().effacerSiIntact();
    // Every other window hides with this one: a dialog half filled comes back as it was.
    // A tool tip just goes.
    QToolTip::hideText();
    cacheesAuVerrou_.clear();
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w != this && w->isVisible() && (w->windowType() == Qt::Window || w->windowType() == Qt::Dialog)) {
            cacheesAuVerrou_.append(w);
            w->hide();
        }
    hide();
    fenetreVerrou_ = new FrmVerrou(*verrou_, Session::LoginCourant);
    fenetreVerrou_->setAttribute(Qt::WA_DeleteOnClose);
    connect(fenetreVerrou_, &FrmVerrou::deverrouillee, this, &frmMain::deverrouille);
    connect(fenetreVerrou_, &FrmVerrou::changementDeCompte, this, [this] { quitterVerrou(true); });
    connect(fenetreVerrou_, &FrmVerrou::sortie, this, [this] { quitterVerrou(false); });
    fenetreVerrou_->show();
    fenetreVerrou_->raise();
    fenetreVerrou_->activateWindow();
    fenetreVerrou_->Pass->setFocus();
}

void frmMain::deverrouille() {
    fenetreVerrou_->hide();
    fenetreVerrou_->deleteLater();
    fenetreVerrou_ = nullptr;
    show();
    for (const QPointer<QWidget> &w : std::as_const(cacheesAuVerrou_))
        if (w) w->show();
    QWidget *dessus = cacheesAuVerrou_.isEmpty() || !cacheesAuVerrou_.last() ? this : cacheesAuVerrou_.last().data();
    cacheesAuVerrou_.clear();
    dessus->raise();
    dessus->activateWindow();
    const QStringList messages = std::exchange(messagesDuVerrou_, {});
    for (const QString &m : messages) Messages::information(m);
}

void frmMain::quitterVerrou(bool changerCompte) {
    // What waits in a box or a dialog would go with the session: the user says so first.
    const bool enAttente = (Edition->SaisieVisible && std::any_of(Edition->Saisie.begin(), Edition->Saisie.end(), [](QLineEdit *s) { return s && s->isModified(); })) ||
                           std::any_of(cacheesAuVerrou_.begin(), cacheesAuVerrou_.end(), [](const QPointer<QWidget> &w) { return w; });
    if (enAttente && !Messages::question(QStringLiteral("Une saisie en cours n'a pas été enregistrée : elle sera perdue.\nContinuer ?")))
        return;
    if (!changerCompte) {
        if (!ConfirmerQuitter()) return;
    }
    // The dialogs left open close first, so that their waiting ends before this window goes.
    for (const QPointer<QWidget> &w : std::exchange(cacheesAuVerrou_, {}))
        if (w) w->close();
    if (changerCompte) {
        fenetreVerrou_->hide();
        fenetreVerrou_->deleteLater();
        Session::ModeLogin = Session::Mode::AutreCompte;
        emit loginDemande();
    }
}

void frmMain::finirSession() {
    if (options_) delete options_;  // waits for its export files, if they are still being written
    Exports::supprimerFichiers();
}
