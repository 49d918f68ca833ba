// "Valider" of the icon page over a library of 500 icons: the whole click (every icon
// resampled and written, then the grid of 1,000 documents repainted), the save alone
// from pictures of 32 by 32, and the floor: one bare query reading the same rows.

#include "app/fenetres/Navigation.h"
#include "grid/ListeImages.h"
#include "options/BibliothequeIcones.h"
#include "options/fenetres/FrmOptions.h"
#include "store/Chemins.h"
#include "store/IconesStock.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "support/BaseExemple.h"
#include "ui/fenetres/Messages.h"
#include "workspace/fenetres/frmMain.h"
#include "Banc.h"

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int kIcones = 500;

// A picture of 32 by 32 different for each number, as files of users are.
QImage dessin(int n) {
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor::fromHsv(n * 37 % 360, 180, 220));
    p.drawEllipse(2 + n % 5, 2, 26 - n % 5, 28);
    p.drawText(QRect(0, 0, 32, 32), Qt::AlignCenter, QString::number(n % 100));
    return image;
}

struct Environnement {
    QTemporaryDir dossier;
    Environnement() {
        Chemins::definirDossierProgramme(dossier.path());
        Reglages::definirDossier(dossier.filePath(QStringLiteral("config")));
        Reglages::ecrire(Reglages::Cle::Demarrage, 1);
        Messages::preparerPourTests();
        Base::preparerBase();
        BaseExemple::remplir(1, 20, 1000);
        Base::Connexion c;
        c.debutTransaction();
        for (int n = 7; n <= kIcones; ++n)
            Base::Requete(c, "INSERT INTO Icones (Num, ico, Libelle) VALUES (?, ?, ?)")
                .lier(1, n)
                .lierOctets(2, IconesStock::octetsPng(dessin(n)))
                .lier(3, QStringLiteral("Icône %1").arg(n))
                .executer();
        c.valider();
        Session::NumCompteCourant = 1;
        Session::LoginCourant = QStringLiteral("banc");
        Session::Ouverte = true;
    }
};

Environnement &environnement() {
    static Environnement e;
    return e;
}

void BM_Valider(benchmark::State &s) {
    environnement();
    Navigation::afficherPrincipale();
    frmMain *f = Navigation::fenetrePrincipale();
    FrmOptions options(f, f->MG, &f->imgCONTENU);
    for (auto _ : s) options.ValDivers[2]->click();
    s.counters["icones"] = f->imgCONTENU.nombre();
    options.close();
    Navigation::fermerTout();
}

void BM_MajIcones(benchmark::State &s) {
    environnement();
    ListeImages source;
    source.chargerBase();
    for (int n = 1; n <= source.nombre(); ++n) source.remplacerImage(n, dessin(n));
    for (auto _ : s) {
        ListeImages liste = source;
        BibliothequeIcones::MajIcones(liste);
    }
    s.counters["icones"] = source.nombre();
}

void BM_RequeteNue(benchmark::State &s) {
    environnement();
    for (auto _ : s) {
        Base::Connexion c;
        Base::Requete r(c, "SELECT Num, ico, Libelle FROM Icones ORDER BY Num, Libelle");
        int n = 0;
        while (r.suivante()) {
            benchmark::DoNotOptimize(r.octets(1));
            ++n;
        }
        benchmark::DoNotOptimize(n);
    }
}

}  // namespace

BENCHMARK(BM_Valider)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MajIcones)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RequeteNue)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::AvecFenetres); }
