// The loader's reader thread over several batches: every document once, whole, and
// a caller that fails stops the reader instead of leaving it waiting.

#include "support/BaseExemple.h"
#include "support/EnvironnementTest.h"
#include "workspace/Chargement.h"

#include <QSet>
#include <gtest/gtest.h>
#include <stdexcept>

TEST(Chargement, PlusieursLotsLivrentChaqueDocumentUneFoisEtEntier) {
    EnvironnementTest env;
    // Two batches and a part, so that the last batch reuses an emptied one; one
    // document in five has no remarks, so a field left from a reused slot shows.
    constexpr int kDocuments = 1300;
    BaseExemple::remplir(1, 3, kDocuments);
    QSet<QString> vus;
    int dossiers = 0, livres = 0;
    Chargement::lireArbre(
        1, [&dossiers](const QList<Chargement::Dossier> &d) { dossiers = int(d.size()); },
        [&vus, &livres](int indiceDossier, const Chargement::Document &d) {
            ++livres;
            const int i = d.num.toInt() - 1000;
            ASSERT_EQ(indiceDossier, i % 3) << i;
            ASSERT_EQ(d.infos.value(0), QStringLiteral("Compte en ligne numero %1").arg(i));
            ASSERT_EQ(d.infos.value(2), QStringLiteral("Pa55-word_%1!").arg(i * 7919));
            ASSERT_EQ(d.infos.value(7).isEmpty(), i % 5 == 0) << i;
            ASSERT_EQ(d.icone, i % 7);
            vus.insert(d.num);
        });
    EXPECT_EQ(dossiers, 3);
    EXPECT_EQ(livres, kDocuments);
    EXPECT_EQ(vus.size(), kDocuments);

    // The caller fails on its first document while the reader is batches ahead.
    BaseExemple::remplir(1, 0, 2 * kDocuments, 100);
    int recus = 0;
    EXPECT_THROW(Chargement::lireArbre(
                     1, [](const QList<Chargement::Dossier> &) {},
                     [&recus](int, const Chargement::Document &) {
                         ++recus;
                         throw std::runtime_error("appelant");
                     }),
                 std::runtime_error);
    EXPECT_EQ(recus, 1);
}
