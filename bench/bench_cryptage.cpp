// The field cipher on a full 255-character field, against a plain linear scan of the table.

#include "store/Cryptage.h"

#include <benchmark/benchmark.h>

namespace {

QString champ255() {
    const QString motif = QStringLiteral("Mon compte: Jean.Dupont@exemple.fr / P@ssw0rd_2026! ");
    QString t;
    while (t.size() < 255) t += motif;
    return t.left(255);
}

// The straightforward way: each character compared with each row in table order.
QString crypterLineaire(const QString &texte) {
    const auto &table = Cryptage::TableCodes();
    QString r;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const QString c = texte.mid(i, 1);
        QString morceau = c;
        for (const auto &l : table)
            if (QString(QChar(l.clair)) == c) {
                morceau = QString::fromUtf16(l.code, 3);
                break;
            }
        r += morceau;
    }
    return r;
}

QString decrypterLineaire(const QString &texte) {
    const auto &table = Cryptage::TableCodes();
    QString r;
    for (qsizetype i = 0; i < texte.size(); i += 3) {
        const QString morceau = texte.mid(i, 3);
        QString plain = morceau;
        for (const auto &l : table)
            if (QString::fromUtf16(l.code, 3) == morceau) {
                plain = QString(QChar(l.clair));
                break;
            }
        r += plain;
    }
    return r;
}

void BM_CrypterChamp(benchmark::State &s) {
    const QString t = champ255();
    for (auto _ : s) benchmark::DoNotOptimize(CrypterChamp(t));
}
void BM_CrypterLineaire(benchmark::State &s) {
    const QString t = champ255();
    for (auto _ : s) benchmark::DoNotOptimize(crypterLineaire(t));
}
void BM_DecrypterChamp(benchmark::State &s) {
    const QString t = CrypterChamp(champ255());
    for (auto _ : s) benchmark::DoNotOptimize(DecrypterChamp(t));
}
void BM_DecrypterLineaire(benchmark::State &s) {
    const QString t = CrypterChamp(champ255());
    for (auto _ : s) benchmark::DoNotOptimize(decrypterLineaire(t));
}

}  // namespace

BENCHMARK(BM_CrypterChamp);
BENCHMARK(BM_CrypterLineaire);
BENCHMARK(BM_DecrypterChamp);
BENCHMARK(BM_DecrypterLineaire);
BENCHMARK_MAIN();
