// frmMain: the table of commands with their keys, the row's menu, the copies to the
// clipboard and the opening of a document's URL.

#include "frmMain.h"

#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "workspace/fenetres/EditionEnPlace.h"
#include "store/Reglages.h"
#include "ui/Art.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"
#include "ui/PressePapiers.h"
#include "workspace/AdresseWeb.h"

#include <QDesktopServices>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

namespace {
constexpr int kLargeurCompte = 240;  // the countdown, a gap before the clock included
constexpr int kDureeAnnonce = 4000;  // ms
}  // namespace

std::span<const frmMain::Commande> frmMain::commandes() {
    using B = Besoin;
    namespace N = Bouton;
    constexpr const char *kDocument = "Sélectionnez d'abord un document.";
    static const Commande kCommandes[] = {
        {"Copier le mot de passe", Qt::CTRL | Qt::Key_C, B::Document, kDocument, N::Aucun, &frmMain::copierMotDePasse, true, 0, "edit-copy"},
        {"Copier le login", Qt::CTRL | Qt::Key_B, B::Document, kDocument, N::Aucun, &frmMain::copierLogin, true, 0, "edit-copy"},
        {"Copier l'URL", Qt::CTRL | Qt::SHIFT | Qt::Key_U, B::Document, kDocument, N::Aucun, &frmMain::copierUrl, true, 0, "edit-copy"},
        {"Ouvrir l'URL", Qt::CTRL | Qt::Key_U, B::Document, kDocument, N::Aucun, &frmMain::ouvrirUrl, true, 0, "globe"},
        {"Modifier le document", frmMain::kToucheFormulaire, B::Document, kDocument, N::Aucun, &frmMain::modifierDocument, true, 1,
         "document-properties"},
        {"Modifier dans la grille", QKeyCombination(Qt::Key_F2), B::Document, "Sélectionnez d'abord le document à modifier.",
         N::EditerDocument, &frmMain::modifierDansLaGrille, true, 1, "document-edit-sign"},
        {"Modifier l'icône", Qt::CTRL | Qt::Key_I, B::Document, "Sélectionnez d'abord le document dont vous voulez changer l'icône.",
         N::ModifierIcone, &frmMain::changerIcone, true, 1, "insert-image"},
        {"Renommer le dossier", QKeyCombination(Qt::Key_F2), B::Dossier, "Sélectionnez d'abord le dossier à renommer.",
         N::RenommerDossier, &frmMain::renommerDossier, true, 1, "group-edit"},
        {"Nouveau document", Qt::CTRL | Qt::Key_N, B::Ligne, "Sélectionnez d'abord le dossier qui recevra le nouveau document.",
         N::NouveauDocument, &frmMain::nouveauDocument, true, 2, "document-new"},
        {"Nouveau dossier", Qt::CTRL | Qt::SHIFT | Qt::Key_N, B::Rien, nullptr, N::NouveauDossier, &frmMain::nouveauDossier, true, 2,
         "folder-new"},
        {"Supprimer le document", QKeyCombination(Qt::Key_Delete), B::Document, "Sélectionnez d'abord le document à supprimer.",
         N::SupprimerDocument, &frmMain::supprimerDocument, true, 3, "edit-delete"},
        {"Supprimer le dossier", QKeyCombination(Qt::Key_Delete), B::Dossier, "Sélectionnez d'abord le dossier à supprimer.",
         N::SupprimerDossier, &frmMain::supprimerDossier, true, 3, "group-delete"},
        {"Afficher ou masquer les mots de passe", Qt::CTRL | Qt::Key_H, B::Rien, nullptr, N::Aucun, &frmMain::basculerMotsDePasse, false, 4},
        {"Rechercher", Qt::CTRL | Qt::Key_F, B::Rien, nullptr, N::Rechercher, &frmMain::rechercher, false, 4},
        {"Options", Qt::CTRL | Qt::Key_Comma, B::Rien, nullptr, N::Options, &frmMain::ouvrirOptions, false, 4},
        {"Aide", QKeyCombination(Qt::Key_F1), B::Rien, nullptr, N::Aide, &frmMain::afficherAide, false, 4},
        {"A propos", Qt::CTRL | Qt::SHIFT | Qt::Key_A, B::Rien, nullptr, N::APropos, &frmMain::aPropos, false, 4},
        {"Ouvrir une base", Qt::CTRL | Qt::Key_O, B::Rien, nullptr, N::OuvrirBase, &frmMain::ouvrirBase, false, 5},
        {"Enregistrer la base sous", Qt::CTRL | Qt::SHIFT | Qt::Key_S, B::Rien, nullptr, N::EnregistrerBase, &frmMain::enregistrerBaseSous,
         false, 5},
        {"Changer de compte", Qt::CTRL | Qt::Key_W, B::Rien, nullptr, N::ChangerCompte, &frmMain::changerCompte, false, 5},
        {"Créer un nouveau compte", Qt::CTRL | Qt::ALT | Qt::Key_N, B::Rien, nullptr, N::NouveauCompte, &frmMain::nouveauCompte, false, 5},
        {"Modifier le mot de passe du compte", Qt::CTRL | Qt::SHIFT | Qt::Key_P, B::Rien, nullptr, N::ModifierMotDePasse,
         &frmMain::modifierMotDePasseCompte, false, 5},
        {"Quitter", Qt::CTRL | Qt::Key_Q, B::Rien, nullptr, N::Aucun, &frmMain::quitter, false, 5},
        {"Verrouiller", frmMain::kToucheVerrou, B::Rien, nullptr, N::Aucun, &frmMain::verrouiller, true, 6, "object-locked"},
    };
    return kCommandes;
}

