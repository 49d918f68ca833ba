// The grid widget as its owner sees it: mouse clicks, the events, the painting.
#include "grid/Colonnes.h"
#include "grid/GrilleExemple.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "support/EnvironnementTest.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

class TstMyCoolGrid : public QObject {
    Q_OBJECT

private:
    // A point of the row, to the right of the pictures, in the viewport.
    static QPoint dansLaLigne(MyCoolGrid &g, int ligne) {
        const int haut = g.cellules().hautPixels(ligne) - g.verticalScrollBar()->value();
        return {60, haut + g.cellules().hauteurPixels(ligne) / 2};
    }
    // The colour of column c of the row, at the right of the cell where no text lies.
    static QColor fondCellule(MyCoolGrid &g, int ligne, int c) {
        int x = -4;
        for (int i = 0; i <= c; ++i) x += g.cellules().largeurPixels(i);
        return g.viewport()->grab().toImage().pixelColor(x, dansLaLigne(g, ligne).y());
    }

private slots:
    void clicsSurUnDossierEtUnDocument() {
        EnvironnementTest env;
        MyCoolGrid g;
        QCOMPARE(g.imagesContenu().nombre(), 6);          // the library is read when the grid is made
        GrilleExemple::charger(g, {{"A", 3}, {"B", 2}});  // A 2 (3..5), B 6 (7, 8)
        g.resize(700, 300);
        g.show();
        QVERIFY(QTest::qWaitForWindowExposed(&g));
        QSignalSpy clics(&g, &MyCoolGrid::Click);
        QSignalSpy doubles(&g, &MyCoolGrid::DblClick);

        QTest::mouseClick(g.viewport(), Qt::LeftButton, {}, dansLaLigne(g, 2));
        QCOMPARE(clics.count(), 1);
        QCOMPARE(g.LigneCourante, 2);
        QCOMPARE(g.GetParentEtat(2), QStringLiteral("A"));
        QCOMPARE(g.texteSelection(CleGrille::NumDossier), QStringLiteral("10"));
        QCOMPARE(g.cellules().ligneAuPixel(dansLaLigne(g, 2).y() + 25), 6);  // B right below A

        QTest::mouseClick(g.viewport(), Qt::LeftButton, {}, dansLaLigne(g, 8));
        QCOMPARE(clics.count(), 2);
        QCOMPARE(g.LigneCourante, 8);
        QCOMPARE(g.texteSelection(CleGrille::NumDocument), QStringLiteral("200"));
        QCOMPARE(g.ligneGras(), 6);
        QTRY_COMPARE(fondCellule(g, 8, 7), QColor(0xe0, 0xe0, 0xe0));
        QCOMPARE(fondCellule(g, 8, 0), QColor(Qt::white));  // the icon area takes no selection
        QCOMPARE(fondCellule(g, 7, 7), QColor(Qt::white));

        // A text its column cuts shows whole in the tool tip; a whole one has none.
        const QString longue = QStringLiteral("une adresse bien trop longue pour sa colonne, ") + QString(40, u'x');
        g.MajColumnInfos(7, 4, longue);
        auto bulle = [&g](int ligne, int colonne) {
            int x = 4;
            for (int i = 0; i < colonne; ++i) x += g.cellules().largeurPixels(i);
            const QPoint point(x, dansLaLigne(g, ligne).y());
            QHelpEvent aide(QEvent::ToolTip, point, g.viewport()->mapToGlobal(point));
            QCoreApplication::sendEvent(g.viewport(), &aide);
            return QToolTip::isVisible() ? QToolTip::text() : QString();
        };
        QCOMPARE(bulle(7, 3), QString());
        QCOMPARE(bulle(7, 4), longue);

        QTest::mouseDClick(g.viewport(), Qt::LeftButton, {}, dansLaLigne(g, 8));
        QCOMPARE(doubles.count(), 1);
        const auto avant = clics.count();
        QTest::mouseClick(g.viewport(), Qt::LeftButton, {}, QPoint(60, g.viewport()->height() - 3));
        QCOMPARE(clics.count(), avant);  // space below the last row is no row
        QCOMPARE(g.LigneCourante, 8);
    }

    void peintureSansEchecEtDefilement() {
        EnvironnementTest env;
        MyCoolGrid g;
        GrilleExemple::charger(g, {{"A", 40}, {"B", 2}});
        g.SetColumnInfos(4, Colonne::Numero, 99);  // an icon the library lacks
        for (int i = 0; i < 8; ++i) Reglages::ecrireColonneVisible(i, false);
        g.resize(400, 200);
        g.show();
        QVERIFY(QTest::qWaitForWindowExposed(&g));
        g.ReDessiner();
        QTRY_VERIFY(g.verticalScrollBar()->maximum() > 0);
        QVERIFY(!g.viewport()->grab().isNull());

        // A row chosen by the search is scrolled into view.
        g.SelectLine(g.ligneParent(1) + 1);
        int largeur = 0, haut = 0, hauteur = 0;
        g.GetColumnInfos(g.LigneCourante, Colonne::Titre, largeur, haut, hauteur);
        QVERIFY(haut >= 0 && haut + hauteur <= g.height());
        QVERIFY(g.GetCellPicture(99).isNull());
    }

    // A library with gaps in its numbers (a base written elsewhere): a document's icon
    // is the icon of that Num, as the picker offered it.
    void iconeParSonNumero() {
        EnvironnementTest env;
        MyCoolGrid g;
        ListeImages liste;
        for (const auto &[num, couleur] : {std::pair{1, QColor(Qt::red)}, {2, QColor(Qt::green)}, {5, QColor(Qt::blue)}}) {
            QImage image(18, 18, QImage::Format_ARGB32);
            image.fill(couleur);
            liste.ajouter(QStringLiteral("A %1").arg(num), image);
        }
        g.ReChargerIcones(liste);
        GrilleExemple::charger(g, {{"A", 1}});
        g.SetColumnInfos(3, Colonne::Numero, 5);
        g.ReDessiner();
        const QImage vue = g.GetCellPicture(3).toImage();
        QVERIFY(!vue.isNull());
        QCOMPARE(vue.pixelColor(vue.width() / 2, vue.height() / 2), QColor(Qt::blue));
        g.SetColumnInfos(3, Colonne::Numero, 3);  // a Num the library lacks
        g.ReDessiner();
        QVERIFY(g.GetCellPicture(3).isNull());
    }
};

QTEST_MAIN(TstMyCoolGrid)
#include "tst_mycoolgrid.moc"
