// The login window driven through its real controls.

#include "app/fenetres/Navigation.h"
#include "store/Comptes.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "store/fenetres/FrmConfirmationPass.h"
#include "store/fenetres/FrmLogin.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"
#include "ui/fenetres/BoutonImage.h"
#include "workspace/fenetres/frmMain.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <memory>

using BaseSql::sql;

class TestFrmLogin : public QObject {
    Q_OBJECT

    std::unique_ptr<EnvironnementTest> env;
    int finsDemandees = 0;

    FrmLogin *ouvrir() {
        Navigation::afficherLogin();
        return Navigation::fenetreLogin();
    }
    static void taper(QLineEdit *l, const QString &texte) {
        l->clear();
        QTest::keyClicks(l, texte);
    }
    static void taperLogin(FrmLogin *f, const QString &texte) { taper(f->Login->lineEdit(), texte); }
    // While it lives, the password asked again at account creation is typed, then the key pressed (OK clicked for none).
    static SurModale<FrmConfirmationPass> confirmer(const QString &pass, Qt::Key touche = Qt::Key_Return) {
        return SurModale<FrmConfirmationPass>([pass, touche](FrmConfirmationPass *c) {
            taper(c->Pass, pass);
            if (touche == Qt::Key_unknown)
                QTest::mouseClick(c->OK, Qt::LeftButton);
            else
                QTest::keyClick(c->Pass, touche);
        });
    }
    void cliquerOK(FrmLogin *f) { QTest::mouseClick(f->OK, Qt::LeftButton); }

private slots:
    void init() {
        env = std::make_unique<EnvironnementTest>();
        finsDemandees = 0;
        Messages::definirFinProgramme([this] { ++finsDemandees; });
    }
    void cleanup() {
        Navigation::fermerTout();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        env.reset();
    }

    void premierCompteCreeSurPlaceSansConnexionPuisConnecte() {
        FrmLogin *f = ouvrir();
        QVERIFY(f && f->isVisible());
        QVERIFY(Messages::affiches().isEmpty());  // no attempt on an empty list

        taperLogin(f, QStringLiteral(" Alice "));
        taper(f->Pass, QStringLiteral("Secret 1"));
        // The password is asked once more: a different one, or the window closed, creates nothing.
        {
            const auto confirmation = confirmer(QStringLiteral("Secret 2"));
            Messages::prevoirReponses({true});
            cliquerOK(f);
            QCOMPARE(confirmation.venues, 1);
        }
        QCOMPARE(Messages::affiches(), (QStringList{QStringLiteral("Compte inexistant, voulez vous le créer ?"),
                                                    QStringLiteral("Les deux mots de passe ne sont pas identiques : le compte n'a pas été créé.")}));
        QCOMPARE(f->focusWidget(), f->Pass);
        {
            const auto confirmation = confirmer(QStringLiteral("Secret 1"), Qt::Key_Escape);
            Messages::prevoirReponses({true});
            cliquerOK(f);
            QCOMPARE(confirmation.venues, 1);
        }
        QCOMPARE(Messages::affiches().size(), 1);
        QCOMPARE(sql("SELECT count(*) FROM Compte"), QStringList{QStringLiteral("0")});
        const auto confirmation = confirmer(QStringLiteral("Secret 1"), Qt::Key_unknown);
        Messages::prevoirReponses({true});
        cliquerOK(f);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Compte inexistant, voulez vous le créer ?")});
        QCOMPARE(sql("SELECT NumCompte, Login, Pass FROM Compte"),
                 QStringList{QStringLiteral("1|alice|") + CrypterChamp(QStringLiteral("Secret 1"))});
        QCOMPARE(f->Login->itemText(0), QStringLiteral(" Alice "));
        QVERIFY(!Navigation::fenetrePrincipale());  // created, not logged in
        QVERIFY(!f->OK->estEnfonce());

        cliquerOK(f);
        QVERIFY(Messages::affiches().isEmpty());
        QVERIFY(Navigation::fenetrePrincipale());
        QCOMPARE(Session::NumCompteCourant, 1);
        QCOMPARE(Session::PassCourant, QStringLiteral("Secret 1"));
        QCOMPARE(Reglages::lireTexte(Reglages::Cle::Username), QStringLiteral(" Alice "));
    }

    void choixDansLaListeTentativeSilencieuseEtAsterisques() {
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("abc"));
        Comptes::creer(2, QStringLiteral("bob"), QStringLiteral("motdepasse"));
        Reglages::ecrire(Reglages::Cle::Username, QStringLiteral("bob"));
        FrmLogin *f = ouvrir();
        QCOMPARE(f->Login->currentText(), QStringLiteral("bob"));
        QCOMPARE(f->Pass->text(), QString(20, u'*'));  // twice the stored password's length
        QVERIFY(!Navigation::fenetrePrincipale());

        // Confirming the dummy is a wrong password.
        QTest::keyClick(f->Pass, Qt::Key_Return);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Veuillez saisir un mot de passe valide !")});
        QCOMPARE(f->Pass->text(), QString(20, u'*'));

        // Choosing another account fills its dummy, silently.
        f->Login->setCurrentIndex(0);
        emit f->Login->activated(0);
        QCOMPARE(f->Pass->text(), QString(6, u'*'));
        QVERIFY(Messages::affiches().isEmpty());

