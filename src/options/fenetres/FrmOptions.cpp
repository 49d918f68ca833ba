#include "FrmOptions.h"

#include "ApercuExport.h"
#include "options/EcritureExports.h"
#include "options/Exports.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Base.h"
#include "store/CopieBase.h"
#include "store/Reglages.h"
#include "ui/Apparence.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/fenetres/ChoixFichier.h"
#include "ui/fenetres/Messages.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QRadioButton>
#include <QShortcut>

void Echantillon::paintEvent(QPaintEvent *) {
    QPainter p(this);
    const QRect zone = rect().adjusted(0, 0, -1, -1);
    p.fillRect(zone, Apparence::couleur(fond));
    p.setPen(QPen(estSurvole() || isChecked() ? Apparence::kOr : Apparence::kArdoise, hasFocus() ? 2 : 1));
    p.drawRect(zone);
    if (!text().isEmpty()) {
        p.setPen(Apparence::couleur(texte));
        QFont f = font();
        f.setBold(true);
        p.setFont(f);
        p.drawText(zone.adjusted(6, 0, -6, 0), Qt::AlignVCenter | Qt::AlignLeft, text());
    }
}

namespace {
constexpr int kLargeurContenu = 640;
constexpr int kHautContenu = 470;
constexpr int kHautOnglets = 44;
const QRect kPage(8, kHautOnglets + 6, kLargeurContenu - 16, kHautContenu - kHautOnglets - 14);

// The keys of the six samples, in the order "Valider" saves them.
const Reglages::Cle kClesCouleurs[FrmOptions::NbCouleurs] = {Reglages::Cle::Backcolor, Reglages::Cle::CouleurTitre, Reglages::Cle::CouleurSection,
                                                             Reglages::Cle::CouleurParent, Reglages::Cle::CouleurFils, Reglages::Cle::CouleurSelection};

}  // namespace

BoutonImage *FrmOptions::boutonTexte(QWidget *page, const QString &texte, const QString &icone) {
    auto *b = new BoutonImage(page);
    b->definirCommande(icone, texte);
    b->setFocusPolicy(Qt::StrongFocus);
    return b;
}

FrmOptions::FrmOptions(QWidget *parent, MyCoolGrid *grille, ListeImages *images)
    : FenetreDialogue(parent, grille), images_(images) {
    setObjectName(QStringLiteral("FrmOptions"));
    definirTailleContenu(QSize(kLargeurContenu, kHautContenu));
    centrer();
    Fond[FondBande]->hide();
    Fond[FondDossier]->hide();
    L[LibelleEntete] = entete;
    L[LibelleEntete]->setText(Chaine(946));

    for (int i = 0; i < NbPages; ++i) {
        Onglets[i] = new BoutonImage(FondBleu);
        Onglets[i]->setObjectName(QStringLiteral("Onglets%1").arg(i));
        Onglets[i]->setText(Chaine(954 + i));
        Onglets[i]->setGeometry(8 + i * 156, 6, 150, kHautOnglets - 8);
        connect(Onglets[i], &QAbstractButton::clicked, this, [this, i] { clicOnglet(i); });
        P[i] = new PanneauImage(QStringLiteral("Fond"), PanneauImage::Mode::Mosaique, FondBleu);
        P[i]->setObjectName(QStringLiteral("P%1").arg(i));
        P[i]->setGeometry(kPage);
        P[i]->hide();
        activerDeplacement(P[i]);
    }
    creerPages();

    // The pages by the keyboard too.
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this), &QShortcut::activated, this,
            [this] { clicOnglet((pageCourante() + 1) % NbPages); });
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), this), &QShortcut::activated, this,
            [this] { clicOnglet((pageCourante() + NbPages - 1) % NbPages); });

    // The page last shown, then the exports of the tree as it stands now, written
    // while the window answers; the preview follows them.
    page_ = qBound(0, Reglages::lireNombre(Reglages::Cle::Options), NbPages - 1);
    P[page_]->show();
    Onglets[page_]->enfoncer();
    if (grille) {
        ecriture_ = new EcritureExports(*grille, this);
        connect(ecriture_, &EcritureExports::terminee, this, &FrmOptions::exportsEcrits);
    }
    const int format = Reglages::lireNombre(Reglages::Cle::Edition);
    OExport[format >= 0 && format <= 3 ? format : 0]->setChecked(true);
    choisirExport(format >= 0 && format <= 3 ? format : 0);
}

