#include "store/Reglages.h"
#include "support/EnvironnementTest.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {
void ecrireFichierReglages(const QByteArray &contenu) {
    QDir().mkpath(QFileInfo(Reglages::cheminFichier()).absolutePath());
    QFile f(Reglages::cheminFichier());
    f.open(QIODevice::WriteOnly | QIODevice::Truncate);
    f.write(contenu);
}
}  // namespace

TEST(Reglages, LesClesSeRejoignentQuelleQueSoitLaCasse) {
    EnvironnementTest env(false);
    ecrireFichierReglages("[couleurs]\nbackcolor=255\nCouleurselection=65280\n[Settings]\nColonne%203=0\nColonne%205=1\n");
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::Backcolor), 255);
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::CouleurSelection), 65280);
    EXPECT_FALSE(Reglages::colonneVisible(3));
    EXPECT_FALSE(Reglages::colonneVisible(5));  // any number but -1 hides
    EXPECT_EQ(Reglages::lire("COULEURS", "BACKCOLOR", "x"), "255");
    // Writing in another form leaves one value, found by every form.
    Reglages::ecrire("Couleurs", "BackColor", "128");
    EXPECT_EQ(Reglages::lire("couleurs", "backcolor", "x"), "128");
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::Backcolor), 128);
    EXPECT_EQ(EnvironnementTest::octets(Reglages::cheminFichier()).toLower().count("backcolor"), 1);
    Reglages::ecrireColonneVisible(3, true);
    EXPECT_TRUE(Reglages::colonneVisible(3));
    EXPECT_EQ(Reglages::lire("settings", "colonne 3", "x"), "-1");
}

TEST(Reglages, UnFichierEditeALaMainNeCassePas) {
    EnvironnementTest env(false);
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::MainLeft, 1234), 1234);
    EXPECT_FALSE(QFile::exists(Reglages::cheminFichier()));  // reading writes nothing
    ecrireFichierReglages(
        "[Couleurs]\nBackcolor=rouge\nCouleurSection=-1\nCouleurFils=16777216\nCouleurParent=16777215\n"
        "[Settings]\nColonne%204=oui\ngarbage line without equals\n[[broken\n");
    // A word, or a colour outside 24 bits: the key's default.
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::Backcolor), 16777215);
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::CouleurSection), 16777215);
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::CouleurFils), 0);
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::CouleurParent), 16777215);
    EXPECT_TRUE(Reglages::colonneVisible(4));
    Reglages::ecrire(Reglages::Cle::Username, QStringLiteral("Zoé l'ami"));
    EXPECT_EQ(Reglages::lireTexte(Reglages::Cle::Username), QStringLiteral("Zoé l'ami"));
}
