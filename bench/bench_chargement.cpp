// Loading an account of 200 folders and 10,000 documents into the main window's grid,
// against the floor: one bare query reading the same rows from the same file.

#include "app/Navigation.h"
#include "grid/MyCoolGrid.h"
#include "store/Chemins.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "support/BaseExemple.h"
#include "ui/Messages.h"
#include "workspace/Chargement.h"
#include "workspace/frmMain.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

struct Environnement {
    QTemporaryDir dossier;
    Environnement() {
        Chemins::definirDossierProgramme(dossier.path());
        Reglages::definirDossier(dossier.filePath(QStringLiteral("config")));
        Reglages::ecrire(Reglages::Cle::Demarrage, 1);
        Messages::preparerPourTests();
        Base::preparerBase();
        BaseExemple::remplir(1, 200, 10000);
        Session::NumCompteCourant = 1;
        Session::LoginCourant = QStringLiteral("banc");
    }
};

Environnement &environnement() {
    static Environnement e;
    return e;
}

long memoireResidenteKo() {
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray &ligne : f.readAll().split('\n'))
        if (ligne.startsWith("VmRSS:")) return ligne.mid(6).trimmed().split(' ').value(0).toLong();
    return -1;
}

void BM_ChargerMG(benchmark::State &s) {
    environnement();
    Navigation::afficherPrincipale();
    frmMain *f = Navigation::fenetrePrincipale();
    for (auto _ : s) {
        f->MG->Clear();
        f->ChargerMG();
    }
    s.counters["lignes"] = f->MG->NbLignes;
    QApplication::processEvents();
    s.counters["RSS_Mo"] = double(memoireResidenteKo()) / 1024.0;
    Navigation::fermerTout();
}

// The reading and deciphering alone, without the grid.
void BM_LireArbre(benchmark::State &s) {
    environnement();
    for (auto _ : s) benchmark::DoNotOptimize(Chargement::lireArbre(1));
}

void BM_RequeteNue(benchmark::State &s) {
    environnement();
    for (auto _ : s) {
        Base::Connexion c;
        Base::Requete r(c, "SELECT * FROM Documents WHERE NumCompte=? ORDER BY NumDossier, Titre");
        r.lier(1, 1);
        int n = 0;
        while (r.suivante()) {
            for (int j = 3; j < 11; ++j) benchmark::DoNotOptimize(r.texte(j));
            ++n;
        }
        benchmark::DoNotOptimize(n);
    }
}

}  // namespace

BENCHMARK(BM_ChargerMG)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LireArbre)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RequeteNue)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
