// Loading an account of 200 folders into the main window, at 10,000 and 100,000
// documents, against the floor: one bare query reading the same rows from the same
// file. Also the reload after a document is added, a folder renamed or deleted.
//
// The resident memory of a loaded grid is measured in a process of its own:
//   bench_chargement --memoire 100000

#include "app/fenetres/Navigation.h"
#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "workspace/Chargement.h"
#include "store/Comptes.h"
#include "workspace/fenetres/FrmVerrou.h"
#include "workspace/fenetres/frmMain.h"
#include "Banc.h"
#include "BasesBanc.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <benchmark/benchmark.h>
#include <cstring>

namespace {

using BasesBanc::utiliser;

// From nothing to the main window on screen with its tree, as after the login.
void BM_OuvrirPrincipale(benchmark::State &s) {
    utiliser(int(s.range(0)));
    for (auto _ : s) {
        Navigation::afficherPrincipale();
        QApplication::processEvents();
        s.PauseTiming();
        Navigation::fermerTout();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        s.ResumeTiming();
    }
}

void BM_ChargerMG(benchmark::State &s) {
    utiliser(int(s.range(0)));
    Navigation::afficherPrincipale();
    frmMain *f = Navigation::fenetrePrincipale();
    for (auto _ : s) {
        f->MG->Clear();
        f->ChargerMG();
    }
    s.counters["lignes"] = f->MG->NbLignes;
    Navigation::fermerTout();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The reading and deciphering alone, without the grid.
void BM_LireArbre(benchmark::State &s) {
    utiliser(int(s.range(0)));
    for (auto _ : s) {
        int documents = 0;
        Chargement::lireArbre(
            1, [](const QList<Chargement::Dossier> &) {},
            [&documents](int, const Chargement::Document &) { ++documents; });
        benchmark::DoNotOptimize(documents);
    }
}

void BM_RequeteNue(benchmark::State &s) {
    utiliser(int(s.range(0)));
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

// The main window over the base of n documents, for the changes below.
frmMain *principale(int documents) {
    utiliser(documents);
    Navigation::afficherPrincipale();
    QApplication::processEvents();
    return Navigation::fenetrePrincipale();
}

void fermer() {
    Navigation::fermerTout();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A document written to the base, then the grid brought up to date and painted.
void BM_AjouterDocument(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    int num = 900000;
    for (auto _ : s) {
        s.PauseTiming();
        Base::Connexion c;
        Base::Requete r(c, "INSERT INTO Documents (NumCompte, Num, NumDossier, Titre) VALUES (1, ?, 150, ?)");
        ++num;
        r.lier(1, num).lier(2, QStringLiteral("Nouveau %1").arg(num)).executer();
        const qint64 rowid = c.dernierRowid();
        s.ResumeTiming();
        f->documentAjoute(rowid);
        QApplication::processEvents();
    }
    s.counters["lignes"] = f->MG->NbLignes;
    fermer();
}

// A folder renamed in turn to the first and the last place, with its documents.
void BM_RenommerDossier(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    bool premier = true;
    for (auto _ : s) {
        s.PauseTiming();
        Base::Connexion c;
        Base::Requete r(c, "UPDATE Dossiers SET Nom=? WHERE NumCompte=1 AND Num=150");
        r.lier(1, premier ? QStringLiteral("0 premier") : QStringLiteral("zz dernier")).executer();
        Base::Requete id(c, "SELECT rowid FROM Dossiers WHERE NumCompte=1 AND Num=150");
        id.suivante();
        const qint64 rowid = id.entierLong(0);
        premier = !premier;
        s.ResumeTiming();
        f->dossierEcrit(rowid);
        QApplication::processEvents();
    }
    fermer();
}

// An empty folder deleted (it was added, untimed, just before).
void BM_SupprimerDossier(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    for (auto _ : s) {
        s.PauseTiming();
        Base::Connexion c;
        Base::Requete r(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) VALUES (1, 99999, 'Dossier 0100 vide')");
        r.executer();
        f->dossierEcrit(c.dernierRowid());
        Base::Requete sup(c, "DELETE FROM Dossiers WHERE NumCompte=1 AND Num=99999");
        sup.executer();
        int ligne = -1;
        for (int k = 0; k < f->MG->nbParents(); ++k)
            if (f->MG->vue(f->MG->ligneParent(k), Colonne::NumDossier) == QStringLiteral("99999")) ligne = f->MG->ligneParent(k);
        s.ResumeTiming();
        f->dossierSupprime(ligne);
        QApplication::processEvents();
    }
    fermer();
}

// The whole tree read again, as before any of the above.
void BM_Recharger(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    for (auto _ : s) {
        f->rechargerGrille();
        QApplication::processEvents();
    }
    fermer();
}

// The start's check of an existing base: its schema and the engine's integrity check
// of every page, before the login window.
void BM_PreparerBase(benchmark::State &s) {
    utiliser(int(s.range(0)));
    for (auto _ : s) benchmark::DoNotOptimize(Base::preparerBase());
}

// Loads a grid of n documents, then prints the resident memory: one process, one load.
int mesurerMemoire(int documents) {
    utiliser(documents);
    const long avant = BasesBanc::memoireKo();
    Navigation::afficherPrincipale();
    QApplication::processEvents();
    const long apres = BasesBanc::memoireKo();
    std::printf("documents %d: RSS before the main window %.1f MB, after %.1f MB\n", documents, double(avant) / 1024, double(apres) / 1024);
    Navigation::fermerTout();
    return 0;
}

}  // namespace

// From Ctrl+L to the password window painted, the account's tree hidden; then the
// unlock, not timed.
void BM_Verrouiller(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    if (!Comptes::chercher(QStringLiteral("banc"))) Comptes::creer(1, QStringLiteral("banc"), QStringLiteral("a"));
    for (auto _ : s) {
        QKeyEvent touche(QEvent::KeyPress, Qt::Key_L, Qt::ControlModifier);
        QApplication::sendEvent(f->MG, &touche);
        QApplication::processEvents();
        s.PauseTiming();
        FrmVerrou *v = f->fenetreVerrou();
        if (!v || !v->isVisible() || f->isVisible()) {
            s.SkipWithError("the lock did not come");
            break;
        }
        v->Pass->setText(QStringLiteral("a"));
        QKeyEvent entree(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(v->Pass, &entree);
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        s.ResumeTiming();
    }
    s.counters["lignes"] = f->MG->NbLignes;
    fermer();
}

BENCHMARK(BM_OuvrirPrincipale)->Arg(0)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ChargerMG)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AjouterDocument)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RenommerDossier)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SupprimerDossier)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Recharger)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LireArbre)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RequeteNue)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Verrouiller)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PreparerBase)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv) {
    return Banc::lancer(argc, argv, Banc::Application::AvecFenetres, [](int n, char **arguments) {
        return n == 3 && std::strcmp(arguments[1], "--memoire") == 0 ? mesurerMemoire(std::atoi(arguments[2])) : -1;
    });
}
