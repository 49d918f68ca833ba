#include "FrmAP.h"

#include "ui/Art.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"

#include <QLabel>

FrmAP::FrmAP(QWidget *parent, MyCoolGrid *grille) : FenetreDialogue(parent, grille) {
    setObjectName(QStringLiteral("FrmAP"));
    definirTailleContenu(QSize(360, 150));
    centrer();
    L[LibelleEntete] = entete;
    L[LibelleEntete]->setText(Messages::kTitre);
    // This one window's bottom strip is the right edge's picture.
    EnteteB->definirArt(QStringLiteral("droit"));
    EnteteB->definirTexte(QString());
    Fond[FondBande]->hide();
    Fond[FondDossier]->hide();

    Image1 = new QLabel(FondBleu);
    Image1->setPixmap(Art::pixmap(QStringLiteral("korvane"), QSize(72, 72)));
    Image1->setGeometry(20, 36, 72, 72);
    activerDeplacement(Image1);

    L[LibelleTexte] = new QLabel(FondBleu);
    L[LibelleTexte]->setObjectName(QStringLiteral("L0"));
    L[LibelleTexte]->setTextFormat(Qt::RichText);
    L[LibelleTexte]->setText(QStringLiteral("<div style='color:#1f2a44'><p style='font-size:15pt; font-weight:bold; margin:0'>%1</p>"
                                            "<p style='margin:4px 0 10px 0'>%2</p>"
                                            "<p style='color:#4a5775; margin:0'>Version %3</p></div>")
                                 .arg(Messages::kTitre, Chaine(154).trimmed(), QStringLiteral(KORVANE_VERSION)));
    L[LibelleTexte]->setGeometry(110, 30, 236, 90);
    activerDeplacement(L[LibelleTexte]);
}
