// FrmOptions: the page "Gestion des icônes". Every change happens in memory, on the
// main window's icon library and on the list; only "Valider" writes the base and
// repaints the grid. Icons are never deleted and never move, so that the number a
// document keeps always names the same icon.

#include "FrmOptions.h"

#include "options/BibliothequeIcones.h"
#include "options/Blit.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Base.h"
#include "store/Def.h"
#include "store/IconesStock.h"
#include "ui/Apparence.h"
#include "ui/Chaines.h"
#include "ui/fenetres/ChoixFichier.h"
#include "ui/fenetres/LimiteSaisie.h"
#include "ui/fenetres/Messages.h"

#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

// Edits the name of an icon in place, in a box that holds what Libelle stores, and
// lets the window keep a name still being typed when a button is pressed or the
// window goes.
class DelegueLibelle : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override {
        QWidget *editeur = QStyledItemDelegate::createEditor(parent, option, index);
        if (auto *boite = qobject_cast<QLineEdit *>(editeur)) LimiteSaisie::limiter(boite, Def::kLongueurChamp);
        editeur_ = editeur;
        return editeur;
    }

    void validerEdition() {
        if (!editeur_) return;
        QWidget *editeur = editeur_;
        editeur_ = nullptr;
        emit commitData(editeur);
        emit closeEditor(editeur);
    }

private:
    mutable QPointer<QWidget> editeur_;
};

namespace {
const QString kAEnregistrer = QStringLiteral("Modifications non enregistrées : « Valider » les écrit dans la base.");
const QString kEnregistree = QStringLiteral("La bibliothèque d'icônes est enregistrée.");
}  // namespace

void FrmOptions::creerPageIcones() {
    QWidget *page = P[PageIcones];
    L[LibelleIcones] = new QLabel(Chaine(944), page);
    L[LibelleIcones]->setStyleSheet(Apparence::kStyleLibelle);
    L[LibelleIcones]->setGeometry(16, 10, 400, 28);
    activerDeplacement(L[LibelleIcones]);

    ListeIcones = new QListWidget(page);
    ListeIcones->setObjectName(QStringLiteral("ListeIcones"));
    ListeIcones->setGeometry(16, 42, page->width() - 32, page->height() - 132);
    ListeIcones->setViewMode(QListView::IconMode);
    ListeIcones->setMovement(QListView::Static);  // a place is a number that documents keep
    ListeIcones->setResizeMode(QListView::Adjust);
    ListeIcones->setIconSize(QSize(IconesStock::kCote, IconesStock::kCote));
    ListeIcones->setGridSize(QSize(104, 56));
    ListeIcones->setWordWrap(true);
    ListeIcones->setSelectionMode(QAbstractItemView::SingleSelection);
    ListeIcones->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                                 QAbstractItemView::SelectedClicked);
    ListeIcones->setStyleSheet(QStringLiteral(
        "QListWidget { background: #ffffff; border: 1px solid #8c98b0; color: #1f2a44; }"
        "QListWidget::item { border: 1px solid transparent; border-radius: 3px; padding: 2px; }"
        "QListWidget::item:selected { background: #f6e3b4; color: #1f2a44; border-color: #e0a526; }"));
    delegueLibelle_ = new DelegueLibelle(ListeIcones);
    ListeIcones->setItemDelegate(delegueLibelle_);
    connect(ListeIcones, &QListWidget::itemChanged, this, &FrmOptions::renommerIcone);

    etatIcones_ = new QLabel(page);
    etatIcones_->setObjectName(QStringLiteral("EtatIcones"));
    etatIcones_->setStyleSheet(QStringLiteral("color: #1f2a44; font-style: italic; background: transparent;"));
    etatIcones_->setGeometry(16, page->height() - 84, page->width() - 32, 26);

    static const QString kIcones[3] = {QStringLiteral("list-add"), QStringLiteral("insert-image"), QStringLiteral("document-save")};
    for (int i = 0; i < 3; ++i) {
        ValDivers[i] = boutonTexte(page, Chaine(i < 2 ? 958 + i : 952), kIcones[i]);
        ValDivers[i]->setObjectName(QStringLiteral("ValDivers%1").arg(i));
        ValDivers[i]->setGeometry(i < 2 ? 12 + i * 158 : page->width() - 162, page->height() - 46, 150, 34);
        connect(ValDivers[i], &QAbstractButton::clicked, this, [this, i] { clicValDivers(i); });
    }
    ValDivers[0]->setToolTip(QStringLiteral("Ajouter une icône à partir d'un fichier (Inser)"));
    ValDivers[1]->setToolTip(QStringLiteral("Remplacer l'image de l'icône sélectionnée"));
    ValDivers[2]->setToolTip(QStringLiteral("Enregistrer la bibliothèque dans la base"));
    ListeIcones->setToolTip(QStringLiteral("F2, Entrée ou un double clic renomme l'icône sélectionnée"));

    // From the keyboard: Insert adds, Delete says why an icon stays (eventFilter).
    ListeIcones->installEventFilter(this);
    ChargerIcones();
}