const frmMain::Commande *frmMain::commandeDuBouton(int index) {
    for (const Commande &c : commandes())
        if (c.bouton == index) return &c;
    return nullptr;  // the hidden export button
}

QString frmMain::texteTouches(QKeyCombination touches) { return QKeySequence(touches).toString(QKeySequence::NativeText); }

void frmMain::installerCommandes() {
    QList<QKeyCombination> faites;
    for (const Commande &c : commandes()) {
        if (c.bouton != Bouton::Aucun && !Boutons[c.bouton]->toolTip().contains(u'('))
            Boutons[c.bouton]->setToolTip(Boutons[c.bouton]->toolTip() + QStringLiteral(" (") + texteTouches(c.touches) + u')');
        if (faites.contains(c.touches)) continue;
        faites << c.touches;
        connect(new QShortcut(c.touches, this), &QShortcut::activated, this, [this, t = c.touches] { executerTouche(t); });
    }
    Im_Commande[0]->setToolTip(Im_Commande[0]->toolTip() + QStringLiteral(" (") + texteTouches(Qt::CTRL | Qt::Key_Q) + u')');

    CompteARebours = new QPushButton(EnteteB);
    CompteARebours->setObjectName(QStringLiteral("CompteARebours"));
    CompteARebours->setFocusPolicy(Qt::NoFocus);
    CompteARebours->setCursor(Qt::PointingHandCursor);
    CompteARebours->setToolTip(QStringLiteral("Cliquez pour effacer le presse-papiers maintenant"));
    CompteARebours->setStyleSheet(QStringLiteral(
        "QPushButton { color: #ffd978; background: transparent; border: none; text-align: right; padding-right: 12px; }"
        "QPushButton:hover { text-decoration: underline; }"));
    CompteARebours->hide();
    connect(CompteARebours, &QPushButton::clicked, this, [] { PressePapiers::instance().effacerSiIntact(); });
    connect(&PressePapiers::instance(), &PressePapiers::compteARebours, this, [this](int s) { afficherCompteARebours(s); });
    afficherCompteARebours(PressePapiers::instance().secondesRestantes());
}

void frmMain::afficherCompteARebours(int secondes) {
    CompteARebours->setVisible(secondes > 0);
    if (secondes > 0) CompteARebours->setText(QStringLiteral("Presse-papiers effacé dans %1 s").arg(secondes));
    const int largeur = secondes > 0 ? kLargeurCompte : 0;
    CompteARebours->setGeometry(EnteteB->width() - Heure->width() - largeur, 0, largeur, EnteteB->height());
    EnteteB->definirMargeDroite(Heure->width() + largeur);
}

frmMain::Besoin frmMain::selectionActuelle() const {
    const int r = MG->LigneCourante;
    if (!selection_.valide || r < 2 || !MG->cellules().existe(r)) return Besoin::Rien;
    return MG->IsLigneParent(r) ? Besoin::Dossier : Besoin::Document;
}

bool frmMain::convient(Besoin besoin, Besoin selection) {
    switch (besoin) {
    case Besoin::Rien: return true;
    case Besoin::Ligne: return selection != Besoin::Rien;
    default: return besoin == selection;
    }
}

void frmMain::executerTouche(QKeyCombination touches) {
    // Of the commands of one key, the one that suits the selection; else the first, which says what to select.
    const Commande *choisie = nullptr;
    for (const Commande &c : commandes()) {
        if (c.touches != touches) continue;
        if (!choisie) choisie = &c;
        if (convient(c.besoin, selectionActuelle())) {
            choisie = &c;
            break;
        }
    }
    if (choisie) lancer(*choisie);
}

