// frmMain: the grid's click, the command buttons and the commands on folders and documents.

#include "frmMain.h"

#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "workspace/Chargement.h"
#include "workspace/fenetres/EditionEnPlace.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/CopieBase.h"
#include "dialogs/fenetres/FrmAP.h"
#include "options/fenetres/FrmOptions.h"
#include "search/fenetres/FrmRecherche.h"
#include "ui/fenetres/ChoixFichier.h"
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

namespace {
const QString kDossierNonVide =
    QStringLiteral("Ce dossier contient encore des documents : seul un dossier vide peut être supprimé.");
// The buttons that act on the selected document.
constexpr Bouton::Numero kBoutonsDocument[] = {Bouton::SupprimerDocument, Bouton::EditerDocument, Bouton::ModifierIcone};
}  // namespace

void frmMain::clicGrille() {
    Boutons[Bouton::NouveauDossier]->setEnabled(true);
    Boutons[Bouton::NouveauDocument]->setEnabled(true);
    if (Edition->SaisieVisible) {
        Boutons[Bouton::EditerDocument]->relacher();
        MG->Redraw(false);
        Edition->RendreSaisieVisible(false, 1, 0);
        Edition->RendreSaisieVisibleCalendrier(false);
    }
    const int r = MG->LigneCourante;
    // Remembered by its keys, so that a reload finds it again wherever its row went.
    selection_ = {r >= 2, MG->IsLigneParent(r), MG->GetColumnInfos(r, Colonne::NumDossier), MG->GetColumnInfos(r, Colonne::NumDocument),
                  MG->GetColumnInfos(r, Colonne::Rowid)};
    if (MG->IsLigneParent(r)) {
        EnteteB->definirTexte(QStringLiteral("   ") + Chaine(123) + QStringLiteral(" : ") + MG->GetColumnInfos(r, Colonne::Nom));
        NomDossierCourant = MG->GetColumnInfos(r, Colonne::Nom);
        InfoEntete = EnteteB->texte();
        for (int i : kBoutonsDocument) Boutons[i]->setEnabled(false);
        if (r <= 1) {
            Boutons[Bouton::SupprimerDossier]->setEnabled(false);
            Boutons[Bouton::RenommerDossier]->setEnabled(false);
        } else {
            Boutons[Bouton::RenommerDossier]->setEnabled(true);
            // Only an empty folder may be deleted.
            Boutons[Bouton::SupprimerDossier]->setEnabled(!MG->HasLigneFils(r));
        }
    } else {
        Boutons[Bouton::SupprimerDossier]->setEnabled(false);
        Boutons[Bouton::RenommerDossier]->setEnabled(false);
        for (int i : kBoutonsDocument) Boutons[i]->setEnabled(true);
    }

    if (MG->IsLigneParent(r)) {
        if (Edition->SaisieVisible) Edition->RendreSaisieVisible(false, 1, 0);
        Edition->RendreSaisieVisibleCalendrier(false);
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
    QString bande = QStringLiteral("   ") + Chaine(123) + QStringLiteral(" : ") + MG->GetColumnInfos(i, Colonne::Nom);
    NomDossierCourant = MG->GetColumnInfos(i, Colonne::Nom);
    bande += QStringLiteral(" - ") + QStringLiteral(" ") + Chaine(124) + QStringLiteral(" : ") + MG->GetColumnInfos(r, Colonne::Titre);
    EnteteB->definirTexte(bande);
    InfoEntete = bande;
}

void frmMain::clicBouton(int index) {
    Edition->RendreSaisieVisibleCalendrier(false);
    BoutonImage *b = Boutons[index];
    if (!b->estEnfonce()) {
        // The click released the button: a released editing button still opens the boxes.
        if (Boutons[Bouton::EditerDocument]->estEnfonce() && MG->LigneCourante >= 2 && !MG->IsLigneParent(MG->LigneCourante)) {
            Edition->RendreSaisieVisible(true, 1, 0);
            Edition->RendreSaisieVisibleCalendrier(false);
        }
        b->relacher();
        return;
    }
    WB->hide();
    // Every command ends an open edit first, storing what was typed; a value that
    // can't be stored keeps the edit open and the command waits.
    const Commande *c = commandeDuBouton(index);
    if (const QString manque = selectionManquante(c); !manque.isEmpty()) {
        Messages::information(manque);
    } else if (Edition->fermerSaisie()) {
        try {
            if (c) (this->*c->action)();
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

QString frmMain::selectionManquante(const Commande *c) const {
    return c && !convient(c->besoin, selectionActuelle()) ? QString::fromUtf8(c->manque) : QString();
}

void frmMain::declencher(int index) {
    BoutonImage *b = Boutons[index];
    if (!b->isEnabled()) {
        const QString manque = selectionManquante(commandeDuBouton(index));
        Messages::information(manque.isEmpty() ? kDossierNonVide : manque);
        return;
    }
    b->enfoncer();
    clicBouton(index);
}

void frmMain::supprimerSelection() {
    const int r = MG->LigneCourante;
    declencher(r >= 2 && MG->IsLigneParent(r) ? Bouton::SupprimerDossier : Bouton::SupprimerDocument);
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
    Messages::information(QStringLiteral(
        "Le dossier de ce document ne peut pas être ouvert : "
        "ouvrez-le d'un clic, puis choisissez le document à modifier."));
    return false;
}

void frmMain::effacerSelection() {
    selection_ = {};
    LigneDocument = 9999;
    NomDossierCourant.clear();
    InfoEntete.clear();
    EnteteB->definirTexte(QString());
    for (int i = Bouton::NouveauDossier; i <= Bouton::ModifierIcone; ++i) Boutons[i]->setEnabled(true);
}

void frmMain::nouveauDossier() {
    ouvrirDialogueDossier(QString(), QString::number(ChercherNouveauNumDossier()));
    MG->Redraw(true);
}

void frmMain::renommerDossier() {
    ouvrirDialogueDossier(NomDossierCourant.trimmed(), MG->GetColumnInfos(MG->LigneCourante, Colonne::NumDossier));
    MG->Redraw(true);
}

void frmMain::nouveauDocument() {
    ouvrirDialogueDocument(NomDossierCourant.trimmed());
    MG->Redraw(true);
}

void frmMain::supprimerDossier() {
    const int ligne = MG->LigneCourante;
    // Asked again of the grid, whatever the buttons say: a folder that holds
    // documents is never deleted.
    if (MG->HasLigneFils(ligne)) {
        Messages::information(kDossierNonVide);
        return;
    }
    if (!Messages::question(Chaine(140))) return;
    bool ok = false;
    const int num = MG->GetColumnInfos(ligne, Colonne::NumDossier).toInt(&ok);
    if (!ok) return;
    SupprimerDossier(num);
    dossierSupprime(ligne);
}

void frmMain::supprimerDocument() {
    if (!Messages::question(Chaine(141))) return;
    const int ligne = MG->LigneCourante;
    // The store reads the row's keys from the grid: it goes before the row does.
    SupprimerDocument();
    documentSupprime(ligne);
    Edition->RendreSaisieVisible(false, 1, 0);
    Edition->RendreSaisieVisibleCalendrier(false);
}

void frmMain::modifierDansLaGrille() {
    if (MG->LigneCourante >= 2 && !MG->IsLigneParent(MG->LigneCourante)) {
        if (!montrerDocumentCourant()) return;
        MG->rendreVisible(MG->LigneCourante);
        Edition->RendreSaisieVisible(true, 1, 0);
        Edition->RendreSaisieVisibleCalendrier(false);
        if (Edition->Saisie[Colonne::Titre] && Edition->Saisie[Colonne::Titre]->isVisible()) Edition->Saisie[Colonne::Titre]->setFocus();
    }
}

// Back to the login, to create an account or choose another.
void frmMain::nouveauCompte() {
    Session::ModeLogin = Session::Mode::NouveauCompte;
    Boutons[Bouton::NouveauCompte]->relacher();
    emit loginDemande();
}

void frmMain::changerCompte() {
    Session::ModeLogin = Session::Mode::AutreCompte;
    Boutons[Bouton::ChangerCompte]->relacher();
    emit loginDemande();
}

void frmMain::ouvrirBase() {
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
    Boutons[Bouton::OuvrirBase]->relacher();
    if (autre) {
        CopieBase::remplacer(chemin);
        Session::fermerApresRemplacement();
    } else {
        Session::ModeLogin = Session::Mode::AutreCompte;
    }
    emit loginDemande();
}

void frmMain::enregistrerBaseSous() {
    const QString chemin = ChoixFichier::enregistrer(this, Chaine(961) + Messages::kTitre, QStringLiteral("*.kvx"));
    if (chemin.isEmpty()) return;
    CopieBase::copier(chemin);
    Messages::information(Chaine(142));
}

void frmMain::rechercher() {
    FrmRecherche recherche(this, MG);
    montrerModal(recherche);
}

void frmMain::ouvrirOptions() {
    // Made at the first opening and kept: a second opening finds it as it was left.
    if (!options_) {
        options_ = new FrmOptions(this, MG, &imgCONTENU);
        connect(options_, &FrmOptions::iconesModifiees, this, [] { FrmPop::IconesModifiees = true; });
    }
    montrerModal(*options_);
}

void frmMain::afficherAide() {
    const QString index = QDir(Chemins::dossierAide()).filePath(QStringLiteral("index.htm"));
    if (!QFileInfo::exists(index)) {
        Messages::information(QStringLiteral("Les pages d'aide sont introuvables : le dossier « Aide » manque dans %1.")
                                  .arg(QDir::toNativeSeparators(QFileInfo(Chemins::dossierAide()).absolutePath())));
        return;
    }
    // Over the grid until the next command; a second click reloads it.
    WB->setSource(QUrl::fromLocalFile(index));
    WB->reload();
    WB->show();
    WB->raise();
    WB->setFocus();
}

void frmMain::aPropos() {
    FrmAP apropos(this, MG);
    montrerModal(apropos);
}

void frmMain::modifierMotDePasseCompte() {
    FrmModifLogin modification(this);
    montrerModal(modification);
}
