#include "FenetreDialogue.h"

#include "grid/fenetres/MyCoolGrid.h"
#include "ui/Apparence.h"
#include "ui/Art.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPainter>
#include <QShowEvent>

namespace {
constexpr int kLigneTitre = 0;      // the grid's title row: its band
constexpr int kPremierDossier = 2;  // the first folder row: the folder picture
}  // namespace

PanneauStock::PanneauStock(bool etire, QWidget *parent)
    : PanneauImage(QString(), etire ? Mode::Etire : Mode::Mosaique, parent), etire_(etire) {}

void PanneauStock::definirImage(const QPixmap &image) {
    image_ = image;
    update();
}

void PanneauStock::paintEvent(QPaintEvent *) {
    if (image_.isNull()) return;
    QPainter p(this);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    if (etire_) {
        p.drawPixmap(rect(), image_);
        return;
    }
    const QSize taille = image_.deviceIndependentSize().toSize();
    p.drawPixmap(QPoint((width() - taille.width()) / 2, (height() - taille.height()) / 2), image_);
}

FenetreDialogue::FenetreDialogue(QWidget *parent, MyCoolGrid *grille) : FenetreCadre(parent), grille_(grille) {
    setWindowTitle(Messages::kTitre);
    Fond[FondBande] = new PanneauStock(true, FondBleu);
    Fond[FondBande]->setObjectName(QStringLiteral("Fond1"));
    Fond[FondDossier] = new PanneauStock(false, FondBleu);
    Fond[FondDossier]->setObjectName(QStringLiteral("Fond2"));
    activerDeplacement(Fond[FondBande]);
    activerDeplacement(Fond[FondDossier]);
    EnteteB->definirTexte(Chaine(154).trimmed());
    connect(this, &FenetreCadre::fermetureDemandee, this, &QWidget::close);
}

MyCoolGrid *FenetreDialogue::grille() const { return grille_; }

void FenetreDialogue::chargerImagesStock() {
    QPixmap bande, dossier;
    if (grille_) {
        // Reading the pictures leaves the grid's repainting off; the command that
        // opened the dialog turns it on again when the dialog is closed.
        bande = grille_->GetCellPicture(kLigneTitre);
        dossier = grille_->GetCellPicture(kPremierDossier);
    }
    if (bande.isNull()) bande = Art::pixmap(QStringLiteral("grid_bande_section"), QSize(400, 20));
    if (dossier.isNull()) dossier = Art::pixmap(QStringLiteral("grid_dossier"), QSize(16, 16));
    static_cast<PanneauStock *>(Fond[FondBande])->definirImage(bande);
    static_cast<PanneauStock *>(Fond[FondDossier])->definirImage(dossier);
}

void FenetreDialogue::colorerLibelle(QLabel *libelle, int couleur, bool pastille) {
    const QColor texte = Apparence::couleur(couleur);
    // A light colour goes on the navy of the frame; a dark one on the light band,
    // or on white when it stands in a box of its own.
    const bool clair = texte.lightness() > 150;
    QString fond = QStringLiteral("background: transparent;");
    if (clair)
        fond = QStringLiteral("background: #2e3f66; border-radius: 4px; padding: 0 8px;");
    else if (pastille)
        fond = QStringLiteral("background: #ffffff; border: 1px solid #b3bccd; border-radius: 4px; padding: 0 8px;");
    libelle->setStyleSheet(QStringLiteral("color: %1; font-weight: bold; %2").arg(texte.name(), fond));
}

void FenetreDialogue::finDeplacement() {
    // The grid behind was left unpainted while the dialog took its pictures;
    // once the dialog has been moved it must show again.
    if (grille_) grille_->Redraw(true);
}

void FenetreDialogue::showEvent(QShowEvent *e) {
    FenetreCadre::showEvent(e);
    if (e->spontaneous()) return;
    enregistre_ = false;
    memoriserEtatInitial();
}

void FenetreDialogue::fermerEnregistre() {
    enregistre_ = true;
    close();
}

void FenetreDialogue::closeEvent(QCloseEvent *e) {
    // Escape, the close button, the desktop or a change of account: what was typed is
    // stored or dropped by the user's answer, never without a word.
    if (!enregistre_ && isVisible() && modifie()) {
        switch (Messages::questionAnnulable(QStringLiteral("Enregistrer les modifications ?"))) {
        case Messages::Reponse::Oui:
            if (enregistrer()) break;
            e->ignore();
            return;
        case Messages::Reponse::Non:
            break;
        case Messages::Reponse::Annuler:
            e->ignore();
            return;
        }
    }
    FenetreCadre::closeEvent(e);
}
