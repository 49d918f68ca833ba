// frmMain: the dialogs that name folders and enter documents.

#include "frmMain.h"

#include "dialogs/FrmAjoutDoc.h"
#include "dialogs/FrmAjoutDossier.h"
#include "grid/MyCoolGrid.h"
#include "ui/BoutonImage.h"

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
    dialogueDocument_ = &dialogue;
    connect(&dialogue, &FrmAjoutDoc::iconeDemandee, this, [this, &dialogue] {
        MG->Tag = QStringLiteral("A");
        ouvrirIcones(dialogue.MIcone->mapToGlobal(QPoint(0, dialogue.MIcone->height())));
        MG->Tag.clear();
    });
    montrerModal(dialogue);
}
