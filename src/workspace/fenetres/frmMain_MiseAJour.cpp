// frmMain: the grid brought up to date after the window's own writes, in place
// (MiseAJourGrille), or read again whole when that can't be done.

#include "frmMain.h"

#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "workspace/MiseAJourGrille.h"
#include "store/Session.h"

void frmMain::rechargerGrille() {
    ++rechargements_;
    MG->Redraw(false);
    MemoriserMG();
    MG->Clear();
    ChargerMG();
    RaffraichirMG();
    MG->Redraw(true);
}

void frmMain::documentAjoute(qint64 rowid) {
    if (!MiseAJourGrille::placerDocument(*MG, Session::NumCompteCourant, rowid)) {
        rechargerGrille();
        return;
    }
    finirMiseAJour();
}

void frmMain::dossierEcrit(qint64 rowid) {
    if (!MiseAJourGrille::placerDossier(*MG, Session::NumCompteCourant, rowid)) {
        rechargerGrille();
        return;
    }
    finirMiseAJour();
}

void frmMain::dossierSupprime(int ligne) {
    MG->Redraw(false);
    MG->oublierMarques();
    MG->DelParent(ligne);
    finirMiseAJour();
}

void frmMain::documentSupprime(int ligne) {
    MG->Redraw(false);
    MG->oublierMarques();
    MG->DelFils(ligne);
    finirMiseAJour();
}

void frmMain::finirMiseAJour() {
    MG->commeCharge();
    NbDossiers = MG->nbParents();
    NomDossierCourant.clear();
    restaurerSelection();
    MG->Redraw(true);
}

void frmMain::documentModifie(const QList<QPair<int, QString>> &champs) {
    const int ligne = MG->LigneCourante;
    if (ligne < 2 || MG->IsLigneParent(ligne)) return;
    bool icone = false;
    MG->Redraw(false);
    for (const auto &[indice, texte] : champs) {
        if (indice == 11) {
            // As a load shows it: a document without an icon takes the library's second.
            const int numero = texte.toInt();
            MG->SetColumnInfos(ligne, Colonne::Numero, QString::number(numero == 0 ? 2 : numero));
            icone = true;
        } else {
            MG->MajColumnInfos(ligne, indice, texte);
        }
        if (indice == Colonne::Titre) ecrireBandeDocument(ligne);
    }
    MG->Redraw(true);
    // The pictures are laid from column 13 by a pass over every row: only for a new icon.
    if (icone) MG->ReDessiner();
}
