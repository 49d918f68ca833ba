#pragma once
// The bases of the benchmarks that open the main window: 200 folders and n documents
// in account 1, each size built once a run, and the resident memory of the process.

#include "store/Base.h"
#include "store/Chemins.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "support/BaseExemple.h"
#include "ui/fenetres/Messages.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>
#include <memory>

namespace BasesBanc {

// With KORVANE_BANC_BASES set, the bases are kept in that folder from one run to the
// next (a profile of the loading alone).
struct Environnement {
    QTemporaryDir temporaire;
    QString chemin;
    explicit Environnement(int documents) {
        const QString garde = qEnvironmentVariable("KORVANE_BANC_BASES");
        chemin = garde.isEmpty() ? temporaire.path() : garde + u'/' + QString::number(documents);
        const bool existe = !garde.isEmpty() && QFile::exists(chemin + QStringLiteral("/korvane.kvx"));
        QDir().mkpath(chemin);
        Chemins::definirDossierProgramme(chemin);
        Reglages::definirDossier(chemin + QStringLiteral("/config"));
        Reglages::ecrire(Reglages::Cle::Demarrage, 1);
        Messages::preparerPourTests();
        Base::preparerBase();
        if (documents > 0 && !existe) BaseExemple::remplir(1, 200, documents);
        Session::NumCompteCourant = 1;
        Session::LoginCourant = QStringLiteral("banc");
        Session::Ouverte = true;
    }
};

// The program's folder and settings of the base of that size.
inline void utiliser(int documents) {
    static QMap<int, std::shared_ptr<Environnement>> bases;
    if (!bases.contains(documents)) bases.insert(documents, std::make_shared<Environnement>(documents));
    const auto &e = bases[documents];
    Chemins::definirDossierProgramme(e->chemin);
    Reglages::definirDossier(e->chemin + QStringLiteral("/config"));
}

// The line "VmRSS" (resident now) or "VmHWM" (the peak) of /proc/self/status, in kB.
inline long memoireKo(const char *cle = "VmRSS:") {
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray &ligne : f.readAll().split('\n'))
        if (ligne.startsWith(cle)) return ligne.mid(int(qstrlen(cle))).trimmed().split(' ').value(0).toLong();
    return -1;
}

}  // namespace BasesBanc
