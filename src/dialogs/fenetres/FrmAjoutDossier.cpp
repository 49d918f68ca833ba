#include "FrmAjoutDossier.h"

#include "store/Base.h"
#include "store/Def.h"
#include "store/Reglages.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/LimiteSaisie.h"
#include "ui/fenetres/Messages.h"

#include <QLabel>
#include <QLineEdit>

namespace {
constexpr int kMarge = 12;
constexpr int kLargeurContenu = 380;
constexpr int kHautBande = 30;
}  // namespace

FrmAjoutDossier::FrmAjoutDossier(QWidget *parent, MyCoolGrid *grille) : FenetreDialogue(parent, grille) {
    setObjectName(QStringLiteral("FrmAjoutDossier"));
    definirTailleContenu(QSize(kLargeurContenu, 136));
    centrer();

    L[LibelleEntete] = entete;
    L[LibelleEntete]->setText(QStringLiteral("Nommer un dossier"));
    L[LibelleNom] = new QLabel(QStringLiteral("Nom du dossier"), FondBleu);
    L[LibelleNom]->setObjectName(QStringLiteral("L0"));
    colorerLibelle(L[LibelleNom], Reglages::lireNombre(Reglages::Cle::CouleurTitre), false);
    for (QLabel *l : L) activerDeplacement(l);

    Saisie = new QLineEdit(FondBleu);
    Saisie->setObjectName(QStringLiteral("Saisie"));
    // What the box shows is what the base will hold.
    LimiteSaisie::limiter(Saisie, Def::kLongueurChamp);
    connect(Saisie, &QLineEdit::returnPressed, this, [this] {
        OK->enfoncer();
        clicOK();
    });

    OK = creerBoutonOK();
    connect(OK, &QAbstractButton::clicked, this, [this] { clicOK(); });

    Fond[FondBande]->setGeometry(kMarge, kMarge, kLargeurContenu - 2 * kMarge, kHautBande);
    Fond[FondDossier]->setGeometry(kMarge + 4, kMarge, 24, kHautBande);
    L[LibelleNom]->setGeometry(kMarge + 32, kMarge, kLargeurContenu - 2 * kMarge - 40, kHautBande);
    Saisie->setGeometry(kMarge, kMarge + kHautBande + 12, kLargeurContenu - 2 * kMarge, 26);
    OK->setGeometry(kLargeurContenu - kMarge - 74, 90, 74, 32);
    chargerImagesStock();
}

void FrmAjoutDossier::clicOK() {
    if (!OK->estEnfonce()) return;
    const bool fait = enregistrer();
    OK->relacher();
    if (fait) fermerEnregistre();
}

void FrmAjoutDossier::memoriserEtatInitial() { nomInitial_ = Saisie->text(); }

bool FrmAjoutDossier::modifie() const { return Saisie->text() != nomInitial_; }

bool FrmAjoutDossier::enregistrer() {
    if (Saisie->text().trimmed().isEmpty()) {
        Messages::information(QStringLiteral("Veuillez saisir le nom du dossier, svp !"));
        Saisie->setFocus();
        return false;
    }
    bool nombre = false;
    const int num = TagSaisie.trimmed().toInt(&nombre);
    if (!nombre) {
        // Without its number the folder can't be told apart from the others.
        Messages::information(QStringLiteral("Le numéro du dossier est inconnu : le dossier n'a pas été enregistré."));
        return false;
    }
    qint64 rowid = 0;
    try {
        EcrireDossier(Saisie->text(), num, &rowid);
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
        return false;
    }
    emit dossierEcrit(rowid);
    return true;
}
