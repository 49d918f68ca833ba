// The search scan over a large grid: 100,000 documents in 1,000 folders, a document
// search that matches 1% of them, typed plain or with an accent (which folds every
// title), against a folder search.

#include "grid/ModeleGrille.h"
#include "search/Recherche.h"
#include "support/EnvironnementTest.h"
#include "Banc.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {

constexpr int kDossiers = 1000;
constexpr int kParDossier = 100;

// Titles "Compte n° i"; one in a hundred is "Banque en ligne i", which the search finds.
void remplir(ModeleGrille &g) {
    g.NbColonnes(7);
    g.AddSection({"Titre", "Login", "Mot de passe", "Url", "Fichier", "Date de début", "Date de fin", "Remarques"}, 2, 2);
    g.AddTitle(QStringLiteral("Gestionnaire des mots de passe"));
    int n = 0;
    for (int d = 0; d < kDossiers; ++d) {
        QVariant cle = d + 1;
        g.AddParent(QStringLiteral(" Dossier %1").arg(d), cle);
        for (int k = 0; k < kParDossier; ++k, ++n) {
            int parent = cle.toInt();
            const QString titre = n % 100 == 0 ? QStringLiteral("Banque en ligne %1").arg(n) : QStringLiteral("Compte n° %1").arg(n);
            const QString num = QString::number(n);
            g.AddFils({titre, QStringLiteral("login"), QStringLiteral("secret"), QString(), QString(), QString(), QString(),
                       QString(), QStringLiteral("2"), QStringLiteral("1"), num, QString::number(d + 1), QString()},
                      parent, 2, 0, QStringLiteral("1"), num, QString::number(d + 1));
        }
    }
}

void BM_ChercherDocuments(benchmark::State &s, const char *cherche) {
    EnvironnementTest env(false);
    ModeleGrille g;
    remplir(g);
    qsizetype trouves = 0;
    for (auto _ : s) {
        const auto resultats = Recherche::chercher(g, QString::fromUtf8(cherche), false);
        trouves = resultats.size();
        benchmark::DoNotOptimize(trouves);
    }
    s.counters["lignes"] = g.NbLignes;
    s.counters["trouves"] = double(trouves);
}
BENCHMARK_CAPTURE(BM_ChercherDocuments, simple, "BANQUE")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ChercherDocuments, accent, "BÂNQUE")->Unit(benchmark::kMillisecond);

void BM_ChercherDossiers(benchmark::State &s) {
    EnvironnementTest env(false);
    ModeleGrille g;
    remplir(g);
    qsizetype trouves = 0;
    for (auto _ : s) {
        const auto resultats = Recherche::chercher(g, QStringLiteral("ssier 99"), true);
        trouves = resultats.size();
        benchmark::DoNotOptimize(trouves);
    }
    s.counters["trouves"] = double(trouves);
}
BENCHMARK(BM_ChercherDossiers)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::SansEcran); }
