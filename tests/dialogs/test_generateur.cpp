// The password generator's draws: the classes asked and nothing else, and no
// character or position favoured.

#include "dialogs/Generateur.h"
#include "store/Cryptage.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <cmath>
#include <vector>

namespace {
// Pearson's statistic of counts that should all be equal.
double khiDeux(const std::vector<int> &comptes) {
    double total = 0;
    for (const int c : comptes) total += c;
    const double attendu = total / double(comptes.size());
    double khi = 0;
    for (const int c : comptes) khi += (c - attendu) * (c - attendu) / attendu;
    return khi;
}
// Far in the tail of the distribution for these degrees of freedom (a chance below
// one in ten million), yet far below what a bias of a few percent gives.
double bornePour(size_t degres) { return double(degres) + 6 * std::sqrt(2.0 * double(degres)); }
}  // namespace

TEST(Generateur, ChaqueClasseChoisieEtRienDAutre) {
    QString alphabet;
    for (const auto &l : Cryptage::TableCodes()) alphabet += QChar(l.clair);
    QRandomGenerator source(2026);
    for (int choix = 1; choix < 16; ++choix)
        for (const bool sansSosies : {false, true}) {
            Generateur::Options o;
            o.longueur = Generateur::kLongueurMin;
            o.minuscules = choix & 1;
            o.majuscules = choix & 2;
            o.chiffres = choix & 4;
            o.signes = choix & 8;
            o.sansSosies = sansSosies;
            const QStringList classes = Generateur::classes(o);
            ASSERT_EQ(classes.size(), __builtin_popcount(unsigned(choix)));
            for (int n = 0; n < 300; ++n) {
                const QString mot = Generateur::generer(o, source);
                ASSERT_EQ(mot.size(), Generateur::kLongueurMin);
                for (const QChar c : mot) {
                    ASSERT_TRUE(alphabet.contains(c) && c != u' ' && c != QChar(0x00b0)) << mot.toStdString();
                    ASSERT_TRUE(classes.join(QString()).contains(c)) << mot.toStdString();
                    ASSERT_FALSE(sansSosies && Generateur::kSosies.contains(c)) << mot.toStdString();
                }
                for (const QString &classe : classes)
                    ASSERT_TRUE(std::any_of(mot.begin(), mot.end(), [&](QChar c) { return classe.contains(c); }))
                        << mot.toStdString() << " " << classe.toStdString();
            }
        }
    Generateur::Options tout;
    // Lengths outside the range are brought into it; no class, no password.
    tout.longueur = 3;
    EXPECT_EQ(Generateur::generer(tout, source).size(), Generateur::kLongueurMin);
    tout.longueur = 500;
    EXPECT_EQ(Generateur::generer(tout, source).size(), Generateur::kLongueurMax);
    const Generateur::Options aucune{20, false, false, false, false, false};
    EXPECT_EQ(Generateur::generer(aucune, source), QString());
    EXPECT_EQ(Generateur::entropie(aucune), 0);
}

TEST(Generateur, LEntropieCompteLesMotsPossibles) {
    Generateur::Options chiffres{8, false, false, true, false, false};
    EXPECT_NEAR(Generateur::entropie(chiffres), 8 * std::log2(10.0), 1e-9);
    // Lower-case letters and digits, both present: all words less those without one.
    Generateur::Options deux{8, true, false, true, false, false};
    EXPECT_NEAR(Generateur::entropie(deux), std::log2(std::pow(36.0, 8) - std::pow(26.0, 8) - std::pow(10.0, 8)), 1e-9);
    Generateur::Options tout;
    tout.longueur = 64;
    EXPECT_NEAR(Generateur::entropie(tout), 64 * std::log2(92.0), 0.01);
}

TEST(Generateur, NiCaractereNiPositionFavorises) {
    Generateur::Options o;
    o.longueur = Generateur::kLongueurMax;
    const QString jeu = Generateur::classes(o).join(QString());
    // At this length a draw lacks a class once in a thousand times: drawing again
    // changes the frequencies by far less than the bound sees.
    std::vector<int> premier(size_t(jeu.size())), dernier(size_t(jeu.size())), partout(size_t(jeu.size()));
    QRandomGenerator source(7);
    for (int n = 0; n < 20000; ++n) {
        const QString mot = Generateur::generer(o, source);
        ++premier[size_t(jeu.indexOf(mot.front()))];
        ++dernier[size_t(jeu.indexOf(mot.back()))];
        for (const QChar c : mot) ++partout[size_t(jeu.indexOf(c))];
    }
    const double borne = bornePour(jeu.size() - 1);
    EXPECT_LT(khiDeux(premier), borne);
    EXPECT_LT(khiDeux(dernier), borne);
    EXPECT_LT(khiDeux(partout), borne);
    // A range of three quarters of the source's: taken modulo, the first third would
    // come twice as often as the others.
    const quint32 troisQuarts = 3u << 30;
    std::vector<int> tiers(3);
    for (int n = 0; n < 30000; ++n) ++tiers[Generateur::tirer(troisQuarts, source) >> 30];
    EXPECT_LT(khiDeux(tiers), bornePour(2));
}
