// Working on the tree in the main window: selection, buttons, in-place editing, deletions.

#include "app/fenetres/Navigation.h"
#include "dialogs/fenetres/FrmAjoutDoc.h"
#include "dialogs/fenetres/FrmAjoutDossier.h"
#include "dialogs/fenetres/FrmGenerateur.h"
#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "options/Exports.h"
#include "store/Comptes.h"
#include "store/Cryptage.h"
#include "support/BaseExemple.h"
#include "support/BaseSql.h"
#include "support/PrincipaleTest.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "workspace/fenetres/EditionEnPlace.h"
#include "search/fenetres/FrmRecherche.h"
#include "store/Reglages.h"
#include "ui/PressePapiers.h"
#include "workspace/Verrou.h"
#include "workspace/fenetres/FrmVerrou.h"
#include "workspace/fenetres/frmMain.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>
#include <QProcess>
#include <QClipboard>
#include <QScrollBar>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>
#include <QTest>
#include <sqlcipher/sqlite3.h>
#include <memory>

using BaseSql::sql;

class TestEdition : public QObject {
    Q_OBJECT

    std::unique_ptr<PrincipaleTest> t;
    frmMain *f = nullptr;

    // The grid row of the folder or document whose column 3 reads texte.
    int ligne(const QString &texte) { return ligneDe(f, texte); }
    void cliquerLigne(int l) {
        f->MG->rendreVisible(l);  // scrolled to first, as a user does
        int w = 0, y = 0, h = 0;
        f->MG->GetColumnInfos(l, Colonne::Titre, w, y, h);
        QTest::mouseClick(f->MG->viewport(), Qt::LeftButton, {}, QPoint(f->MG->viewport()->width() / 2, y + h / 2));
    }
    // The tree read again, with the given columns (0 = the title's) hidden first.
    void recharger(std::initializer_list<int> cachees = {}) {
        for (int c : cachees) Reglages::ecrireColonneVisible(c, false);
        if (cachees.size()) f->resize(f->width() - 2, f->height());
        f->MG->Clear();
        f->ChargerMG();
    }
    void commande(int index) { QTest::mouseClick(f->Boutons[index], Qt::LeftButton); }
    // A key goes where a keyboard sends it: to the widget that has the focus.
    void touche(int cle, Qt::KeyboardModifiers mod = Qt::NoModifier) {
        QWidget *cible = QApplication::focusWidget();
        QVERIFY(cible);
        QTest::keyClick(cible, Qt::Key(cle), mod);
    }
    // Typed key by key; a letter a US keyboard lacks comes as the text of its key press.
    void taper(const QString &texte) {
        for (const QChar c : texte)
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), c.unicode() < 128 ? Qt::Key(QTest::asciiToKey(char(c.unicode()))) : Qt::Key_unknown,
                                QString(c), Qt::NoModifier);
    }
    // Opens editing on a document by the keyboard, with the focus in its title box.
    void editer(const QString &titre) {
        cliquerLigne(ligne(titre));
        QVERIFY(f->EnteteB->texte().endsWith(QStringLiteral("Document : ") + titre));
        touche(Qt::Key_F2);
        QVERIFY(f->Edition->SaisieVisible);
        QCOMPARE(QApplication::focusWidget(), f->Edition->Saisie[Colonne::Titre]);
    }
    void nommerDossier(const QString &nom, Qt::Key fin = Qt::Key_Return) {
        f->definirPreparationDialogue([nom, fin](QWidget *d) {
            QTimer::singleShot(0, d, [d, nom, fin] {
                auto *dossier = qobject_cast<FrmAjoutDossier *>(d);
                QTest::keyClicks(dossier->Saisie, nom);
                QTest::keyClick(dossier->Saisie, fin);
            });
        });
    }
    static QString sqlTexte(const QString &t) { return u'\'' + QString(t).replace(u'\'', QStringLiteral("''")) + u'\''; }
    QString refusEnPlace(const QString &caracteres) {
        return MessageHorsAlphabet(caracteres) + QStringLiteral("\nUtilisez « Modifier le document » (Ctrl+E) pour garder ces caractères.");
    }
    QList<bool> etatsBoutons() {
        QList<bool> e;
        for (int i = Bouton::SupprimerDossier; i <= Bouton::ModifierIcone; ++i) e << f->Boutons[i]->isEnabled();
        return e;
    }

    // What the lock must give back: the open folders, the selection, the scroll, the columns.
    QStringList vue() {
        QStringList v{QString::number(f->MG->LigneCourante), QString::number(f->MG->verticalScrollBar()->value())};
        for (int c = 0; c <= 10; ++c) v << QString::number(f->MG->cellules().ColWidth(c));
        for (int r = 2; r < f->MG->NbLignes; ++r)
            if (f->MG->cellules().hauteurPixels(r) > 0) v << QString::number(r);
        return v;
    }
    bool exportsPresents() {
        for (const Exports::Format format : Exports::kOrdre)
            if (QFile::exists(Exports::chemin(format))) return true;
        return false;
    }
    void deverrouiller(const QString &pass) {
        FrmVerrou *v = f->fenetreVerrou();
        QVERIFY(v && v->isVisible());
        v->Pass->setText(pass);
        QTest::keyClick(v->Pass, Qt::Key_Return);
    }
    // A session bus of the test's own, where dbus-daemon is installed; the program's
    // windows reach it as the desktop's.
    QProcess bus;
    QString adresseBus;

