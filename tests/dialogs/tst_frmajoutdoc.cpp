// The document dialog through its real controls, on a base of the test's own.

#include "dialogs/fenetres/FrmAjoutDoc.h"
#include "dialogs/fenetres/FrmGenerateur.h"
#include "store/Arbre.h"
#include "store/Comptes.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"
#include "ui/fenetres/BoutonImage.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <memory>

using BaseSql::sql;

namespace {
// The selected row of a grid, reduced to the folder the store reads from it.
class SelectionDossier : public SelectionGrille {
public:
    QString dossier;
    QString texteSelection(CleGrille cle) const override { return cle == CleGrille::NumDossier ? dossier : QString(); }
};
}  // namespace

class TestFrmAjoutDoc : public QObject {
    Q_OBJECT

    std::unique_ptr<EnvironnementTest> env;
    SelectionDossier selection;

    QStringList documents() {
        return sql(QStringLiteral(
            "SELECT NumCompte, Num, NumDossier, Titre, LoginDoc, MotDePasse, Url, Fichier, DateDebut, "
            "DateFin, Remarques, Icone FROM Documents ORDER BY Num"));
    }
    // Types the text; what the keyboard simulation can't type is pasted.
    void taper(QLineEdit *e, const QString &t) {
        e->clear();
        if (std::all_of(t.begin(), t.end(), [](QChar c) { return c.unicode() < 128; }))
            QTest::keyClicks(e, t);
        else
            e->insert(t);
    }
    void ouvrir(FrmAjoutDoc &f) {
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
    }
    // Picks the 15th of the month the calendar shows, as a click on it does.
    static QDate choisirLe15(QCalendarWidget *c) {
        const QDate jour(c->yearShown(), c->monthShown(), 15);
        c->setSelectedDate(jour);
        emit c->clicked(jour);
        return jour;
    }

private slots:
    void init() {
        env = std::make_unique<EnvironnementTest>();
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("a"));
        Session::NumCompteCourant = 1;
        Session::LoginCourant = QStringLiteral("alice");
        selection.dossier = QStringLiteral("10");
        Def::definirSelectionGrille(&selection);
    }
    void cleanup() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Def::definirSelectionGrille(nullptr);
        env.reset();
    }

    void leTitreEstExigePuisToutEstEcritTelQueSaisi() {
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral(
                                                     "INSERT INTO Documents (NumCompte, Num, NumDossier, Titre) VALUES (2, 41, 10, 'autre compte');"
                                                     "INSERT INTO Documents (NumCompte, Num, NumDossier, Titre) VALUES (1, 7, 10, 'ancien');"));
        FrmAjoutDoc f;
        ouvrir(f);
        const QStringList textes = {QStringLiteral("   "), QStringLiteral("jean.dupont"), QStringLiteral("Pa55-word!"),
                                    QStringLiteral("https://www.ca.fr"), QString(), QStringLiteral("n'importe quoi"),
                                    QStringLiteral("31/12/2027"), QString(255, u'é')};
        for (int i = 0; i < FrmAjoutDoc::kNbSaisies; ++i) taper(f.Saisie[i], textes[i]);
        // A field holds 255 characters: a longer paste is refused whole, with the limit said.
        QApplication::clipboard()->setText(QString(10000, u'x'));
        QTest::keyClick(f.Saisie[3], Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(f.Saisie[3]->text(), textes[3]);
        QVERIFY(Messages::affiches().value(0).startsWith(QStringLiteral("Ce champ contient au plus 255 caractères")));
        // Enter in any box is OK; a title of blanks is none.
        QTest::keyClick(f.Saisie[2], Qt::Key_Return);
        QCOMPARE(Messages::affiches(), QStringList{QStringLiteral("Veuillez saisir le titre, svp !")});
        QVERIFY(f.isVisible());
        QVERIFY(!f.OK->estEnfonce());
        QCOMPARE(QApplication::focusWidget(), f.Saisie[0]);
        QCOMPARE(f.Saisie[2]->text(), textes[2]);
        QCOMPARE(documents().size(), 2);

        taper(f.Saisie[0], QStringLiteral("  Crédit Agricole"));
        f.choisirIcone(3, QPixmap(16, 16));
        f.choisirIcone(5, QPixmap(16, 16));
        QTest::keyClick(f.Saisie[7], Qt::Key_Enter);
        QCOMPARE(Messages::affiches(), QStringList());
        QVERIFY(!f.isVisible());
        // One above the highest number of all accounts; leading blanks and accents kept,
        // nothing enciphered, an empty field empty, a full one whole, the last icon.
        QCOMPARE(documents().size(), 3);
        QCOMPARE(documents().last(), QStringLiteral("1|42|10|  Crédit Agricole|jean.dupont|Pa55-word!|https://www.ca.fr||"
                                                    "n'importe quoi|31/12/2027|%1|5")
                                         .arg(QString(255, u'é')));
        QVERIFY(CrypterChamp(textes[1]) != textes[1]);
        QCOMPARE(sql(QStringLiteral("SELECT Fichier IS NULL FROM Documents WHERE Num=42")), QStringList{QStringLiteral("0")});
    }

    void leCalendrierEcritDansSaBoite() {
        FrmAjoutDoc f;
        ouvrir(f);
        // An empty box opens it on today; the day picked goes into the box, which keeps the keyboard.
        QTest::mouseClick(f.Saisie[6], Qt::LeftButton);
        QVERIFY(f.PanCal->isVisible());
        QCOMPARE(f.Calendrier->selectedDate(), QDate::currentDate());
        const QDate jour = choisirLe15(f.Calendrier);
        QCOMPARE(f.Saisie[6]->text(), jour.toString(QStringLiteral("dd/MM/yyyy")));
        QVERIFY(f.PanCal->isHidden());
        QCOMPARE(QApplication::focusWidget(), f.Saisie[6]);
        // A date in the box opens the calendar on it, and the pick writes that box only.
        f.Saisie[5]->setText(QStringLiteral("03/02/2031"));
        f.Saisie[5]->setFocus();
        QCOMPARE(f.Calendrier->selectedDate(), QDate(2031, 2, 3));
        QCOMPARE(choisirLe15(f.Calendrier), QDate(2031, 2, 15));
        QCOMPARE(f.Saisie[5]->text() + f.Saisie[6]->text(), QStringLiteral("15/02/2031") + jour.toString(QStringLiteral("dd/MM/yyyy")));
        // Another box or a click on the background puts it away.
        f.Saisie[1]->setFocus();
        QVERIFY(f.PanCal->isHidden());
        QTest::mouseClick(f.Saisie[5], Qt::LeftButton);
        QTest::mouseClick(f.FondBleu, Qt::LeftButton, {}, QPoint(2, 2));
        QVERIFY(f.PanCal->isHidden());
    }

    void fermerOuEchouerNeRienPerd() {
        const QString question = QStringLiteral("Enregistrer les modifications ?");
        {
            // An icon alone is something to lose. Escape and the close button ask first:
            // Annuler goes back to the dialog, Non drops it all.
            FrmAjoutDoc f;
            QTimer::singleShot(0, &f, [&] {
                f.choisirIcone(4, QPixmap(16, 16));
                Messages::prevoirReponsesAnnulables({Messages::Reponse::Annuler, Messages::Reponse::Non});
                QTest::keyClick(&f, Qt::Key_Escape);
                QVERIFY(f.isVisible());
                taper(f.Saisie[0], QStringLiteral("Titre"));
                QTest::mouseClick(f.Im_Commande, Qt::LeftButton);
            });
            f.executer();
            QVERIFY(!f.isVisible());
            QCOMPARE(Messages::affiches(), (QStringList{question, question}));
        }
        QCOMPARE(documents(), QStringList());
        {
            // Oui stores as OK does: an empty title keeps the dialog, a title lets it go.
            FrmAjoutDoc f;
            ouvrir(f);
            taper(f.Saisie[2], QStringLiteral("secret"));
            Messages::prevoirReponses({true, true});
            QVERIFY(!f.close());
            QCOMPARE(Messages::affiches(), (QStringList{question, QStringLiteral("Veuillez saisir le titre, svp !")}));
            taper(f.Saisie[0], QStringLiteral("Gardé"));
            QVERIFY(f.close());
            QCOMPARE(sql(QStringLiteral("SELECT Titre, MotDePasse FROM Documents")), QStringList{QStringLiteral("Gardé|secret")});
            BaseSql::executer(Chemins::cheminBase(), QStringLiteral("DELETE FROM Documents"));
            Messages::affiches();
        }

        FrmAjoutDoc f;
        ouvrir(f);
        taper(f.Saisie[0], QStringLiteral("Impôts"));
        taper(f.Saisie[2], QStringLiteral("motdepasse"));
        // No folder selected, then no base: a message each time, and the dialog stays as typed.
        Def::definirSelectionGrille(nullptr);
        QTest::mouseClick(f.OK, Qt::LeftButton);
        QCOMPARE(Messages::affiches().size(), 1);
        Def::definirSelectionGrille(&selection);
        QVERIFY(QFile::rename(Chemins::cheminBase(), env->chemin(QStringLiteral("ailleurs.kvx"))));
        QTest::keyClick(f.Saisie[2], Qt::Key_Return);
        const QStringList messages = Messages::affiches();
        QCOMPARE(messages.size(), 1);
        QVERIFY(messages[0].contains(QStringLiteral("korvane.kvx")));
        QVERIFY(f.isVisible());
        QVERIFY(!f.OK->estEnfonce());
        QCOMPARE(f.Saisie[0]->text(), QStringLiteral("Impôts"));
        QVERIFY(QFile::rename(env->chemin(QStringLiteral("ailleurs.kvx")), Chemins::cheminBase()));
        QCOMPARE(documents(), QStringList());
        QCOMPARE(ChercherNouveauNumDocument(), 1);
        QTest::mouseClick(f.OK, Qt::LeftButton);
        QVERIFY(!f.isVisible());
        QCOMPARE(sql(QStringLiteral("SELECT Num, Titre, MotDePasse, Icone FROM Documents")),
                 QStringList{QStringLiteral("1|Impôts|motdepasse|0")});
    }

    void leGenerateurRemplitLeMotDePasse() {
        FrmAjoutDoc f;
        ouvrir(f);
        QString utilise;
        {
            // The choices reach the draw; no class, no password to use.
            SurModale<FrmGenerateur> generateur([&](FrmGenerateur *g) {
                g->LongueurNombre->setValue(8);
                for (int i : {0, 1, 3}) g->Classes[i]->setChecked(false);
                QVERIFY(!g->Mot->text().isEmpty());
                g->Classes[2]->setChecked(false);
                QVERIFY(g->Mot->text().isEmpty() && !g->Utiliser->isEnabled());
                g->Classes[2]->setChecked(true);
                QTest::mouseClick(g->SansSosies, Qt::LeftButton, {}, QPoint(6, g->SansSosies->height() / 2));
                utilise = g->Mot->text();
                QTest::keyClick(g->LongueurNombre, Qt::Key_Return);
            });
            QTest::keyClick(f.Saisie[0], Qt::Key_G, Qt::ControlModifier);
            QCOMPARE(generateur.venues, 1);
        }
        QVERIFY(QRegularExpression(QStringLiteral("^[2-9]{8}$")).match(utilise).hasMatch());
        QCOMPARE(f.Saisie[2]->text(), utilise);
        // Closed without "Utiliser", it leaves the box as it was.
        {
            SurModale<FrmGenerateur> generateur([](FrmGenerateur *g) { QTest::keyClick(g->Mot, Qt::Key_Escape); });
            QTest::mouseClick(f.Generer, Qt::LeftButton);
            QCOMPARE(generateur.venues, 1);
        }
        QCOMPARE(f.Saisie[2]->text(), utilise);
    }
};

QTEST_MAIN(TestFrmAjoutDoc)
#include "tst_frmajoutdoc.moc"
