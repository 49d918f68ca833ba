// One field of a document edited in place, in a main window of 100,000 documents:
// the write to the base by the row's keys, the cell, and the repaint.

#include "app/Navigation.h"
#include "grid/MyCoolGrid.h"
#include "store/Chemins.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "support/BaseExemple.h"
#include "ui/Messages.h"
#include "workspace/frmMain.h"
#include "Banc.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

void BM_EditerUnChamp(benchmark::State &s) {
    QTemporaryDir dossier;
    Chemins::definirDossierProgramme(dossier.path());
    Reglages::definirDossier(dossier.filePath(QStringLiteral("config")));
    Reglages::ecrire(Reglages::Cle::Demarrage, 1);
    Messages::preparerPourTests();
    Base::preparerBase();
    BaseExemple::remplir(1, 200, int(s.range(0)));
    Session::NumCompteCourant = 1;
    Session::Ouverte = true;
    Navigation::afficherPrincipale();
    frmMain *f = Navigation::fenetrePrincipale();
    QApplication::processEvents();
    const int ligne = f->MG->ligneParent(100) + 1;
    f->MG->SelectLine(ligne);
    int n = 0;
    for (auto _ : s) {
        const QString texte = QStringLiteral("identifiant %1").arg(++n);
        MajChampDocument(4, CrypterChamp(texte));
        f->MG->MajColumnInfos(ligne, 4, texte);
        QApplication::processEvents();
    }
    Navigation::fermerTout();
}

}  // namespace

BENCHMARK(BM_EditerUnChamp)->Arg(100000)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::AvecFenetres); }
