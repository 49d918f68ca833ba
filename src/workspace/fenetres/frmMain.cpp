#include "frmMain.h"

#include "grid/fenetres/MyCoolGrid.h"
#include "workspace/fenetres/EditionEnPlace.h"
#include "FrmVerrou.h"
#include "store/Chemins.h"
#include "store/Def.h"
#include "store/FichierEntier.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "ui/Apparence.h"
#include "ui/Art.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/Calendriers.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"
#include "ui/PressePapiers.h"

#include <QCalendarWidget>
#include <QCloseEvent>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QKeyEvent>
#include <QShortcut>
#include <QTextBrowser>
#include <QTime>
#include <QTimer>

namespace {

// The command buttons: bar, left in twips, picture. The pictures are the theme's
// action set, one line drawing each, all different.
struct DefinitionBouton {
    int barre;
    int gaucheTwips;
    const char *icone;
    bool visible;
};

// In the order of Bouton::Numero.
constexpr DefinitionBouton kBoutons[frmMain::kNbBoutons] = {
    {0, 3240, "list-add-user", true},                 // NouveauCompte
    {0, 240, "document-open", true},                  // OuvrirBase
    {0, 1130, "document-save-as", true},              // EnregistrerBase
    {0, 12000, "document-export", false},             // Exporter: lives in the options
    {0, 4120, "dialog-password", true},               // ModifierMotDePasse
    {0, 5340, "system-search", true},                 // Rechercher
    {0, 6230, "configure", true},                     // Options
    {0, 7500, "help-contents", true},                 // Aide
    {0, 8390, "help-about", true},                    // APropos
    {0, 2350, "exchange-positions-clockwise", true},  // ChangerCompte
    {1, 200, "folder-new", true},                     // NouveauDossier
    {1, 3220, "document-new", true},                  // NouveauDocument
    {1, 1960, "group-delete", true},                  // SupprimerDossier
    {1, 5880, "edit-delete", true},                   // SupprimerDocument
    {1, 1080, "group-edit", true},                    // RenommerDossier
    {1, 4110, "document-edit-sign", true},            // EditerDocument
    {1, 5000, "insert-image", true},                  // ModifierIcone
};

constexpr int kHautBarre = 68;  // 1020 twips
constexpr int kCoteBouton = 56;
constexpr int kTailleIcone = 32;
constexpr int kMargeGrille = 13;  // 200 twips
constexpr int kLargeurHeure = 70;

}  // namespace

