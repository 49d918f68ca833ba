// The cost of opening the base: with the key derived once per file, against the
// passphrase that makes every open derive it again.

#include "store/Base.h"
#include "store/Chemins.h"
#include "Banc.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlcipher/sqlite3.h>

namespace {

struct BaseTemporaire {
    QTemporaryDir dossier;
    BaseTemporaire() {
        Chemins::definirDossierProgramme(dossier.path());
        Base::Connexion c(Chemins::cheminBase(), true);
        c.executer("CREATE TABLE Compte (NumCompte INTEGER, Login TEXT, Pass TEXT);");
    }
};

BaseTemporaire &base() {
    static BaseTemporaire b;
    return b;
}

void BM_OuvertureConnexion(benchmark::State &s) {
    base();
    { Base::Connexion premiere; }  // the first open pays for the key
    for (auto _ : s) {
        Base::Connexion c;
        Base::Requete r(c, "SELECT count(*) FROM Compte");
        benchmark::DoNotOptimize(r.suivante());
    }
}

void BM_OuverturePhrase(benchmark::State &s) {
    const QByteArray chemin = QFile::encodeName(Chemins::cheminBase());
    base();
    for (auto _ : s) {
        sqlite3 *db = nullptr;
        sqlite3_open_v2(chemin.constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_exec(db, "PRAGMA key='Tarvex'; SELECT count(*) FROM Compte;", nullptr, nullptr, nullptr);
        sqlite3_close(db);
    }
}

}  // namespace

BENCHMARK(BM_OuvertureConnexion)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_OuverturePhrase)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::SansEcran); }
