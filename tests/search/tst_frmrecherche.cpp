// The search window driven through its real controls, over a real base.

#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "search/fenetres/FrmRecherche.h"
#include "support/PrincipaleTest.h"
#include "ui/fenetres/BoutonImage.h"
#include "workspace/fenetres/EditionEnPlace.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTest>
#include <functional>

class TestFrmRecherche : public QObject {
    Q_OBJECT

    std::unique_ptr<PrincipaleTest> t;
    frmMain *f = nullptr;

    int ligne(const QString &texte) { return ligneDe(f, texte); }
    // Opens the search from the keyboard and runs the steps inside it while it is up.
    void chercher(const std::function<void(FrmRecherche *)> &etapes) {
        // Ctrl+F where the main window's keyboard is: its grid.
        QVERIFY(t->dialogue<FrmRecherche>([this] { QTest::keyClick(f->MG, Qt::Key_F, Qt::ControlModifier); }, etapes));
    }
    static QStringList lancer(FrmRecherche *r, const QString &texte, int option) {
        QTest::mouseClick(r->OptRec[option], Qt::LeftButton);
        r->Saisie->setText(texte);
        QTest::keyClick(r->Saisie, Qt::Key_Return);
        QStringList hits;
        for (int i = 0; i < r->Liste->count(); ++i) hits << r->Liste->item(i)->text();
        return hits;
    }

private slots:
    void init() {
        t = std::make_unique<PrincipaleTest>(QStringLiteral(
            "INSERT INTO Dossiers VALUES (1, 10, 'Banques');"
            "INSERT INTO Dossiers VALUES (1, 11, 'Réseau');"
            "INSERT INTO Documents VALUES (1, 1, 10, 'Compte Courant', 'moi', NULL, NULL, NULL, NULL, NULL, NULL, 0);"
            "INSERT INTO Documents VALUES (1, 2, 10, 'Livret été', 'banques', NULL, NULL, NULL, NULL, NULL, NULL, 0);"
            "INSERT INTO Documents VALUES (1, 3, 11, 'Box internet', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 0);"));
        f = t->f;
    }
    void cleanup() { t.reset(); }

    void dossiersEtDocumentsParUnMorceauDeLeurNom() {
        chercher([](FrmRecherche *r) {
            QVERIFY(r->OptRec[0]->isChecked());
            QCOMPARE(lancer(r, QStringLiteral("ES"), 0), (QStringList{QStringLiteral(" Banques"), QStringLiteral(" Réseau")}));
            // Blanks alone: the message, and the hits stay.
            QCOMPARE(lancer(r, QStringLiteral("   "), 0), (QStringList{QStringLiteral(" Banques"), QStringLiteral(" Réseau")}));
            QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Veuillez d'abord saisir les informations recherchées !")});
            // Accents and case don't count, whichever side has them, composed or not.
            QCOMPARE(lancer(r, QStringLiteral("RES"), 0), QStringList{QStringLiteral(" Réseau")});
            QCOMPARE(lancer(r, QStringLiteral(" bânq "), 0), QStringList{QStringLiteral(" Banques")});
            QCOMPARE(lancer(r, QStringLiteral("ETE"), 1), QStringList{QStringLiteral("Livret été")});
            QCOMPARE(lancer(r, QStringLiteral("e\u0301te\u0301"), 1), QStringList{QStringLiteral("Livret été")});
            // Documents on their title alone (a login "banques" is never compared), inside a word;
            // a second search empties the list first, and no hit says so in the list, leading nowhere.
            QCOMPARE(lancer(r, QStringLiteral("BANQUES"), 1), QStringList{QStringLiteral("Aucun résultat")});
            QTest::keyClick(r->Saisie, Qt::Key_Down);
            QTest::keyClick(r->Liste, Qt::Key_Return);
            QVERIFY(r->isVisible());
            QCOMPARE(lancer(r, QStringLiteral("OURA"), 1), QStringList{QStringLiteral("Compte Courant")});
            QCOMPARE(lancer(r, QStringLiteral("T"), 1),
                     (QStringList{QStringLiteral("Livret été"), QStringLiteral("Compte Courant"), QStringLiteral("Box internet")}));
            QVERIFY(Messages::affiches().isEmpty());
            // A double click beside the lines chooses nothing.
            QTest::mouseDClick(r->Liste->viewport(), Qt::LeftButton, {}, QPoint(5, r->Liste->viewport()->height() - 3));
            QVERIFY(r->isVisible());
        });
    }

    void unDocumentDansUnDossierFermeEstChoisiSansLOuvrir() {
        const int dossier = f->MG->LigneDeCle(true, QStringLiteral("10"));
        f->MG->SelectLine(dossier);  // closes Banques
        QCOMPARE(f->MG->GetParentEtat(dossier), QStringLiteral("A"));
        chercher([](FrmRecherche *r) {
            QCOMPARE(lancer(r, QStringLiteral("été"), 1), QStringList{QStringLiteral("Livret été")});
            // Down reaches the hits, Enter chooses one.
            QTest::keyClick(r->Saisie, Qt::Key_Down);
            QTest::keyClick(r->Liste, Qt::Key_Return);
            QVERIFY(!r->isVisible());
        });
        QCOMPARE(f->MG->LigneCourante, ligne(QStringLiteral("Livret été")));
        QCOMPARE(f->MG->GetParentEtat(dossier), QStringLiteral("A"));
        QCOMPARE(f->EnteteB->texte(), QStringLiteral("   Dossier :  Banques -  Document : Livret été"));
        // Editing it opens its folder first: no edit on a row nobody sees.
        QTest::keyClick(f->MG, Qt::Key_F2);
        QCOMPARE(f->MG->GetParentEtat(dossier), QStringLiteral("B"));
        QCOMPARE(f->MG->LigneCourante, ligne(QStringLiteral("Livret été")));
        QVERIFY(f->MG->cellules().hauteurPixels(f->MG->LigneCourante) > 0);
        QVERIFY(f->Edition->SaisieVisible && f->Edition->Saisie[Colonne::Titre]->isVisible());
        QCOMPARE(f->Edition->Saisie[Colonne::Titre]->text(), QStringLiteral("Livret été"));
        f->MG->SelectLine(dossier);  // closes it again

        // A folder chosen is clicked: it opens, and a second time closes.
        for (const char *etat : {"B", "A"}) {
            chercher([](FrmRecherche *r) {
                lancer(r, QStringLiteral("banq"), 0);
                const QRect zone = r->Liste->visualItemRect(r->Liste->item(0));
                QTest::mouseClick(r->Liste->viewport(), Qt::LeftButton, {}, zone.center());
                QTest::mouseDClick(r->Liste->viewport(), Qt::LeftButton, {}, zone.center());
                QVERIFY(!r->isVisible());
            });
            QCOMPARE(f->MG->GetParentEtat(dossier), QString::fromLatin1(etat));
        }
    }
};

QTEST_MAIN(TestFrmRecherche)
#include "tst_frmrecherche.moc"
