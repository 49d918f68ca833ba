// The main window: its load from a real base, its geometry, its buttons and its close.

#include "app/fenetres/Navigation.h"
#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Comptes.h"
#include "store/CopieBase.h"
#include "store/Cryptage.h"
#include "store/fenetres/FrmLogin.h"
#include "store/fenetres/FrmModifLogin.h"
#include "ui/fenetres/ChoixFichier.h"
#include "support/BaseExemple.h"
#include "support/BaseSql.h"
#include "support/DisquePlein.h"
#include "support/EnvironnementTest.h"
#include "support/PrincipaleTest.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "workspace/fenetres/EditionEnPlace.h"
#include "workspace/fenetres/frmMain.h"

#include "ui/PressePapiers.h"
#include "workspace/fenetres/FrmVerrou.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QTranslator>
#include <memory>
#include <sys/stat.h>

using BaseSql::sql;

class TestFrmMain : public QObject {
    Q_OBJECT

    std::unique_ptr<EnvironnementTest> env;
    int finsDemandees = 0;

    frmMain *ouvrir(int compte = 1, const QString &login = QStringLiteral("alice")) {
        Session::NumCompteCourant = compte;
        Session::LoginCourant = login;
        Session::Ouverte = true;
        Navigation::afficherPrincipale();
        return Navigation::fenetrePrincipale();
    }
    // The grid's rows from row 2 on, as "P name" or "F title|login|icon".
    QStringList arbre(frmMain *f) {
        QStringList l;
        for (int i = 2; i < f->MG->NbLignes; ++i) {
            if (f->MG->IsLigneParent(i))
                l << QStringLiteral("P") + f->MG->GetColumnInfos(i, Colonne::Titre);
            else
                l << QStringLiteral("F %1|%2|%3").arg(f->MG->GetColumnInfos(i, Colonne::Titre), f->MG->GetColumnInfos(i, Colonne::Login), f->MG->GetColumnInfos(i, Colonne::Numero));
        }
        return l;
    }

    frmMain *ouvrirActive() {
        frmMain *f = ouvrir();
        f->activateWindow();
        [[maybe_unused]] const bool actif = QTest::qWaitForWindowActive(f);
        return f;
    }
    // The password cell of a row as painted.
    static QImage celluleMotDePasse(frmMain *f, int l) {
        int x = 0, w = 0, y = 0, h = 0;
        for (int c = 0; c < 5; ++c) x += f->MG->cellules().largeurPixels(c);
        f->MG->GetColumnInfos(l, Colonne::MotDePasse, w, y, h);
        return f->MG->viewport()->grab(QRect(x, y - f->MG->viewport()->y(), w, h)).toImage();
    }
    static QStringList messagesPressePapiers;  // Qt's word that data went to a clipboard mode the platform lacks

    QStringList urls;
    // What a gesture did, in words: the windows and menus it opened (closed at once),
    // its messages and file dialogs, what it copied or opened, what it left on screen.
    // choix, when given, acts in a menu that the gesture opens.
    QStringList trace(frmMain *&f, const std::function<void()> &geste, const std::function<void(QMenu *)> &choix = {}) {
        QStringList t;
        f->definirPreparationDialogue([&t](QWidget *d) {
            t << QString::fromLatin1(d->metaObject()->className());
            QTimer::singleShot(0, d, &QWidget::close);
        });
        QTimer veille;
        bool choisi = false;
        connect(&veille, &QTimer::timeout, [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu) return;
            if (choix && !choisi) {
                choisi = true;
                choix(menu);
            } else {
                t << QStringLiteral("menu");
            }
            if (menu->isVisible()) menu->hide();
        });
        veille.start(30);
        geste();
        QTest::qWait(80);
        veille.stop();
        t << Messages::affiches() << ChoixFichier::filtresDemandes() << urls;
        urls.clear();
        if (const QString copie = QGuiApplication::clipboard()->text(); !copie.isEmpty()) t << QStringLiteral("copié ") + copie;
        QGuiApplication::clipboard()->clear();
        Reglages::ecrire(Reglages::Cle::MotsDePasse, 0);
        if (Navigation::fenetrePrincipale() != f) {
            t << QStringLiteral("connexion %1").arg(Session::ModeLogin ? int(*Session::ModeLogin) : -1);
            f = ouvrirActive();
            return t;
        }
        f->definirPreparationDialogue(nullptr);
        if (FrmVerrou *v = f->fenetreVerrou()) {
            t << QStringLiteral("verrouillé");
            v->Pass->setText(QStringLiteral("a"));
            QTest::keyClick(v->Pass, Qt::Key_Return);
        }
        if (f->WB->isVisible()) t << QStringLiteral("aide");
        if (f->Edition->SaisieVisible) t << QStringLiteral("édition");
        if (f->MG->motsDePasseVisibles()) t << QStringLiteral("mots de passe affichés");
        f->WB->hide();
        f->Edition->fermerSaisie();
        f->MG->definirMotsDePasseVisibles(false);
        for (BoutonImage *b : f->Boutons) b->relacher();
        return t;
    }

