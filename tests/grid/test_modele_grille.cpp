#include "grid/Colonnes.h"
#include "grid/GrilleExemple.h"
#include "grid/ModeleGrille.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"

#include <QFile>
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

    // The section went in first and the title above it.
    EXPECT_EQ(g.GetColumnInfos(0, 19), GrilleExemple::kTitre + "  ");
    EXPECT_EQ(g.GetColumnInfos(1, Colonne::Titre), "Titre");
    EXPECT_EQ(g.GetColumnInfos(1, Colonne::Remarques), "Remarques");
    EXPECT_EQ(g.NbLignes, 10);
    QStringList lignes;
    for (int r = 0; r < 10; ++r) lignes << (g.IsLigneParent(r) ? "P" : "") + g.texte(r, Colonne::Titre).trimmed();
    EXPECT_EQ(lignes.mid(2), QStringList({"PBanque", "Banque-2", "Banque-1", "Banque-0", "PVide", "PWeb", "Web-1", "Web-0"}));
    EXPECT_FALSE(g.IsLigneParent(0) || g.IsLigneParent(1));

    // A folder: its name as far as column NbColonnes + 2, then its marks.
    EXPECT_EQ(g.GetColumnInfos(7, Colonne::DateFin), " Web");
    EXPECT_EQ(g.GetColumnInfos(7, Colonne::Remarques), "");
    EXPECT_EQ(g.GetParentEtat(7), "B");
    EXPECT_EQ(g.GetColumnInfos(7, Colonne::Numero), "2");
    EXPECT_EQ(g.GetColumnInfos(7, Colonne::NumDossier), "12");
    EXPECT_EQ(cel(g, 7, 0).image, 5);

    // A document: the marks go over the extra entries of the row image.
    QStringList colonnes;
    for (int c = 11; c <= 18; ++c) colonnes << g.GetColumnInfos(8, c);
    EXPECT_EQ(colonnes, QStringList({"F", "2", "2", "0", "1", "301", "12", ""}));
    EXPECT_EQ(g.GetColumnInfos(8, Colonne::Remarques), "note");
    EXPECT_EQ(cel(g, 8, 1).source, Source::Contenu);
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
    EXPECT_EQ(g.LigneCourante, 2);
    EXPECT_EQ(g.GetParentEtat(2), "A");
    EXPECT_EQ(cel(g, 2, 0).image, 4);
    EXPECT_TRUE(cel(g, 2, 1).gras);
    for (int r = 3; r <= 5; ++r) {
        EXPECT_EQ(hauteur(g, r), 0);
        // The icon parked as its number, the text in the background colour, the keys still there.
        EXPECT_EQ(g.texte(r, 1) + g.texte(r, 2), g.texte(r, Colonne::Numero) + g.texte(r, Colonne::Numero));
        EXPECT_EQ(cel(g, r, 1).source, Source::Aucune);
        EXPECT_EQ(cel(g, r, 5).couleurTexte, g.cellules().BackColorBkg);
        EXPECT_FALSE(g.texte(r, Colonne::NumDocument).isEmpty());
    }
    EXPECT_EQ(hauteur(g, 6), 370);  // the next folder stays, and now follows A on screen
    EXPECT_EQ(g.cellules().ligneAuPixel(g.cellules().hautPixels(2) + 25), 6);

    g.SelectLine(2);
    EXPECT_EQ(g.GetParentEtat(2), "B");
    EXPECT_EQ(cel(g, 2, 0).image, 5);
    for (int r = 3; r <= 5; ++r) {
        EXPECT_EQ(hauteur(g, r), 240);
        EXPECT_EQ(g.texte(r, 1) + g.texte(r, 2), "");
        EXPECT_EQ(cel(g, r, 1).image, g.texte(r, Colonne::Numero).toInt());
        EXPECT_EQ(cel(g, r, 5).couleurTexte, 0);
    }

    // The last folder's children reach the last row.
    g.SelectLine(6);
    EXPECT_EQ(hauteur(g, 8), 0);
    EXPECT_EQ(hauteur(g, 5), 240);
    EXPECT_EQ(g.ligneGras(), 6);
    EXPECT_FALSE(cel(g, 2, 1).gras);
    EXPECT_EQ(g.clics, 3);
}

