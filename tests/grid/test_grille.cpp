#include "grid/Grille.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <vector>

using grille::Grille;

namespace {

// The grid against a plain list of names and heights, summed by hand.
void comparer(const Grille &g, const std::vector<QString> &noms, const std::vector<int> &hauteurs) {
    ASSERT_EQ(g.Rows(), int(noms.size()));
    int haut = 0;
    for (int r = 0; r < g.Rows(); ++r) {
        ASSERT_EQ(g.texte(r, 3).toString(), noms[size_t(r)]) << "row " << r;
        ASSERT_EQ(g.hautPixels(r), haut) << "row " << r;
        const int h = Grille::enPixels(hauteurs[size_t(r)]);
        for (int y = haut; y < haut + h; ++y) ASSERT_EQ(g.ligneAuPixel(y), r) << "y " << y;
        haut += h;
    }
    ASSERT_EQ(g.hauteurTotalePixels(), haut);
    ASSERT_EQ(g.ligneAuPixel(haut), -1);
}

}  // namespace

// Insertions (mostly at one place, as documents come in under their folder),
// removals and heights, many of them 0 as folders close: rows, tops and the row
// under each pixel stay right, also when heights change with nothing else.
TEST(Grille, LignesEtPixelsSuiventToutesLesOperations) {
    QRandomGenerator hasard(42);
    Grille g;
    std::vector<QString> noms;
    std::vector<int> hauteurs;
    for (int tour = 0; tour < 2000; ++tour) {
        const int rows = g.Rows();
        const int choix = tour >= 1500 ? 9 : int(hasard.bounded(10));
        if (choix < 5 || rows == 0) {
            const int position = choix < 3 ? rows / 2 : int(hasard.bounded(rows + 1));
            g.AddItem(position);
            g.definirTexte(position, 3, QString::number(tour));
            noms.insert(noms.begin() + position, QString::number(tour));
            hauteurs.insert(hauteurs.begin() + position, grille::kHauteurDefaut);
        } else if (choix < 7) {
            const int ligne = int(hasard.bounded(rows));
            g.RemoveItem(ligne);
            noms.erase(noms.begin() + ligne);
            hauteurs.erase(hauteurs.begin() + ligne);
        } else {
            const int ligne = int(hasard.bounded(rows));
            hauteurs[size_t(ligne)] = choix == 7 || tour % 3 == 0 ? 0 : int(hasard.bounded(500));
            g.RowHeight(ligne, hauteurs[size_t(ligne)]);
        }
        if (tour % 40 == 0 || tour >= 1990) comparer(g, noms, hauteurs);
        if (testing::Test::HasFatalFailure()) return;
    }
    g.definirRows(3);
    g.definirRows(5);
    noms.resize(3);
    noms.resize(5);
    hauteurs.resize(3);
    hauteurs.resize(5, grille::kHauteurDefaut);
    comparer(g, noms, hauteurs);
    g.Clear();
    g.RemoveItem(0);
    EXPECT_EQ(g.Rows(), 0);
    EXPECT_EQ(g.ligneAuPixel(0), -1);
}
