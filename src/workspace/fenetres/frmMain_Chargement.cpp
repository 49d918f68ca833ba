// frmMain: the loading of the tree into the grid, and of the icon library.

#include "frmMain.h"

#include "grid/fenetres/MyCoolGrid.h"
#include "workspace/MiseAJourGrille.h"
#include "store/Base.h"
#include "store/Session.h"
#include "ui/fenetres/Messages.h"

void frmMain::ChargerMG() {
    MiseAJourGrille::entetes(*MG);
    NbDossiers = 0;
    ChargerTreeview(Session::NumCompteCourant);
    restaurerSelection();
}

void frmMain::ChargerTreeview(int numCompte) {
    NomDossierCourant.clear();
    try {
        MiseAJourGrille::chargerArbre(*MG, numCompte);
    } catch (const Base::ErreurBase &e) {
        if (!chargementMuet_) Messages::information(e.message());
    }
    NbDossiers = MG->nbParents();
    MG->Redraw(true);
}

void frmMain::ChargerIconesDatabase() { imgCONTENU.chargerBase(); }