void FrmOptions::creerPages() {
    // Exports: the format, its preview, and a copy where the user wants it.
    for (int i = 0; i < 4; ++i) {
        OExport[i] = new QRadioButton(Chaine(150 + i), P[PageExports]);
        OExport[i]->setObjectName(QStringLiteral("OExport%1").arg(i));
        OExport[i]->setStyleSheet(Apparence::kStyleChoix);
        OExport[i]->setGeometry(12 + i * 110, 10, 104, 24);
        connect(OExport[i], &QRadioButton::clicked, this, [this, i] { choisirExport(i); });
    }
    WB = new ApercuExport(P[PageExports]);
    WB->setObjectName(QStringLiteral("WBOptions"));
    WB->setGeometry(12, 42, kPage.width() - 24, kPage.height() - 98);
    Exp[0] = boutonTexte(P[PageExports], Chaine(953), QStringLiteral("document-save-as"));
    Exp[0]->setObjectName(QStringLiteral("Exp0"));
    Exp[0]->setGeometry(kPage.width() - 162, kPage.height() - 46, 150, 34);
    connect(Exp[0], &QAbstractButton::clicked, this, [this] { clicExp(); });

    // The columns shown in the grid, saved at each click, applied by "Valider".
    for (int i = 0; i < 8; ++i) {
        Info[i] = new QCheckBox(Chaine(110 + i), P[PageColonnes]);
        Info[i]->setObjectName(QStringLiteral("Info%1").arg(i));
        Info[i]->setStyleSheet(Apparence::kStyleChoix);
        Info[i]->setChecked(Reglages::colonneVisible(i));
        Info[i]->setGeometry(24 + (i / 4) * 260, 24 + (i % 4) * 40, 240, 28);
        connect(Info[i], &QCheckBox::clicked, this, [i](bool coche) { Reglages::ecrireColonneVisible(i, coche); });
    }
    OInfo[0] = boutonTexte(P[PageColonnes], Chaine(952), QStringLiteral("dialog-ok-apply"));
    OInfo[0]->setObjectName(QStringLiteral("OInfo0"));
    OInfo[0]->setGeometry(kPage.width() - 162, kPage.height() - 46, 150, 34);
    connect(OInfo[0], &QAbstractButton::clicked, this, [this] { clicOInfo(); });

    // The six colours, each on a sample that is its own picker.
    const Libelle lignes[NbCouleurs] = {LibelleFond, LibelleTitre, LibelleSection, LibelleDossier, LibelleDocument, LibelleSelection};
    for (int i = 0; i < NbCouleurs; ++i) {
        QLabel *libelle = L[size_t(lignes[i])] = new QLabel(Chaine(945 + lignes[i]), P[PageCouleurs]);
        libelle->setStyleSheet(Apparence::kStyleLibelle);
        libelle->setGeometry(16, 16 + i * 50, 220, 36);
        activerDeplacement(libelle);
        OCoul[i] = new Echantillon(P[PageCouleurs]);
        OCoul[i]->setObjectName(QStringLiteral("OCoul%1").arg(i));
        OCoul[i]->setFocusPolicy(Qt::StrongFocus);
        OCoul[i]->setToolTip(QStringLiteral("Choisir la couleur"));
        OCoul[i]->setGeometry(240, 16 + i * 50, kPage.width() - 256, 36);
        connect(OCoul[i], &QAbstractButton::clicked, this, [this, i] { clicCouleur(i); });
    }
    OCoul[CouleurTitre]->setText(QStringLiteral("  ") + Chaine(118).trimmed());
    OCoul[CouleurSection]->setText(QString(10, u' ') + Chaine(110) + QString(40, u' ') + Chaine(111));
    OCoul[CouleurDossier]->setText(QString(5, u' ') + Chaine(143));
    OCoul[CouleurDocument]->setText(QString(5, u' ') + Chaine(144));
    // The column titles are white on the navy band by default: their sample shows on it.
    OCoul[CouleurSection]->fond = 0x663f2e;
    OInterface[0] = boutonTexte(P[PageCouleurs], Chaine(952), QStringLiteral("dialog-ok-apply"));
    OInterface[0]->setObjectName(QStringLiteral("OInterface0"));
    OInterface[0]->setGeometry(kPage.width() - 162, kPage.height() - 46, 150, 34);
    connect(OInterface[0], &QAbstractButton::clicked, this, [this] { clicOInterface(); });
    chargerCouleurs();

    creerPageIcones();
}

int FrmOptions::pageCourante() const { return page_; }

void FrmOptions::clicOnglet(int index) {
    // The tab of the page shown stays down; the others come up.
    for (int i = 0; i < NbPages; ++i) Onglets[i]->setChecked(i == index);
    if (page_ == index) return;
    P[index]->show();
    P[page_]->hide();
    page_ = index;
    Reglages::ecrire(Reglages::Cle::Options, index);
}

void FrmOptions::choisirExport(int index) {
    montrerExport(index);
    Reglages::ecrire(Reglages::Cle::Edition, index);
}

