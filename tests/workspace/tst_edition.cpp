// Working on the tree in the main window: selection, buttons, in-place editing, deletions.

#include "app/Navigation.h"
#include "dialogs/FrmAjoutDoc.h"
#include "dialogs/FrmAjoutDossier.h"
#include "grid/MyCoolGrid.h"
#include "store/Comptes.h"
#include "store/Cryptage.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"
#include "ui/BoutonImage.h"
#include "ui/Chaines.h"
#include "workspace/frmMain.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QTest>
#include <memory>

class TestEdition : public QObject {
    Q_OBJECT

    std::unique_ptr<EnvironnementTest> env;
    frmMain *f = nullptr;

    QStringList sql(const QString &r) { return BaseSql::lignes(Chemins::cheminBase(), r); }
    // The grid row of the folder or document whose column 3 reads texte.
    int ligne(const QString &texte) {
        for (int i = 2; i < f->MG->NbLignes; ++i)
            if (f->MG->GetColumnInfos(i, 3).trimmed() == texte) return i;
        return -1;
    }
    void cliquerLigne(int l) {
        int w = 0, y = 0, h = 0;
        f->MG->GetColumnInfos(l, 3, w, y, h);
        QTest::mouseClick(f->MG->viewport(), Qt::LeftButton, {}, QPoint(f->MG->viewport()->width() / 2, y + h / 2));
    }
    void commande(int index) { QTest::mouseClick(f->Boutons[index], Qt::LeftButton); }
    QList<bool> etatsBoutons() {
        QList<bool> e;
        for (int i = 12; i <= 16; ++i) e << f->Boutons[i]->isEnabled();
        return e;
    }

private slots:
    void init() {
        env = std::make_unique<EnvironnementTest>();
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("a"));
        Reglages::ecrire(Reglages::Cle::Demarrage, 1);
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral(
            "INSERT INTO Dossiers VALUES (1, 10, 'Banques');"
            "INSERT INTO Dossiers VALUES (1, 11, 'Vide');"
            "INSERT INTO Documents VALUES (1, 1, 10, 'Compte courant', 'moi', 'ancien', NULL, NULL, '01/02/2026', NULL, NULL, 0);"
            "INSERT INTO Documents VALUES (1, 2, 10, 'Livret', 'moi', 'x', NULL, NULL, NULL, NULL, NULL, 0);"));
        Session::NumCompteCourant = 1;
        Session::LoginCourant = QStringLiteral("alice");
        Navigation::afficherPrincipale();
        f = Navigation::fenetrePrincipale();
        f->show();
        // Focus moves, and with it the boxes' commits, only in the active window.
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
    }
    void cleanup() {
        Navigation::fermerTout();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        env.reset();
    }

    void dossierPuisDocumentPuisEditionDeBoutEnBout() {
        // A new folder, named in its dialog; its number is above every account's.
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("INSERT INTO Dossiers VALUES (7, 40, 'ailleurs')"));
        f->definirPreparationDialogue([](QWidget *d) {
            QTimer::singleShot(0, d, [d] {
                auto *dossier = qobject_cast<FrmAjoutDossier *>(d);
                QVERIFY(dossier);
                QCOMPARE(dossier->TagSaisie, QStringLiteral("41"));
                QTest::keyClicks(dossier->Saisie, QStringLiteral("Courriel"));
                QTest::keyClick(dossier->Saisie, Qt::Key_Return);
            });
        });
        commande(10);
        QCOMPARE(sql(QStringLiteral("SELECT Num, Nom FROM Dossiers WHERE NumCompte=1 AND Num=41")), QStringList{QStringLiteral("41|Courriel")});
        const int dossier = ligne(QStringLiteral("Courriel"));
        QVERIFY(dossier > 0);

        // A document in it, through its dialog: written plain.
        cliquerLigne(dossier);
        f->definirPreparationDialogue([](QWidget *d) {
            QTimer::singleShot(0, d, [d] {
                auto *doc = qobject_cast<FrmAjoutDoc *>(d);
                QVERIFY(doc);
                QCOMPARE(doc->L[2]->text(), QStringLiteral("Courriel"));
                doc->Saisie[0]->setText(QStringLiteral("Boîte perso"));
                QTest::keyClicks(doc->Saisie[2], QStringLiteral("premier"));
                QTest::keyClick(doc->Saisie[2], Qt::Key_Return);
            });
        });
        commande(11);
        QCOMPARE(sql(QStringLiteral("SELECT NumDossier, Titre, MotDePasse FROM Documents WHERE Num=3")),
                 QStringList{QStringLiteral("41|Boîte perso|premier")});

        // Its password edited in place: enciphered in the base, plain after a reload.
        cliquerLigne(ligne(QStringLiteral("Boîte perso")));
        commande(15);
        f->Saisie[5]->setFocus();
        f->Saisie[5]->selectAll();
        QTest::keyClicks(f->Saisie[5], QStringLiteral("second"));
        QTest::keyClick(f->Saisie[5], Qt::Key_Return);
        QCOMPARE(sql(QStringLiteral("SELECT MotDePasse FROM Documents WHERE Num=3")), QStringList{CrypterChamp(QStringLiteral("second"))});
        f->MG->Clear();
        f->ChargerMG();
        QCOMPARE(f->MG->GetColumnInfos(ligne(QStringLiteral("Boîte perso")), 5), QStringLiteral("second"));

        // The folder now holds a document: it can be renamed, not deleted.
        cliquerLigne(ligne(QStringLiteral("Courriel")));
        QVERIFY(!f->Boutons[12]->isEnabled());
        f->definirPreparationDialogue([](QWidget *d) {
            QTimer::singleShot(0, d, [d] {
                auto *dossier = qobject_cast<FrmAjoutDossier *>(d);
                QCOMPARE(dossier->Saisie->text(), QStringLiteral("Courriel"));
                QCOMPARE(dossier->TagSaisie, QStringLiteral("41"));
                dossier->Saisie->setText(QStringLiteral(" Messagerie "));
                QTest::keyClick(dossier->Saisie, Qt::Key_Return);
            });
        });
        commande(14);
        QCOMPARE(sql(QStringLiteral("SELECT Nom FROM Dossiers WHERE NumCompte=1 AND Num=41")), QStringList{QStringLiteral(" Messagerie ")});
    }

    void lesBoutonsEtLaBandeSuiventLaSelection() {
        cliquerLigne(ligne(QStringLiteral("Banques")));
        // A folder with documents can be renamed, not deleted.
        QCOMPARE(etatsBoutons(), (QList<bool>{false, false, true, false, false}));
        QCOMPARE(f->EnteteB->texte(), QStringLiteral("   Dossier :  Banques"));
        QCOMPARE(f->NomDossierCourant, QStringLiteral(" Banques"));
        cliquerLigne(ligne(QStringLiteral("Vide")));
        QCOMPARE(etatsBoutons(), (QList<bool>{true, false, true, false, false}));
        cliquerLigne(ligne(QStringLiteral("Banques")));  // opens it again
        cliquerLigne(ligne(QStringLiteral("Livret")));
        QCOMPARE(etatsBoutons(), (QList<bool>{false, true, false, true, true}));
        QCOMPARE(f->EnteteB->texte(), QStringLiteral("   Dossier :  Banques -  Document : Livret"));
        QCOMPARE(f->InfoEntete, f->EnteteB->texte());
        QCOMPARE(f->LigneDocument, ligne(QStringLiteral("Livret")));
        QVERIFY(f->Boutons[10]->isEnabled() && f->Boutons[11]->isEnabled());
    }

    void editionEnPlaceChiffreEtRelit() {
        const int l = ligne(QStringLiteral("Compte courant"));
        cliquerLigne(l);
        commande(15);
        QVERIFY(f->SaisieVisible);
        for (int i = 3; i <= 10; ++i) QVERIFY2(f->Saisie[i]->isVisible(), qPrintable(QString::number(i)));
        for (int i = 0; i <= 2; ++i) QVERIFY(!f->Saisie[i]->isVisible());
        QCOMPARE(f->Saisie[5]->text(), QStringLiteral("ancien"));
        f->Saisie[5]->setFocus();
        f->Saisie[5]->selectAll();
        QTest::keyClicks(f->Saisie[5], QStringLiteral("Nouveau mot"));
        QTest::keyClick(f->Saisie[5], Qt::Key_Return);
        QVERIFY(!f->SaisieVisible);
        QVERIFY(!f->Saisie[5]->isVisible());
        QCOMPARE(f->MG->GetColumnInfos(l, 5), QStringLiteral("Nouveau mot"));
        // The title box had the focus first, but a box left unchanged is not written.
        QCOMPARE(sql(QStringLiteral("SELECT MotDePasse, Titre, LoginDoc FROM Documents WHERE Num=1")),
                 QStringList{CrypterChamp(QStringLiteral("Nouveau mot")) + QStringLiteral("|Compte courant|moi")});
        // A reload reads it back through the cipher.
        f->MG->Clear();
        f->ChargerMG();
        QCOMPARE(f->MG->GetColumnInfos(ligne(QStringLiteral("Compte courant")), 5), QStringLiteral("Nouveau mot"));
    }

    void unClicAilleursValideLaBoiteActiveSeulement() {
        cliquerLigne(ligne(QStringLiteral("Compte courant")));
        commande(15);
        f->Saisie[4]->setFocus();
        f->Saisie[4]->selectAll();
        QTest::keyClicks(f->Saisie[4], QStringLiteral("autre"));
        f->Saisie[6]->setText(QStringLiteral("jamais écrit"));  // changed without ever having the focus
        cliquerLigne(ligne(QStringLiteral("Livret")));
        QVERIFY(!f->SaisieVisible);
        QCOMPARE(sql(QStringLiteral("SELECT LoginDoc, Url FROM Documents WHERE Num=1")),
                 QStringList{CrypterChamp(QStringLiteral("autre")) + QStringLiteral("|NULL")});
        QCOMPARE(sql(QStringLiteral("SELECT LoginDoc FROM Documents WHERE Num=2")), QStringList{QStringLiteral("moi")});
    }

    void leCalendrierEcritLaDate() {
        const int l = ligne(QStringLiteral("Compte courant"));
        cliquerLigne(l);
        commande(15);
        f->Saisie[8]->setFocus();
        QVERIFY(f->PanCal->isVisible());
        QCOMPARE(f->Calendrier->selectedDate(), QDate(2026, 2, 1));
        const QDate jour(2026, 11, 23);
        f->Calendrier->setSelectedDate(jour);
        emit f->Calendrier->clicked(jour);
        QVERIFY(!f->PanCal->isVisible());
        QCOMPARE(f->Saisie[8]->text(), QStringLiteral("23/11/2026"));
        QCOMPARE(f->MG->GetColumnInfos(l, 8), QStringLiteral("23/11/2026"));
        QCOMPARE(sql(QStringLiteral("SELECT DateDebut FROM Documents WHERE Num=1")), QStringList{CrypterChamp(QStringLiteral("23/11/2026"))});
        // An empty end date opens the calendar on today, and typing there stores nothing.
        f->Saisie[9]->setFocus();
        QVERIFY(f->PanCal->isVisible());
        QCOMPARE(f->Calendrier->selectedDate(), QDate::currentDate());
        QTest::keyClicks(f->Saisie[9], QStringLiteral("demain"));
        QTest::keyClick(f->Saisie[9], Qt::Key_Return);
        QCOMPARE(sql(QStringLiteral("SELECT DateFin FROM Documents WHERE Num=1")), QStringList{QStringLiteral("NULL")});
    }

    void supprimerUnDocumentApresOui() {
        cliquerLigne(ligne(QStringLiteral("Livret")));
        Messages::prevoirReponses({false});
        commande(13);
        QCOMPARE(Messages::affiches(), QStringList{Chaine(141)});
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Documents")), QStringList{QStringLiteral("2")});
        QVERIFY(!f->Boutons[13]->estEnfonce());
        Messages::prevoirReponses({true});
        commande(13);
        QCOMPARE(sql(QStringLiteral("SELECT Titre FROM Documents")), QStringList{QStringLiteral("Compte courant")});
        QCOMPARE(ligne(QStringLiteral("Livret")), -1);
        QVERIFY(ligne(QStringLiteral("Compte courant")) > 0);
    }

    void seulUnDossierVideSeSupprime() {
        // Forced past the disabled button, a folder with documents stays.
        cliquerLigne(ligne(QStringLiteral("Banques")));
        Messages::prevoirReponses({true});
        f->Boutons[12]->setEnabled(true);
        commande(12);
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Dossiers WHERE NumCompte=1 AND Num=10")), QStringList{QStringLiteral("1")});

        cliquerLigne(ligne(QStringLiteral("Vide")));
        Messages::prevoirReponses({false});
        commande(12);
        QCOMPARE(Messages::affiches().last(), Chaine(140));
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Dossiers WHERE NumCompte=1")), QStringList{QStringLiteral("2")});
        Messages::prevoirReponses({true});
        commande(12);
        QCOMPARE(sql(QStringLiteral("SELECT Nom FROM Dossiers WHERE NumCompte=1")), QStringList{QStringLiteral("Banques")});
        QCOMPARE(ligne(QStringLiteral("Vide")), -1);
    }

    void unDocumentDisparuNeChangeRien() {
        const int l = ligne(QStringLiteral("Livret"));
        cliquerLigne(l);
        commande(15);
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("DELETE FROM Documents WHERE Num=2"));
        f->Saisie[3]->setFocus();
        QTest::keyClicks(f->Saisie[3], QStringLiteral("!"));
        QTest::keyClick(f->Saisie[3], Qt::Key_Return);
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Documents")), QStringList{QStringLiteral("1")});
        Messages::prevoirReponses({true});
        commande(13);
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Documents")), QStringList{QStringLiteral("1")});
    }
};

QTEST_MAIN(TestEdition)
#include "tst_edition.moc"
