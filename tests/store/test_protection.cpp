#include "store/Protection.h"
#include "store/Base.h"
#include "support/BaseExemple.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"
#include "support/ProtectionTest.h"

#include <gtest/gtest.h>

using ProtectionTest::cleDe;

// Protected, the account's texts leave the file; the password opens them, another
// doesn't; a new password re-wraps the same key; switched back, every field reads
// as before.
TEST(Protection, ProtegerChangerEtDeproteger) {
    EnvironnementTest env;
    ProtectionTest::CoutBas cout;
    BaseExemple::remplir(1, 3, 20);
    const QString base = Chemins::cheminBase();
    const QStringList avant = BaseSql::lignes(base, QStringLiteral("SELECT * FROM Documents ORDER BY rowid"));
    Protection::proteger(1, QStringLiteral("Été ☃ secret"));
    const QByteArray brut = EnvironnementTest::octets(base);
    EXPECT_FALSE(brut.isEmpty());
    const QStringList apres = BaseSql::lignes(base, QStringLiteral("SELECT Titre, LoginDoc, Remarques FROM Documents"));
    for (const QString &l : apres) EXPECT_FALSE(l.contains(QStringLiteral("jean.dupont"))) << qPrintable(l);
    EXPECT_TRUE(BaseSql::lignes(base, QStringLiteral("SELECT Nom FROM Dossiers WHERE NumCompte=1 AND Nom LIKE 'Dossier%'")).isEmpty());

    EXPECT_EQ(cleDe(1, QStringLiteral("Ete ☃ secret")), nullptr);
    auto cle = cleDe(1, QStringLiteral("Été ☃ secret"));
    ASSERT_NE(cle, nullptr);
    Protection::changerMotDePasse(1, *cle, QStringLiteral("nouveau"));
    EXPECT_EQ(cleDe(1, QStringLiteral("Été ☃ secret")), nullptr);
    cle = cleDe(1, QStringLiteral("nouveau"));
    ASSERT_NE(cle, nullptr);
    Protection::deproteger(1, *cle, QStringLiteral("nouveau"));
    EXPECT_FALSE(Protection::estProtege(1));
    const QStringList retour = BaseSql::lignes(base, QStringLiteral("SELECT * FROM Documents ORDER BY rowid"));
    ASSERT_EQ(retour.size(), avant.size());
    EXPECT_TRUE(BaseSql::lignes(base, QStringLiteral("SELECT name FROM sqlite_master WHERE name='CompteProtege'")).isEmpty());
}

// A sealed field opens only at its own place, under its own key, unaltered.
TEST(Protection, UnChampDeplaceOuAltereNeSOuvrePas) {
    Protection::Cle cle, autre;
    const Protection::Place ici{1, Protection::Table::Documents, 42, 5};
    const QString texte = QStringLiteral("Mot de passe é 😀\nligne 2");
    const QByteArray scelle = Protection::sceller(cle, ici, texte);
    EXPECT_EQ(Protection::ouvrir(cle, ici, scelle), texte);
    EXPECT_NE(Protection::sceller(cle, ici, texte), scelle);  // a fresh nonce each time
    auto ailleurs = ici;
    ailleurs.rowid = 43;
    EXPECT_FALSE(Protection::ouvrir(cle, ailleurs, scelle));
    ailleurs = ici;
    ailleurs.colonne = 6;
    EXPECT_FALSE(Protection::ouvrir(cle, ailleurs, scelle));
    EXPECT_FALSE(Protection::ouvrir(autre, ici, scelle));
    QByteArray abime = scelle;
    abime[30] = char(abime[30] ^ 1);
    EXPECT_FALSE(Protection::ouvrir(cle, ici, abime));
    EXPECT_FALSE(Protection::ouvrir(cle, ici, scelle.left(20)));
    EXPECT_EQ(Protection::messageTropLong(QString(215, u'a')), QString());
    EXPECT_NE(Protection::messageTropLong(QString(108, u'é')), QString());
}