        taper(f->Pass, QStringLiteral("abc"));
        QTest::keyClick(f->Pass, Qt::Key_Return);
        QVERIFY(Navigation::fenetrePrincipale());
        QCOMPARE(Session::NumCompteCourant, 1);
    }

    void nomSauveDansUneAutreCasseRetombeSurLePremier() {
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("a"));
        Comptes::creer(2, QStringLiteral("bob"), QStringLiteral("b"));
        Reglages::ecrire(Reglages::Cle::Username, QStringLiteral("BOB"));
        FrmLogin *f = ouvrir();
        QCOMPARE(f->Login->currentIndex(), 0);
        QCOMPARE(f->Pass->text(), QStringLiteral("**"));
    }

    void unMotDePasseVideConnecteDesLeChargement() {
        Comptes::creer(1, QStringLiteral("libre"), QString());
        FrmLogin *f = ouvrir();
        Q_UNUSED(f);
        QVERIFY(Navigation::fenetrePrincipale() && Navigation::fenetrePrincipale()->isVisible());
        QCOMPARE(Session::NumCompteCourant, 1);
        QVERIFY(Messages::affiches().isEmpty());
    }

    void entreeDansLoginNeDonneJamaisLeCompteZero() {
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("a"));
        FrmLogin *f = ouvrir();
        taperLogin(f, QStringLiteral("o'neil"));
        taper(f->Pass, QStringLiteral("x"));
        Messages::prevoirReponses({true});
        const auto confirmation = confirmer(QStringLiteral("x"));
        // Sent where a keyboard sends it: the combo box holds the focus, not its text.
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        f->Login->setFocus();
        QCOMPARE(QApplication::focusWidget(), f->Login);
        QTest::keyClick(f->Login, Qt::Key_Return);
        QCOMPARE(Messages::reponsesRestantes(), 0);
        QCOMPARE(sql("SELECT NumCompte, Login FROM Compte ORDER BY NumCompte"),
                 (QStringList{QStringLiteral("1|alice"), QStringLiteral("2|o'neil")}));
        QCOMPARE(f->Login->itemText(1), QStringLiteral("o'neil"));
        QVERIFY(!Navigation::fenetrePrincipale());  // one attempt a press
        // Now it logs in, apostrophe and all.
        QTest::keyClick(f->Login, Qt::Key_Return);
        QVERIFY(Navigation::fenetrePrincipale());
        QCOMPARE(Session::NumCompteCourant, 2);
    }

    void refusDeCreationEtMotDePasseBlancOuAccentue() {
        FrmLogin *f = ouvrir();
        // A password the cipher can't keep: refused by name, nothing written, the text kept.
        taperLogin(f, QStringLiteral("zoe"));
        f->Pass->setText(QStringLiteral("café"));
        Messages::prevoirReponses({true});
        cliquerOK(f);
        QCOMPARE(Messages::affiches().value(1), MessageHorsAlphabet(QStringLiteral("é")));
        QCOMPARE(sql("SELECT count(*) FROM Compte"), QStringList{QStringLiteral("0")});
        QCOMPARE(f->Pass->text(), QStringLiteral("café"));

        taperLogin(f, QStringLiteral("zoe"));
        taper(f->Pass, QStringLiteral("   "));
        Messages::prevoirReponses({true});
        cliquerOK(f);
        QCOMPARE(Messages::affiches(), (QStringList{QStringLiteral("Compte inexistant, voulez vous le créer ?"),
                                                    QStringLiteral("Veuillez saisir un mot de passe valide et recommencer !")}));
        Messages::prevoirReponses({false});
        taper(f->Pass, QStringLiteral("ok"));
        cliquerOK(f);
        QCOMPARE(Messages::affiches().size(), 1);
        QCOMPARE(sql("SELECT count(*) FROM Compte"), QStringList{QStringLiteral("0")});
    }

    void desTrousDansLesNumerosNeBloquentPasLaListe() {
        Comptes::creer(2, QStringLiteral("deux"), QStringLiteral("2"));
        Comptes::creer(7, QStringLiteral("sept"), QStringLiteral("7"));
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("INSERT INTO Compte VALUES (9, NULL, NULL)"));
        FrmLogin *f = ouvrir();
        QCOMPARE(f->Login->count(), 2);
        QCOMPARE(f->Login->itemText(1), QStringLiteral("sept"));
    }

    void fermerSelonLeMode() {
        // At program start, closing asks to quit.
        FrmLogin *f = ouvrir();
        Messages::prevoirReponses({false});
        QTest::mouseClick(f->Im_Commande, Qt::LeftButton);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Etes-vous sûr de vouloir quitter le programme ?")});
        QCOMPARE(finsDemandees, 0);
        QVERIFY(f->isVisible());
        Messages::prevoirReponses({true});
        QTest::mouseClick(f->Im_Commande, Qt::LeftButton);
        QCOMPARE(finsDemandees, 1);
        QCOMPARE(Messages::affiches().size(), 1);

        // Opened to create an account from a session: own heading, no selection, closing goes back.
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("a"));
        Session::NumCompteCourant = 1;
        Session::Ouverte = true;
        Session::ModeLogin = Session::Mode::NouveauCompte;
        f = ouvrir();
        QCOMPARE(f->Login->currentIndex(), -1);
        QCOMPARE(f->Pass->text(), QString());
        QTest::mouseClick(f->Im_Commande, Qt::LeftButton);
        QVERIFY(Messages::affiches().isEmpty());
        QVERIFY(Navigation::fenetrePrincipale());
    }
};

QTEST_MAIN(TestFrmLogin)
#include "tst_frmlogin.moc"
