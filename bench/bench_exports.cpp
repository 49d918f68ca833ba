// The options window and its four export files, over accounts of 1,000, 10,000 and
// 100,000 documents in 200 folders loaded in the main window: each writer alone, the
// four written on their threads against the same bytes written whole (the disk's
// floor), the window up and answering, the preview of the
// start once the files are written, and a change of format in the preview.
//
// The resident memory that opening the window adds is measured in a process of its own:
//   bench_exports --memoire 100000

#include "app/fenetres/Navigation.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "options/fenetres/ApercuExport.h"
#include "options/EcritureExports.h"
#include "options/Exports.h"
#include "options/fenetres/FrmOptions.h"
#include "store/FichierEntier.h"
#include "workspace/fenetres/frmMain.h"
#include "Banc.h"
#include "BasesBanc.h"

#include <QApplication>
#include <QFileInfo>
#include <QRadioButton>
#include <benchmark/benchmark.h>
#include <cstring>

namespace {

// The main window over the base of n documents, kept from one benchmark to the next.
frmMain *principale(int documents) {
    static int chargee = -1;
    if (chargee != documents || !Navigation::fenetrePrincipale()) {
        BasesBanc::utiliser(documents);
        Navigation::afficherPrincipale();
        QApplication::processEvents();
        chargee = documents;
    }
    return Navigation::fenetrePrincipale();
}

void compterOctets(benchmark::State &s, int documents) {
    qint64 octets = 0;
    for (int f = Exports::Html; f <= Exports::Xml; ++f) octets += QFileInfo(Exports::chemin(f)).size();
    s.counters["documents"] = documents;
    s.counters["Mo"] = double(octets) / 1e6;
}

// One file from the rows taken at once, as the window's thread writes it.
template <Exports::Format F>
void BM_Ecrire(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    const Exports::Instantane lignes(*f->MG);
    for (auto _ : s) benchmark::DoNotOptimize(Exports::creerFichier(F, lignes));
    s.counters["documents"] = double(s.range(0));
}

// Taking the rows of the grid: what the interface's thread pays before the writing.
void BM_PrendreLignes(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    for (auto _ : s) benchmark::DoNotOptimize(Exports::Instantane(*f->MG).nbLignes());
}

// The four files, from the rows taken to the last one renamed in place.
void BM_EcrireLesQuatre(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    for (auto _ : s) {
        EcritureExports e(*f->MG);
        e.attendre();
    }
    compterOctets(s, int(s.range(0)));
}

// The floor: the same bytes, made beforehand, written whole to the same four files.
void BM_PlancherDisque(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    const QByteArray contenus[] = {Exports::contenuHtm(*f->MG), Exports::contenuTxt(*f->MG), Exports::contenuCsv(*f->MG),
                                   Exports::contenuXml(*f->MG)};
    for (auto _ : s)
        for (int format = Exports::Html; format <= Exports::Xml; ++format)
            if (!FichierEntier::ecrire(Exports::chemin(format), contenus[format])) s.SkipWithError("write failed");
    compterOctets(s, int(s.range(0)));
}

// From the command to the window on screen, its export page and preview drawn (the
// start of the file, made from the first rows), and the event loop free again: the
// files are still being written.
void BM_OuvrirOptions(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    Reglages::ecrire(Reglages::Cle::Options, 0);
    for (auto _ : s) {
        auto *o = new FrmOptions(f, f->MG, &f->imgCONTENU);
        o->show();
        QApplication::processEvents();
        s.PauseTiming();
        if (o->WB->nbPieces() == 0) s.SkipWithError("empty preview");
        o->attendreExports();
        delete o;
        s.ResumeTiming();
    }
}

// From the command to the start of the export drawn in the preview.
void BM_ApercuPret(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    Reglages::ecrire(Reglages::Cle::Options, 0);
    for (auto _ : s) {
        auto *o = new FrmOptions(f, f->MG, &f->imgCONTENU);
        o->show();
        o->attendreExports();
        QApplication::processEvents();
        s.PauseTiming();
        if (o->WB->nbPieces() == 0) s.SkipWithError("empty preview");
        delete o;
        s.ResumeTiming();
    }
    compterOctets(s, int(s.range(0)));
}

// A click on the next format: the preview shows its start, drawn.
void BM_ChangerFormat(benchmark::State &s) {
    frmMain *f = principale(int(s.range(0)));
    Reglages::ecrire(Reglages::Cle::Options, 0);
    auto *o = new FrmOptions(f, f->MG, &f->imgCONTENU);
    o->show();
    o->attendreExports();
    QApplication::processEvents();
    int format = 0;
    for (auto _ : s) {
        format = (format + 1) % 4;
        o->OExport[size_t(format)]->click();
        o->WB->viewport()->repaint();
    }
    delete o;
}

// Opens the main window over n documents, then the options window, and prints the
// resident memory at each step: one process, one opening.
int mesurerMemoire(int documents) {
    frmMain *f = principale(documents);
    const long avant = BasesBanc::memoireKo();
    auto *o = new FrmOptions(f, f->MG, &f->imgCONTENU);
    o->show();
    QApplication::processEvents();
    const long ouverte = BasesBanc::memoireKo();
    o->attendreExports();
    QApplication::processEvents();
    const long ecrits = BasesBanc::memoireKo();
    for (int i : {1, 2, 3, 0}) {
        o->OExport[size_t(i)]->click();
        QApplication::processEvents();
    }
    const long formats = BasesBanc::memoireKo();
    std::printf(
        "documents %d: RSS with the main window %.1f MB; options shown +%.1f MB; files written +%.1f MB; "
        "after the four formats +%.1f MB (peak of the process %.1f MB)\n",
        documents, double(avant) / 1024, double(ouverte - avant) / 1024, double(ecrits - avant) / 1024,
        double(formats - avant) / 1024, double(BasesBanc::memoireKo("VmHWM:")) / 1024);
    delete o;
    Navigation::fermerTout();
    return 0;
}

void tailles(benchmark::internal::Benchmark *b) {
    b->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
}

}  // namespace

BENCHMARK(BM_OuvrirOptions)->Apply(tailles);
BENCHMARK(BM_ApercuPret)->Apply(tailles);
BENCHMARK(BM_ChangerFormat)->Apply(tailles);
BENCHMARK(BM_EcrireLesQuatre)->Apply(tailles);
BENCHMARK(BM_PlancherDisque)->Apply(tailles);
BENCHMARK(BM_PrendreLignes)->Apply(tailles);
BENCHMARK(BM_Ecrire<Exports::Html>)->Name("BM_CreerFicHtm")->Apply(tailles);
BENCHMARK(BM_Ecrire<Exports::Texte>)->Name("BM_CreerFicTxt")->Apply(tailles);
BENCHMARK(BM_Ecrire<Exports::Csv>)->Name("BM_CreerFicCsv")->Apply(tailles);
BENCHMARK(BM_Ecrire<Exports::Xml>)->Name("BM_CreerFicXml")->Apply(tailles);

int main(int argc, char **argv) {
    return Banc::lancer(argc, argv, Banc::Application::AvecFenetres, [](int n, char **arguments) {
        return n == 3 && std::strcmp(arguments[1], "--memoire") == 0 ? mesurerMemoire(std::atoi(arguments[2])) : -1;
    });
}