frmMain::frmMain(QWidget *parent) : FenetreCadre(parent) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(Messages::kTitre);
    setMinimumSize(420, 320);

    // The title bar's three buttons, held together at its right end.
    PP = new QWidget(Fond[FondHaut]);
    Im_Commande[0] = FenetreCadre::Im_Commande;
    Im_Commande[0]->setParent(PP);
    Im_Commande[1] = new BoutonImage(PP);
    Im_Commande[1]->definirArt(QStringLiteral("reduire"), QSize(24, 24));
    Im_Commande[1]->setToolTip(QStringLiteral("Réduire"));
    Im_Commande[2] = new BoutonImage(PP);
    Im_Commande[2]->definirArt(QStringLiteral("agrandir"), QSize(24, 24));
    for (int i = 0; i < 3; ++i) {
        Im_Commande[i]->setObjectName(QStringLiteral("Im_Commande%1").arg(i));
        Im_Commande[i]->show();
    }
    Im_Commande[1]->setGeometry(0, 0, 28, 28);
    Im_Commande[2]->setGeometry(28, 0, 28, 28);
    Im_Commande[0]->setGeometry(56, 0, 28, 28);
    PP->resize(84, 28);
    disconnect(Im_Commande[0], &QAbstractButton::clicked, this, nullptr);
    for (int i = 0; i < 3; ++i)
        connect(Im_Commande[i], &QAbstractButton::clicked, this, [this, i] { clicFenetre(i); });

    auto *logo = new QLabel(Fond[FondHaut]);
    logo->setPixmap(Art::pixmap(QStringLiteral("korvane"), QSize(24, 24)));
    logo->setGeometry(8, 6, 24, 24);
    activerDeplacement(logo);

    for (int i = 0; i < 2; ++i) {
        TbToolbar[i] = new PanneauImage(QStringLiteral("grid_bande_section"), PanneauImage::Mode::Etire, this);
        TbToolbar[i]->setObjectName(QStringLiteral("TbToolbar%1").arg(i));
        activerDeplacement(TbToolbar[i]);
    }
    creerBoutons();

    MG = new MyCoolGrid(this);
    MG->setObjectName(QStringLiteral("MG"));
    Def::definirSelectionGrille(MG);
    connect(MG, &MyCoolGrid::Click, this, [this] { clicGrille(); });
    // Enter or F2: the document edited in place, or the folder renamed.
    connect(MG, &MyCoolGrid::EditionDemandee, this, [this] { executerTouche(QKeyCombination(Qt::Key_F2)); });
    connect(MG, &MyCoolGrid::SuppressionDemandee, this, [this] { supprimerSelection(); });
    connect(MG, &MyCoolGrid::MenuDemande, this, [this](const QPoint &position) { menuLigne(position); });
    // A double click on a document opens its URL from the URL cell, its form from any
    // other cell; on a folder the click has done its work.
    connect(MG, &MyCoolGrid::DoubleClicCellule, this, [this](int ligne, int colonne) {
        if (ligne < 2 || ligne != MG->LigneCourante || MG->IsLigneParent(ligne)) return;
        if (colonne == 6)
            ouvrirUrl();
        else
            modifierDocument();
    });
    MG->definirMotsDePasseVisibles(Reglages::lireNombre(Reglages::Cle::MotsDePasse) != 0);
    // A press or a key in the grid ends an edit before the selection moves.
    MG->installEventFilter(this);
    MG->viewport()->installEventFilter(this);

    Heure = new QLabel(EnteteB);
    Heure->setObjectName(QStringLiteral("Heure"));
    Heure->setAlignment(Qt::AlignCenter);
    Heure->setStyleSheet(Apparence::kStyleSurBande);
    EnteteB->definirMargeDroite(kLargeurHeure);

    WB = new QTextBrowser(this);
    WB->setObjectName(QStringLiteral("WB"));
    WB->setOpenExternalLinks(true);
    WB->installEventFilter(this);
    WB->hide();

    Edition = new EditionEnPlace(*this, *MG, LigneDocument);
    connect(Edition, &EditionEnPlace::titreEcrit, this, [this](int ligne) { ecrireBandeDocument(ligne); });
    connect(Edition, &EditionEnPlace::formulaireDemande, this, [this] { modifierDocument(); });

    Timer1 = new QTimer(this);
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this, [this] { Heure->setText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss"))); });

    // Load, in its order: each step leans on the one before.
    if (Reglages::lireNombre(Reglages::Cle::Demarrage) == 0) {
        AssocierExtension();
        Reglages::ecrire(Reglages::Cle::Demarrage, 1);
    } else {
        OterEntreePortable();  // a copy used before the package was installed registered itself
    }
    Session::ModeLogin = Session::Mode::Principale;
    placerSelonReglages();
    legendeEntete_ = QString(45, u' ') + Chaine(154);
    ChargerMG();
    MG->Backcolor(Reglages::lireNombre(Reglages::Cle::Backcolor));
    MG->GridColor(MG->Backcolor());
    Edition->RendreSaisieVisible(false, 0, 0);
    Edition->RendreSaisieVisibleCalendrier(false);
    Edition->PanCal->definirTexte(Chaine(963));
    legendeEntete_ += QStringLiteral("    (") + Chaine(119) + QStringLiteral(" : ") + Session::LoginCourant + u')';
    // The strip shows the caption without the blanks that made room for the logo.
    entete->setText(legendeEntete_.trimmed());
    for (int i = 0; i < kNbBoutons; ++i) Boutons[i]->setToolTip(Chaine(924 + i));
    FichierEntier::creerDossier(Chemins::dossierEdition());
    ChargerIconesDatabase();
    Timer1->start();

    installerCommandes();
    installerVerrou();
    MG->setFocus();
}

frmMain::~frmMain() {
    // Its boxes' events stop before the grid they read goes.
    delete Edition;
    Edition = nullptr;
    delete fenetreVerrou_;
    Def::oublierSelectionGrille(MG);
}

void frmMain::creerBoutons() {
    for (int i = 0; i < kNbBoutons; ++i) {
        const DefinitionBouton &d = kBoutons[i];
        auto *b = new BoutonImage(TbToolbar[d.barre]);
        b->setObjectName(QStringLiteral("Boutons%1").arg(i));
        b->definirImages(Art::iconeTheme(QString::fromLatin1(d.icone), kTailleIcone));
        b->setGeometry(d.gaucheTwips / kTwips, (kHautBarre - kCoteBouton) / 2, kCoteBouton, kCoteBouton);
        b->setVisible(d.visible);
        Boutons[i] = b;
        // The band tells what a button does, then falls back to the selection.
        connect(b, &BoutonImage::survolDebut, this, [this, b] { EnteteB->definirTexte(QStringLiteral("   ") + b->toolTip()); });
        connect(b, &BoutonImage::survolFin, this, [this] { EnteteB->definirTexte(InfoEntete); });
        connect(b, &QAbstractButton::clicked, this, [this, i] { clicBouton(i); });
    }
}