void FrmOptions::montrerExport(int index, bool garderPosition) {
    // The page shows as a page; the other formats as the text they are. While the
    // files are written, the start of the chosen one, made again from the first rows.
    const bool html = index == Exports::Html;
    if (!ecriture_) {
        WB->montrerMessage(QString());
    } else if (ecriture_->enCours()) {
        Exports::Decoupe decoupe;
        const QByteArray debut = Exports::contenu(index, ecriture_->debut(), &decoupe);
        WB->montrer(debut, decoupe, html);
    } else if (ecriture_->decoupe(index).bornes.empty()) {
        WB->montrerMessage(ecriture_->erreur());
    } else {
        WB->montrer(Exports::chemin(index), ecriture_->decoupe(index), html, garderPosition);
    }
}

void FrmOptions::exportsEcrits() {
    if (!ecriture_->erreur().isEmpty()) Messages::information(ecriture_->erreur());
    for (int i = 0; i < 4; ++i)
        if (OExport[i]->isChecked()) montrerExport(i, true);
}

void FrmOptions::attendreExports() {
    if (ecriture_) ecriture_->attendre();
}

void FrmOptions::clicExp() {
    if (Exp[0]->estEnfonce()) {
        const int format = Reglages::lireNombre(Reglages::Cle::Edition);
        const QString cible = ChoixFichier::enregistrer(this, Chaine(962) + Exports::libelleCopie(format), Exports::motifCopie(format));
        if (!cible.isEmpty() && !Exports::chemin(format).isEmpty()) {
            // Chosen before the files are all written: the copy waits for them.
            if (ecriture_ && ecriture_->enCours()) {
                QGuiApplication::setOverrideCursor(Qt::WaitCursor);
                attendreExports();
                QGuiApplication::restoreOverrideCursor();
            }
            try {
                CopieBase::copierEntier(Exports::chemin(format), cible);
                Messages::information(Chaine(142));
            } catch (const Base::ErreurBase &e) {
                Messages::information(e.message());
            }
        }
    }
    Exp[0]->relacher();
}

void FrmOptions::clicOInfo() {
    if (OInfo[0]->estEnfonce() && grille()) grille()->ReDessiner();
    OInfo[0]->relacher();
}

void FrmOptions::chargerCouleurs() {
    for (int i = 0; i < NbCouleurs; ++i) {
        const int valeur = Reglages::lireNombre(kClesCouleurs[i]);
        if (i == CouleurFond || i == CouleurSelection)
            OCoul[i]->fond = valeur;
        else
            OCoul[i]->texte = valeur;
    }
    // The document sample shows on the real background; the selection sample's text is the documents'.
    OCoul[CouleurDocument]->fond = OCoul[CouleurFond]->fond;
    OCoul[CouleurSelection]->texte = OCoul[CouleurDocument]->texte;
    for (Echantillon *e : OCoul) e->update();
}

void FrmOptions::clicCouleur(int index) {
    Echantillon *e = OCoul[size_t(index)];
    if (e->estEnfonce()) {
        // The dialog starts from the sample's back colour, whichever colour it keeps; a
        // cancel gives that colour back, and a text sample takes it.
        const int choix = ChoixFichier::couleur(this, e->fond);
        switch (index) {
        case CouleurFond:
            OCoul[CouleurFond]->fond = choix;
            OCoul[CouleurDocument]->fond = choix;
            break;
        case CouleurDocument:
            OCoul[CouleurDocument]->fond = OCoul[CouleurFond]->fond;
            OCoul[CouleurDocument]->texte = choix;
            break;
        case CouleurSelection:
            OCoul[CouleurSelection]->fond = choix;
            break;
        default:
            e->texte = choix;
            break;
        }
        if (grille()) grille()->ReDessiner();
        for (Echantillon *o : OCoul) o->update();
    }
    e->relacher();
}

void FrmOptions::clicOInterface() {
    if (OInterface[0]->estEnfonce()) {
        for (int i = 0; i < NbCouleurs; ++i) {
            Reglages::ecrire(kClesCouleurs[i], i == CouleurFond || i == CouleurSelection ? OCoul[i]->fond : OCoul[i]->texte);
            // The window takes the background at once, and the tabs' captions on it
            // a colour that reads there.
            if (i == CouleurFond) {
                const QColor fond = Apparence::couleur(OCoul[CouleurFond]->fond);
                FondBleu->definirCouleurFond(fond);
                for (BoutonImage *onglet : Onglets) {
                    QPalette palette = onglet->palette();
                    palette.setColor(QPalette::ButtonText, fond.lightness() < 140 ? QColor(Qt::white) : Apparence::kEncre);
                    onglet->setPalette(palette);
                }
            }
        }
        if (grille()) grille()->ReDessiner();
    }
    OInterface[0]->relacher();
}
