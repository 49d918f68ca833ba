// frmMain: the icon picker, for the selected document and for the document dialog.

#include "frmMain.h"

#include "grid/Colonnes.h"
#include "FrmPop.h"
#include "dialogs/fenetres/FrmAjoutDoc.h"
#include "dialogs/fenetres/FrmAP.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "workspace/fenetres/EditionEnPlace.h"
#include "store/Base.h"
#include "store/Def.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/Messages.h"

#include <QCursor>
#include <QTimer>

void frmMain::ouvrirIcones(const QPoint &position) {
    if (!pop_) {
        pop_ = new FrmPop(imgCONTENU, this);
        connect(pop_, &FrmPop::iconeChoisie, this, &frmMain::iconeChoisie);
        // The about box waits for the menu to close, so that it is not opened inside it.
        connect(pop_, &FrmPop::barreCliquee, this, [this] {
            QTimer::singleShot(0, this, [this] {
                FrmAP apropos(this, MG);
                montrerModal(apropos);
            });
        });
    } else if (FrmPop::IconesModifiees) {
        pop_->ChargerIconesDatabase();
    }
    pop_->AfficherIcones();
    pop_->montrer(position);
}

void frmMain::changerIcone() {
    if (!Edition->fermerSaisie()) return;
    // Under the pointer when it is on the button, else under the button (the keyboard's way).
    BoutonImage *bouton = Boutons[Bouton::ModifierIcone];
    const QPoint curseur = QCursor::pos();
    const bool souris = bouton->rect().contains(bouton->mapFromGlobal(curseur));
    ouvrirIcones(souris ? curseur : bouton->mapToGlobal(QPoint(0, bouton->height())));
}

void frmMain::iconeChoisie(int num) {
    if (!MG->Tag.isEmpty()) {
        if (!dialogueDocument_) return;
        // The preview finds its picture by the icon's key, so gaps in the numbers don't matter.
        dialogueDocument_->choisirIcone(num, QPixmap::fromImage(imgCONTENU.imageDeNum(num)));
        return;
    }
    const int ligne = MG->LigneCourante;
    if (ligne < 2 || MG->IsLigneParent(ligne)) return;
    try {
        // Written to the base as well, so that the choice outlives the next reload.
        if (!EcrireIconeDocument(num)) return;
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
        rechargerGrille();
        return;
    }
    MG->SetColumnInfos(ligne, Colonne::Numero, QString::number(num));
    MG->ReDessiner();
}
