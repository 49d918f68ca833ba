// The icon picker end to end: opened from the main window and from the document
// dialog, driven by the keyboard, and the base read afterwards.

#include "dialogs/fenetres/FrmAjoutDoc.h"
#include "dialogs/fenetres/FrmAP.h"
#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "menus/fenetres/cMenuItems.h"
#include "menus/fenetres/modMenus.h"
#include "support/PrincipaleTest.h"
#include "ui/fenetres/BoutonImage.h"
#include "workspace/fenetres/FrmPop.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

namespace {

const QString kDocuments = QStringLiteral(
    "INSERT INTO Dossiers VALUES (1, 10, 'Banques');"
    "INSERT INTO Documents VALUES (1, 1, 10, 'Alpha', NULL, NULL, NULL, NULL, NULL, NULL, NULL, 1);");

// While the picker's menu is open: the keys, in order, to the menu itself.
void auMenu(const std::function<void(QMenu *)> &etapes) {
    QTimer::singleShot(50, [etapes] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu) return;
        etapes(menu);
        if (menu->isVisible()) menu->hide();
    });
}

void touches(QMenu *menu, int bas) {
    for (int i = 0; i < bas; ++i) QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
}

QStringList icones(const QString &ou = QStringLiteral("Titre='Alpha'")) {
    return BaseSql::sql(QStringLiteral("SELECT Icone FROM Documents WHERE ") + ou);
}

}  // namespace

class TestChoixIcone : public QObject {
    Q_OBJECT

    std::unique_ptr<PrincipaleTest> p;
    // The main window over Alpha and the rows of plus, with the row of Alpha (or its folder) selected.
    frmMain *ouvrir(const QString &plus = {}, bool dossier = false) {
        p = std::make_unique<PrincipaleTest>(kDocuments + plus);
        frmMain *f = p->f;
        f->MG->SelectLine(dossier ? f->MG->LigneDeCle(true, QStringLiteral("10")) : f->MG->LigneDeCle(false, QStringLiteral("10"), QStringLiteral("1")));
        return f;
    }

private slots:
    void init() { FrmPop::IconesModifiees = false; }
    void cleanup() { p.reset(); }

    // From the main window: Escape changes nothing; the choice shows in the row and the base.
    void depuisLaFenetrePrincipale() {
        frmMain *f = ouvrir();
        QVERIFY(p->actif);
        const int ligne = f->MG->LigneCourante;
        QVERIFY(ligne >= 2);
        auMenu([](QMenu *menu) { QTest::keyClick(menu, Qt::Key_Escape); });
        QTest::keyClick(f, Qt::Key_I, Qt::ControlModifier);  // the keyboard's way to the picker
        QCOMPARE(icones(), QStringList{"1"});

        auMenu([](QMenu *menu) { touches(menu, 3); });  // the third icon: Favoris, Num 3
        QTest::mouseClick(f->Boutons[Bouton::ModifierIcone], Qt::LeftButton);
        QCOMPARE(f->MG->GetColumnInfos(ligne, Colonne::Numero), QStringLiteral("3"));
        QCOMPARE(icones(), QStringList{"3"});
        QVERIFY(!f->Boutons[Bouton::ModifierIcone]->estEnfonce());
    }

    // An empty library: one line that says so and can't be picked; Enter changes nothing.
    void bibliothequeVide() {
        frmMain *f = ouvrir(QStringLiteral("DELETE FROM Icones;"));
        QList<bool> actifs;
        QStringList textes;
        auMenu([&](QMenu *menu) {
            for (QAction *a : menu->actions())
                if (a->isVisible()) {
                    actifs << a->isEnabled();
                    textes << a->text();
                }
            touches(menu, 1);
        });
        QTest::mouseClick(f->Boutons[Bouton::ModifierIcone], Qt::LeftButton);
        QCOMPARE(actifs, QList<bool>{false});
        QCOMPARE(textes, QStringList{FrmPop::kAucuneIcone});
        QCOMPARE(icones(), QStringList{"1"});
        QVERIFY(Messages::affiches().isEmpty());
    }

    // Names the caption language would read otherwise show as typed, with their
    // pictures, and each can be picked.
    void nomsCommeTapes() {
        frmMain *f = ouvrir(QStringLiteral(
            "UPDATE Icones SET Libelle = '' WHERE Num = 1;"
            "UPDATE Icones SET Libelle = '-Moins' WHERE Num = 2;"
            "UPDATE Icones SET Libelle = 'R&D' WHERE Num = 3;"
            "UPDATE Icones SET Libelle = 'A{B}C' WHERE Num = 4;"));
        QStringList noms;
        QList<bool> choisissables;
        auMenu([&](QMenu *menu) {
            cMenuItems *objet = modMenus::objetFenetre(f->findChild<FrmPop *>());
            for (QAction *a : menu->actions().mid(1, 4)) {
                const modMenus::TypeItemMenu *item = objet->itemAction(a, menu);
                // What the painter shows: "&&" is one ampersand, the word joiner nothing.
                noms << QString(item->Texte).replace(QStringLiteral("&&"), QStringLiteral("&")).remove(QChar(0x2060));
                choisissables << (a->isEnabled() && !(item->Etat & modMenus::kEtatSeparateur) && !objet->imageItem(*item).isNull());
            }
            touches(menu, 4);
        });
        QTest::mouseClick(f->Boutons[Bouton::ModifierIcone], Qt::LeftButton);
        QCOMPARE(noms, (QStringList{"Icône 1", "-Moins", "R&D", "A{B}C"}));
        QCOMPARE(choisissables, (QList<bool>{true, true, true, true}));
        QCOMPARE(icones(), QStringList{"4"});
    }

