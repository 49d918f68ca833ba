// The options window driven through its real controls, over a real base.

#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "options/Blit.h"
#include "options/fenetres/ApercuExport.h"
#include "options/Exports.h"
#include "options/fenetres/FrmOptions.h"
#include "support/BaseExemple.h"
#include "support/PrincipaleTest.h"
#include "ui/Apparence.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"

#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <functional>

class TestFrmOptions : public QObject {
    Q_OBJECT

    std::unique_ptr<PrincipaleTest> t;
    frmMain *f = nullptr;

    // Opens the options from the main window and runs the steps while the window is up.
    void options(const std::function<void(FrmOptions *)> &etapes) {
        QVERIFY(t->dialogue<FrmOptions>([this] { QTest::mouseClick(f->Boutons[Bouton::Options], Qt::LeftButton); }, etapes));
        QVERIFY(!f->Boutons[Bouton::Options]->estEnfonce());
    }
    // A check box or an option reacts on its mark and its caption, not on the blank beyond.
    static void cocher(QAbstractButton *b) { QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(8, b->height() / 2)); }
    // A picture file of the program's folder, of one colour.
    QString image(const QString &nom, const QSize &taille, const QColor &couleur) {
        QImage image(taille, QImage::Format_ARGB32);
        image.fill(couleur);
        QString chemin = t->env->chemin(nom);
        image.save(chemin);
        return chemin;
    }
    static QStringList libelles() { return BaseSql::sql(QStringLiteral("SELECT Libelle FROM Icones ORDER BY Num")); }