void FrmOptions::ChargerIcones() {
    const QSignalBlocker blocage(ListeIcones);
    const int selection = ListeIcones->currentRow();
    ListeIcones->clear();
    if (!images_) return;
    const ListeImages &liste = *images_;
    for (int i = 1; i <= liste.nombre(); ++i) {
        const ListeImages::Entree *e = liste.entree(i);
        auto *item = new QListWidgetItem(QIcon(QPixmap::fromImage(e->image)), e->tag, ListeIcones);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    if (selection >= 0 && selection < ListeIcones->count()) ListeIcones->setCurrentRow(selection);
}

bool FrmOptions::MajIcones() {
    if (!images_) return false;
    try {
        BibliothequeIcones::MajIcones(*images_);
        return true;
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
        return false;
    }
}

bool FrmOptions::eventFilter(QObject *objet, QEvent *evenement) {
    if (objet == ListeIcones && evenement->type() == QEvent::KeyPress) {
        const int touche = static_cast<QKeyEvent *>(evenement)->key();
        // Enter names the selected icon, as a double click does.
        if ((touche == Qt::Key_Return || touche == Qt::Key_Enter) && ListeIcones->currentItem()) {
            ListeIcones->editItem(ListeIcones->currentItem());
            return true;
        }
        if (touche == Qt::Key_Insert) {
            ValDivers[0]->click();
            return true;
        }
        if (touche == Qt::Key_Delete) {
            Messages::information(QStringLiteral(
                "Une icône ne peut pas être supprimée : les documents qui la portent la perdraient.\n"
                "Pour changer son image, sélectionnez-la puis cliquez sur « Modifier »."));
            return true;
        }
    }
    return FenetreDialogue::eventFilter(objet, evenement);
}

void FrmOptions::hideEvent(QHideEvent *e) {
    // A name still being typed is kept in memory, as the names typed before it.
    delegueLibelle_->validerEdition();
    FenetreDialogue::hideEvent(e);
}

void FrmOptions::clicValDivers(int index) {
    BoutonImage *bouton = ValDivers[size_t(index)];
    if (bouton->estEnfonce() && images_) {
        delegueLibelle_->validerEdition();
        switch (index) {
        case 0:
            ajouterIcone();
            break;
        case 1:
            modifierIcone();
            break;
        default:
            validerIcones();
            break;
        }
    }
    bouton->relacher();
}

QImage FrmOptions::choisirImage() {
    const QString chemin = ChoixFichier::ouvrir(
        this, {Chaine(960) + QStringLiteral(" (*.ico)"), QStringLiteral("Images (*.png *.svg *.xpm *.bmp *.gif *.jpg *.jpeg)")});
    if (chemin.isEmpty()) return {};
    QImage image = Blit::AjusterImage(BibliothequeIcones::chargerFichier(chemin));
    if (image.isNull())
        Messages::information(QStringLiteral("Le fichier « %1 » n'est pas une image que Korvane sait lire.\n"
                                             "La bibliothèque d'icônes n'a pas changé.")
                                  .arg(QFileInfo(chemin).fileName()));
    return image;
}

void FrmOptions::ajouterIcone() {
    const QImage image = choisirImage();
    if (image.isNull()) return;
    ListeImages &liste = *images_;
    liste.ajouter(Apparence::cleIcone(liste.numeroSuivant()), image);
    ChargerIcones();
    marquerIcones(false);
    // The user names the new icon at once.
    QListWidgetItem *item = ListeIcones->item(ListeIcones->count() - 1);
    ListeIcones->setFocus();
    ListeIcones->setCurrentItem(item);
    ListeIcones->scrollToItem(item);
    ListeIcones->editItem(item);
}

void FrmOptions::modifierIcone() {
    QListWidgetItem *item = ListeIcones->currentItem();
    if (!item || !item->isSelected()) {
        Messages::information(QStringLiteral("Sélectionnez d'abord l'icône dont vous voulez remplacer l'image."));
        return;
    }
    const QImage image = choisirImage();
    if (image.isNull()) return;
    images_->remplacerImage(ListeIcones->row(item) + 1, image);
    {
        const QSignalBlocker blocage(ListeIcones);
        item->setIcon(QIcon(QPixmap::fromImage(image)));
    }
    marquerIcones(false);
    ListeIcones->setFocus();
}

void FrmOptions::validerIcones() {
    if (!MajIcones()) return;
    if (grille()) {
        grille()->ReChargerIcones(*images_);
        grille()->ReDessiner();
    }
    ChargerIcones();  // the pictures as written
    marquerIcones(true);
    ListeIcones->setFocus();
}

void FrmOptions::renommerIcone(QListWidgetItem *item) {
    ListeImages &liste = *images_;
    const int numero = ListeIcones->row(item) + 1;
    if (!liste.existe(numero) || liste.entree(numero)->tag == item->text()) return;
    liste.definirTag(numero, item->text());
    marquerIcones(false);
}

void FrmOptions::marquerIcones(bool enregistrees) {
    etatIcones_->setText(enregistrees ? kEnregistree : kAEnregistrer);
    emit iconesModifiees();
}
