#include "FrmRecherche.h"

#include "search/Recherche.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Reglages.h"
#include "ui/Apparence.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

namespace {
constexpr int kMarge = 12;
constexpr int kLargeurContenu = 440;
constexpr int kHautBande = 30;
constexpr int kHautContenu = 380;
}  // namespace

FrmRecherche::FrmRecherche(QWidget *parent, MyCoolGrid *grille) : FenetreDialogue(parent, grille) {
    setObjectName(QStringLiteral("FrmRecherche"));
    definirTailleContenu(QSize(kLargeurContenu, kHautContenu));
    centrer();

    L[LibelleEntete] = entete;
    L[LibelleEntete]->setText(Chaine(966));
    L[LibelleListe] = new QLabel(Chaine(967), FondBleu);
    L[LibelleListe]->setObjectName(QStringLiteral("L0"));
    colorerLibelle(L[LibelleListe], Reglages::lireNombre(Reglages::Cle::CouleurTitre), false);
    activerDeplacement(L[LibelleListe]);

    for (int i = 0; i < 2; ++i) {
        OptRec[i] = new QRadioButton(Chaine(123 + i), FondBleu);
        OptRec[i]->setObjectName(QStringLiteral("OptRec%1").arg(i));
        OptRec[i]->setStyleSheet(Apparence::kStyleChoix);
    }
    OptRec[0]->setChecked(true);

    Saisie = new QLineEdit(FondBleu);
    Saisie->setObjectName(QStringLiteral("Saisie"));
    Saisie->setPlaceholderText(QStringLiteral("Tout ou partie du nom"));
    Saisie->installEventFilter(this);
    connect(Saisie, &QLineEdit::returnPressed, this, [this] {
        OInterface[0]->enfoncer();
        clicValider();
    });

    OInterface[0] = creerBoutonOK();
    OInterface[0]->setObjectName(QStringLiteral("OInterface0"));
    OInterface[0]->definirCommande(QStringLiteral("edit-find"), Chaine(952));
    OInterface[0]->setToolTip(QStringLiteral("Lancer la recherche"));
    connect(OInterface[0], &QAbstractButton::clicked, this, [this] { clicValider(); });

    Liste = new QListWidget(FondBleu);
    Liste->setObjectName(QStringLiteral("Liste"));
    Liste->setUniformItemSizes(true);
    Liste->setStyleSheet(QStringLiteral(
        "QListWidget { background: #ffffff; border: 1px solid #8c98b0; }"
        "QListWidget::item { padding: 3px 2px; color: #1f2a44; }"
        "QListWidget::item:selected { padding: 3px 2px; background: #2e3f66; color: #ffffff; }"
        "QListWidget::item:disabled { color: #7a8499; font-style: italic; }"));
    Liste->installEventFilter(this);
    connect(Liste, &QListWidget::itemDoubleClicked, this, [this] { choisirResultat(); });

    const int largeur = kLargeurContenu - 2 * kMarge;
    OptRec[0]->setGeometry(kMarge, kMarge, 110, 24);
    OptRec[1]->setGeometry(kMarge + 120, kMarge, 120, 24);
    Saisie->setGeometry(kMarge, kMarge + 32, largeur - 120, 28);
    OInterface[0]->setGeometry(kLargeurContenu - kMarge - 110, kMarge + 30, 110, 32);
    Fond[FondBande]->setGeometry(kMarge, kMarge + 74, largeur, kHautBande);
    Fond[FondDossier]->setGeometry(kMarge + 4, kMarge + 74, 24, kHautBande);
    L[LibelleListe]->setGeometry(kMarge + 32, kMarge + 74, largeur - 40, kHautBande);
    Liste->setGeometry(kMarge, kMarge + 74 + kHautBande + 4, largeur, kHautContenu - (2 * kMarge + 74 + kHautBande + 4));
    chargerImagesStock();
    Saisie->setFocus();
}

void FrmRecherche::clicValider() {
    if (!OInterface[0]->estEnfonce()) return;
    if (Saisie->text().trimmed().isEmpty()) {
        // The hits of the last search stay in the list.
        Messages::information(QStringLiteral("Veuillez d'abord saisir les informations recherchées !"));
        Saisie->setFocus();
    } else if (grille()) {
        Liste->clear();
        const auto resultats = Recherche::chercher(*grille(), Saisie->text(), OptRec[0]->isChecked());
        for (const Recherche::Resultat &r : resultats) {
            auto *ligne = new QListWidgetItem(r.texte, Liste);
            ligne->setData(Qt::UserRole, Recherche::cleResultat(r.ligne));
        }
        // Said in the list, where the hits would be; the line leads nowhere.
        if (resultats.isEmpty()) {
            auto *aucun = new QListWidgetItem(QStringLiteral("Aucun résultat"), Liste);
            aucun->setFlags(Qt::NoItemFlags);
        }
    }
    OInterface[0]->relacher();
}

void FrmRecherche::choisirResultat() {
    const QListWidgetItem *ligne = Liste->currentItem();
    if (!ligne || !ligne->isSelected() || !grille()) return;
    const int numero = Recherche::ligneDeCle(ligne->data(Qt::UserRole).toString());
    if (numero < 0) return;
    // As a click on the row: a document is selected where it is, a folder opens or closes.
    grille()->SelectLine(numero);
    close();
}

bool FrmRecherche::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::KeyPress) {
        const int touche = static_cast<QKeyEvent *>(evenement)->key();
        // The keyboard's way to the hits and into one: Down from the box, Enter on a hit.
        if (objet == Saisie && touche == Qt::Key_Down && Liste->count() > 0 && Liste->item(0)->flags() != Qt::NoItemFlags) {
            Liste->setFocus();
            if (!Liste->currentItem()) Liste->setCurrentRow(0);
            Liste->currentItem()->setSelected(true);
            return true;
        }
        if (objet == Liste && (touche == Qt::Key_Return || touche == Qt::Key_Enter)) {
            choisirResultat();
            return true;
        }
    }
    return FenetreDialogue::eventFilter(objet, evenement);
}