    // The row gone from the base meanwhile: told in French, and nothing else written.
    void documentDisparu() {
        frmMain *f = ouvrir();
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("DELETE FROM Documents;"));
        auMenu([](QMenu *menu) { touches(menu, 2); });
        QTest::mouseClick(f->Boutons[Bouton::ModifierIcone], Qt::LeftButton);
        const QStringList vus = Messages::affiches();
        QCOMPARE(vus.size(), 1);
        QVERIFY(vus.first().startsWith(QStringLiteral("Ce document n'est plus dans la base")));
        QCOMPARE(icones(QStringLiteral("1")), QStringList{});
    }

    // From the document dialog, over a library with a gap in its numbers: the preview
    // shows the chosen icon by its key, and the new document stores its Num.
    void depuisLeDialogueAvecUnTrou() {
        frmMain *f = ouvrir(QStringLiteral("DELETE FROM Icones WHERE Num = 2;"), true);
        QImage apercu;
        QString tag;
        const bool venu = p->dialogue<FrmAjoutDoc>([f] { QTest::mouseClick(f->Boutons[Bouton::NouveauDocument], Qt::LeftButton); },
                                                   [&](FrmAjoutDoc *d) {
                                                       d->Saisie[0]->setText(QStringLiteral("Nouveau"));
                                                       auMenu([](QMenu *menu) { touches(menu, 2); });  // the second item: Favoris, Num 3
                                                       QTest::keyClick(d->Saisie[0], Qt::Key_I, Qt::ControlModifier);
                                                       tag = d->Tag;
                                                       apercu = d->Icone->pixmap().toImage();
                                                       QTest::mouseClick(d->OK, Qt::LeftButton);
                                                   });
        QVERIFY(venu);
        QCOMPARE(tag, QStringLiteral("3"));
        // Nearer to the picture of key "A 3" than to the third picture of the list ("A 4").
        auto ecart = [&apercu](const QImage &image) {
            const QImage a = apercu.convertToFormat(QImage::Format_ARGB32);
            const QImage b = image.scaled(a.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_ARGB32);
            qint64 somme = 0;
            for (int y = 0; y < a.height(); ++y)
                for (int x = 0; x < a.width(); ++x) somme += qAbs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) + qAbs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y)));
            return somme;
        };
        QVERIFY(!apercu.isNull());
        QVERIFY(ecart(f->imgCONTENU.image(f->imgCONTENU.numeroDeCle(QStringLiteral("A 3")))) < ecart(f->imgCONTENU.image(3)));
        QCOMPARE(icones(QStringLiteral("Titre='Nouveau'")), QStringList{"3"});
        QVERIFY(f->MG->Tag.isEmpty());
    }

    // A changed library is read again before the menu opens; a click on the sidebar
    // shows the about box once the menu has closed.
    void bibliothequeModifieeEtBarre() {
        frmMain *f = ouvrir();
        auMenu([](QMenu *menu) { QTest::keyClick(menu, Qt::Key_Escape); });
        QTest::mouseClick(f->Boutons[Bouton::ModifierIcone], Qt::LeftButton);
        BaseSql::executer(Chemins::cheminBase(), QStringLiteral("INSERT INTO Icones SELECT 9, ico, 'Neuve' FROM Icones WHERE Num = 1;"));
        f->imgCONTENU.chargerBase();
        FrmPop::IconesModifiees = true;

        int items = 0;
        bool apropos = false;
        f->definirPreparationDialogue([&apropos](QWidget *d) {
            apropos = qobject_cast<FrmAP *>(d) != nullptr;
            QTimer::singleShot(0, d, [d] { d->close(); });
        });
        auMenu([&items](QMenu *menu) {
            for (QAction *a : menu->actions()) items += a->isVisible();
            QTest::mouseClick(menu, Qt::LeftButton, {}, QPoint(10, menu->height() / 2));
        });
        QTest::mouseClick(f->Boutons[Bouton::ModifierIcone], Qt::LeftButton);
        QCOMPARE(items, 7);
        // The records of the items read again take the places of the old ones.
        QCOMPARE(modMenus::objetFenetre(f->findChild<FrmPop *>())->nombreItems(), 1 + 7);
        QVERIFY(!FrmPop::IconesModifiees);
        QTRY_VERIFY(apropos);
        QCOMPARE(icones(), QStringList{"1"});
        f->definirPreparationDialogue(nullptr);
    }
};

QTEST_MAIN(TestChoixIcone)
#include "tst_choixicone.moc"
