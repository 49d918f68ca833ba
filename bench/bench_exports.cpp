// The four export files of 10,000 documents in 200 folders: each writer alone, and
// the four together as the options window writes them.

#include "grid/ModeleGrille.h"
#include "options/Exports.h"
#include "support/EnvironnementTest.h"
#include "ui/Chaines.h"
#include "Banc.h"

#include <QApplication>
#include <QFileInfo>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kDossiers = 200;
constexpr int kParDossier = 50;

// Title, section, then each folder with its documents, as the main window loads them.
std::unique_ptr<ModeleGrille> grille() {
    auto g = std::make_unique<ModeleGrille>();
    QStringList titres;
    for (int i = 110; i <= 117; ++i) titres << Chaine(i);
    g->NbColonnes(int(titres.size()) - 1);
    g->AddSection(titres, 2, 2);
    g->AddTitle(QStringLiteral("Gestionnaire des mots de passe"));
    int n = 0;
    for (int d = 0; d < kDossiers; ++d) {
        QVariant cle = d + 1;
        g->AddParent(QStringLiteral(" Dossier n° ") + QString::number(d), cle);
        for (int k = 0; k < kParDossier; ++k, ++n) {
            int parent = cle.toInt();
            const QString t = QString::number(n);
            g->AddFils({QStringLiteral("Document ") + t, QStringLiteral("login") + t, QStringLiteral("mot de passe é"),
                        QStringLiteral("https://exemple.fr/?a=1&b=2"), QString(), QStringLiteral("01/01/2024"), QString(),
                        QStringLiteral("une remarque assez longue pour la ligne"), QStringLiteral("2"), QStringLiteral("1"),
                        t, QString::number(d + 1), QString()},
                       parent, k % 6 + 1, 0, QStringLiteral("1"), t, QString::number(d + 1));
        }
    }
    return g;
}

template <void (*Ecrire)(const ModeleGrille &)>
void BM_Ecrire(benchmark::State &s) {
    EnvironnementTest env(false);
    const auto g = grille();
    for (auto _ : s) Ecrire(*g);
    qint64 octets = 0;
    for (int f = Exports::Html; f <= Exports::Xml; ++f) octets += QFileInfo(Exports::chemin(f)).size();
    s.SetBytesProcessed(s.iterations() * octets);
    s.counters["documents"] = kDossiers * kParDossier;
    s.counters["Mo"] = double(octets) / 1e6;
}

}  // namespace

BENCHMARK(BM_Ecrire<Exports::CreerFicHtm>)->Name("BM_CreerFicHtm")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Ecrire<Exports::CreerFicTxt>)->Name("BM_CreerFicTxt")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Ecrire<Exports::CreerFicCsv>)->Name("BM_CreerFicCsv")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Ecrire<Exports::CreerFicXml>)->Name("BM_CreerFicXml")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Ecrire<Exports::creerTout>)->Name("BM_creerTout")->Unit(benchmark::kMillisecond);

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::AvecFenetres); }
