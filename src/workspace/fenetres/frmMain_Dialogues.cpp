// frmMain: the dialogs that name folders, enter documents and modify them.

#include "frmMain.h"

#include "dialogs/fenetres/FrmAjoutDoc.h"
#include "dialogs/fenetres/FrmAjoutDossier.h"
#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "workspace/Chargement.h"
#include "workspace/fenetres/EditionEnPlace.h"
#include "store/Base.h"
#include "store/Def.h"
#include "store/Session.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/Messages.h"

#include <QLabel>
#include <QLineEdit>
#include <QTextBrowser>

void frmMain::montrerModal(FenetreCadre &fenetre) {
    if (preparationDialogue_) preparationDialogue_(&fenetre);
    fenetre.executer();
}

void frmMain::ouvrirDialogueDossier(const QString &nom, const QString &numero) {
    FrmAjoutDossier dialogue(this, MG);
    connect(&dialogue, &FrmAjoutDossier::dossierEcrit, this, &frmMain::dossierEcrit);
    dialogue.Saisie->setText(nom);
    dialogue.TagSaisie = numero;
    montrerModal(dialogue);
}

void frmMain::ouvrirDialogueDocument(const QString &dossier) {
    FrmAjoutDoc dialogue(this, MG);
    dialogue.L[FrmAjoutDoc::LibelleNomDossier]->setText(dossier);
    montrerDialogueDocument(dialogue);
}

void frmMain::modifierDocument() {
    const int ligne = MG->LigneCourante;
    if (const QString manque = selectionManquante(commandeDuBouton(Bouton::EditerDocument)); !manque.isEmpty()) {
        Messages::information(manque);
        return;
    }
    // What was typed in the row's boxes goes to the form, where every character is kept.
    QList<QPair<int, QString>> tapes;
    if (Edition->SaisieVisible) {
        for (int i = Colonne::PremierChamp; i <= Colonne::DernierChamp; ++i)
            if (Edition->Saisie[i]->isModified() && Edition->Saisie[i]->text() != MG->GetColumnInfos(ligne, i)) tapes.append({i, Edition->Saisie[i]->text()});
        Edition->annulerSaisie();
    }
    WB->hide();
    Chargement::Document doc;
    bool lu = false;
    try {
        // Read from the base, where every field is, whatever the grid shows of it.
        lu = Chargement::lireDocument(Session::NumCompteCourant, MG->GetColumnInfos(ligne, Colonne::Rowid).toLongLong(), doc) &&
             doc.num == MG->GetColumnInfos(ligne, Colonne::NumDocument) &&
             doc.dossier == MG->GetColumnInfos(ligne, Colonne::NumDossier);
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
        return;
    }
    if (!lu) {
        Messages::information(QStringLiteral("Ce document n'est plus dans la base : un autre programme l'a modifié ou supprimé."));
        chargementMuet_ = true;
        rechargerGrille();
        chargementMuet_ = false;
        return;
    }
    FrmAjoutDoc dialogue(this, MG);
    dialogue.L[FrmAjoutDoc::LibelleNomDossier]->setText(NomDossierCourant.trimmed());
    dialogue.modifier(doc.infos.mid(0, FrmAjoutDoc::kNbSaisies), doc.icone, QPixmap::fromImage(imgCONTENU.imageDeNum(doc.icone)));
    for (const auto &[indice, texte] : tapes) dialogue.definirTexte(indice - 3, texte);
    montrerDialogueDocument(dialogue);
    MG->Redraw(true);
}

void frmMain::montrerDialogueDocument(FrmAjoutDoc &dialogue) {
    dialogueDocument_ = &dialogue;
    connect(&dialogue, &FrmAjoutDoc::documentEcrit, this, &frmMain::documentAjoute);
    connect(&dialogue, &FrmAjoutDoc::documentModifie, this, &frmMain::documentModifie);
    connect(&dialogue, &FrmAjoutDoc::iconeDemandee, this, [this, &dialogue] {
        MG->Tag = QStringLiteral("A");
        ouvrirIcones(dialogue.MIcone->mapToGlobal(QPoint(0, dialogue.MIcone->height())));
        MG->Tag.clear();
    });
    montrerModal(dialogue);
}
