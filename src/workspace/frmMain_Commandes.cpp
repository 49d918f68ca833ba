// frmMain: the grid's click, the command buttons and the commands on folders and documents.

#include "frmMain.h"

#include "Chargement.h"
#include "grid/MyCoolGrid.h"
#include "store/Base.h"
#include "app/Navigation.h"
#include "store/Def.h"
#include "store/FrmModifLogin.h"
#include "store/Session.h"
#include "ui/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/Messages.h"

#include <QLineEdit>
#include <QTextBrowser>

void frmMain::clicGrille() {
    Boutons[10]->setEnabled(true);
    Boutons[11]->setEnabled(true);
    if (SaisieVisible) {
        Boutons[15]->relacher();
        MG->Redraw(false);
        RendreSaisieVisible(false, 1, 0);
        RendreSaisieVisibleCalendrier(false);
    }
    const int r = MG->LigneCourante;
    if (MG->IsLigneParent(r)) {
        EnteteB->definirTexte(QStringLiteral("   ") + Chaine(123) + QStringLiteral(" : ") + MG->GetColumnInfos(r, 2));
        NomDossierCourant = MG->GetColumnInfos(r, 2);
        InfoEntete = EnteteB->texte();
        for (int i : {13, 15, 16}) Boutons[i]->setEnabled(false);
        if (r <= 1) {
            Boutons[12]->setEnabled(false);
            Boutons[14]->setEnabled(false);
        } else {
            Boutons[14]->setEnabled(true);
            // Only an empty folder may be deleted.
            Boutons[12]->setEnabled(!MG->HasLigneFils(r));
        }
    } else {
        Boutons[12]->setEnabled(false);
        Boutons[14]->setEnabled(false);
        for (int i : {13, 15, 16}) Boutons[i]->setEnabled(true);
    }

    if (MG->IsLigneParent(r)) {
        if (SaisieVisible) RendreSaisieVisible(false, 1, 0);
        RendreSaisieVisibleCalendrier(false);
        LigneDocument = 9999;
        return;
    }
    if (r <= 1 || r == LigneDocument) return;
    LigneDocument = r;
    int i = r;
    while (i >= 1 && !MG->IsLigneParent(i)) --i;
    if (i < 1) return;
    QString bande = QStringLiteral("   ") + Chaine(123) + QStringLiteral(" : ") + MG->GetColumnInfos(i, 2);
    NomDossierCourant = MG->GetColumnInfos(i, 2);
    bande += QStringLiteral(" - ") + QStringLiteral(" ") + Chaine(124) + QStringLiteral(" : ") + MG->GetColumnInfos(r, 3);
    EnteteB->definirTexte(bande);
    InfoEntete = bande;
}

void frmMain::clicBouton(int index) {
    RendreSaisieVisibleCalendrier(false);
    BoutonImage *b = Boutons[index];
    if (!b->estEnfonce()) {
        // The click released the button: a released editing button still opens the boxes.
        if (Boutons[15]->estEnfonce() && MG->LigneCourante >= 2 && !MG->IsLigneParent(MG->LigneCourante)) {
            RendreSaisieVisible(true, 1, 0);
            RendreSaisieVisibleCalendrier(false);
        }
        b->relacher();
        return;
    }
    WB->hide();
    try {
        commande(index);
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
        rechargerGrille();
    }
    b->relacher();
}

void frmMain::fermerSaisie() { RendreSaisieVisible(false, 1, 0); }

void frmMain::rechargerGrille() {
    MG->Redraw(false);
    MemoriserMG();
    MG->Clear();
    ChargerMG();
    RaffraichirMG();
    MG->Redraw(true);
}

void frmMain::commande(int index) {
    switch (index) {
    case 10:
        fermerSaisie();
        ouvrirDialogueDossier(QString(), QString::number(ChercherNouveauNumDossier()));
        MG->Redraw(true);
        break;
    case 14:
        fermerSaisie();
        ouvrirDialogueDossier(NomDossierCourant.trimmed(), MG->GetColumnInfos(MG->LigneCourante, 17));
        MG->Redraw(true);
        break;
    case 11:
        fermerSaisie();
        ouvrirDialogueDocument(NomDossierCourant.trimmed());
        MG->Redraw(true);
        break;
    case 12: {
        fermerSaisie();
        if (!Messages::question(Chaine(140))) return;
        const int ligne = MG->LigneCourante;
        // Asked again of the grid, whatever the buttons say: a folder that holds
        // documents is never deleted.
        if (!MG->IsLigneParent(ligne) || ligne < 2 || MG->HasLigneFils(ligne)) return;
        bool ok = false;
        const int num = MG->GetColumnInfos(ligne, 17).toInt(&ok);
        if (!ok) return;
        MG->Redraw(false);
        SupprimerDossier(num);
        MG->DelParent(ligne);
        rechargerGrille();
        break;
    }
    case 13: {
        fermerSaisie();
        if (!Messages::question(Chaine(141))) return;
        const int ligne = MG->LigneCourante;
        if (ligne < 2 || MG->IsLigneParent(ligne)) return;
        MG->Redraw(false);
        MemoriserMG();
        // The store reads the row's keys from the grid: it goes before the row does.
        SupprimerDocument();
        MG->DelFils(ligne);
        MG->Clear();
        ChargerMG();
        RaffraichirMG();
        RendreSaisieVisible(false, 1, 0);
        RendreSaisieVisibleCalendrier(false);
        MG->Redraw(true);
        break;
    }
    case 15:
        if (MG->LigneCourante >= 2 && !MG->IsLigneParent(MG->LigneCourante)) {
            RendreSaisieVisible(true, 1, 0);
            RendreSaisieVisibleCalendrier(false);
            if (Saisie[3] && Saisie[3]->isVisible()) Saisie[3]->setFocus();
        }
        break;
    case 0:
    case 9:
        // Back to the login, to create an account (1) or choose another (2).
        fermerSaisie();
        Session::ModeLogin = index == 0 ? 1 : 2;
        Boutons[index]->relacher();
        Navigation::afficherLogin();
        break;
    case 4: {
        fermerSaisie();
        FrmModifLogin modification(this);
        if (preparationDialogue_) preparationDialogue_(&modification);
        modification.executer();
        break;
    }
    default:
        // The other commands of the base and the icons come with their windows.
        break;
    }
}
