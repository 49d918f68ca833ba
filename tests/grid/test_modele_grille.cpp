#include "grid/Colonnes.h"
#include "grid/GrilleExemple.h"
#include "grid/ModeleGrille.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"

#include <gtest/gtest.h>

using grille::Source;

namespace {

class GrilleEssai : public ModeleGrille {
public:
    int clics = 0;

protected:
    void leverClick() override { ++clics; }
};

const grille::Cellule &cel(const ModeleGrille &g, int ligne, int colonne) { return g.cellules().cellule(ligne, colonne); }
int hauteur(const ModeleGrille &g, int ligne) { return g.cellules().RowHeight(ligne); }

constexpr int kSelection = 14737632;

}  // namespace

TEST(ModeleGrille, GenresDeLignesEtOrdreDesDocuments) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"Banque", 3}, {"Vide", 0}, {"Web", 2}});

    EXPECT_EQ(g.NbLignes, 10);
    QStringList lignes;
    for (int r = 0; r < 10; ++r) lignes << (g.IsLigneParent(r) ? "P" : "") + g.texte(r, Colonne::Titre).trimmed();
    EXPECT_EQ(lignes.mid(2), QStringList({"PBanque", "Banque-2", "Banque-1", "Banque-0", "PVide", "PWeb", "Web-1", "Web-0"}));
    EXPECT_FALSE(g.IsLigneParent(0) || g.IsLigneParent(1));

    // A folder: its name as far as column NbColonnes + 2, then its marks.
    EXPECT_EQ(g.GetColumnInfos(7, Colonne::DateFin), " Web");
    EXPECT_EQ(g.GetParentEtat(7), "B");
    EXPECT_EQ(g.GetColumnInfos(7, Colonne::Numero), "2");
    EXPECT_EQ(g.GetColumnInfos(7, Colonne::NumDossier), "12");

    // A document: the marks go over the extra entries of the row image.
    QStringList colonnes;
    for (int c = 11; c <= 18; ++c) colonnes << g.GetColumnInfos(8, c);
    EXPECT_EQ(colonnes, QStringList({"F", "2", "2", "0", "1", "301", "12", ""}));
    EXPECT_EQ(cel(g, 8, 1).image, 2);
}

TEST(ModeleGrille, AddFilsDecaleLesDossiersSuivants) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 1}, {"B", 2}, {"C", 0}});
    ASSERT_EQ(g.ligneParent(2), 7);
    int parent = 0;
    g.AddFils(GrilleExemple::infos("nouveau", "9", "10"), parent, 1, 0, "1", "9", "10");
    EXPECT_EQ(parent, 1);  // the caller's variable moved on
    EXPECT_EQ(g.texte(3, Colonne::Titre), "nouveau");
    EXPECT_EQ(g.ligneParent(0), 2);
    EXPECT_EQ(g.ligneParent(1), 5);
    EXPECT_EQ(g.ligneParent(2), 8);
    g.SelectLine(8);  // C is where the table says
    EXPECT_EQ(g.GetParentEtat(8), "A");

    int inconnu = 7;  // a folder number never given adds nothing
    g.AddFils(GrilleExemple::infos("perdu", "1", "1"), inconnu, 1, 0, "1", "1", "1");
    EXPECT_EQ(inconnu, 7);
    EXPECT_EQ(g.cellules().Rows(), 9);
}

TEST(ModeleGrille, FermerJusquAuDossierSuivantPuisRouvrir) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 3}, {"B", 2}});  // A 2 (3..5), B 6 (7, 8)

    g.SelectLine(2);
    EXPECT_EQ(g.GetParentEtat(2), "A");
    for (int r = 3; r <= 5; ++r) {
        EXPECT_EQ(hauteur(g, r), 0);
        // The icon parked as its number, the text in the background colour, the keys still there.
        EXPECT_EQ(g.texte(r, 1) + g.texte(r, 2), g.texte(r, Colonne::Numero) + g.texte(r, Colonne::Numero));
        EXPECT_FALSE(g.texte(r, Colonne::NumDocument).isEmpty());
    }
    EXPECT_EQ(hauteur(g, 6), 370);  // the next folder stays

    g.SelectLine(2);
    EXPECT_EQ(g.GetParentEtat(2), "B");
    for (int r = 3; r <= 5; ++r) {
        EXPECT_EQ(hauteur(g, r), 240);
        EXPECT_EQ(cel(g, r, 1).image, g.texte(r, Colonne::Numero).toInt());
    }

    // The last folder's children reach the last row.
    g.SelectLine(6);
    EXPECT_EQ(hauteur(g, 8), 0);
    EXPECT_EQ(hauteur(g, 5), 240);
    EXPECT_EQ(g.clics, 3);
}

TEST(ModeleGrille, ClicsSurDocumentsTitreEtSection) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 2}, {"B", 2}});  // A 2 (3, 4), B 5 (6, 7)
    g.SelectLine(7);
    // Title and section rows are marked; the bold mark stays.
    for (int ligne : {0, 1}) {
        g.SelectLine(ligne);
        EXPECT_EQ(cel(g, ligne, 3).couleurFond, kSelection);
        EXPECT_EQ(g.ligneGras(), 5);
    }
    EXPECT_EQ(g.clics, 3);

    // Black as selection colour is drawn as 1, and given back as "no colour".
    Reglages::ecrire(Reglages::Cle::CouleurSelection, 0);
    g.ChargerParamCouleurs();
    g.SelectLine(3);
    EXPECT_EQ(cel(g, 3, 4).couleurFond, 1);
    EXPECT_EQ(g.couleurSelection(), 1);
    g.SelectLine(6);
    EXPECT_EQ(cel(g, 3, 4).couleurFond, 0);
}