private slots:
    void initTestCase() {
        bus.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
        if (bus.waitForStarted(3000) && bus.waitForReadyRead(3000)) adresseBus = QString::fromUtf8(bus.readLine()).trimmed();
        if (!adresseBus.isEmpty()) qputenv("DBUS_SESSION_BUS_ADDRESS", adresseBus.toUtf8());
    }
    void cleanupTestCase() {
        bus.kill();
        bus.waitForFinished(3000);
    }
    void init() {
        t = std::make_unique<PrincipaleTest>(QStringLiteral(
            "INSERT INTO Dossiers VALUES (1, 10, 'Banques');"
            "INSERT INTO Dossiers VALUES (1, 11, 'Vide');"
            "INSERT INTO Documents VALUES (1, 1, 10, 'Compte courant', 'moi', 'ancien', NULL, NULL, '01/02/2026', NULL, NULL, 0);"
            "INSERT INTO Documents VALUES (1, 2, 10, 'Livret', 'moi', 'x', NULL, NULL, NULL, NULL, NULL, 0);"));
        f = t->f;
        QVERIFY(t->actif);
    }
    void cleanup() { t.reset(); }

    void dossierPuisDocumentPuisRenommage() {
        // Escape on a typed name asks first; the answer No writes nothing.
        nommerDossier(QStringLiteral("Jamais"), Qt::Key_Escape);
        touche(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Enregistrer les modifications ?")});
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Dossiers WHERE NumCompte=1")), QStringList{QStringLiteral("2")});
        // A new folder's number is above every account's.
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("INSERT INTO Dossiers VALUES (7, 40, 'ailleurs')"));
        nommerDossier(QStringLiteral("Courriel"));
        commande(Bouton::NouveauDossier);
        QCOMPARE(sql(QStringLiteral("SELECT Num, Nom FROM Dossiers WHERE NumCompte=1 AND Num=41")), QStringList{QStringLiteral("41|Courriel")});

        // A document goes into the folder selected, written plain.
        cliquerLigne(ligne(QStringLiteral("Courriel")));
        QVERIFY(t->dialogue<FrmAjoutDoc>([this] { commande(Bouton::NouveauDocument); }, [](FrmAjoutDoc *d) {
            d->Saisie[0]->setText(QStringLiteral("Boîte perso"));
            QTest::keyClicks(d->Saisie[2], QStringLiteral("premier"));
            QTest::keyClick(d->Saisie[2], Qt::Key_Return); }));
        QCOMPARE(sql(QStringLiteral("SELECT NumDossier, Titre, MotDePasse FROM Documents WHERE Num=3")),
                 QStringList{QStringLiteral("41|Boîte perso|premier")});

        // A rename starts from the folder selected; left as it came it closes without a word;
        // a name of blanks is refused; the new name is written as typed, outer blanks kept,
        // to this account's folder alone.
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("INSERT INTO Dossiers VALUES (2, 10, 'Autre compte')"));
        cliquerLigne(ligne(QStringLiteral("Banques")));
        QVERIFY(t->dialogue<FrmAjoutDossier>([this] { commande(Bouton::RenommerDossier); }, [](FrmAjoutDossier *d) {
            QCOMPARE(d->Saisie->text() + d->TagSaisie, QStringLiteral("Banques10"));
            QTest::keyClick(d->Saisie, Qt::Key_Escape); }));
        QVERIFY(t->dialogue<FrmAjoutDossier>([this] { commande(Bouton::RenommerDossier); }, [](FrmAjoutDossier *d) {
            d->Saisie->setText(QStringLiteral("   "));
            QTest::keyClick(d->Saisie, Qt::Key_Return);
            QVERIFY(d->isVisible());
            d->Saisie->setText(QStringLiteral(" Banques en ligne "));
            QTest::keyClick(d->Saisie, Qt::Key_Enter); }));
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Veuillez saisir le nom du dossier, svp !")});
        QCOMPARE(sql(QStringLiteral("SELECT NumCompte, Num, Nom FROM Dossiers WHERE Num=10 ORDER BY NumCompte")),
                 (QStringList{QStringLiteral("1|10| Banques en ligne "), QStringLiteral("2|10|Autre compte")}));
    }

    void lesBoutonsEtLaBandeSuiventLaSelection() {
        cliquerLigne(ligne(QStringLiteral("Banques")));
        // A folder with documents can be renamed, not deleted.
        QCOMPARE(etatsBoutons(), (QList<bool>{false, false, true, false, false}));
        cliquerLigne(ligne(QStringLiteral("Vide")));
        QCOMPARE(etatsBoutons(), (QList<bool>{true, false, true, false, false}));
        cliquerLigne(ligne(QStringLiteral("Banques")));  // opens it again
        cliquerLigne(ligne(QStringLiteral("Livret")));
        QCOMPARE(etatsBoutons(), (QList<bool>{false, true, false, true, true}));
    }

    void unClicAilleursValideLaBoiteActiveSeulement() {
        editer(QStringLiteral("Compte courant"));
        f->Edition->Saisie[Colonne::Login]->setFocus();
        f->Edition->Saisie[Colonne::Login]->selectAll();
        QTest::keyClicks(f->Edition->Saisie[Colonne::Login], QStringLiteral("autre"));
        f->Edition->Saisie[Colonne::Url]->setText(QStringLiteral("jamais écrit"));  // changed without ever having the focus
        cliquerLigne(ligne(QStringLiteral("Livret")));
        QVERIFY(!f->Edition->SaisieVisible);
        QCOMPARE(sql(QStringLiteral("SELECT LoginDoc, Url FROM Documents WHERE Num=1")),
                 QStringList{CrypterChamp(QStringLiteral("autre")) + QStringLiteral("|NULL")});
        QCOMPARE(sql(QStringLiteral("SELECT LoginDoc FROM Documents WHERE Num=2")), QStringList{QStringLiteral("moi")});
    }

    void leCalendrierEcritLaDate() {
        editer(QStringLiteral("Compte courant"));
        const int l = f->MG->LigneCourante;
        f->Edition->Saisie[Colonne::DateDebut]->setFocus();
        QVERIFY(f->Edition->PanCal->isVisible());
        QCOMPARE(f->Edition->Calendrier->selectedDate(), QDate(2026, 2, 1));
        const QDate jour(2026, 11, 23);
        f->Edition->Calendrier->setSelectedDate(jour);
        emit f->Edition->Calendrier->clicked(jour);
        QVERIFY(!f->Edition->PanCal->isVisible());
        QCOMPARE(f->Edition->Saisie[Colonne::DateDebut]->text(), QStringLiteral("23/11/2026"));
        QCOMPARE(f->MG->GetColumnInfos(l, Colonne::DateDebut), QStringLiteral("23/11/2026"));
        QCOMPARE(sql(QStringLiteral("SELECT DateDebut FROM Documents WHERE Num=1")), QStringList{CrypterChamp(QStringLiteral("23/11/2026"))});
        // A date typed is taken; what is no date is refused and stays in its box.
        f->Edition->Saisie[Colonne::DateFin]->setFocus();
        QTest::keyClicks(f->Edition->Saisie[Colonne::DateFin], QStringLiteral("demain"));
        QTest::keyClick(f->Edition->Saisie[Colonne::DateFin], Qt::Key_Return);
        QVERIFY(Messages::affiches().value(0).contains(QStringLiteral("« demain » n'est pas une date")));
        QCOMPARE(sql(QStringLiteral("SELECT DateFin FROM Documents WHERE Num=1")), QStringList{QStringLiteral("NULL")});
        QVERIFY(f->Edition->SaisieVisible);
        QCOMPARE(f->Edition->Saisie[Colonne::DateFin]->text(), QStringLiteral("demain"));
        f->Edition->Saisie[Colonne::DateFin]->selectAll();
        QTest::keyClicks(f->Edition->Saisie[Colonne::DateFin], QStringLiteral("5/3/2027"));
        QTest::keyClick(f->Edition->Saisie[Colonne::DateFin], Qt::Key_Return);
        QVERIFY(!f->Edition->SaisieVisible);
        QCOMPARE(sql(QStringLiteral("SELECT DateFin FROM Documents WHERE Num=1")), QStringList{CrypterChamp(QStringLiteral("05/03/2027"))});

        // The calendar by the keyboard: Down enters it, Enter picks the day, the box takes the keyboard back.
        editer(QStringLiteral("Compte courant"));
        f->Edition->Saisie[Colonne::DateDebut]->setFocus();
        touche(Qt::Key_Down);
        QVERIFY(f->Edition->Calendrier->isAncestorOf(QApplication::focusWidget()));
        touche(Qt::Key_Right);
        touche(Qt::Key_Return);
        QVERIFY(!f->Edition->PanCal->isVisible());
        QCOMPARE(QApplication::focusWidget(), f->Edition->Saisie[Colonne::DateDebut]);
        QCOMPARE(f->Edition->Saisie[Colonne::DateDebut]->text(), QStringLiteral("24/11/2026"));
        QCOMPARE(sql(QStringLiteral("SELECT DateDebut FROM Documents WHERE Num=1")), QStringList{CrypterChamp(QStringLiteral("24/11/2026"))});
    }

    void unTexteTapeSurvitAuxCommandesAuRedimensionnementEtAuDefilement() {
        editer(QStringLiteral("Compte courant"));
        for (int i = 0; i <= 10; ++i) QCOMPARE(f->Edition->Saisie[i]->isVisible(), i >= 3);
        f->Edition->Saisie[Colonne::Login]->setFocus();
        touche(Qt::Key_End);
        taper(QStringLiteral("-bis"));
        f->resize(f->width() - 40, f->height());
        QCOMPARE(f->Edition->Saisie[Colonne::Login]->text(), QStringLiteral("moi-bis"));
        // A command closes editing after storing the box that still had the focus.
        f->definirPreparationDialogue([](QWidget *d) { QTimer::singleShot(0, d, &QWidget::close); });
        commande(Bouton::APropos);
        QVERIFY(!f->Edition->SaisieVisible);
        f->activateWindow();  // back from the dialog, as the desktop does
        QVERIFY(QTest::qWaitForWindowActive(f));
        QCOMPARE(sql(QStringLiteral("SELECT LoginDoc FROM Documents WHERE Num=1")), QStringList{CrypterChamp(QStringLiteral("moi-bis"))});

        // Scrolling the row away stores what was typed too.
        BaseExemple::remplir(1, 1, 80, 30);
        recharger();
        editer(QStringLiteral("Compte courant"));
        touche(Qt::Key_End);
        taper(QStringLiteral("!"));
        f->MG->verticalScrollBar()->setValue(f->MG->verticalScrollBar()->maximum());
        QVERIFY(!f->Edition->SaisieVisible);
        QCOMPARE(sql(QStringLiteral("SELECT Titre FROM Documents WHERE Num=1")), QStringList{CrypterChamp(QStringLiteral("Compte courant!"))});
        QVERIFY(f->EnteteB->texte().endsWith(QStringLiteral("Document : Compte courant!")));

        // A box holds what its field stores enciphered: 85 characters. A longer paste is
        // refused whole with the limit said; 85 are stored and read back whole.
        editer(QStringLiteral("Livret"));
        f->Edition->Saisie[Colonne::Remarques]->setFocus();
        QApplication::clipboard()->setText(QString(10000, u'y'));
        touche(Qt::Key_V, Qt::ControlModifier);
        QVERIFY(Messages::affiches().value(0).startsWith(QStringLiteral("Ce champ contient au plus 85 caractères")));
        QVERIFY(f->Edition->Saisie[Colonne::Remarques]->text().isEmpty());
        QApplication::clipboard()->setText(QString(85, u'y'));
        touche(Qt::Key_V, Qt::ControlModifier);
        touche(Qt::Key_Return);
        QVERIFY(Messages::affiches().isEmpty());
        recharger();
        QCOMPARE(f->MG->GetColumnInfos(ligne(QStringLiteral("Livret")), Colonne::Remarques), QString(85, u'y'));

        // Escape drops what was not stored: nothing written, the cells as they were.
        editer(QStringLiteral("Livret"));
        taper(QStringLiteral("XYZ"));
        touche(Qt::Key_Escape);
        QVERIFY(!f->Edition->SaisieVisible);
        QCOMPARE(f->MG->GetColumnInfos(ligne(QStringLiteral("Livret")), Colonne::Titre), QStringLiteral("Livret"));
        QCOMPARE(sql(QStringLiteral("SELECT Titre FROM Documents WHERE Num=2")), QStringList{QStringLiteral("Livret")});
    }

    // Tab and Shift+Tab go round the row's visible boxes, storing the box they leave;
    // Page Up and Page Down leave the edit and what it holds as they are.
    void lesTouchesDeTabulationEtDePageDansLesBoites() {
        recharger({Colonne::Login - Colonne::PremierChamp});
        editer(QStringLiteral("Livret"));
        touche(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), f->Edition->Saisie[Colonne::Remarques]);
        touche(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), f->Edition->Saisie[Colonne::Titre]);
        touche(Qt::Key_End);
        taper(QStringLiteral("2"));
        touche(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), f->Edition->Saisie[Colonne::MotDePasse]);
        QCOMPARE(sql(QStringLiteral("SELECT Titre FROM Documents WHERE Num=2")), QStringList{CrypterChamp(QStringLiteral("Livret2"))});
        touche(Qt::Key_End);
        taper(QStringLiteral("y"));
        const int l = f->MG->LigneCourante;
        touche(Qt::Key_PageDown);
        touche(Qt::Key_PageUp);
        QVERIFY(f->Edition->SaisieVisible);
        QCOMPARE(f->MG->LigneCourante, l);
        QCOMPARE(QApplication::focusWidget(), f->Edition->Saisie[Colonne::MotDePasse]);
        QCOMPARE(f->Edition->Saisie[Colonne::MotDePasse]->text(), QStringLiteral("xy"));
        QCOMPARE(sql(QStringLiteral("SELECT MotDePasse FROM Documents WHERE Num=2")), QStringList{QStringLiteral("x")});
    }

    void leFormulaireModifieToutLeDocumentSurSaLigne() {
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("UPDATE Documents SET LoginDoc=%1, Remarques='note' WHERE Num=1")
                                                     .arg(sqlTexte(CrypterChamp(QStringLiteral("moi")))));
        const QString rowid = sql(QStringLiteral("SELECT rowid FROM Documents WHERE Num=1")).value(0);
        // The password and the remarks in hidden columns.
        recharger({2, 7});
        const int rechargements = f->rechargementsComplets();
        auto formulaire = [this](const std::function<void()> &ouvrir, const std::function<void(FrmAjoutDoc *)> &etapes) {
            return t->dialogue<FrmAjoutDoc>(ouvrir, etapes);
        };
        // Nothing selected: it says what to select.
        QVERIFY(!formulaire([this] { touche(Qt::Key_E, Qt::ControlModifier); }, [](FrmAjoutDoc *) {}));
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Sélectionnez d'abord un document.")});

        const int r = ligne(QStringLiteral("Compte courant"));
        cliquerLigne(r);
        // Accents typed in the row are refused, with the way to keep them, and kept in the
        // box; a command waits until it is mended; Ctrl+E takes them to the form.
        touche(Qt::Key_F2);
        touche(Qt::Key_End);
        taper(QStringLiteral(" à Noël"));
        touche(Qt::Key_Return);
        commande(Bouton::SupprimerDocument);
        QCOMPARE(Messages::affiches(), (QStringList{refusEnPlace(QStringLiteral("àë")), refusEnPlace(QStringLiteral("àë"))}));
        QCOMPARE(sql(QStringLiteral("SELECT Titre FROM Documents WHERE Num=1")), QStringList{QStringLiteral("Compte courant")});
        QString genere;
        QVERIFY(formulaire([this] { touche(Qt::Key_E, Qt::ControlModifier); }, [&genere](FrmAjoutDoc *d) {
            QVERIFY(d->modification());
            QStringList lus;
            for (int i = 0; i < FrmAjoutDoc::kNbSaisies; ++i) lus << d->texte(i);
            QCOMPARE(lus, (QStringList{QStringLiteral("Compte courant à Noël"), QStringLiteral("moi"), QStringLiteral("ancien"), QString(),
                                       QString(), QStringLiteral("01/02/2026"), QString(), QStringLiteral("note")}));
            QVERIFY(d->RemarquesLignes->isVisible() && !d->Saisie[7]->isVisible());
            // A second line of remarks, a generated password.
            d->RemarquesLignes->setFocus();
            d->RemarquesLignes->moveCursor(QTextCursor::End);
            QTest::keyClick(d->RemarquesLignes, Qt::Key_Return);
            d->RemarquesLignes->insertPlainText(QStringLiteral("Boîte pro, transférée vers La Poste"));
            {
                SurModale<FrmGenerateur> generateur([&genere](FrmGenerateur *g) {
                    genere = g->Mot->text();
                    QTest::mouseClick(g->Utiliser, Qt::LeftButton);
                });
                QTest::keyClick(d->RemarquesLignes, Qt::Key_G, Qt::ControlModifier);
            }
            QCOMPARE(d->Saisie[2]->text(), genere);
            // Enter makes lines in the remarks; Ctrl+Enter stores.
            QTest::keyClick(d->RemarquesLignes, Qt::Key_Return, Qt::ControlModifier);
            QVERIFY(!d->isVisible()); }));
        const QString remarques = QStringLiteral("note\nBoîte pro, transférée vers La Poste");
        // The same row, the fields changed as typed, the untouched login still enciphered.
        const QStringList attendus = {rowid, QStringLiteral("Compte courant à Noël"), CrypterChamp(QStringLiteral("moi")), genere,
                                      QStringLiteral("01/02/2026"), remarques};
        QCOMPARE(sql(QStringLiteral("SELECT rowid, Titre, LoginDoc, MotDePasse, DateDebut, Remarques FROM Documents WHERE Num=1")),
                 QStringList{attendus.join(u'|')});
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Documents")), QStringList{QStringLiteral("2")});
        QCOMPARE(Messages::affiches(), QStringList());
        QVERIFY(!f->Edition->SaisieVisible);
        // The row shows it at once, without a reload, and after one.
        QCOMPARE(f->rechargementsComplets(), rechargements);
        for (int passe = 0; passe < 2; ++passe) {
            const int l = ligne(QStringLiteral("Compte courant à Noël"));
            QVERIFY(l >= 2);
            QCOMPARE(f->MG->GetColumnInfos(l, Colonne::MotDePasse), genere);
            QCOMPARE(f->MG->GetColumnInfos(l, Colonne::Remarques), remarques);
            if (passe == 0) QVERIFY(f->EnteteB->texte().endsWith(QStringLiteral("Document : Compte courant à Noël")));
            recharger();
        }

        // A double click on a document opens its form too (its first click chose the row);
        // left untouched, Escape closes it at once.
        const int livret = ligne(QStringLiteral("Livret"));
        cliquerLigne(livret);
        int w = 0, y = 0, h = 0;
        f->MG->GetColumnInfos(livret, Colonne::Titre, w, y, h);
        QVERIFY(formulaire([&] { QTest::mouseDClick(f->MG->viewport(), Qt::LeftButton, {}, QPoint(40, y + h / 2)); },
                           [](FrmAjoutDoc *d) {
                               QCOMPARE(d->texte(0), QStringLiteral("Livret"));
                               QTest::keyClick(d->Saisie[1], Qt::Key_Escape);
                               QVERIFY(!d->isVisible());
                           }));
        QCOMPARE(Messages::affiches(), QStringList());
    }

    void unTexteEcritParLeDialogueSeRelitTelQuel() {
        // Plain as the dialog writes it, with a code at a place of the three-character grid.
        const QString pass = QStringLiteral("abc") + CrypterChamp(QStringLiteral("x")) + QStringLiteral("!9z");
        QVERIFY(DecrypterChamp(pass) != pass);
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("UPDATE Documents SET MotDePasse=%1 WHERE Num=2").arg(sqlTexte(pass)));
        recharger();
        QCOMPARE(f->MG->GetColumnInfos(ligne(QStringLiteral("Livret")), Colonne::MotDePasse), pass);
        QVERIFY(Exports::contenuCsv(*f->MG).contains(pass.toUtf8()));
        // Another field edited in place leaves it as stored; edited itself, it is enciphered whole.
        editer(QStringLiteral("Livret"));
        touche(Qt::Key_End);
        taper(QStringLiteral("2"));
        touche(Qt::Key_Return);
        QCOMPARE(sql(QStringLiteral("SELECT Titre, MotDePasse FROM Documents WHERE Num=2")),
                 QStringList{CrypterChamp(QStringLiteral("Livret2")) + u'|' + pass});
        editer(QStringLiteral("Livret2"));
        f->Edition->Saisie[Colonne::MotDePasse]->setFocus();
        QCOMPARE(f->Edition->Saisie[Colonne::MotDePasse]->text(), pass);
        touche(Qt::Key_End);
        taper(QStringLiteral("#"));
        touche(Qt::Key_Return);
        QCOMPARE(sql(QStringLiteral("SELECT MotDePasse FROM Documents WHERE Num=2")), QStringList{CrypterChamp(pass + u'#')});
        recharger();
        QCOMPARE(f->MG->GetColumnInfos(ligne(QStringLiteral("Livret2")), Colonne::MotDePasse), pass + u'#');
    }

    void laSelectionSuitSaCleApresChaqueRechargement() {
        // A command with nothing to act on says what to select, and opens nothing.
        bool ouvert = false;
        f->definirPreparationDialogue([&ouvert](QWidget *d) {
            ouvert = true;
            QTimer::singleShot(0, d, &QWidget::close);
        });
        for (int i : {Bouton::NouveauDocument, Bouton::SupprimerDossier, Bouton::SupprimerDocument, Bouton::RenommerDossier, Bouton::EditerDocument}) commande(i);
        QVERIFY(!ouvert);
        QCOMPARE(Messages::affiches().size(), 5);
        QVERIFY(Messages::affiches().isEmpty());

        // A folder named "Aaa" comes above the selected one: the selection follows "Vide".
        cliquerLigne(ligne(QStringLiteral("Vide")));
        nommerDossier(QStringLiteral("Aaa"));
        commande(Bouton::NouveauDossier);
        QCOMPARE(f->EnteteB->texte(), QStringLiteral("   Dossier :  Vide"));
        QCOMPARE(f->MG->GetColumnInfos(f->MG->LigneCourante, Colonne::Titre), QStringLiteral(" Vide"));
        Messages::prevoirReponses({true});
        commande(Bouton::SupprimerDossier);
        QCOMPARE(sql(QStringLiteral("SELECT Nom FROM Dossiers WHERE NumCompte=1 ORDER BY Nom")),
                 (QStringList{QStringLiteral("Aaa"), QStringLiteral("Banques")}));
        // Gone: the selection is cleared, and the next delete acts on nothing.
        QVERIFY(f->EnteteB->texte().isEmpty());
        Messages::affiches();
        Messages::prevoirReponses({true, true});
        commande(Bouton::SupprimerDossier);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Sélectionnez d'abord le dossier à supprimer.")});
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Dossiers WHERE NumCompte=1")), QStringList{QStringLiteral("2")});
    }

    void lesFlechesPuisSupprDetruisentLeBonDocument() {
        f->MG->setFocus();
        // Home on the first folder, Enter closes it, Down skips its documents.
        touche(Qt::Key_Home);
        QCOMPARE(f->MG->LigneCourante, ligne(QStringLiteral("Banques")));
        touche(Qt::Key_Return);
        QCOMPARE(f->MG->GetParentEtat(f->MG->LigneCourante), QStringLiteral("A"));
        touche(Qt::Key_Down);
        QCOMPARE(f->MG->LigneCourante, ligne(QStringLiteral("Vide")));
        touche(Qt::Key_Up);
        touche(Qt::Key_Space);
        // The documents show in the reverse of their title order: Livret, then Compte courant.
        touche(Qt::Key_Down);
        touche(Qt::Key_Down);
        QCOMPARE(f->EnteteB->texte(), QStringLiteral("   Dossier :  Banques -  Document : Compte courant"));
        QCOMPARE(f->MG->GetParentEtat(ligne(QStringLiteral("Banques"))), QStringLiteral("B"));
        Messages::prevoirReponses({false, true});
        touche(Qt::Key_Delete);
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Documents")), QStringList{QStringLiteral("2")});
        touche(Qt::Key_Delete);
        QCOMPARE(Messages::affiches(), (QStringList{Chaine(141), Chaine(141)}));
        QCOMPARE(sql(QStringLiteral("SELECT Titre FROM Documents")), QStringList{QStringLiteral("Livret")});
        QVERIFY(!f->Boutons[Bouton::SupprimerDocument]->estEnfonce());
        // On a folder that still holds documents, Delete explains and deletes nothing.
        cliquerLigne(ligne(QStringLiteral("Banques")));
        f->MG->setFocus();
        touche(Qt::Key_Delete);
        QVERIFY(Messages::affiches().value(0).startsWith(QStringLiteral("Ce dossier contient encore des documents")));
        // Forced past its disabled button, the command still asks the grid and deletes nothing.
        f->Boutons[Bouton::SupprimerDossier]->setEnabled(true);
        Messages::prevoirReponses({true});
        commande(Bouton::SupprimerDossier);
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Dossiers WHERE NumCompte=1")), QStringList{QStringLiteral("2")});
    }

    void unDocumentDisparuNeChangeRienEtLeDitUneFois() {
        const int l = ligne(QStringLiteral("Livret"));
        cliquerLigne(l);
        commande(Bouton::EditerDocument);
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("DELETE FROM Documents WHERE Num=2"));
        f->Edition->Saisie[Colonne::Titre]->setFocus();
        QTest::keyClicks(f->Edition->Saisie[Colonne::Titre], QStringLiteral("!"));
        QTest::keyClick(f->Edition->Saisie[Colonne::Titre], Qt::Key_Return);
        const QStringList dit = Messages::affiches();
        QCOMPARE(dit.size(), 1);
        QVERIFY(dit[0].startsWith(QStringLiteral("Ce document n'est plus dans la base")));
        QCOMPARE(f->Edition->Saisie[Colonne::Titre]->text(), QStringLiteral("!Livret"));  // kept for the user to copy
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Documents")), QStringList{QStringLiteral("1")});
        touche(Qt::Key_Escape);
        Messages::prevoirReponses({true});
        commande(Bouton::SupprimerDocument);
        QCOMPARE(Messages::affiches(), (QStringList{Chaine(141), dit[0]}));
        QCOMPARE(sql(QStringLiteral("SELECT count(*) FROM Documents")), QStringList{QStringLiteral("1")});
    }

    void uneBaseVerrouilleeDonneUnMessageParActionRate() {
        sqlite3 *autre = nullptr;
        sqlite3_open(QFile::encodeName(Chemins::cheminBase()).constData(), &autre);
        sqlite3_exec(autre, "PRAGMA key='Tarvex'; BEGIN EXCLUSIVE;", nullptr, nullptr, nullptr);
        editer(QStringLiteral("Livret"));
        QTest::keyClicks(f->Edition->Saisie[Colonne::Titre], QStringLiteral("2"));
        QTest::keyClick(f->Edition->Saisie[Colonne::Titre], Qt::Key_Return);
        QCOMPARE(Messages::affiches().size(), 1);
        QVERIFY(f->Edition->SaisieVisible);
        touche(Qt::Key_Escape);
        Messages::prevoirReponses({true});
        commande(Bouton::SupprimerDocument);
        const QStringList dit = Messages::affiches();
        QCOMPARE(dit.size(), 2);  // the question, then the one refusal
        QVERIFY(dit[1].contains(QStringLiteral("utilisée par un autre programme")));
        sqlite3_exec(autre, "ROLLBACK;", nullptr, nullptr, nullptr);
        sqlite3_close(autre);
        QCOMPARE(sql(QStringLiteral("SELECT Titre FROM Documents ORDER BY Num")).size(), 2);
    }

    void deuxDocumentsDeMemeNumeroSeSupprimentChacunLeSien() {
        // A base edited by hand: Alpha and Zulu share their numbers. Each, chosen, goes alone.
        for (const QString &choisi : {QStringLiteral("Alpha"), QStringLiteral("Zulu")}) {
            const QString autre = choisi == QStringLiteral("Alpha") ? QStringLiteral("Zulu") : QStringLiteral("Alpha");
            t.reset();
            t = std::make_unique<PrincipaleTest>(
                QStringLiteral("INSERT INTO Dossiers VALUES (1, 10, 'Banques');"
                               "INSERT INTO Documents (NumCompte, Num, NumDossier, Titre) VALUES (1, 5, 10, '%1'), (1, 5, 10, '%2');")
                    .arg(CrypterChamp(QStringLiteral("Alpha")), CrypterChamp(QStringLiteral("Zulu"))));
            f = t->f;
            QVERIFY(t->actif);
            cliquerLigne(ligne(choisi));
            Messages::prevoirReponses({true});
            commande(Bouton::SupprimerDocument);
            QCOMPARE(DecrypterChamp(sql(QStringLiteral("SELECT Titre FROM Documents")).join(u'+')), autre);
            QCOMPARE(ligne(choisi), -1);
            QVERIFY(ligne(autre) > 0);
        }
    }

    void leVerrouCacheToutGardeLaSaisieEtRendLaVue() {
        BaseExemple::remplir(1, 3, 150);
        f->rechargerGrille();
        cliquerLigne(ligne(QStringLiteral("Banques")));  // one folder closed by its click
        // An edit far down the tree: the login changed, the password with a character the cipher can't keep.
        editer(QStringLiteral("Compte en ligne numero 149"));
        QVERIFY(f->MG->verticalScrollBar()->value() > 0);
        f->Edition->Saisie[Colonne::Login]->setFocus();
        f->Edition->Saisie[Colonne::Login]->selectAll();
        taper(QStringLiteral("nouveau"));
        f->Edition->Saisie[Colonne::MotDePasse]->setFocus();
        f->Edition->Saisie[Colonne::MotDePasse]->selectAll();
        taper(QStringLiteral("clé"));
        QTest::qWait(50);
        const QStringList avant = vue();
        PressePapiers::instance().copier(QStringLiteral("secret"), true, 0);
        Exports::creerTout(*f->MG);
        QVERIFY(exportsPresents());

        touche(Qt::Key_L, Qt::ControlModifier);
        FrmVerrou *v = f->fenetreVerrou();
        QVERIFY(v && v->isVisible());
        QVERIFY(!f->isVisible());
        QCOMPARE(v->Compte->text(), QStringLiteral("Compte « alice »"));
        QCOMPARE(QGuiApplication::clipboard()->text(), QString());
        QVERIFY(!exportsPresents());
        // What could be stored is; the rest waits in its box, its refusal kept for after.
        QCOMPARE(sql(QStringLiteral("SELECT LoginDoc, MotDePasse FROM Documents WHERE Num=1149")),
                 QStringList{CrypterChamp(QStringLiteral("nouveau")) + QStringLiteral("|Pa55-word_%1!").arg(149 * 7919)});
        QCOMPARE(Messages::affiches(), QStringList());

        // Wrong passwords: said, nothing shown; from the fifth on, each next try waits a second more.
        for (int essai = 1; essai <= Verrou::kEssaisLibres; ++essai) {
            deverrouiller(QStringLiteral("faux"));
            QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Mot de passe incorrect : Korvane reste verrouillé.")});
            QVERIFY(!f->isVisible());
        }
        QVERIFY(!v->Pass->isEnabled());
        QVERIFY(v->Avis->text().contains(QStringLiteral("dans 1 s")));
        QTRY_VERIFY_WITH_TIMEOUT(v->Pass->isEnabled(), 2000);
        deverrouiller(QStringLiteral("a"));
        QVERIFY(f->isVisible());
        QVERIFY(!f->fenetreVerrou());
        QCOMPARE(vue(), avant);
        QVERIFY(f->Edition->SaisieVisible);
        QCOMPARE(f->Edition->Saisie[Colonne::MotDePasse]->text(), QStringLiteral("clé"));
        QCOMPARE(Messages::affiches(), QStringList{refusEnPlace(QStringLiteral("é"))});
    }

    void leVerrouParInactiviteParLeBureauEtLaFinDeSession() {
        QCOMPARE(f->verrou().delaiInactivite(), 5 * 60 * 1000);
        // The search closes at the lock; after the unlock the window is up, without it.
        const std::function<void(FrmRecherche *)> verrouiller = [this](FrmRecherche *r) {
            f->verrouiller();
            QVERIFY(!r->isVisible());
        };
        t->dialogue<FrmRecherche>([this] { commande(Bouton::Rechercher); }, verrouiller);
        deverrouiller(QStringLiteral("a"));
        QVERIFY(f->isVisible());
        f->verrou().definirDelaiInactivite(150);
        QTRY_VERIFY_WITH_TIMEOUT(f->fenetreVerrou(), 2000);
        deverrouiller(QStringLiteral("a"));
        QVERIFY(!f->fenetreVerrou());
        if (adresseBus.isEmpty()) QSKIP("no dbus-daemon to start a session bus");
        QDBusConnection bureau = QDBusConnection::connectToBus(adresseBus, QStringLiteral("bureau"));
        QVERIFY(bureau.isConnected());
        for (const bool actif : {false, true}) {
            QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/ScreenSaver"), QStringLiteral("org.freedesktop.ScreenSaver"),
                                                             QStringLiteral("ActiveChanged"));
            signal << actif;
            QVERIFY(bureau.send(signal));
            QTest::qWait(200);
            QCOMPARE(bool(f->fenetreVerrou()), actif);
        }
        // Another account from the lock: the session ends, its export files with it.
        deverrouiller(QStringLiteral("a"));
        Exports::creerTout(*f->MG);
        f->verrouiller();
        Exports::creerTout(*f->MG);
        QVERIFY(QTest::qWaitForWindowActive(f->fenetreVerrou()));
        QTest::keyClick(f->fenetreVerrou()->Pass, Qt::Key_W, Qt::ControlModifier);
        QTRY_VERIFY(Navigation::fenetreLogin());
        QVERIFY(!exportsPresents());
        QDBusConnection::disconnectFromBus(QStringLiteral("bureau"));
    }
};

QTEST_MAIN(TestEdition)
#include "tst_edition.moc"
