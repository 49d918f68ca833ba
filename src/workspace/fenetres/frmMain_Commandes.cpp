// frmMain: the grid's click, the command buttons and the commands on folders and documents.

#include "frmMain.h"

#include "workspace/Chargement.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/CopieBase.h"
#include "dialogs/fenetres/FrmAP.h"
#include "options/fenetres/FrmOptions.h"
#include "search/fenetres/FrmRecherche.h"
#include "ui/fenetres/ChoixFichier.h"
#include "app/fenetres/Navigation.h"
#include "store/Def.h"
#include "store/fenetres/FrmModifLogin.h"
#include "store/Session.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"
#include "FrmPop.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QUrl>
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
    // Remembered by its keys, so that a reload finds it again wherever its row went.
    selection_ = {r >= 2, MG->IsLigneParent(r), MG->GetColumnInfos(r, 17), MG->GetColumnInfos(r, 16),
                  MG->GetColumnInfos(r, Def::kColonneRowid)};
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
    ecrireBandeDocument(r);
}

void frmMain::ecrireBandeDocument(int r) {
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
    // Every command ends an open edit first, storing what was typed; a value that
    // can't be stored keeps the edit open and the command waits.
    if (const QString manque = selectionManquante(index); !manque.isEmpty()) {
        Messages::information(manque);
    } else if (fermerSaisie()) {
        try {
            commande(index);
        } catch (const Base::ErreurBase &e) {
            // One message for one failed command: the grid is read again to show what the
            // base holds, and a base that can't be read was just named in that message.
            Messages::information(e.message());
            chargementMuet_ = true;
            rechargerGrille();
            chargementMuet_ = false;
        }
    }
    // A cancelled choice of a base to open leaves its button pressed, until the next click on it.
    if (!garderEnfonce_) b->relacher();
    garderEnfonce_ = false;
}

QString frmMain::selectionManquante(int index) const {
    const int r = MG->LigneCourante;
    const bool ligne = selection_.valide && r >= 2 && MG->cellules().existe(r);
    const bool dossier = ligne && MG->IsLigneParent(r);
    const bool document = ligne && !dossier;
    switch (index) {
    case 11:
        return ligne ? QString() : QStringLiteral("Sélectionnez d'abord le dossier qui recevra le nouveau document.");
    case 12:
        return dossier ? QString() : QStringLiteral("Sélectionnez d'abord le dossier à supprimer.");
    case 14:
        return dossier ? QString() : QStringLiteral("Sélectionnez d'abord le dossier à renommer.");
    case 13:
        return document ? QString() : QStringLiteral("Sélectionnez d'abord le document à supprimer.");
    case 15:
        return document ? QString() : QStringLiteral("Sélectionnez d'abord le document à modifier.");
    case 16:
        return document ? QString() : QStringLiteral("Sélectionnez d'abord le document dont vous voulez changer l'icône.");
    default:
        return {};
    }
}

namespace {
const QString kDossierNonVide =
    QStringLiteral("Ce dossier contient encore des documents : seul un dossier vide peut être supprimé.");
}  // namespace

void frmMain::declencher(int index) {
    BoutonImage *b = Boutons[index];
    if (!b->isEnabled()) {
        const QString manque = selectionManquante(index);
        Messages::information(manque.isEmpty() ? kDossierNonVide : manque);
        return;
    }
    b->enfoncer();
    clicBouton(index);
}

void frmMain::supprimerSelection() {
    const int r = MG->LigneCourante;
    declencher(r >= 2 && MG->IsLigneParent(r) ? 12 : 13);
}

void frmMain::restaurerSelection() {
    const CleSelection cle = selection_;
    const int ligne = cle.valide ? MG->LigneDeCle(cle.dossier, cle.numDossier, cle.num, cle.rowid) : -1;
    if (ligne < 2) {
        effacerSelection();
        return;
    }
    // As a fresh choice of the row: the band and the buttons are written again.
    LigneDocument = 9999;
    MG->AllerALigne(ligne);
    MG->rendreVisible(ligne);
}

bool frmMain::montrerDocumentCourant() {
    const int r = MG->LigneCourante;
    if (MG->cellules().hauteurPixels(r) > 0) return true;
    // A hit of the search may lie in a closed folder: its folder is opened, as a
    // click on it would, and the document chosen again.
    int dossier = r;
    while (dossier >= 2 && !MG->IsLigneParent(dossier)) --dossier;
    if (dossier >= 2) {
        MG->SelectLine(dossier);
        MG->AllerALigne(r);
    }
    if (MG->LigneCourante == r && MG->cellules().hauteurPixels(r) > 0) return true;
    Messages::information(QStringLiteral("Le dossier de ce document ne peut pas être ouvert : "
                                         "ouvrez-le d'un clic, puis choisissez le document à modifier."));
    return false;
}

void frmMain::effacerSelection() {
    selection_ = {};
    LigneDocument = 9999;
    NomDossierCourant.clear();
    InfoEntete.clear();
    EnteteB->definirTexte(QString());
    for (int i = 10; i <= 16; ++i) Boutons[i]->setEnabled(true);
}