TEST(ModeleGrille, CellulesHorsDeLaGrilleEtHasLigneFils) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 2}, {"Vide", 0}, {"C", 1}, {"Dernier", 0}});  // A 2, Vide 5, C 6, Dernier 8
    const int rows = g.cellules().Rows();
    EXPECT_EQ(g.GetColumnInfos(2, 20) + g.GetColumnInfos(-1, Colonne::Titre) + g.GetParentEtat(rows), "");
    EXPECT_FALSE(g.SetColumnInfos(rows, Colonne::Titre, "x"));
    g.SelectLine(rows);
    g.DelFils(rows);
    EXPECT_EQ(g.clics, 0);
    EXPECT_TRUE(g.SetColumnInfos(3, Colonne::Login, "neuf"));  // and the grid goes on

    // Truthful whatever row the grid last looked at, and for a closed folder too.
    ASSERT_TRUE(g.IsLigneParent(2));
    EXPECT_TRUE(g.HasLigneFils(2));
    g.SelectLine(2);
    EXPECT_TRUE(g.HasLigneFils(2));
    EXPECT_FALSE(g.HasLigneFils(5));
    EXPECT_TRUE(g.HasLigneFils(6));
    EXPECT_FALSE(g.HasLigneFils(8));
}

TEST(ModeleGrille, PartsDesColonnesCachees) {
    EnvironnementTest env(false);
    GrilleEssai g;
    auto largeurs = [&g] {
        g.Redimensionner(1000);  // 15000 twips
        QList<int> l;
        for (int c = 0; c <= 10; ++c) l << g.cellules().ColWidth(c);
        return l;
    };
    // Shares 0.2 and 0.1 hidden: each of the six others gets 0.05 more.
    Reglages::ecrireColonneVisible(0, false);
    Reglages::ecrireColonneVisible(4, false);
    EXPECT_EQ(largeurs(), QList<int>({270, 270, 50, 0, 2183, 2183, 3683, 0, 2183, 2183, 2183}));
    // All hidden: widths 0, and a repaint that goes through.
    for (int i = 0; i < 8; ++i) Reglages::ecrireColonneVisible(i, false);
    EXPECT_EQ(largeurs(), QList<int>({270, 270, 50, 0, 0, 0, 0, 0, 0, 0, 0}));
    GrilleExemple::charger(g, {{"A", 1}});
    g.ReDessiner();
    EXPECT_TRUE(g.Redraw());
}

TEST(ModeleGrille, ReDessinerReprendCouleursEtIcones) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 2}, {"B", 1}});  // A 2 (3, 4), B 5 (6)
    g.SelectLine(5);                                  // B closed: its document waits at height 0
    Reglages::ecrire(Reglages::Cle::CouleurFils, 44);

    g.SetColumnInfos(3, Colonne::Numero, 5);
    g.SetColumnInfos(4, Colonne::Numero, 0);
    g.ReDessiner();
    EXPECT_EQ(cel(g, 6, 7).couleurTexte, 44);         // a closed folder's documents take the colour too
    EXPECT_EQ(cel(g, 3, 1).image, 5);                 // the new icon shows
    EXPECT_EQ(cel(g, 4, 1).source, Source::Aucune);   // 0: no icon, no failure
    EXPECT_EQ(cel(g, 6, 1).source, Source::Contenu);  // back inside the closed folder
    EXPECT_EQ(hauteur(g, 6), 0);
}

TEST(ModeleGrille, ClearOublieLaSelection) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 5}, {"B", 5}});
    g.SelectLine(12);  // a document of B, folder at 8
    g.Clear();
    EXPECT_EQ(g.NbLignes + g.nbParents() + g.cellules().Rows(), 0);
    EXPECT_EQ(g.LigneCourante + g.ligneMarquee() + g.ligneGras(), 0);
    // The same document is found again by its keys wherever its row went.
    GrilleExemple::charger(g, {{"C", 1}, {"A", 5}, {"B", 5}});
    EXPECT_EQ(g.LigneDeCle(false, QStringLiteral("12"), QStringLiteral("301")), 14);
    EXPECT_EQ(g.LigneDeCle(true, QStringLiteral("12")), 10);
    EXPECT_EQ(g.LigneDeCle(false, QStringLiteral("12"), QStringLiteral("999")), -1);
}

TEST(ModeleGrille, LeClavierPasseLesLignesCacheesSansBasculer) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 2}, {"B", 2}, {"C", 0}});  // folders at 2, 5 and 8
    g.SelectLine(2);                                            // closes A
    EXPECT_EQ(g.LigneVisibleVoisine(2, 1), 5);
    EXPECT_EQ(g.LigneVisibleVoisine(5, -1), 2);
    EXPECT_EQ(g.LigneVisibleVoisine(2, -1), -1);  // never the headings
    EXPECT_EQ(g.PremiereLigneVisible(), 2);
    EXPECT_EQ(g.DerniereLigneVisible(), 8);
    // Moving onto a folder selects it, in bold, but leaves it as it was.
    const int clics = g.clics;
    g.AllerALigne(5);
    EXPECT_EQ(g.clics, clics + 1);
    EXPECT_EQ(g.ligneGras(), 5);
    EXPECT_EQ(g.GetParentEtat(5), QStringLiteral("B"));
    EXPECT_EQ(g.GetParentEtat(2), QStringLiteral("A"));
    // Onto a document: marked, its folder in bold.
    g.AllerALigne(7);
    EXPECT_EQ(g.ligneMarquee(), 7);
    EXPECT_EQ(g.ligneGras(), 5);
    // Back onto a folder: no document stays marked beside it.
    g.AllerALigne(8);
    EXPECT_EQ(g.ligneMarquee(), 0);
    EXPECT_EQ(cel(g, 7, 5).couleurFond, 0);
}