TEST(ModeleGrille, DossierSansDocumentGardeLImageOuverte) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"Vide", 0}, {"Plein", 1}, {"Dernier", 0}});
    for (int ligne : {2, 5}) {
        for (const char *etat : {"A", "B"}) {
            g.SelectLine(ligne);
            EXPECT_EQ(g.GetParentEtat(ligne), etat);
            EXPECT_EQ(cel(g, ligne, 0).image, 5);
        }
    }
    EXPECT_EQ(hauteur(g, 4), 240);  // the other folder's document was never touched
}

TEST(ModeleGrille, ClicsSurDocumentsTitreEtSection) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 2}, {"B", 2}});  // A 2 (3, 4), B 5 (6, 7)
    g.SelectLine(4);
    EXPECT_EQ(g.ligneMarquee(), 4);
    EXPECT_EQ(g.ligneGras(), 2);  // the document's folder takes the bold mark
    for (int c = 0; c < 20; ++c) EXPECT_EQ(cel(g, 4, c).couleurFond, c < 3 ? 0 : kSelection) << "column " << c;

    g.SelectLine(7);
    EXPECT_EQ(cel(g, 4, 3).couleurFond, 0);
    EXPECT_EQ(cel(g, 4, 19).couleurFond, 0);
    EXPECT_EQ(g.ligneGras(), 5);
    EXPECT_FALSE(cel(g, 2, 1).gras);

    // Title and section rows are marked; the bold mark stays.
    for (int ligne : {0, 1}) {
        g.SelectLine(ligne);
        EXPECT_EQ(g.LigneCourante, ligne);
        EXPECT_EQ(cel(g, ligne, 3).couleurFond, kSelection);
        EXPECT_EQ(g.ligneGras(), 5);
        EXPECT_TRUE(cel(g, 5, 1).gras);
    }
    EXPECT_EQ(cel(g, 7, 3).couleurFond, 0);
    EXPECT_EQ(g.clics, 4);

    // Black as selection colour is drawn as 1, and given back as "no colour".
    Reglages::ecrire(Reglages::Cle::CouleurSelection, 0);
    g.ChargerParamCouleurs();
    g.SelectLine(3);
    EXPECT_EQ(cel(g, 3, 4).couleurFond, 1);
    EXPECT_EQ(g.couleurSelection(), 1);
    g.SelectLine(6);
    EXPECT_EQ(cel(g, 3, 4).couleurFond, 0);
}

TEST(ModeleGrille, ExpendFermeEtOuvreTout) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 2}, {"B", 0}, {"C", 3}});
    g.SelectLine(g.ligneParent(2));  // C closed by hand: only A and B are left to close
    g.Expend(true);
    g.Expend(true);
    EXPECT_EQ(g.clics, 3);
    g.Expend(false);
    EXPECT_EQ(g.clics, 6);
    for (int k = 0; k < 3; ++k) EXPECT_EQ(g.GetParentEtat(g.ligneParent(k)), "B") << "folder " << k;
}

