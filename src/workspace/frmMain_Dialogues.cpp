// frmMain: the dialogs that name folders and enter documents.

#include "frmMain.h"

#include "dialogs/FrmAjoutDoc.h"
#include "dialogs/FrmAjoutDossier.h"
#include "grid/MyCoolGrid.h"

#include <QLabel>
#include <QLineEdit>

void frmMain::montrerModal(FenetreCadre &fenetre) {
    if (preparationDialogue_) preparationDialogue_(&fenetre);
    fenetre.executer();
}

void frmMain::ouvrirDialogueDossier(const QString &nom, const QString &numero) {
    FrmAjoutDossier dialogue(this);
    dialogue.Saisie->setText(nom);
    dialogue.TagSaisie = numero;
    montrerModal(dialogue);
}

void frmMain::ouvrirDialogueDocument(const QString &dossier) {
    FrmAjoutDoc dialogue(this);
    dialogue.L[2]->setText(dossier);
    montrerModal(dialogue);
}
