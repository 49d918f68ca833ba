// The password change, through the real window, then a login with the new password.

#include "app/fenetres/Navigation.h"
#include "store/Comptes.h"
#include "store/Cryptage.h"
#include "store/fenetres/FrmModifLogin.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"
#include "ui/fenetres/BoutonImage.h"

#include <QLineEdit>
#include <QTest>
#include <memory>

class TestFrmModifLogin : public QObject {
    Q_OBJECT

    std::unique_ptr<EnvironnementTest> env;

    QStringList passStocke() { return BaseSql::sql(QStringLiteral("SELECT Pass FROM Compte WHERE NumCompte=1")); }
    void taper(QLineEdit *e, const QString &t) {
        e->clear();
        QTest::keyClicks(e, t);
    }

private slots:
    void init() {
        env = std::make_unique<EnvironnementTest>();
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("ancien"));
        Session::NumCompteCourant = 1;
        Session::LoginCourant = QStringLiteral(" Alice");  // as typed at login
        Session::PassCourant = QStringLiteral("ancien");
        Session::ModeLogin = Session::Mode::Principale;
    }
    void cleanup() {
        Navigation::fermerTout();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        env.reset();
    }

    void changementPuisConnexionAvecLeNouveau() {
        FrmModifLogin f;
        f.show();
        QVERIFY(f.Login->isReadOnly());
        QCOMPARE(f.Pass->text(), QString(12, u'*'));

        // A new password the cipher can't keep is refused by name, and nothing changes.
        f.Pass->setText(QStringLiteral("naïve"));
        f.Pass2->setText(QStringLiteral("naïve"));
        QTest::mouseClick(f.OK, Qt::LeftButton);
        QCOMPARE(Messages::affiches(), QStringList{MessageHorsAlphabet(QStringLiteral("ï"))});
        QCOMPARE(f.Pass->text(), QStringLiteral("naïve"));
        QCOMPARE(Session::PassCourant, QStringLiteral("ancien"));
        f.Pass->setText(QString(12, u'*'));
        f.Pass2->clear();

        // Clicking OK alone is a mismatch: the starting asterisks against an empty box.
        QTest::mouseClick(f.OK, Qt::LeftButton);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Veuillez saisir un mot de passe valide et recommencer !")});
        QVERIFY(f.isVisible());
        QCOMPARE(passStocke(), QStringList{CrypterChamp(QStringLiteral("ancien"))});

        taper(f.Pass, QStringLiteral("Nouveau 2"));
        taper(f.Pass2, QStringLiteral("Nouveau 2"));
        QTest::keyClick(f.Pass2, Qt::Key_Return);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Votre nouveau mot de passe a été pris en compte !")});
        QVERIFY(!f.isVisible());
        QCOMPARE(Session::PassCourant, QStringLiteral("Nouveau 2"));
        QCOMPARE(passStocke(), QStringList{CrypterChamp(QStringLiteral("Nouveau 2"))});
    }

    void deuxBoitesVidesDonnentLeMotDePasseVide() {
        FrmModifLogin f;
        f.show();
        f.Pass->clear();
        QTest::keyClick(f.Pass, Qt::Key_Return);
        QCOMPARE(Messages::affiches().size(), 1);
        QCOMPARE(passStocke(), QStringList{QString()});
        // Blanks alone are accepted here, unlike at account creation.
        FrmModifLogin g;
        g.show();
        taper(g.Pass, QStringLiteral("   "));
        taper(g.Pass2, QStringLiteral("   "));
        QTest::mouseClick(g.OK, Qt::LeftButton);
        QCOMPARE(passStocke(), QStringList{CrypterChamp(QStringLiteral("   "))});
    }

    void fermerNeChangeRien() {
        FrmModifLogin f;
        f.show();
        taper(f.Pass, QStringLiteral("x"));
        taper(f.Pass2, QStringLiteral("x"));
        QTest::mouseClick(f.Im_Commande, Qt::LeftButton);
        QVERIFY(!f.isVisible());
        QCOMPARE(passStocke(), QStringList{CrypterChamp(QStringLiteral("ancien"))});
        QCOMPARE(Session::PassCourant, QStringLiteral("ancien"));
        QVERIFY(Messages::affiches().isEmpty());
    }
};

QTEST_MAIN(TestFrmModifLogin)
#include "tst_frmmodiflogin.moc"