void frmMain::lancer(const Commande &c) {
    if (c.bouton != Bouton::Aucun) {
        declencher(c.bouton);
        return;
    }
    if (const QString manque = selectionManquante(&c); !manque.isEmpty()) {
        Messages::information(manque);
        return;
    }
    (this->*c.action)();
}

void frmMain::menuLigne(const QPoint &position) {
    if (!Edition->fermerSaisie()) return;
    const Besoin selection = selectionActuelle();
    if (selection == Besoin::Rien) return;
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("MenuLigne"));
    int groupe = -1;
    for (const Commande &c : commandes()) {
        if (!c.dansMenu || !convient(c.besoin, selection)) continue;
        if (groupe >= 0 && c.groupe != groupe) menu.addSeparator();
        groupe = c.groupe;
        QAction *a = menu.addAction(QString::fromUtf8(c.legende));
        if (c.icone) a->setIcon(QIcon(Art::iconeTheme(QString::fromLatin1(c.icone), 16)));
        a->setShortcut(QKeySequence(c.touches));
        a->setShortcutVisibleInContextMenu(true);
        a->setData(int(&c - commandes().data()));
        // A folder that still holds documents can't be deleted: shown, but not offered.
        if (c.bouton != Bouton::Aucun) a->setEnabled(Boutons[c.bouton]->isEnabled());
    }
    const QAction *choisie = menu.exec(position);
    if (choisie) lancer(commandes()[size_t(choisie->data().toInt())]);
}

void frmMain::copierChamp(int colonne, bool secret, const QString &copie, const QString &vide) {
    const int r = MG->LigneCourante;
    const QString titre = MG->GetColumnInfos(r, Colonne::Titre).trimmed();
    const QString texte = MG->GetColumnInfos(r, colonne);
    if (texte.isEmpty()) {
        Messages::information(vide.arg(titre));
        return;
    }
    // The delay the user chose, in seconds.
    PressePapiers::instance().copier(texte, secret, qMax(0, Reglages::lireNombre(Reglages::Cle::PressePapiers)));
    annoncer(copie.arg(titre));
}

void frmMain::copierMotDePasse() {
    copierChamp(Colonne::MotDePasse, true, QStringLiteral("Mot de passe de « %1 » copié"),
                QStringLiteral("Le document « %1 » n'a pas de mot de passe : rien n'a été copié."));
}

void frmMain::copierLogin() {
    copierChamp(Colonne::Login, false, QStringLiteral("Login de « %1 » copié"),
                QStringLiteral("Le document « %1 » n'a pas de login : rien n'a été copié."));
}

void frmMain::copierUrl() {
    copierChamp(Colonne::Url, false, QStringLiteral("URL de « %1 » copiée"),
                QStringLiteral("Le document « %1 » n'a pas d'URL : rien n'a été copié."));
}

void frmMain::ouvrirUrl() {
    if (!Edition->fermerSaisie()) return;
    const int r = MG->LigneCourante;
    const QString titre = MG->GetColumnInfos(r, Colonne::Titre).trimmed();
    const QUrl adresse = AdresseWeb::pourNavigateur(MG->GetColumnInfos(r, Colonne::Url));
    if (adresse.isEmpty()) {
        Messages::information(QStringLiteral("Le document « %1 » n'a pas d'URL à ouvrir.").arg(titre));
        return;
    }
    if (!adresse.isValid() || !QDesktopServices::openUrl(adresse)) {
        Messages::information(QStringLiteral("L'adresse « %1 » n'a pas pu être ouverte dans le navigateur.").arg(adresse.toString()));
        return;
    }
    annoncer(QStringLiteral("Ouverture de « %1 » dans le navigateur").arg(adresse.toString()));
}

void frmMain::basculerMotsDePasse() {
    const bool visibles = !MG->motsDePasseVisibles();
    MG->definirMotsDePasseVisibles(visibles);
    Reglages::ecrire(Reglages::Cle::MotsDePasse, visibles ? -1 : 0);
    annoncer(visibles ? QStringLiteral("Mots de passe affichés") : QStringLiteral("Mots de passe masqués"));
}

void frmMain::quitter() { demanderQuitter(); }

void frmMain::annoncer(const QString &texte) {
    const QString bande = QStringLiteral("   ") + texte;
    EnteteB->definirTexte(bande);
    // Then back to the selection, unless something else was written meanwhile.
    QTimer::singleShot(kDureeAnnonce, this, [this, bande] {
        if (EnteteB->texte() == bande) EnteteB->definirTexte(InfoEntete);
    });
}
