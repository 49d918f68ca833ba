// After a write, the grid brought up to date in place must be, cell by cell, what
// loading the whole tree again gives.

#include "grid/Colonnes.h"
#include "grid/ModeleGrille.h"
#include "store/Cryptage.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"
#include "workspace/MiseAJourGrille.h"

#include <gtest/gtest.h>

namespace {

// Everything a row shows or keeps: texts, pictures, bold, colours of what has text,
// height, merge; then the counts.
QStringList etat(const ModeleGrille &m) {
    const grille::Grille &g = m.cellules();
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
    lignes << QStringLiteral("lignes %1 dossiers %2").arg(m.NbLignes).arg(m.nbParents());
    return lignes;
}

void charger(ModeleGrille &g) {
    MiseAJourGrille::entetes(g);
    MiseAJourGrille::chargerArbre(g, 1);
}

class MiseAJour : public ::testing::Test {
protected:
    void SetUp() override {
        QString sql = QStringLiteral(
            "INSERT INTO Dossiers VALUES (1, 10, 'Banques'), (1, 11, 'Courrier'), (1, 12, 'Zèbre'), (1, 13, 'école');");
        int num = 1;
        for (const auto &[dossier, titre] : std::initializer_list<std::pair<int, const char *>>{
                 {10, "Compte"}, {10, "livret"}, {10, "Compte"}, {12, "Abri"}, {12, "zoo"}, {13, "Élan"}, {13, "été"}}) {
            sql += QStringLiteral("INSERT INTO Documents (NumCompte, Num, NumDossier, Titre, Icone) VALUES (1, %1, %2, '%3', %4);")
                       .arg(num)
                       .arg(dossier)
                       .arg(CrypterChamp(QString::fromUtf8(titre)))
                       .arg(num % 3);
            ++num;
        }
        ASSERT_TRUE(BaseSql::executer(Chemins::cheminBase(), sql));
        charger(g);
    }
    qint64 ecrire(const QString &sql) {
        EXPECT_TRUE(BaseSql::executer(Chemins::cheminBase(), sql));
        return BaseSql::lignes(Chemins::cheminBase(), QStringLiteral("SELECT max(rowid) FROM ") + sql.section(u' ', 2, 2)).value(0).toLongLong();
    }
    qint64 rowid(const QString &table, const QString &condition) {
        return BaseSql::lignes(Chemins::cheminBase(), QStringLiteral("SELECT rowid FROM %1 WHERE %2").arg(table, condition)).value(0).toLongLong();
    }
    int ligne(const QString &texte) {
        for (int i = 2; i < g.cellules().Rows(); ++i)
            if (g.vue(i, Colonne::Titre).trimmed() == texte) return i;
        return -1;
    }
    // The grid as the window leaves it after a change in place, then as a load leaves it.
    void commeCharge() {
        g.commeCharge();
        ModeleGrille relu;
        charger(relu);
        EXPECT_EQ(etat(g), etat(relu));
    }

    EnvironnementTest env;
    ModeleGrille g;
};

TEST_F(MiseAJour, ChaqueEcritureLaisseLaGrilleCommeUnChargement) {
    // A document whose title is already there, a folder closed elsewhere: the newest first among equal titles.
    g.SelectLine(ligne(QStringLiteral("Zèbre")));
    const QString compte = CrypterChamp(QStringLiteral("Compte"));
    ASSERT_TRUE(MiseAJourGrille::placerDocument(
        g, 1, ecrire(QStringLiteral("INSERT INTO Documents (NumCompte, Num, NumDossier, Titre) VALUES (1, 8, 10, '%1')").arg(compte))));
    EXPECT_EQ(g.vue(ligne(QStringLiteral("Compte")), Colonne::NumDocument), QStringLiteral("8"));
    commeCharge();
    // Into a closed folder, by the title's French order.
    g.SelectLine(ligne(QStringLiteral("école")));
    ASSERT_TRUE(MiseAJourGrille::placerDocument(
        g, 1, ecrire(QStringLiteral("INSERT INTO Documents (NumCompte, Num, NumDossier, Titre) VALUES (1, 9, 13, '%1')").arg(CrypterChamp(QStringLiteral("Eau"))))));
    commeCharge();
    // Renamed: the empty folder moves to the top, the full one to the end, with its documents.
    ASSERT_TRUE(BaseSql::executer(Chemins::cheminBase(), QStringLiteral("UPDATE Dossiers SET Nom='Archives' WHERE Num=11")));
    ASSERT_TRUE(MiseAJourGrille::placerDossier(g, 1, rowid(QStringLiteral("Dossiers"), QStringLiteral("Num=11"))));
    commeCharge();
    ASSERT_TRUE(BaseSql::executer(Chemins::cheminBase(), QStringLiteral("UPDATE Dossiers SET Nom='zz Banques' WHERE Num=10")));
    ASSERT_TRUE(MiseAJourGrille::placerDossier(g, 1, rowid(QStringLiteral("Dossiers"), QStringLiteral("Num=10"))));
    EXPECT_EQ(g.vue(g.ligneParent(g.nbParents() - 1), Colonne::Nom), QStringLiteral(" zz Banques"));
    commeCharge();
    // A new folder among the others, then deleted; a document deleted, as the window does.
    ASSERT_TRUE(MiseAJourGrille::placerDossier(g, 1, ecrire(QStringLiteral("INSERT INTO Dossiers VALUES (1, 14, 'Milieu')"))));
    commeCharge();
    const int milieu = g.LigneDeCle(true, QStringLiteral("14"), QString());
    ASSERT_GE(milieu, 2);
    ASSERT_TRUE(BaseSql::executer(Chemins::cheminBase(), QStringLiteral("DELETE FROM Dossiers WHERE Num=14")));
    g.oublierMarques();
    g.DelParent(milieu);
    commeCharge();
    const int zoo = ligne(QStringLiteral("zoo"));
    ASSERT_TRUE(BaseSql::executer(Chemins::cheminBase(), QStringLiteral("DELETE FROM Documents WHERE Num=5")));
    g.oublierMarques();
    g.DelFils(zoo);
    EXPECT_EQ(ligne(QStringLiteral("zoo")), -1);
    commeCharge();
}

TEST_F(MiseAJour, CeQuUnChargementSeulSaitPlacerLaisseLaGrilleIntacte) {
    const QStringList avant = etat(g);
    // No such row; a document of a folder the grid lacks; a folder sharing another's
    // number; a new folder that finds documents waiting for its number.
    EXPECT_FALSE(MiseAJourGrille::placerDocument(g, 1, 999));
    EXPECT_FALSE(MiseAJourGrille::placerDocument(
        g, 1, ecrire(QStringLiteral("INSERT INTO Documents (NumCompte, Num, NumDossier, Titre) VALUES (1, 20, 77, 'x')"))));
    EXPECT_FALSE(MiseAJourGrille::placerDossier(g, 1, ecrire(QStringLiteral("INSERT INTO Dossiers VALUES (1, 11, 'Double')"))));
    EXPECT_FALSE(MiseAJourGrille::placerDossier(g, 1, ecrire(QStringLiteral("INSERT INTO Dossiers VALUES (1, 77, 'Attendu')"))));
    EXPECT_EQ(etat(g), avant);
}

}  // namespace
