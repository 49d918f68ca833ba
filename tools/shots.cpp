// Renders each window of Korvane to a PNG, over a sample base, so that anyone can look at them.
// Usage: korvane_shots <folder>

#include "app/fenetres/Navigation.h"
#include "grid/Colonnes.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/Comptes.h"
#include "store/fenetres/FrmLogin.h"
#include "store/fenetres/FrmModifLogin.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "dialogs/fenetres/FrmAjoutDoc.h"
#include "dialogs/fenetres/FrmAjoutDossier.h"
#include "workspace/Verrou.h"
#include "workspace/fenetres/FrmVerrou.h"
#include "dialogs/fenetres/FrmAP.h"
#include "dialogs/fenetres/FrmGenerateur.h"
#include "options/fenetres/FrmOptions.h"
#include "search/fenetres/FrmRecherche.h"
#include "store/fenetres/FrmConfirmationPass.h"
#include "ui/fenetres/Messages.h"
#include "workspace/fenetres/EditionEnPlace.h"
#include "workspace/fenetres/frmMain.h"
#include "workspace/fenetres/FrmPop.h"
#include <QLabel>
#include "grid/fenetres/MyCoolGrid.h"
#include "Apercu.h"
#include "ui/Art.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/ChoixFichier.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QTimer>
#include <functional>
#include <QListWidget>
#include <QRadioButton>
#include <QTemporaryDir>
#include <cstdio>