void frmMain::placerSelonReglages() {
    const QScreen *ecran = screen() ? screen() : QGuiApplication::primaryScreen();
    const QRect zone = ecran ? ecran->geometry() : QRect(0, 0, 1280, 1024);
    if (Reglages::lireNombre(Reglages::Cle::Windowstate) != 0) {
        // Covers the screen without entering the maximised state.
        setGeometry(zone);
        return;
    }
    int largeur = kLargeurNormale / kTwips, hauteur = kHauteurNormale / kTwips;
    int gauche = Reglages::lireNombre(Reglages::Cle::MainLeft, (zone.width() * kTwips - kLargeurNormale) / 2) / kTwips;
    int haut = Reglages::lireNombre(Reglages::Cle::MainTop, (zone.height() * kTwips - kHauteurNormale) / 2) / kTwips;
    // The saved place is only a wish: a screen that is gone, or a value edited by hand,
    // must not put the window where nobody sees it. It stays whole on a screen that exists.
    const QScreen *dessous = QGuiApplication::screenAt(QPoint(gauche + largeur / 2, haut + kHautEntete / 2));
    const QRect dispo = dessous ? dessous->availableGeometry() : (ecran ? ecran->availableGeometry() : zone);
    largeur = qMin(largeur, dispo.width());
    hauteur = qMin(hauteur, dispo.height());
    gauche = qBound(dispo.left(), gauche, dispo.right() + 1 - largeur);
    haut = qBound(dispo.top(), haut, dispo.bottom() + 1 - hauteur);
    setGeometry(gauche, haut, largeur, hauteur);
}

void frmMain::resizeEvent(QResizeEvent *e) {
    FenetreCadre::resizeEvent(e);
    redimensionner();
}

void frmMain::redimensionner() {
    const int w = width();
    PP->move(w - PP->width() - 6, (kHautEntete - PP->height()) / 2);
    entete->setGeometry(40, 0, qMax(0, PP->x() - 40), kHautEntete);
    TbToolbar[0]->setGeometry(kLargeBord, kHautEntete, w - 2 * kLargeBord, kHautBarre);
    TbToolbar[1]->setGeometry(kLargeBord, EnteteB->y() - kHautBarre, w - 2 * kLargeBord, kHautBarre);
    const int hautGrille = TbToolbar[0]->geometry().bottom() + 1 + kMargeGrille / 2;
    const QRect grille(kMargeGrille, hautGrille, qMax(0, w - 2 * kMargeGrille), qMax(0, TbToolbar[1]->y() - kMargeGrille / 2 - hautGrille));
    MG->setGeometry(grille);
    WB->setGeometry(grille);
    Heure->setGeometry(EnteteB->width() - kLargeurHeure, 0, kLargeurHeure, EnteteB->height());
    if (CompteARebours) afficherCompteARebours(PressePapiers::instance().secondesRestantes());
    // The boxes follow the columns; the calendar goes.
    if (Edition && Edition->Saisie[0]) {
        Edition->placerSaisies(Edition->SaisieVisible);
        Edition->RendreSaisieVisibleCalendrier(false);
    }
}

bool frmMain::eventFilter(QObject *objet, QEvent *evenement) {
    if (MG && (objet == MG || objet == MG->viewport())) {
        const QEvent::Type type = evenement->type();
        // What was typed is stored before the grid acts; a value that can't be stored keeps the edit.
        if (Edition && Edition->SaisieVisible && (type == QEvent::MouseButtonPress || type == QEvent::KeyPress)) return !Edition->fermerSaisie();
        return false;
    }
    if (WB && objet == WB) {
        // Escape puts the help away, back to the grid.
        if (evenement->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(evenement)->key() != Qt::Key_Escape) return false;
        WB->hide();
        MG->setFocus();
        return true;
    }
    return FenetreCadre::eventFilter(objet, evenement);
}

void frmMain::keyPressEvent(QKeyEvent *e) {
    // The same keys, when they come to the window without its shortcuts being live
    // (a window the desktop has not made active again after a message).
    for (const Commande &c : commandes())
        if (e->keyCombination() == c.touches) {
            executerTouche(c.touches);
            return;
        }
    FenetreCadre::keyPressEvent(e);
}

void frmMain::clicFenetre(int index) {
    BoutonImage *b = Im_Commande[index];
    if (!b->estEnfonce()) return;
    b->relacher();
    switch (index) {
    case 2:
        if (Reglages::lireNombre(Reglages::Cle::Windowstate) == 0) {
            Reglages::ecrire(Reglages::Cle::Windowstate, 2);
            showMaximized();
            b->setToolTip(Chaine(121));
            b->definirArt(QStringLiteral("restaurer"), QSize(24, 24));
        } else {
            Reglages::ecrire(Reglages::Cle::Windowstate, 0);
            showNormal();
            placerSelonReglages();
            b->setToolTip(Chaine(122));
            b->definirArt(QStringLiteral("agrandir"), QSize(24, 24));
        }
        redimensionner();
        break;
    case 1:
        showMinimized();
        break;
    case 0:
        demanderQuitter();
        break;
    }
}

bool frmMain::demanderQuitter() {
    if (!Edition->fermerSaisie()) return false;
    if (!(windowState() & (Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen))) memoriserPosition();
    return ConfirmerQuitter();
}

void frmMain::memoriserPosition() {
    Reglages::ecrire(Reglages::Cle::MainLeft, x() * kTwips);
    Reglages::ecrire(Reglages::Cle::MainTop, y() * kTwips);
}

void frmMain::finDeplacement() { memoriserPosition(); }

void frmMain::closeEvent(QCloseEvent *e) {
    // A close from the desktop goes through the quit question; on No the window stays,
    // rather than leave a program running with no window.
    if (Session::ModeLogin == Session::Mode::Principale && !demanderQuitter()) {
        e->ignore();
        return;
    }
    e->accept();
}
