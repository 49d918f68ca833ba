// The caption language over a menu's worth of captions many times over: 10,000
// captions split, and five attributes read from each.

#include "menus/Legende.h"
#include "Banc.h"

#include <QCoreApplication>
#include <QStringList>
#include <benchmark/benchmark.h>

namespace {

constexpr int kLegendes = 10000;

// Items with a picture, a tip and a shortcut, bars, sidebars and plain texts, mixed.
QStringList legendes() {
    QStringList l;
    l.reserve(kLegendes);
    for (int i = 0; i < kLegendes; ++i) {
        switch (i % 4) {
        case 0: l.append(QStringLiteral("Élément n° %1{IMG:i%2|Tip:Choisir l'icône %1|Default}\tCtrl+%3").arg(i).arg(i % 50).arg(i % 10)); break;
        case 1: l.append(QStringLiteral("-Groupe %1{Raised|FSize:12}").arg(i)); break;
        case 2:
            l.append(QStringLiteral("{Sidebar|Text:Korvane %1|FColor:8388608|BColor:12615680|Font:Times New Roman|FSize:14|Bold}").arg(i));
            break;
        default: l.append(QStringLiteral("Document %1 sans attribut").arg(i)); break;
        }
    }
    return l;
}

void BM_SepareEtLit(benchmark::State &s) {
    const QStringList l = legendes();
    const QString cles[] = {QStringLiteral("IMG:"), QStringLiteral("Tip:"), QStringLiteral("FSize:"), QStringLiteral("Bold"),
                            QStringLiteral("Raised")};
    QString texte, bloc, raccourci;
    qsizetype lus = 0;
    for (auto _ : s) {
        for (const QString &legende : l) {
            modMenus::SepareLegende(legende, texte, bloc, raccourci);
            for (const QString &cle : cles) lus += modMenus::LireAttribut(bloc, cle).size();
        }
        benchmark::DoNotOptimize(lus);
    }
    s.counters["legendes"] = kLegendes;
    s.counters["attributs"] = kLegendes * 5;
}
BENCHMARK(BM_SepareEtLit)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::SansEcran); }