void frmMain::commande(int index) {
    switch (index) {
    case 10:
        ouvrirDialogueDossier(QString(), QString::number(ChercherNouveauNumDossier()));
        MG->Redraw(true);
        break;
    case 14:
        ouvrirDialogueDossier(NomDossierCourant.trimmed(), MG->GetColumnInfos(MG->LigneCourante, 17));
        MG->Redraw(true);
        break;
    case 11:
        ouvrirDialogueDocument(NomDossierCourant.trimmed());
        MG->Redraw(true);
        break;
    case 12: {
        const int ligne = MG->LigneCourante;
        // Asked again of the grid, whatever the buttons say: a folder that holds
        // documents is never deleted.
        if (MG->HasLigneFils(ligne)) {
            Messages::information(kDossierNonVide);
            return;
        }
        if (!Messages::question(Chaine(140))) return;
        bool ok = false;
        const int num = MG->GetColumnInfos(ligne, 17).toInt(&ok);
        if (!ok) return;
        SupprimerDossier(num);
        dossierSupprime(ligne);
        break;
    }
    case 13: {
        if (!Messages::question(Chaine(141))) return;
        const int ligne = MG->LigneCourante;
        // The store reads the row's keys from the grid: it goes before the row does.
        SupprimerDocument();
        documentSupprime(ligne);
        RendreSaisieVisible(false, 1, 0);
        RendreSaisieVisibleCalendrier(false);
        break;
    }
    case 16:
        changerIcone();
        break;
    case 15:
        if (MG->LigneCourante >= 2 && !MG->IsLigneParent(MG->LigneCourante)) {
            if (!montrerDocumentCourant()) return;
            MG->rendreVisible(MG->LigneCourante);
            RendreSaisieVisible(true, 1, 0);
            RendreSaisieVisibleCalendrier(false);
            if (Saisie[3] && Saisie[3]->isVisible()) Saisie[3]->setFocus();
        }
        break;
    case 0:
    case 9:
        // Back to the login, to create an account (1) or choose another (2).
        Session::ModeLogin = index == 0 ? 1 : 2;
        Boutons[index]->relacher();
        Navigation::afficherLogin();
        break;
    case 1: {
        // The copy kept of the base before is listed too: it is the way back after a bad choice.
        const QString chemin = ChoixFichier::ouvrir(this, Chaine(961) + Messages::kTitre, QStringLiteral("*.kvx *.kvx.bak"));
        if (chemin.isEmpty()) {
            garderEnfonce_ = true;
            return;
        }
        // Told before anything happens; either answer goes on, the file is checked first.
        const bool autre = !CopieBase::memeFichier(chemin, Chemins::cheminBase());
        QString raison;
        if (autre && !Base::estBaseKorvane(chemin, &raison)) {
            Messages::information(raison + QStringLiteral("\nLa base actuelle n'a pas été modifiée."));
            return;
        }
        Messages::question(Chaine(138) + QStringLiteral("\r\n") + Chaine(139));
        Boutons[1]->relacher();
        if (autre) {
            CopieBase::remplacer(chemin);
            Session::fermerApresRemplacement();
        } else {
            Session::ModeLogin = 2;
        }
        Navigation::afficherLogin();
        break;
    }
    case 2: {
        const QString chemin = ChoixFichier::enregistrer(this, Chaine(961) + Messages::kTitre, QStringLiteral("*.kvx"));
        if (chemin.isEmpty()) return;
        CopieBase::copier(chemin);
        Messages::information(Chaine(142));
        break;
    }
    case 5: {
        FrmRecherche recherche(this);
        montrerModal(recherche);
        break;
    }
    case 6: {
        // Made at the first opening and kept: a second opening finds it as it was left.
        if (!options_) {
            options_ = new FrmOptions(this);
            connect(options_, &FrmOptions::IconesModifiees, this, [] { FrmPop::IconesModifiees = true; });
        }
        montrerModal(*options_);
        break;
    }
    case 7: {
        const QString sommaire = QDir(Chemins::dossierAide()).filePath(QStringLiteral("index.htm"));
        if (!QFileInfo::exists(sommaire)) {
            Messages::information(QStringLiteral("Les pages d'aide sont introuvables : le dossier « Aide » manque dans %1.")
                                      .arg(QDir::toNativeSeparators(QFileInfo(Chemins::dossierAide()).absolutePath())));
            return;
        }
        // Over the grid until the next command; a second click reloads it.
        WB->setSource(QUrl::fromLocalFile(sommaire));
        WB->reload();
        WB->show();
        WB->raise();
        WB->setFocus();
        break;
    }
    case 8: {
        FrmAP apropos(this);
        montrerModal(apropos);
        break;
    }
    case 4: {
        FrmModifLogin modification(this);
        montrerModal(modification);
        break;
    }
    default:
        // The other commands of the base and the icons come with their windows.
        break;
    }
}
