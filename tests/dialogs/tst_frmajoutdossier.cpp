// The folder dialog through its real controls, on a base of the test's own.

#include "dialogs/fenetres/FrmAjoutDossier.h"
#include "store/Comptes.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"
#include "ui/fenetres/BoutonImage.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <memory>

class TestFrmAjoutDossier : public QObject {
    Q_OBJECT

    std::unique_ptr<EnvironnementTest> env;

    QStringList dossiers() {
        return BaseSql::lignes(Chemins::cheminBase(),
                               QStringLiteral("SELECT NumCompte, Num, Nom FROM Dossiers WHERE NumCompte > 0 ORDER BY NumCompte, Num"));
    }
    void ouvrir(FrmAjoutDossier &f, const QString &nom, const QString &numero) {
        f.Saisie->setText(nom);
        f.TagSaisie = numero;
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
    }

private slots:
    void init() {
        env = std::make_unique<EnvironnementTest>();
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("a"));
        Session::NumCompteCourant = 1;
        Session::LoginCourant = QStringLiteral("alice");
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("INSERT INTO Dossiers VALUES (1, 10, 'Banque');"
                                                                "INSERT INTO Dossiers VALUES (2, 10, 'Autre compte');"));
    }
    void cleanup() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        env.reset();
    }

    void unNomDeBlancsOuSansNumeroEstRefuseEtFermerNEcritRien() {
        FrmAjoutDossier f;
        ouvrir(f, QStringLiteral("   "), QStringLiteral("57"));
        QTest::keyClick(f.Saisie, Qt::Key_Return);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Veuillez saisir le nom du dossier, svp !")});
        QVERIFY(f.isVisible());
        QVERIFY(!f.OK->estEnfonce());
        QCOMPARE(QApplication::focusWidget(), f.Saisie);
        // Without a number the folder could be no other: refused, the name kept.
        f.TagSaisie.clear();
        f.Saisie->setText(QStringLiteral("Voyages"));
        QTest::mouseClick(f.OK, Qt::LeftButton);
        QCOMPARE(Messages::affiches().size(), 1);
        QCOMPARE(f.Saisie->text(), QStringLiteral("Voyages"));
        f.TagSaisie = QStringLiteral("10");
        // What was typed goes only on the user's word: here, Non.
        QTest::mouseClick(f.Im_Commande, Qt::LeftButton);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Enregistrer les modifications ?")});
        QVERIFY(!f.isVisible());
        QCOMPARE(dossiers(), (QStringList{QStringLiteral("1|10|Banque"), QStringLiteral("2|10|Autre compte")}));
        // A rename left as it came closes at once.
        FrmAjoutDossier g;
        ouvrir(g, QStringLiteral("Banque"), QStringLiteral("10"));
        QTest::mouseClick(g.Im_Commande, Qt::LeftButton);
        QVERIFY(!g.isVisible());
        QCOMPARE(Messages::affiches(), QStringList());
    }

    void creationAvecLeNumeroDonneEtRenommage() {
        {
            FrmAjoutDossier f;
            ouvrir(f, QStringLiteral("  Impôts "), QStringLiteral("57"));
            QTest::mouseClick(f.OK, Qt::LeftButton);
            QVERIFY(!f.isVisible());
        }
        // The name as typed, outer blanks included; another account's folder of the same
        // number left alone.
        FrmAjoutDossier g;
        ouvrir(g, QStringLiteral(" Banques en ligne "), QStringLiteral("10"));
        QTest::keyClick(g.Saisie, Qt::Key_Enter);
        QVERIFY(!g.isVisible());
        QCOMPARE(Messages::affiches(), QStringList());
        QCOMPARE(dossiers(), (QStringList{QStringLiteral("1|10| Banques en ligne "), QStringLiteral("1|57|  Impôts "),
                                          QStringLiteral("2|10|Autre compte")}));
    }
};

QTEST_MAIN(TestFrmAjoutDossier)
#include "tst_frmajoutdossier.moc"