namespace {
// A few folders and documents such as a user keeps.
void remplirExemple() {
    const char *const dossiers[][2] = {{"20", "Banques"}, {"21", "Courriel"}, {"22", "Travail"}};
    for (const auto &d : dossiers) {
        Base::Connexion c;
        Base::Requete r(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) VALUES (1, ?, ?)");
        r.lier(1, QString::fromLatin1(d[0]).toInt()).lier(2, QString::fromUtf8(d[1])).executer();
    }
    const char *const documents[][9] = {
        {"1", "20", "Banque en ligne", "alice.martin", "Tr3s-Secret!", "https://banque.exemple.fr", "", "01/03/2024", "Carte n° 4"},
        {"2", "20", "Assurance vie", "AM-55812", "Ass_2025", "https://assur.exemple.fr", "contrat.pdf", "15/06/2023", ""},
        {"3", "21", "Messagerie perso", "alice@exemple.fr", "m@ilB0x", "https://mail.exemple.fr", "", "", "Double facteur"},
        {"4", "22", "VPN bureau", "amartin", "Vpn#2026", "vpn.bureau.exemple", "", "02/01/2026", "Changer en mars"},
    };
    for (const auto &d : documents) {
        Base::Connexion c;
        Base::Requete r(c,
                        "INSERT INTO Documents (NumCompte, Num, NumDossier, Titre, LoginDoc, MotDePasse, Url, Fichier, "
                        "DateDebut, Remarques, Icone) VALUES (1, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        r.lier(1, QString::fromLatin1(d[0]).toInt()).lier(2, QString::fromLatin1(d[1]).toInt());
        for (int i = 2; i < 9; ++i) r.lier(i + 1, QString::fromUtf8(d[i]));
        r.lier(10, QString::fromLatin1(d[0]).toInt() + 1).executer();
    }
}

bool enregistrer(QWidget *w, const QString &dossier, const QString &nom) {
    w->show();
    QApplication::processEvents();
    const QString chemin = QDir(dossier).filePath(nom + QStringLiteral(".png"));
    const bool ok = w->grab().save(chemin);
    std::printf("%s %s\n", ok ? "wrote" : "FAILED", qPrintable(chemin));
    return ok;
}
}  // namespace

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    const QString sortie = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("shots");
    QDir().mkpath(sortie);
    QTemporaryDir programme;
    Chemins::definirDossierProgramme(programme.path());
    Reglages::definirDossier(programme.filePath(QStringLiteral("config")));
    Messages::preparerPourTests();
    Base::preparerBase();
    Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("secret"));
    Comptes::creer(2, QStringLiteral("bruno"), QStringLiteral("azerty"));
    Reglages::ecrire(Reglages::Cle::Username, QStringLiteral("alice"));
    Reglages::ecrire(Reglages::Cle::Demarrage, 1);  // leave the user's desktop associations alone

    bool ok = true;
    Navigation::afficherLogin();
    ok &= enregistrer(Navigation::fenetreLogin(), sortie, QStringLiteral("login"));

    Session::ModeLogin = Session::Mode::NouveauCompte;
    Navigation::afficherLogin();
    Navigation::fenetreLogin()->Login->setEditText(QStringLiteral("camille"));
    Navigation::fenetreLogin()->Pass->setText(QStringLiteral("nouveau"));
    ok &= enregistrer(Navigation::fenetreLogin(), sortie, QStringLiteral("login_creation"));

    Session::NumCompteCourant = 1;
    Session::LoginCourant = QStringLiteral("alice");
    Session::PassCourant = QStringLiteral("secret");
    Session::Ouverte = true;
    remplirExemple();
    Navigation::afficherPrincipale();
    frmMain *principale = Navigation::fenetrePrincipale();
    ok &= enregistrer(principale, sortie, QStringLiteral("main"));

    // A document selected, then its editing boxes up.
    for (int i = 2; i < principale->MG->NbLignes; ++i)
        if (principale->MG->GetColumnInfos(i, Colonne::Titre) == QStringLiteral("Banque en ligne")) principale->MG->SelectLine(i);
    ok &= enregistrer(principale, sortie, QStringLiteral("main_selection"));
    principale->Boutons[Bouton::EditerDocument]->enfoncer();
    emit principale->Boutons[Bouton::EditerDocument]->clicked();
    ok &= enregistrer(principale, sortie, QStringLiteral("main_edition"));
    principale->activateWindow();
    principale->Edition->Saisie[Colonne::DateDebut]->setFocus();
    QApplication::processEvents();
    ok &= enregistrer(principale, sortie, QStringLiteral("main_calendrier"));
    principale->Edition->RendreSaisieVisible(false, 1, 0);
    principale->Edition->RendreSaisieVisibleCalendrier(false);

    // A menu open over the main window, an item under the pointer: the window and the
    // menu as the screen shows them, the menu wherever it opened.
    auto avecMenu = [&](const QString &nom, int actif, const std::function<void()> &ouvrir) {
        QTimer::singleShot(200, [&, nom, actif] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu) return;
            menu->setActiveAction(menu->actions().value(actif));
            QApplication::processEvents();
            const QRect fenetre = principale->frameGeometry();
            const QRect tout = fenetre.united(menu->geometry());
            QImage ecran(tout.size(), QImage::Format_RGB32);
            ecran.fill(QColor(0x55, 0x5f, 0x73));
            QPainter p(&ecran);
            p.drawPixmap(fenetre.topLeft() - tout.topLeft(), principale->grab());
            p.drawPixmap(menu->pos() - tout.topLeft(), menu->grab());
            p.end();
            const QString chemin = QDir(sortie).filePath(nom + QStringLiteral(".png"));
            ok &= ecran.save(chemin);
            std::printf("wrote %s\n", qPrintable(chemin));
            menu->hide();
        });
        ouvrir();
    };
    // The row's menu, from the keyboard; then the passwords shown.
    avecMenu(QStringLiteral("main_menu_ligne"), 0, [&] {
        principale->MG->setFocus();
        QKeyEvent menu(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier);
        QApplication::sendEvent(principale->MG, &menu);
    });
    principale->executerTouche(Qt::CTRL | Qt::Key_H);
    ok &= enregistrer(principale, sortie, QStringLiteral("main_mots_de_passe"));
    principale->executerTouche(Qt::CTRL | Qt::Key_H);
    // The icon picker: the stock library, a library of 120 icons, and an empty one.
    auto photographierIcones = [&](const QString &nom) {
        avecMenu(nom, 3, [&] {
            principale->Boutons[Bouton::ModifierIcone]->enfoncer();
            emit principale->Boutons[Bouton::ModifierIcone]->clicked();
        });
    };
    photographierIcones(QStringLiteral("main_icones"));
    {
        Base::Connexion c;
        for (int num = 7; num <= 120; ++num)
            Base::Requete(c, "INSERT INTO Icones (Num, ico, Libelle) SELECT ?, ico, Libelle || ' ' || ? FROM Icones WHERE Num = ?")
                .lier(1, num)
                .lier(2, num)
                .lier(3, (num - 1) % 6 + 1)
                .executer();
    }
    principale->imgCONTENU.chargerBase();
    FrmPop::IconesModifiees = true;
    photographierIcones(QStringLiteral("main_icones_120"));
    {
        Base::Connexion c;
        Base::Requete(c, "DELETE FROM Icones WHERE Num > 6").executer();
        Base::Requete(c, "CREATE TABLE Garde AS SELECT * FROM Icones").executer();
        Base::Requete(c, "DELETE FROM Icones").executer();
    }
    FrmPop::IconesModifiees = true;
    photographierIcones(QStringLiteral("main_icones_vide"));
    {
        Base::Connexion c;
        Base::Requete(c, "INSERT INTO Icones SELECT * FROM Garde").executer();
        Base::Requete(c, "DROP TABLE Garde").executer();
    }
    principale->imgCONTENU.chargerBase();
    FrmPop::IconesModifiees = true;

    FrmAjoutDossier dossier(principale, principale->MG);
    dossier.Saisie->setText(QStringLiteral("Impôts"));
    ok &= enregistrer(&dossier, sortie, QStringLiteral("dialogue_dossier"));
    dossier.close();
    FrmAjoutDoc document(principale, principale->MG);
    document.L[FrmAjoutDoc::LibelleNomDossier]->setText(QStringLiteral("Banques"));
    document.Saisie[0]->setText(QStringLiteral("Carte bleue"));
    document.Saisie[1]->setText(QStringLiteral("4970 **** 1234"));
    ok &= enregistrer(&document, sortie, QStringLiteral("dialogue_document"));
    document.close();
    // The form of a document, its remarks on several lines; the generator over it.
    FrmAjoutDoc formulaire(principale, principale->MG);
    formulaire.L[FrmAjoutDoc::LibelleNomDossier]->setText(QStringLiteral("Courriel"));
    formulaire.modifier({QStringLiteral("Boîte pro"), QStringLiteral("a.martin@exemple.fr"), QStringLiteral("m@ilB0x"),
                         QStringLiteral("https://mail.exemple.fr"), QString(), QStringLiteral("01/03/2024"), QString(),
                         QStringLiteral("Transférée vers La Poste le 2 mars.\nDouble facteur : téléphone de bureau.")},
                        3, QPixmap::fromImage(principale->imgCONTENU.image(3)));
    ok &= enregistrer(&formulaire, sortie, QStringLiteral("formulaire"));
    FrmGenerateur generateur(&formulaire);
    generateur.Afficher->click();
    ok &= enregistrer(&generateur, sortie, QStringLiteral("generateur"));
    generateur.close();
    formulaire.close();
    FrmConfirmationPass confirmation(QStringLiteral("camille"));
    confirmation.Pass->setText(QStringLiteral("nouveau"));
    ok &= enregistrer(&confirmation, sortie, QStringLiteral("confirmation_compte"));
    confirmation.close();

    FrmModifLogin modif;
    ok &= enregistrer(&modif, sortie, QStringLiteral("modif_login"));
    modif.close();

    // The lock, after five wrong passwords: the next try waits.
    Verrou verrou;
    verrou.verrouiller();
    for (int i = 0; i < Verrou::kEssaisLibres; ++i) verrou.deverrouiller(QStringLiteral("faux"));
    FrmVerrou verrouillage(verrou, QStringLiteral("camille"));
    ok &= enregistrer(&verrouillage, sortie, QStringLiteral("verrou"));
    verrouillage.close();

    // The search window with its hits, the about box, and the help over the grid.
    FrmRecherche recherche(principale, principale->MG);
    recherche.OptRec[1]->setChecked(true);
    recherche.Saisie->setText(QStringLiteral("e"));
    recherche.OInterface[0]->enfoncer();
    emit recherche.OInterface[0]->clicked();
    recherche.Liste->setCurrentRow(1);
    ok &= enregistrer(&recherche, sortie, QStringLiteral("recherche"));
    recherche.close();
    FrmAP apropos(principale, principale->MG);
    ok &= enregistrer(&apropos, sortie, QStringLiteral("apropos"));
    apropos.close();
    // The pages that the build puts beside the program.
    const QString aide = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("Aide"));
    QDir().mkpath(programme.filePath(QStringLiteral("Aide")));
    for (const QString &page : QDir(aide).entryList(QDir::Files))
        QFile::copy(QDir(aide).filePath(page), programme.filePath(QStringLiteral("Aide/") + page));
    // The four pages of the options.
    FrmOptions options(principale, principale->MG, &principale->imgCONTENU);
    options.attendreExports();
    for (int i = 0; i < FrmOptions::NbPages; ++i) {
        options.Onglets[i]->click();
        ok &= enregistrer(&options, sortie, QStringLiteral("options_%1").arg(i));
    }
    // An icon added from a file of the user's, named as it comes.
    const QString fichierIcone = programme.filePath(QStringLiteral("coffre.png"));
    Art::pixmap(QStringLiteral("korvane"), QSize(64, 64)).save(fichierIcone);
    ChoixFichier::preparerPourTests();
    ChoixFichier::prevoirReponses({fichierIcone});
    options.ValDivers[0]->click();
    if (auto *nom = options.ListeIcones->findChild<QLineEdit *>()) {
        nom->setText(QStringLiteral("Coffre-fort"));
        QKeyEvent entree(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(nom, &entree);
    }
    ok &= enregistrer(&options, sortie, QStringLiteral("options_3_ajout"));
    options.close();
    principale->Boutons[Bouton::Aide]->enfoncer();
    emit principale->Boutons[Bouton::Aide]->clicked();
    ok &= enregistrer(principale, sortie, QStringLiteral("main_aide"));

    // The grid alone, over a sample of every kind of row.
    const QString cheminGrille = QDir(sortie).filePath(QStringLiteral("grille.png"));
    const bool grilleEcrite = grille::rendreApercu(cheminGrille);
    std::printf("%s %s\n", grilleEcrite ? "wrote" : "FAILED", qPrintable(cheminGrille));
    ok &= grilleEcrite;
    Navigation::fermerTout();
    return ok ? 0 : 1;
}
