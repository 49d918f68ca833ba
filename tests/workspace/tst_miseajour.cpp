// After the window's own writes, the grid is brought up to date in place: it must be,
// cell by cell, what reading the whole tree again gives.

#include "dialogs/fenetres/FrmAjoutDoc.h"
#include "dialogs/fenetres/FrmAjoutDossier.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Cryptage.h"
#include "support/PrincipaleTest.h"
#include "ui/fenetres/BoutonImage.h"

#include <QLineEdit>
#include <QTest>
#include <QTimer>

class TestMiseAJour : public QObject {
    Q_OBJECT

    std::unique_ptr<PrincipaleTest> t;
    frmMain *f = nullptr;
    int rechargements = 0;

    // Everything a row shows or keeps: texts, pictures, bold, colours of what has
    // text, height, merge; then the marks and the counts.
    QStringList etat() {
        const grille::Grille &g = f->MG->cellules();
        QStringList lignes;
        for (int r = 0; r < g.Rows(); ++r) {
            QString l = QStringLiteral("%1/%2:").arg(g.RowHeight(r)).arg(g.MergeRow(r));
            for (int c = 0; c < grille::kColonnes; ++c) {
                const grille::Cellule &cel = g.cellule(r, c);
                const QStringView texte = g.texte(r, c);
                l += QStringLiteral("|%1 %2%3 %4 %5").arg(texte).arg(int(cel.source)).arg(cel.image).arg(cel.gras).arg(cel.couleurFond);
                if (!texte.isEmpty()) l += QStringLiteral(" c%1").arg(cel.couleurTexte);
            }
            lignes << l;
        }
        lignes << QStringLiteral("lignes %1 dossiers %2/%3 courante %4 marquee %5 gras %6 bande %7")
                      .arg(f->MG->NbLignes).arg(f->MG->nbParents()).arg(f->nombreDossiers()).arg(f->MG->LigneCourante)
                      .arg(f->MG->ligneMarquee()).arg(f->MG->ligneGras()).arg(f->InfoEntete);
        return lignes;
    }
    void commeRecharge() {
        // Brought up to date in place, not by a reload of its own.
        QCOMPARE(f->rechargementsComplets(), rechargements);
        const QStringList enPlace = etat();
        f->rechargerGrille();
        rechargements = f->rechargementsComplets();
        const QStringList relu = etat();
        QCOMPARE(enPlace.size(), relu.size());
        for (int i = 0; i < relu.size(); ++i) QCOMPARE(enPlace[i], relu[i]);
    }
    int ligne(const QString &texte) {
        for (int i = 2; i < f->MG->cellules().Rows(); ++i)
            if (f->MG->vue(i, 3).trimmed() == texte) return i;
        return -1;
    }
    // The row chosen as a click does; a folder clicked again closes.
    void choisir(const QString &texte) { f->MG->SelectLine(ligne(texte)); }
    void commande(int index) { QTest::mouseClick(f->Boutons[index], Qt::LeftButton); }
    void nouveauDocument(const QString &titre) {
        t->dialogue<FrmAjoutDoc>([this] { commande(11); }, [&titre](FrmAjoutDoc *d) {
            d->Saisie[0]->setText(titre);
            QTest::keyClick(d->Saisie[0], Qt::Key_Return);
        });
    }
    void nommerDossier(int bouton, const QString &nom) {
        t->dialogue<FrmAjoutDossier>([this, bouton] { commande(bouton); }, [&nom](FrmAjoutDossier *d) {
            d->Saisie->setText(nom);
            QTest::keyClick(d->Saisie, Qt::Key_Return);
        });
    }

private slots:
    void init() {
        QString sql = QStringLiteral(
            "INSERT INTO Dossiers VALUES (1, 10, 'Banques'), (1, 11, 'Courrier'), (1, 12, 'Zèbre'), (1, 13, 'école');");
        int num = 1;
        for (const auto &[dossier, titre] : std::initializer_list<std::pair<int, const char *>>{
                 {10, "Compte"}, {10, "livret"}, {10, "Compte"}, {12, "Abri"}, {12, "zoo"}, {13, "Élan"}, {13, "été"}}) {
            sql += QStringLiteral("INSERT INTO Documents (NumCompte, Num, NumDossier, Titre, Icone) VALUES (1, %1, %2, '%3', %4);")
                       .arg(num).arg(dossier).arg(CrypterChamp(QString::fromUtf8(titre))).arg(num % 3);
            ++num;
        }
        t = std::make_unique<PrincipaleTest>(sql);
        f = t->f;
        rechargements = f->rechargementsComplets();
        QVERIFY(t->actif);
    }
    void cleanup() { t.reset(); }

    void chaqueEcritureLaisseLaGrilleCommeUnRechargement() {
        // A document whose title is already there, into a folder, another folder closed.
        choisir(QStringLiteral("Zèbre"));
        choisir(QStringLiteral("livret"));
        nouveauDocument(QStringLiteral("Compte"));
        // The newest first among equal titles.
        QCOMPARE(f->MG->vue(ligne(QStringLiteral("Compte")), 16),
                 BaseSql::sql(QStringLiteral("SELECT max(Num) FROM Documents")).value(0));
        commeRecharge();
        // Into a closed folder, by the title's French order.
        choisir(QStringLiteral("école"));
        choisir(QStringLiteral("Élan"));
        nouveauDocument(QStringLiteral("Eau"));
        commeRecharge();
        // Renamed: the empty folder moves to the top, the full one to the end, with its documents.
        choisir(QStringLiteral("Courrier"));
        nommerDossier(14, QStringLiteral("Archives"));
        commeRecharge();
        choisir(QStringLiteral("Banques"));
        nommerDossier(14, QStringLiteral("zz Banques"));
        QCOMPARE(f->MG->vue(f->MG->ligneParent(f->MG->nbParents() - 1), 2), QStringLiteral(" zz Banques"));
        commeRecharge();
        // A new folder among the others, then deleted; a document deleted.
        nommerDossier(10, QStringLiteral("Milieu"));
        commeRecharge();
        choisir(QStringLiteral("Milieu"));
        Messages::prevoirReponses({true, true});
        commande(12);
        QCOMPARE(ligne(QStringLiteral("Milieu")), -1);
        commeRecharge();
        choisir(QStringLiteral("zoo"));
        commande(13);
        QCOMPARE(ligne(QStringLiteral("zoo")), -1);
        commeRecharge();
        QCOMPARE(Messages::affiches().size(), 2);  // the two questions, nothing else
    }
};

QTEST_MAIN(TestMiseAJour)
#include "tst_miseajour.moc"
