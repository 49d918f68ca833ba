#pragma once
// The dialog that names a folder: a new one, or the selected one renamed. The main
// window fills the box and the folder's number before showing it.

#include "FenetreDialogue.h"

#include <array>

class QLabel;
class QLineEdit;

class FrmAjoutDossier : public FenetreDialogue {
    Q_OBJECT
public:
    explicit FrmAjoutDossier(QWidget *parent = nullptr, MyCoolGrid *grille = nullptr);

    QLineEdit *Saisie = nullptr;  // the name, kept as typed
    // The folder's number as text: a free number for a new folder, the selected
    // folder's for a rename. The folder of that number is renamed, or made.
    QString TagSaisie;
    enum : int { LibelleNom,
                 LibelleEntete,
                 NbLibelles };
    std::array<QLabel *, NbLibelles> L{};
    BoutonImage *OK = nullptr;

signals:
    // The folder was written, new or renamed: its rowid in the base.
    void dossierEcrit(qint64 rowid);

protected:
    void memoriserEtatInitial() override;
    bool modifie() const override;
    bool enregistrer() override;

private:
    void clicOK();
    QString nomInitial_;
};