public slots:
    void urlOuverte(const QUrl &url) { urls << url.toString(); }

private slots:
    void init() {
        env = std::make_unique<EnvironnementTest>();
        finsDemandees = 0;
        Messages::definirFinProgramme([this] { ++finsDemandees; });
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("a"));
    }
    void cleanup() {
        Navigation::fermerTout();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        env.reset();
    }

    void leChargementOrdonneDechiffreEtDonneLIcone2() {
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral(
                                                     "INSERT INTO Dossiers VALUES (1, 10, 'banques');"
                                                     "INSERT INTO Dossiers VALUES (1, 11, 'Achats');"
                                                     "INSERT INTO Dossiers VALUES (1, 12, 'vide');"
                                                     "INSERT INTO Dossiers VALUES (1, 13, 'zèbre');"
                                                     "INSERT INTO Dossiers VALUES (1, 14, 'École');"
                                                     "INSERT INTO Dossiers VALUES (2, 10, 'autre compte');"));
        BaseSql::executer(Chemins::cheminBase(),
                          QStringLiteral("INSERT INTO Documents VALUES (1, 1, 10, 'Alpha', char(65279) || 'plain', NULL, NULL, NULL, NULL, NULL, NULL, 0);"
                                         "INSERT INTO Documents VALUES (1, 2, 10, 'Beta', '%1', NULL, NULL, NULL, NULL, NULL, NULL, 5);"
                                         "INSERT INTO Documents VALUES (1, 3, 11, 'Gamma', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 3);"
                                         "INSERT INTO Documents VALUES (1, 5, 10, '%2', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 1);"
                                         "INSERT INTO Documents VALUES (1, 6, 10, 'été', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 1);"
                                         "INSERT INTO Documents VALUES (1, 7, 10, 'Etui', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 1);"
                                         "INSERT INTO Documents VALUES (2, 4, 10, 'Secret', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 0);")
                              .arg(CrypterChamp(QStringLiteral("chiffré")), CrypterChamp(QStringLiteral("Ananas"))));
        frmMain *f = ouvrir();
        // Folders in French order whatever their case and accents, with their leading blank;
        // documents of a folder in the reverse of the order of their titles as shown
        // (an enciphered one by its plain text); another account's rows never. A field
        // keeps every character the base holds, a leading U+FEFF too.
        QCOMPARE(arbre(f), (QStringList{QStringLiteral("P Achats"), QStringLiteral("F Gamma||3"), QStringLiteral("P banques"),
                                        QStringLiteral("F Etui||1"), QStringLiteral("F été||1"), QStringLiteral("F Beta|chiffré|5"),
                                        QStringLiteral("F Ananas||1"), QStringLiteral("F Alpha|\uFEFFplain|2"), QStringLiteral("P École"),
                                        QStringLiteral("P vide"), QStringLiteral("P zèbre")}));
        // No template copy for an account that has folders.
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Dossiers WHERE NumCompte=1")), QStringList{QStringLiteral("5")});
    }

    void unNouveauCompteRecoitLesModelesUneSeuleFois() {
        const mode_t umaskAvant = ::umask(0);
        frmMain *f = ouvrir();
        ::umask(umaskAvant);
        QCOMPARE(EnvironnementTest::mode(Chemins::dossierEdition()), 0700);  // the export folder, from its making on
        QCOMPARE(f->nombreDossiers(), Base::dossiersModeles().size());
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Dossiers WHERE NumCompte=1")), QStringList{QStringLiteral("6")});
        f->MG->Clear();
        f->ChargerMG();
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Dossiers WHERE NumCompte=1")), QStringList{QStringLiteral("6")});
        QVERIFY(arbre(f).contains(QStringLiteral("P Favoris")));
        // Every folder deleted: the next load copies the templates again.
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("DELETE FROM Dossiers WHERE NumCompte=1"));
        f->MG->Clear();
        f->ChargerMG();
        QCOMPARE(f->nombreDossiers(), 6);
    }

    void laFenetreSePlaceSelonLesReglages() {
        const QRect ecran = QGuiApplication::primaryScreen()->geometry();
        Reglages::ecrire(Reglages::Cle::MainLeft, 30 * 15);
        Reglages::ecrire(Reglages::Cle::MainTop, 20 * 15);
        frmMain *f = ouvrir();
        const int largeur = qMin(1000, ecran.width()), hauteur = qMin(800, ecran.height());
        QCOMPARE(f->size(), QSize(largeur, hauteur));
        // The saved place, moved only as far as needed to keep the window whole on the screen.
        QCOMPARE(f->x(), qMin(30, ecran.width() - largeur));
        QCOMPARE(f->y(), qMin(20, ecran.height() - hauteur));
        // Places no screen has (a screen gone, a setting edited by hand) never hide it.
        for (const int valeur : {2147483647, -2147483647 - 1, 60000}) {
            Navigation::fermerTout();
            Reglages::ecrire(Reglages::Cle::MainLeft, valeur);
            Reglages::ecrire(Reglages::Cle::MainTop, valeur);
            f = ouvrir();
            QVERIFY2(ecran.contains(f->geometry()), qPrintable(QString::number(valeur)));
        }
        // Saved as maximised: the window covers the screen, in its normal state.
        Navigation::fermerTout();
        Reglages::ecrire(Reglages::Cle::Windowstate, 2);
        f = ouvrir();
        QCOMPARE(f->geometry(), ecran);
        QVERIFY(!(f->windowState() & Qt::WindowMaximized));
        // The next click on the third title button restores the normal size.
        f->Im_Commande[2]->enfoncer();
        emit f->Im_Commande[2]->clicked();
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::Windowstate), 0);
        QCOMPARE(f->size(), QSize(largeur, hauteur));
        QTest::mouseClick(f->Im_Commande[2], Qt::LeftButton);
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::Windowstate), 2);
        QVERIFY(!f->Im_Commande[2]->estEnfonce());

        // A drag on the top band moves the window and remembers its place.
        Navigation::fermerTout();
        Reglages::ecrire(Reglages::Cle::Windowstate, 0);
        f = ouvrir();
        f->move(0, 0);
        QWidget *bandeau = f->Fond[FenetreCadre::FondHaut];
        QTest::mousePress(bandeau, Qt::LeftButton, {}, QPoint(300, 10));
        QMouseEvent deplacement(QEvent::MouseMove, QPointF(320, 25), bandeau->mapToGlobal(QPointF(320, 25)), Qt::NoButton,
                                Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(bandeau, &deplacement);
        QTest::mouseRelease(bandeau, Qt::LeftButton, {}, QPoint(320, 25));
        QCOMPARE(f->pos(), QPoint(20, 15));
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::MainLeft, -1), 20 * 15);
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::MainTop, -1), 15 * 15);
    }

    void quitterDemandeEtNonGardeLaFenetre() {
        frmMain *f = ouvrir();
        Messages::prevoirReponses({false});
        QTest::mouseClick(f->Im_Commande[0], Qt::LeftButton);
        QCOMPARE(Messages::affiches(), QStringList{Chaine(120)});
        QCOMPARE(finsDemandees, 0);
        QVERIFY(f->isVisible());
        // A close by the desktop asks the same; No keeps the window.
        Messages::prevoirReponses({false});
        QVERIFY(!f->close());
        QVERIFY(f->isVisible());
        Messages::prevoirReponses({true});
        QVERIFY(f->close());
        QCOMPARE(finsDemandees, 1);
        QCOMPARE(Messages::affiches().size(), 2);
        QVERIFY(Reglages::lireTexte(Reglages::Cle::MainLeft).toInt() == f->x() * 15);
    }

    void changerLeMotDePasseEtDeCompteDepuisLaFenetre() {
        frmMain *f = ouvrir();
        Session::PassCourant = QStringLiteral("a");
        f->definirPreparationDialogue([](QWidget *d) {
            QTimer::singleShot(0, d, [d] {
                auto *m = qobject_cast<FrmModifLogin *>(d);
                QVERIFY(m);
                m->Pass->setText(QStringLiteral("neuf"));
                m->Pass2->setText(QStringLiteral("neuf"));
                QTest::keyClick(m->Pass2, Qt::Key_Return);
            });
        });
        QTest::mouseClick(f->Boutons[Bouton::ModifierMotDePasse], Qt::LeftButton);
        QCOMPARE(Session::PassCourant, QStringLiteral("neuf"));
        QCOMPARE(sql(QStringLiteral("SELECT Pass FROM Compte WHERE NumCompte=1")), QStringList{CrypterChamp(QStringLiteral("neuf"))});
        QVERIFY(!f->Boutons[Bouton::ModifierMotDePasse]->estEnfonce());

        // A window that goes after its successor came must not take the new grid from the store with it.
        Navigation::afficherPrincipale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        frmMain *nouvelle = Navigation::fenetrePrincipale();
        nouvelle->MG->SelectLine(3);
        QVERIFY(EcrireDocument(77, {QStringLiteral("Titre")}));
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Documents WHERE Num=77")), QStringList{QStringLiteral("1")});
    }

    void ouvrirEtEnregistrerLaBase() {
        frmMain *f = ouvrir();
        const QString base = Chemins::cheminBase();
        // Save as: a whole copy that opens with the key; a folder that isn't there says so.
        ChoixFichier::prevoirReponses({env->chemin(QStringLiteral("copie.kvx")), env->chemin(QStringLiteral("absent/copie.kvx"))});
        QTest::mouseClick(f->Boutons[Bouton::EnregistrerBase], Qt::LeftButton);
        QCOMPARE(Messages::affiches(), QStringList{Chaine(142)});
        QCOMPARE(BaseSql::lignes(env->chemin(QStringLiteral("copie.kvx")), QStringLiteral("SELECT Login FROM Compte")), QStringList{QStringLiteral("alice")});
        QTest::mouseClick(f->Boutons[Bouton::EnregistrerBase], Qt::LeftButton);
        QVERIFY(Messages::affiches().value(0).startsWith(QStringLiteral("La copie vers copie.kvx a échoué")));
        QVERIFY(!f->Boutons[Bouton::EnregistrerBase]->estEnfonce());
        // Never over a file Korvane itself uses.
        CopieBase::copierEntier(env->chemin(QStringLiteral("copie.kvx")), CopieBase::cheminSauvegarde());
        const QByteArray baseAvant = EnvironnementTest::octets(base), sauvegardeAvant = EnvironnementTest::octets(CopieBase::cheminSauvegarde());
        for (const QString &propre : {base, CopieBase::cheminSauvegarde(), Base::cheminVerrou()}) {
            ChoixFichier::prevoirReponses({propre});
            QTest::mouseClick(f->Boutons[Bouton::EnregistrerBase], Qt::LeftButton);
            QVERIFY(Messages::affiches().value(0).startsWith(QStringLiteral("Korvane utilise lui-même le fichier ") + QFileInfo(propre).fileName()));
        }
        QVERIFY(EnvironnementTest::octets(base) == baseAvant && EnvironnementTest::octets(CopieBase::cheminSauvegarde()) == sauvegardeAvant);
        QVERIFY(!QFile::exists(Base::cheminVerrou()));

        // Open: a cancel leaves the button pressed until the next click; a foreign file changes nothing.
        QFile etranger(env->chemin(QStringLiteral("notes.kvx")));
        QVERIFY(etranger.open(QIODevice::WriteOnly) && etranger.write(QByteArray(4096, 'x')) == 4096);
        etranger.close();
        ChoixFichier::prevoirReponses({QString()});
        QTest::mouseClick(f->Boutons[Bouton::OuvrirBase], Qt::LeftButton);
        QVERIFY(f->Boutons[Bouton::OuvrirBase]->estEnfonce());
        QTest::mouseClick(f->Boutons[Bouton::OuvrirBase], Qt::LeftButton);
        QVERIFY(!f->Boutons[Bouton::OuvrirBase]->estEnfonce());
        ChoixFichier::prevoirReponses({etranger.fileName()});
        QTest::mouseClick(f->Boutons[Bouton::OuvrirBase], Qt::LeftButton);
        QVERIFY(Messages::affiches().value(0).contains(QStringLiteral("n'est pas une base Korvane")));
        QCOMPARE(Navigation::fenetrePrincipale(), f);
        // The dialog lists the kept copy too.
        QVERIFY(ChoixFichier::filtresDemandes().join(u'|').contains(QStringLiteral("*.kvx.bak)")));
        // A Korvane base damaged inside is refused before anything is copied.
        BaseExemple::remplir(1, 4, 300);
        const QString abimee = env->chemin(QStringLiteral("abimee.kvx"));
        CopieBase::copierEntier(base, abimee);
        BaseExemple::abimer(abimee);
        const QByteArray avantAbimee = EnvironnementTest::octets(base);
        ChoixFichier::prevoirReponses({abimee});
        QTest::mouseClick(f->Boutons[Bouton::OuvrirBase], Qt::LeftButton);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("La base abimee.kvx est endommagée : la vérification de son "
                                                                  "contenu y trouve des erreurs.\nElle n'a pas été modifiée.\n"
                                                                  "La base actuelle n'a pas été modifiée.")});
        QVERIFY(EnvironnementTest::octets(base) == avantAbimee && EnvironnementTest::octets(CopieBase::cheminSauvegarde()) == sauvegardeAvant);
        QCOMPARE(Navigation::fenetrePrincipale(), f);
    }

    void uneBaseOuverteNeSeMontreQuApresUneConnexionSurElle() {
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("INSERT INTO Dossiers VALUES (1, 10, 'Banque d''alice');"));
        // Another base whose account 1 is someone else's, with a password of its own.
        const QString autre = env->chemin(QStringLiteral("autre.kvx"));
        CopieBase::copierEntier(Chemins::cheminBase(), autre);
        BaseSql::executer(autre, QStringLiteral("UPDATE Compte SET Login='bruno', Pass='%1';"
                                                "DELETE FROM Dossiers WHERE NumCompte=1;"
                                                "INSERT INTO Dossiers VALUES (1, 50, 'Secrets de bruno');"
                                                "INSERT INTO Documents VALUES (1, 1, 50, 'Coffre', 'bruno', 'x', NULL, NULL, NULL, NULL, NULL, 0);")
                                     .arg(CrypterChamp(QStringLiteral("b"))));
        Navigation::afficherLogin();
        Navigation::fenetreLogin()->Pass->clear();
        QTest::keyClicks(Navigation::fenetreLogin()->Pass, QStringLiteral("a"));
        QTest::keyClick(Navigation::fenetreLogin()->Pass, Qt::Key_Return);
        frmMain *f = Navigation::fenetrePrincipale();
        QVERIFY(f && arbre(f) == QStringList{QStringLiteral("P Banque d'alice")});

        ChoixFichier::prevoirReponses({autre});
        Messages::prevoirReponses({true});
        QTest::mouseClick(f->Boutons[Bouton::OuvrirBase], Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Messages::affiches();
        // From here on, any main window that shows would show the new base's rows.
        int montrees = 0;
        struct Guet : QObject {
            int *compte;
            explicit Guet(int *c) : compte(c) {}
            bool eventFilter(QObject *o, QEvent *e) override {
                if (e->type() == QEvent::Show && qobject_cast<frmMain *>(o)) ++*compte;
                return false;
            }
        } guet(&montrees);
        qApp->installEventFilter(&guet);
        const QStringList avant = (sql(QStringLiteral("SELECT * FROM Dossiers")) + sql(QStringLiteral("SELECT * FROM Documents")));

        // Closing the login asks to quit, as at program start; No keeps the login up, alone.
        FrmLogin *login = Navigation::fenetreLogin();
        QVERIFY(login && login->isVisible());
        Messages::prevoirReponses({false});
        QTest::mouseClick(login->Im_Commande, Qt::LeftButton);
        QCOMPARE(Messages::affiches(), QStringList{Chaine(120)});
        QCoreApplication::processEvents();
        QVERIFY(finsDemandees == 0 && Navigation::fenetreLogin() == login && login->isVisible() && montrees == 0);
        QVERIFY(Session::NumCompteCourant == 0 && Session::PassCourant.isEmpty());
        Messages::prevoirReponses({true});
        QTest::mouseClick(login->Im_Commande, Qt::LeftButton);
        QCOMPARE(finsDemandees, 1);
        QCOMPARE(montrees, 0);
        QCOMPARE((sql(QStringLiteral("SELECT * FROM Dossiers")) + sql(QStringLiteral("SELECT * FROM Documents"))), avant);

        // A login on the new base shows its owner's tree under its owner's name.
        login->Pass->clear();
        QTest::keyClicks(login->Pass, QStringLiteral("b"));
        QTest::keyClick(login->Pass, Qt::Key_Return);
        qApp->removeEventFilter(&guet);
        f = Navigation::fenetrePrincipale();
        QVERIFY(f && arbre(f) == (QStringList{QStringLiteral("P Secrets de bruno"), QStringLiteral("F Coffre|bruno|2")}));
        QVERIFY(f->legendeEntete().endsWith(QStringLiteral("(Compte actuel : bruno)")));
        // The base replaced is kept, and opens back: the .bak is read before it is rewritten.
        ChoixFichier::prevoirReponses({CopieBase::cheminSauvegarde()});
        QTest::mouseClick(f->Boutons[Bouton::OuvrirBase], Qt::LeftButton);
        QCOMPARE(sql(QStringLiteral("SELECT Login FROM Compte")), QStringList{QStringLiteral("alice")});
        QCOMPARE(BaseSql::lignes(CopieBase::cheminSauvegarde(), QStringLiteral("SELECT Login FROM Compte")), QStringList{QStringLiteral("bruno")});
    }

    void unDisquePleinEstDitParChaqueEcriture() {
        const QString disque = env->chemin(QStringLiteral("disque"));
        QVERIFY(QDir().mkpath(disque));
        DisquePlein plein(disque);
        if (!plein.pret()) QSKIP("no small disk can be mounted here");
        const QString autre = env->chemin(QStringLiteral("autre.kvx"));
        CopieBase::copierEntier(Chemins::cheminBase(), autre);
        // The program's folder on the small disk, its base in it, then nothing free.
        QVERIFY(QFile::copy(Chemins::cheminBase(), disque + QStringLiteral("/korvane.kvx")));
        Chemins::definirDossierProgramme(disque);
        frmMain *f = ouvrir();
        plein.remplir(QFileInfo(Chemins::cheminBase()).size() / 2);
        const QByteArray base = EnvironnementTest::octets(Chemins::cheminBase());

        ChoixFichier::prevoirReponses({disque + QStringLiteral("/copie.kvx")});
        QTest::mouseClick(f->Boutons[Bouton::EnregistrerBase], Qt::LeftButton);
        QCOMPARE(Messages::affiches().value(0).section(u'\n', 0, 0), QStringLiteral("La copie vers copie.kvx a échoué : le disque est plein."));
        ChoixFichier::prevoirReponses({autre});
        QTest::mouseClick(f->Boutons[Bouton::OuvrirBase], Qt::LeftButton);
        QVERIFY2(Messages::affiches().join(u'|').contains(QStringLiteral("le disque est plein")), "opening a base on a full disk");
        QCOMPARE(EnvironnementTest::octets(Chemins::cheminBase()), base);
        // The options write the four exports at their opening.
        plein.remplir();
        f->definirPreparationDialogue([](QWidget *d) { QTimer::singleShot(0, d, &QWidget::close); });
        QTest::mouseClick(f->Boutons[Bouton::Options], Qt::LeftButton);
        QVERIFY2(Messages::affiches().value(0).contains(QStringLiteral("le disque est plein")), "exports on a full disk");
        QCOMPARE(QDir(disque).entryList(QDir::Files | QDir::Hidden), (QStringList{QStringLiteral("korvane.kvx"), QStringLiteral("remplissage")}));
    }

    void lAideEtLaBoiteAPropos() {
        frmMain *f = ouvrirActive();
        // No help pages beside the program: said, and nothing covers the grid.
        QTest::keyClick(f->MG, Qt::Key_F1);
        QVERIFY(Messages::affiches().value(0).contains(QStringLiteral("« Aide »")));
        QVERIFY(!f->WB->isVisible());
        QDir(Chemins::dossierProgramme()).mkpath(QStringLiteral("Aide"));
        QFile page(QDir(Chemins::dossierProgramme()).filePath(QStringLiteral("Aide/index.htm")));
        QVERIFY(page.open(QIODevice::WriteOnly) && page.write("<h1>Sommaire</h1>") > 0);
        page.close();
        QTest::keyClick(f->MG, Qt::Key_F1);
        QVERIFY(f->WB->isVisible());
        QCOMPARE(f->WB->geometry(), f->MG->geometry());
        QVERIFY(f->WB->toPlainText().contains(QStringLiteral("Sommaire")));
        // Up until the next command; Escape puts it away too.
        f->definirPreparationDialogue([](QWidget *d) { QTimer::singleShot(0, d, &QWidget::close); });
        QTest::mouseClick(f->Boutons[Bouton::APropos], Qt::LeftButton);
        QVERIFY(!f->WB->isVisible());
        QTest::keyClick(f->MG, Qt::Key_F1);
        QTest::keyClick(f->WB, Qt::Key_Escape);
        QVERIFY(!f->WB->isVisible());

        // Escape closes the about box as its close button does.
        f->definirPreparationDialogue([](QWidget *d) { QTimer::singleShot(0, d, [d] { QTest::keyClick(d, Qt::Key_Escape); }); });
        QTest::mouseClick(f->Boutons[Bouton::APropos], Qt::LeftButton);
        QVERIFY(!f->Boutons[Bouton::APropos]->estEnfonce());
    }

    // Every command of the table by its key, and the same through its button and the row's menu.
    void chaqueCommandeParSaToucheSonBoutonEtLeMenu() {
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral(
                                                     "INSERT INTO Dossiers VALUES (1, 10, 'Banques');"
                                                     "INSERT INTO Dossiers VALUES (1, 11, 'Vide');"
                                                     "INSERT INTO Documents VALUES (1, 1, 10, 'Banque', 'moi', 'Tr3s-secret', 'banque.fr', NULL, NULL, NULL, NULL, 0);"));
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "urlOuverte");
        frmMain *f = ouvrirActive();
        for (const frmMain::Commande &c : frmMain::commandes()) {
            const QString nom = QString::fromUtf8(c.legende);
            // A command on a folder gets the empty one; every other the document.
            auto choisir = [&] {
                f->MG->SelectLine(ligneDe(f, c.besoin == frmMain::Besoin::Dossier ? QStringLiteral("Vide") : QStringLiteral("Banque")));
                f->MG->setFocus();
            };
            choisir();
            const QStringList parTouche = trace(f, [&] { QTest::keyClick(f->MG, c.touches.key(), c.touches.keyboardModifiers()); });
            QVERIFY2(!parTouche.isEmpty(), qPrintable(nom));
            if (c.bouton != Bouton::Aucun) {
                choisir();
                QCOMPARE(trace(f, [&] { QTest::mouseClick(f->Boutons[c.bouton], Qt::LeftButton); }), parTouche);
            }
            if (c.dansMenu) {
                choisir();
                QString touches;
                const QStringList parMenu = trace(
                    f, [&] { QTest::keyClick(f->MG, Qt::Key_F10, Qt::ShiftModifier); }, [&](QMenu *menu) {
                    for (QAction *a : menu->actions())
                        if (a->text() == nom) {
                            touches = a->shortcut().toString();
                            menu->setActiveAction(a);
                            QTest::keyClick(menu, Qt::Key_Return);
                            return;
                        } });
                QCOMPARE(parMenu, parTouche);
                QCOMPARE(touches, QKeySequence(c.touches).toString());
            }
        }
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    }

    void lesMotsDePasseEnPointsSeCopientSansEtreVus() {
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral(
                                                     "INSERT INTO Dossiers VALUES (1, 10, 'Banques');"
                                                     "INSERT INTO Documents VALUES (1, 1, 10, 'Banque', 'moi', 'a', 'www.banque.fr', NULL, NULL, NULL, NULL, 0);"));
        const QStringList stockes = sql(QStringLiteral("SELECT MotDePasse FROM Documents"));
        frmMain *f = ouvrirActive();
        const int l = ligneDe(f, QStringLiteral("Banque"));
        f->MG->SelectLine(l);
        f->MG->setFocus();
        // The same dots whatever the password's length, until the passwords are shown.
        const QImage court = celluleMotDePasse(f, l);
        f->MG->MajColumnInfos(l, Colonne::MotDePasse, QStringLiteral("un mot de passe bien plus long"));
        QCOMPARE(celluleMotDePasse(f, l), court);
        QTest::keyClick(f->MG, Qt::Key_H, Qt::ControlModifier);
        QVERIFY(celluleMotDePasse(f, l) != court);
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::MotsDePasse), -1);
        QTest::keyClick(f->MG, Qt::Key_H, Qt::ControlModifier);
        QCOMPARE(celluleMotDePasse(f, l), court);
        f->MG->MajColumnInfos(l, Colonne::MotDePasse, QStringLiteral("a"));

        // The password column hidden, Ctrl+C still copies it, with the hint and to the clipboard alone.
        Reglages::ecrireColonneVisible(2, false);
        f = ouvrirActive();
        f->MG->SelectLine(ligneDe(f, QStringLiteral("Banque")));
        f->MG->setFocus();
        messagesPressePapiers.clear();
        const QtMessageHandler avant = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &m) {
            if (m.contains(QStringLiteral("clipboard"))) messagesPressePapiers << m;
        });
        QTest::keyClick(f->MG, Qt::Key_C, Qt::ControlModifier);
        qInstallMessageHandler(avant);
        const QMimeData *d = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(d->text(), QStringLiteral("a"));
        QCOMPARE(d->data(QString::fromLatin1(PressePapiers::kTypeIndice)), QByteArrayLiteral("secret"));
        QCOMPARE(messagesPressePapiers, QStringList());
        QCOMPARE(f->EnteteB->texte(), QStringLiteral("   Mot de passe de « Banque » copié"));
        QVERIFY(f->CompteARebours->isVisible());
        QCOMPARE(f->CompteARebours->text(), QStringLiteral("Presse-papiers effacé dans 20 s"));
        // A click on the countdown clears at once.
        QTest::mouseClick(f->CompteARebours, Qt::LeftButton);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString());
        QVERIFY(!f->CompteARebours->isVisible());

        // In a text box Ctrl+C copies its text; the password box hides, and its eye is its own.
        QTest::keyClick(f->MG, Qt::Key_F2);
        QLineEdit *login = f->Edition->Saisie[Colonne::Login], *pass = f->Edition->Saisie[Colonne::MotDePasse];
        QCOMPARE(pass->echoMode(), QLineEdit::Password);
        login->setFocus();
        login->selectAll();
        QTest::keyClick(login, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("moi"));
        QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasFormat(QString::fromLatin1(PressePapiers::kTypeIndice)));
        pass->setFocus();
        QTest::keyClick(pass, Qt::Key_H, Qt::ControlModifier);
        QCOMPARE(pass->echoMode(), QLineEdit::Normal);
        QVERIFY(!f->MG->motsDePasseVisibles());
        f->Edition->fermerSaisie();

        // The URL opens in the browser, with https:// before an address that had no scheme.
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "urlOuverte");
        QTest::keyClick(f->MG, Qt::Key_U, Qt::ControlModifier);
        QCOMPARE(urls, QStringList{QStringLiteral("https://www.banque.fr")});
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
        QCOMPARE(sql(QStringLiteral("SELECT MotDePasse FROM Documents")), stockes);
    }

    // The help page lists every key of the table, as the desktop writes it in French.
    void laPageDAideDonneChaqueTouche() {
        QTranslator traduction;
        QVERIFY(traduction.load(QLocale(QLocale::French), QStringLiteral("qtbase"), QStringLiteral("_"),
                                QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
        QCoreApplication::installTranslator(&traduction);
        QFile page(QCoreApplication::applicationDirPath() + QStringLiteral("/Aide/clavier.htm"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        const QString texte = QString::fromUtf8(page.readAll());
        for (const frmMain::Commande &c : frmMain::commandes())
            QVERIFY2(texte.contains(QStringLiteral("<kbd>%1</kbd>").arg(frmMain::texteTouches(c.touches).toHtmlEscaped())), c.legende);
        QCoreApplication::removeTranslator(&traduction);
    }

    void lAssociationSeFaitAuPremierDemarrageSeulement() {
        const QString entree = QDir(qEnvironmentVariable("XDG_DATA_HOME")).filePath(QStringLiteral("applications/korvane.desktop"));
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::Demarrage), 0);
        ouvrir();
        QVERIFY(QFile::exists(entree));
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::Demarrage), 1);
        QCOMPARE(Session::ModeLogin, std::optional(Session::Mode::Principale));
        QFile::remove(entree);
        ouvrir();
        QVERIFY(!QFile::exists(entree));
    }
};

QStringList TestFrmMain::messagesPressePapiers;

QTEST_MAIN(TestFrmMain)
#include "tst_frmmain.moc"
