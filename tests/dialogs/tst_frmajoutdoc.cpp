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
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTableView>
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
    // Clicks the day 15 of the month the calendar shows: the only cell that reads "15".
    QDate cliquerLe15(QCalendarWidget *c) {
        auto *vue = c->findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"));
        if (!vue) return {};
        const QAbstractItemModel *m = vue->model();
        for (int r = 0; r < m->rowCount(); ++r)
            for (int col = 0; col < m->columnCount(); ++col)
                if (m->index(r, col).data().toString() == QStringLiteral("15")) {
                    QTest::mouseClick(vue->viewport(), Qt::LeftButton, {}, vue->visualRect(m->index(r, col)).center());
                    return QDate(c->yearShown(), c->monthShown(), 15);
                }
        return {};
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
        QVERIFY(f.PanCal->isHidden());
        QTest::mouseClick(f.Saisie[6], Qt::LeftButton);
        // Just above the box it serves, from the left of its caption; an empty box opens on today.
        QVERIFY(f.PanCal->isVisible());
        QCOMPARE(f.PanCal->geometry().bottom() + 1, f.Saisie[6]->y());
        QCOMPARE(f.PanCal->x(), f.Libelle[6]->x());
        QCOMPARE(f.Calendrier->selectedDate(), QDate::currentDate());
        const QDate jour = cliquerLe15(f.Calendrier);
        QVERIFY(jour.isValid());
        QCOMPARE(f.Saisie[6]->text(), jour.toString(QStringLiteral("dd/MM/yyyy")));
        QVERIFY(f.PanCal->isHidden());
        QCOMPARE(QApplication::focusWidget(), f.Saisie[6]);

        // A date in the box opens the calendar on it, and the click writes that box only;
        // text that is no date opens it on today.
        f.Saisie[5]->setText(QStringLiteral("03/02/2031"));
        f.Saisie[5]->setFocus();
        QCOMPARE(f.Calendrier->selectedDate(), QDate(2031, 2, 3));
        QCOMPARE(cliquerLe15(f.Calendrier), QDate(2031, 2, 15));
        QCOMPARE(f.Saisie[5]->text(), QStringLiteral("15/02/2031"));
        QCOMPARE(f.Saisie[6]->text(), jour.toString(QStringLiteral("dd/MM/yyyy")));
        taper(f.Saisie[6], QStringLiteral("bientôt"));
        f.Saisie[5]->setFocus();
        f.Saisie[6]->setFocus();
        QCOMPARE(f.Calendrier->selectedDate(), QDate::currentDate());

        // Another box, the background, a caption or MIcone put it away; a click in the
        // date box that kept the focus brings it back.
        f.Saisie[1]->setFocus();
        QVERIFY(f.PanCal->isHidden());
        for (QWidget *w : {static_cast<QWidget *>(f.FondBleu), static_cast<QWidget *>(f.Libelle[2]), static_cast<QWidget *>(f.MIcone)}) {
            QTest::mouseClick(f.Saisie[5], Qt::LeftButton);
            QVERIFY(f.PanCal->isVisible());
            QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(2, 2));
            QVERIFY2(f.PanCal->isHidden(), qPrintable(w->objectName()));
        }
        QVERIFY(!f.MIcone->estEnfonce());
    }

    void fermerOuEchouerNeRienPerd() {
        const QString question = QStringLiteral("Enregistrer les modifications ?");
        {
            FrmAjoutDoc f;
            // executer() holds the caller until the dialog is closed. Untouched, it closes at once.
            QTimer::singleShot(0, &f, [&] { QTest::keyClick(&f, Qt::Key_Escape); });
            f.executer();
            QVERIFY(!f.isVisible());
            QCOMPARE(Messages::affiches(), QStringList());
        }
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
        // Its button sits on the password's row, beside the box and clear of its eye.
        QCOMPARE(f.Generer->y(), f.Saisie[2]->y());
        QVERIFY(f.Generer->x() > f.Saisie[2]->geometry().right());
        QString utilise;
        {
            SurModale<FrmGenerateur> generateur([&](FrmGenerateur *g) {
                // 20 characters of the four classes by default; the strength follows the choices.
                QCOMPARE(g->Mot->text().size(), 20);
                QCOMPARE(g->Mot->echoMode(), QLineEdit::Password);
                QCOMPARE(g->Force->value(), 128);
                g->LongueurNombre->setValue(8);
                for (int i : {1, 3}) QTest::mouseClick(g->Classes[i], Qt::LeftButton, {}, QPoint(6, g->Classes[i]->height() / 2));
                QTest::mouseClick(g->SansSosies, Qt::LeftButton, {}, QPoint(6, g->SansSosies->height() / 2));
                QCOMPARE(g->Mot->text().size(), 8);
                QCOMPARE(g->Entropie->text(), QStringLiteral("Entropie : %1 bits, très faible").arg(int(Generateur::entropie(g->options()))));
                QVERIFY(g->Force->value() < 45);
                // No class, no password to use.
                for (int i : {0, 2}) g->Classes[i]->setChecked(false);
                QVERIFY(g->Mot->text().isEmpty());
                QVERIFY(!g->Utiliser->isEnabled());
                g->Classes[2]->setChecked(true);
                QTest::mouseClick(g->Autre, Qt::LeftButton);
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
        QVERIFY(!f.Generer->estEnfonce());
    }
};

QTEST_MAIN(TestFrmAjoutDoc)
#include "tst_frmajoutdoc.moc"