TEST(ModeleGrille, CellulesHorsDeLaGrilleEtHasLigneFils) {
    EnvironnementTest env(false);
    GrilleEssai g;
    GrilleExemple::charger(g, {{"A", 2}, {"Vide", 0}, {"C", 1}, {"Dernier", 0}});  // A 2, Vide 5, C 6, Dernier 8
    const int rows = g.cellules().Rows();
    int largeur = -5, haut = -5, hauteur = -5;
    EXPECT_EQ(g.GetColumnInfos(rows, Colonne::Titre, largeur, haut, hauteur), "");
    EXPECT_FALSE(g.Redraw());  // repainting stays off until a later operation
    EXPECT_EQ(largeur, -5);
    EXPECT_EQ(g.GetColumnInfos(2, 20) + g.GetColumnInfos(-1, Colonne::Titre) + g.GetParentEtat(rows), "");
    EXPECT_FALSE(g.SetColumnInfos(rows, Colonne::Titre, "x"));
    EXPECT_FALSE(g.IsLigneParent(rows) || g.IsLigneParent(-3));
    g.SelectLine(rows);
    g.DelFils(rows);
    EXPECT_EQ(g.clics, 0);
    EXPECT_EQ(g.cellules().Rows(), rows);

    // And the grid goes on.
    EXPECT_TRUE(g.SetColumnInfos(3, Colonne::Login, "neuf"));
    EXPECT_TRUE(g.Redraw());
    g.MajColumnInfos(3, Colonne::MotDePasse, 42);
    EXPECT_EQ(g.GetColumnInfos(3, Colonne::Login, largeur, haut, hauteur), "neuf");
    EXPECT_EQ(g.GetColumnInfos(3, Colonne::MotDePasse), "42");
    EXPECT_EQ(haut, 25 + 23 + 25);
    EXPECT_EQ(hauteur, 16);

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
    EXPECT_EQ(largeurs(), QList<int>({270, 270, 50, 2933, 1433, 1433, 2933, 1433, 1433, 1433, 1433}));
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
    const QList<Reglages::Cle> cles = {Reglages::Cle::CouleurTitre, Reglages::Cle::CouleurSection,
                                       Reglages::Cle::CouleurParent, Reglages::Cle::CouleurFils};
    for (int i = 0; i < cles.size(); ++i) Reglages::ecrire(cles[i], 11 * (i + 1));
    Reglages::ecrire("Couleurs", "BackColor", "15790320");

    g.SetColumnInfos(3, Colonne::Numero, 5);
    g.SetColumnInfos(4, Colonne::Numero, 0);
    g.ReDessiner();
    QList<int> couleurs;
    for (int r : {0, 1, 2, 3, 6}) couleurs << cel(g, r, 7).couleurTexte;
    EXPECT_EQ(couleurs, QList<int>({11, 22, 33, 44, 44}));
    EXPECT_EQ(g.cellules().BackColor, 15790320);
    EXPECT_EQ(g.cellules().GridColor, 15790320);
    EXPECT_EQ(cel(g, 3, 1).image, 5);                 // the new icon shows
    EXPECT_EQ(cel(g, 4, 1).source, Source::Aucune);   // 0: no icon, no failure
    EXPECT_EQ(cel(g, 6, 1).source, Source::Contenu);  // back inside the closed folder
    EXPECT_EQ(hauteur(g, 6), 0);

    g.Backcolor(-1);
    EXPECT_EQ(g.Backcolor(), -1);
    EXPECT_EQ(g.cellules().BackColor, 16777215);
}

TEST(ModeleGrille, IconesDeLaBase) {
    EnvironnementTest env;
    GrilleEssai g;
    const ListeImages &liste = g.imagesContenu();
    ASSERT_TRUE(g.ChargerIconesDatabase());
    ASSERT_EQ(liste.nombre(), 6);
    EXPECT_EQ(liste.entree(1)->cle, "A 1");
    EXPECT_EQ(liste.entree(6)->tag, "Web");
    EXPECT_FALSE(liste.image(6).isNull());

    // Bytes that are no picture keep their place, so the next icon keeps its number.
    const QString base = Chemins::cheminBase();
    ASSERT_TRUE(BaseSql::executer(base,
                                  "INSERT INTO Icones SELECT 8, ico, 'Copie' FROM Icones WHERE Num = 1;"
                                  "INSERT INTO Icones VALUES (7, X'00112233', 'Cassée');"));
    ASSERT_TRUE(g.ChargerIconesDatabase());
    ASSERT_EQ(liste.nombre(), 8);
    EXPECT_TRUE(liste.image(7).isNull());
    EXPECT_EQ(liste.entree(8)->tag, "Copie");
    EXPECT_FALSE(liste.image(8).isNull());
    GrilleEssai copie;
    copie.ReChargerIcones(liste);
    EXPECT_EQ(copie.imagesContenu().entree(8)->cle, "A 8");

    ASSERT_TRUE(BaseSql::executer(base, "DELETE FROM Icones;"));
    EXPECT_TRUE(g.ChargerIconesDatabase());
    EXPECT_EQ(liste.nombre(), 0);
    QFile::remove(base);
    EXPECT_FALSE(copie.ChargerIconesDatabase());
    EXPECT_EQ(copie.imagesContenu().nombre(), 0);
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
    g.SelectLine(3);
    EXPECT_EQ(g.ligneMarquee(), 3);
    EXPECT_EQ(g.ligneGras(), 2);
    EXPECT_EQ(cel(g, 3, 5).couleurFond, kSelection);
    EXPECT_EQ(cel(g, 12, 5).couleurFond, 0);
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
    EXPECT_EQ(g.LigneCourante, 5);
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