private slots:
    void init() {
        t = std::make_unique<PrincipaleTest>(QStringLiteral(
            "INSERT INTO Dossiers VALUES (1, 10, 'Banques');"
            "INSERT INTO Documents VALUES (1, 1, 10, 'Compte courant', 'moi', 'secret', NULL, NULL, NULL, NULL, NULL, 0);"));
        f = t->f;
    }
    void cleanup() { t.reset(); }

    void lesExportsSontEcritsUneFoisPuisCopies() {
        options([this](FrmOptions *o) {
            o->attendreExports();
            QCOMPARE(EnvironnementTest::octets(Exports::chemin(Exports::Texte)), Exports::contenuTxt(*f->MG));
            QVERIFY(o->WB->texteVisible().contains(QStringLiteral("Compte courant")));
            // Another format: shown and remembered; its copy through the save dialog.
            cocher(o->OExport[2]);
            QCOMPARE(Reglages::lireNombre(Reglages::Cle::Edition), 2);
            QVERIFY(o->WB->texteVisible().startsWith(QStringLiteral("[Banques]")));
            ChoixFichier::prevoirReponses({t->env->chemin(QStringLiteral("copie.csv"))});
            QTest::mouseClick(o->Exp[0], Qt::LeftButton);
            QCOMPARE(Messages::affiches(), QStringList{Chaine(142)});
            QCOMPARE(EnvironnementTest::octets(t->env->chemin(QStringLiteral("copie.csv"))), EnvironnementTest::octets(Exports::chemin(Exports::Csv)));
        });
        // A second opening in the run finds the window as it was, and rewrites nothing.
        const QByteArray avant = EnvironnementTest::octets(Exports::chemin(Exports::Texte));
        BaseSql::executer(Chemins::cheminBase(),
                          QStringLiteral("INSERT INTO Documents VALUES (1, 2, 10, 'Livret', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 0)"));
        f->MG->Clear();
        f->ChargerMG();
        options([](FrmOptions *o) { QVERIFY(o->OExport[2]->isChecked()); });
        QCOMPARE(EnvironnementTest::octets(Exports::chemin(Exports::Texte)), avant);
    }

    void unGrandArbreSeMontreDuDebutALaFin() {
        BaseExemple::remplir(1, 20, 3000, 200);
        f->MG->Clear();
        f->ChargerMG();
        options([this](FrmOptions *o) {
            o->attendreExports();
            const QByteArray contenus[] = {Exports::contenuHtm(*f->MG), Exports::contenuTxt(*f->MG),
                                           Exports::contenuCsv(*f->MG), Exports::contenuXml(*f->MG)};
            // The page's last row, by the title of its document.
            const QString page = QString::fromUtf8(contenus[Exports::Html]);
            const qsizetype titre = page.lastIndexOf(QStringLiteral("Titre</b> : ")) + 12;
            const QString dernier = page.mid(titre, page.indexOf(QStringLiteral("</font>"), titre) - titre);
            for (int i : {1, 2, 3, 0}) {
                QCOMPARE(EnvironnementTest::octets(Exports::chemin(i)), contenus[i]);
                cocher(o->OExport[i]);
                const QStringList lignes = QString::fromUtf8(contenus[i]).split(QStringLiteral("\r\n"));
                const QString debut = i == Exports::Html ? QStringLiteral("[Banques]") : lignes.mid(0, 4).join(u'\n');
                const QString fin = i == Exports::Html ? dernier : lignes.mid(lignes.size() - 4, 3).join(u'\n');
                // The page's rows begin with line breaks of their own.
                const QString vu = o->WB->texteVisible();
                QVERIFY((i == Exports::Html ? vu.trimmed() : vu).startsWith(debut));
                QVERIFY(!o->WB->texteVisible().contains(fin));
                QTest::keyClick(o->WB, Qt::Key_End);
                QVERIFY2(i == Exports::Html ? o->WB->texteVisible().contains(fin) : o->WB->texteVisible().endsWith(fin),
                         qPrintable(o->WB->texteVisible().right(200)));
                QTest::keyClick(o->WB, Qt::Key_Home);
            }
        });
    }

    void colonnesEtCouleurs() {
        options([this](FrmOptions *o) {
            // A tab remembers its page; a click on the page shown changes nothing.
            QTest::mouseClick(o->Onglets[FrmOptions::PageColonnes], Qt::LeftButton);
            QTest::mouseClick(o->Onglets[FrmOptions::PageColonnes], Qt::LeftButton);
            QVERIFY(o->P[FrmOptions::PageColonnes]->isVisible() && !o->P[FrmOptions::PageExports]->isVisible());
            QCOMPARE(Reglages::lireNombre(Reglages::Cle::Options), 1);
            // A column unchecked is saved at once, and the grid takes it at "Valider".
            const int largeur = f->MG->cellules().ColWidth(4);
            cocher(o->Info[1]);
            QVERIFY(!Reglages::colonneVisible(1));
            QCOMPARE(f->MG->cellules().ColWidth(4), largeur);
            QTest::mouseClick(o->OInfo[0], Qt::LeftButton);
            QCOMPARE(f->MG->cellules().ColWidth(4), 0);

            // Colours: chosen on the samples, stored only by "Valider".
            QTest::mouseClick(o->Onglets[FrmOptions::PageCouleurs], Qt::LeftButton);
            ChoixFichier::prevoirCouleurs({0x112233, 0x445566, -1});
            QTest::mouseClick(o->OCoul[FrmOptions::CouleurFond], Qt::LeftButton);     // background
            QCOMPARE(o->OCoul[FrmOptions::CouleurDocument]->fond, 0x112233);          // the document sample follows it
            QTest::mouseClick(o->OCoul[FrmOptions::CouleurDossier], Qt::LeftButton);  // folder labels
            QCOMPARE(Reglages::lireNombre(Reglages::Cle::CouleurParent), 0);
            // A cancel gives back the colour the dialog was given: the sample's back colour.
            QTest::mouseClick(o->OCoul[FrmOptions::CouleurTitre], Qt::LeftButton);
            QCOMPARE(o->OCoul[FrmOptions::CouleurTitre]->texte, o->OCoul[FrmOptions::CouleurTitre]->fond);
            QTest::mouseClick(o->OInterface[0], Qt::LeftButton);
            QCOMPARE(Reglages::lireNombre(Reglages::Cle::Backcolor), 0x112233);
            QCOMPARE(Reglages::lireNombre(Reglages::Cle::CouleurParent), 0x445566);
            QCOMPARE(Reglages::lireNombre(Reglages::Cle::CouleurTitre), o->OCoul[FrmOptions::CouleurTitre]->fond);
            QCOMPARE(f->MG->cellules().BackColor, 0x112233);
            // The tabs stand on that background: their captions must read there.
            const int ecart = o->Onglets[FrmOptions::PageExports]->palette().color(QPalette::ButtonText).lightness() -
                              Apparence::couleur(0x112233).lightness();
            QVERIFY2(qAbs(ecart) > 120, qPrintable(QString::number(ecart)));
        });
    }

    void iconesAjouteesRenommeesRemplaceesEnregistrees() {
        BaseSql::executer(Chemins::cheminBase(),
                          QStringLiteral("INSERT INTO Documents VALUES (1, 2, 10, 'Courriel', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 5)"));
        f->MG->Clear();
        f->ChargerMG();
        const int ligne = f->MG->LigneDeCle(false, QStringLiteral("10"), QStringLiteral("2"));
        QCOMPARE(f->MG->imageColonne1(ligne).numero, 5);
        const QImage email = f->imgCONTENU.image(5);
        const QStringList stock = libelles();
        const QString casse = t->env->chemin(QStringLiteral("casse.png"));
        QFile(casse).open(QIODevice::WriteOnly);

        options([&](FrmOptions *o) {
            QTest::mouseClick(o->Onglets[FrmOptions::PageIcones], Qt::LeftButton);
            QListWidget *liste = o->ListeIcones;
            QCOMPARE(liste->count(), 6);
            // A cancel, a file that is no picture, "Modifier" with nothing selected:
            // nothing changes, the last one asks for no file, every button comes up.
            const quint64 generation = f->imgCONTENU.generation();
            ChoixFichier::prevoirReponses({QString(), casse});
            for (int b : {0, 0, 1}) QTest::mouseClick(o->ValDivers[b], Qt::LeftButton);
            QCOMPARE(ChoixFichier::filtresDemandes().size(), 2);
            const QStringList messages = Messages::affiches();
            QCOMPARE(messages.size(), 2);
            QVERIFY(messages[0].contains(QStringLiteral("« casse.png »")));
            QVERIFY(messages[1].startsWith(QStringLiteral("Sélectionnez d'abord l'icône")));
            QCOMPARE(f->imgCONTENU.generation(), generation);
            // Delete is refused with its reason.
            QTest::keyClick(liste, Qt::Key_Delete);
            QCOMPARE(Messages::affiches().size(), 1);
            QCOMPARE(liste->count(), 6);

            // An icon added is named at once; the window goes while the name is typed.
            ChoixFichier::prevoirReponses({image(QStringLiteral("rouge.png"), QSize(40, 25), Qt::red)});
            QTest::keyClick(liste, Qt::Key_Insert);
            QCOMPARE(liste->count(), 7);
            QTest::keyClicks(liste->findChild<QLineEdit *>(), QStringLiteral("Coffre-fort"));
        });
        // Kept in memory for the run, not in the base, and closing asked nothing.
        QCOMPARE(f->imgCONTENU.entree(7)->tag, QStringLiteral("Coffre-fort"));
        QCOMPARE(f->imgCONTENU.image(7).size(), QSize(18, 18));
        QCOMPARE(libelles(), stock);
        QVERIFY(Messages::affiches().isEmpty());

        options([&](FrmOptions *o) {
            QListWidget *liste = o->ListeIcones;
            QCOMPARE(liste->item(6)->text(), QStringLiteral("Coffre-fort"));
            QSignalSpy changements(o, &FrmOptions::iconesModifiees);
            // Icon 2 renamed in place (Enter, as F2 or a double click, then Enter), icon 3 given another picture.
            liste->setCurrentRow(1);
            QTest::keyClick(liste, Qt::Key_Return);
            QLineEdit *editeur = liste->findChild<QLineEdit *>();
            QTest::keyClicks(editeur, QStringLiteral("Programmes"));
            QTest::keyClick(editeur, Qt::Key_Return);
            liste->setCurrentRow(2);
            ChoixFichier::prevoirReponses({image(QStringLiteral("bleu.bmp"), QSize(16, 16), Qt::blue)});
            QTest::mouseClick(o->ValDivers[1], Qt::LeftButton);
            QCOMPARE(f->imgCONTENU.image(3).pixel(9, 9), qRgb(0, 0, 255));
            QCOMPARE(f->MG->imagesContenu().nombre(), 6);  // the grid waits for "Valider"
            QTest::mouseClick(o->ValDivers[2], Qt::LeftButton);
            QCOMPARE(changements.count(), 3);  // the name, the picture, the save
        });
        QStringList attendus = stock;
        attendus[1] = QStringLiteral("Programmes");
        attendus << QStringLiteral("Coffre-fort");
        QCOMPARE(libelles(), attendus);
        // The grid has the new library, and the document keeps its icon 5.
        const ListeImages &grille = f->MG->imagesContenu();
        QCOMPARE(grille.image(3).pixel(9, 9), qRgb(0, 0, 255));
        QCOMPARE(f->MG->imageColonne1(ligne).numero, 5);
        QCOMPARE(grille.image(5), Blit::AjusterImage(email));
    }
};

QTEST_MAIN(TestFrmOptions)
#include "tst_frmoptions.moc"
