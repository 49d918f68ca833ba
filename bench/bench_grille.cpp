// The grid under load: filling it, opening and closing a large folder, and painting
// one screen of a small grid against one of a very large grid.

#include "grid/fenetres/MyCoolGrid.h"
#include "support/EnvironnementTest.h"
#include "Banc.h"

#include <QApplication>
#include <QImage>
#include <QScrollBar>
#include <benchmark/benchmark.h>

#include <memory>

namespace {

const QStringList kTitres = {"Titre", "Login", "Mot de passe", "Url", "Fichier", "Date de début", "Date de fin", "Remarques"};

QStringList infos(int n) {
    const QString t = QString::number(n);
    return {QStringLiteral("Document ") + t, QStringLiteral("login") + t, QStringLiteral("secret"), QStringLiteral("https://exemple.fr"),
            QString(), QStringLiteral("01/01/2024"), QString(), QStringLiteral("remarque"), QStringLiteral("2"),
            QStringLiteral("1"), t, QStringLiteral("1"), QString()};
}

void entetes(MyCoolGrid &g) {
    g.NbColonnes(int(kTitres.size()) - 1);
    g.AddSection(kTitres, 2, 2);
    g.AddTitle(QStringLiteral("Gestionnaire des mots de passe"));
}

// The main window's order: each folder, then its documents.
void chargerDansLOrdre(MyCoolGrid &g, int dossiers, int parDossier, const QList<QStringList> &lignes) {
    entetes(g);
    int n = 0;
    for (int d = 0; d < dossiers; ++d) {
        QVariant cle = d + 1;
        g.AddParent(QStringLiteral(" Dossier ") + QString::number(d), cle);
        for (int k = 0; k < parDossier; ++k) {
            int parent = cle.toInt();
            g.AddFils(lignes[n % lignes.size()], parent, k % 6 + 1, 0, QStringLiteral("1"), QString::number(n),
                      QString::number(d + 1));
            ++n;
        }
    }
}

QList<QStringList> lignesPretes(int nombre) {
    QList<QStringList> l;
    for (int i = 0; i < nombre; ++i) l << infos(i);
    return l;
}

// 10,000 documents under 200 folders, as a load does it.
void BM_AjouterDocuments(benchmark::State &s) {
    EnvironnementTest env;
    const QList<QStringList> lignes = lignesPretes(10000);
    for (auto _ : s) {
        s.PauseTiming();
        auto g = std::make_unique<MyCoolGrid>();
        s.ResumeTiming();
        chargerDansLOrdre(*g, 200, 50, lignes);
        benchmark::DoNotOptimize(g->NbLignes);
        s.PauseTiming();
        g.reset();
        s.ResumeTiming();
    }
    s.SetItemsProcessed(s.iterations() * 10000);
}

// The same documents once all the folders are in: every insertion lands among
// the rows, and the folders below move down.
void BM_AjouterDocumentsApresLesDossiers(benchmark::State &s) {
    EnvironnementTest env;
    const QList<QStringList> lignes = lignesPretes(10000);
    for (auto _ : s) {
        s.PauseTiming();
        auto g = std::make_unique<MyCoolGrid>();
        entetes(*g);
        for (int d = 0; d < 200; ++d) {
            QVariant cle = d + 1;
            g->AddParent(QStringLiteral(" Dossier ") + QString::number(d), cle);
        }
        s.ResumeTiming();
        for (int n = 0; n < 10000; ++n) {
            int parent = n % 200;
            g->AddFils(lignes[n], parent, 1, 0, QStringLiteral("1"), QString::number(n), QString::number(n % 200 + 1));
        }
        benchmark::DoNotOptimize(g->NbLignes);
        s.PauseTiming();
        g.reset();
        s.ResumeTiming();
    }
    s.SetItemsProcessed(s.iterations() * 10000);
}

// One click on a folder of 1,000 documents in a grid of 100,000 rows: it closes,
// the next one opens it again.
void BM_OuvrirFermerDossier(benchmark::State &s) {
    EnvironnementTest env;
    MyCoolGrid g;
    chargerDansLOrdre(g, 100, 1000, lignesPretes(1000));
    const int ligne = g.ligneParent(50);
    for (auto _ : s) g.SelectLine(ligne);
    s.counters["lignes"] = g.cellules().Rows();
}

// One full screen painted, the grid scrolled to its middle. Argument 1: rows of
// documents in the grid; argument 2: 1 when all folders but the one in view are
// closed, so that almost every row has height 0.
void BM_PeindreUnEcran(benchmark::State &s) {
    EnvironnementTest env;
    const int documents = int(s.range(0));
    const int dossiers = documents >= 1000 ? 100 : 1;
    MyCoolGrid g;
    chargerDansLOrdre(g, dossiers, documents / dossiers, lignesPretes(1000));
    g.resize(900, 700);
    g.show();
    const int milieu = dossiers / 2;
    if (s.range(1) == 1)
        for (int d = 0; d < dossiers; ++d)
            if (d != milieu) g.SelectLine(g.ligneParent(d));
    QApplication::processEvents();
    g.SelectLine(g.ligneParent(milieu) + 1);
    QApplication::processEvents();
    QImage image(g.viewport()->size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : s) {
        g.viewport()->render(&image);
        benchmark::DoNotOptimize(image.bits());
    }
    s.counters["lignes"] = g.cellules().Rows();
    const int visibles = g.viewport()->height() / 16;  // whole rows
    s.counters["visibles"] = visibles;
}

}  // namespace

BENCHMARK(BM_AjouterDocuments)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AjouterDocumentsApresLesDossiers)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OuvrirFermerDossier)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PeindreUnEcran)->Args({100, 0})->Args({100000, 0})->Args({100000, 1})->Unit(benchmark::kMicrosecond);

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::AvecFenetres); }
