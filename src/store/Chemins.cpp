#include "Chemins.h"

#include "FichierEntier.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace Chemins {

namespace {
QString &dossierChoisi() {
    static QString dossier;
    return dossier;
}

const Disposition &dispositionDuProgramme() {
    static const Disposition d = disposition(QCoreApplication::applicationDirPath());
    return d;
}
}  // namespace

Disposition disposition(const QString &dossierExecutable) {
    const QDir executable(dossierExecutable);
    const QString aideVoisine = executable.filePath(QStringLiteral("Aide"));
    const QString aideInstallee = QDir::cleanPath(executable.filePath(QStringLiteral("../share/korvane/Aide")));
    Disposition d;
    // A folder we may write into but laid out as an installation (make install into
    // ~/.local, or the administrator running the package) is an installation too.
    d.installe = !QFileInfo(dossierExecutable).isWritable() ||
                 (!QFileInfo::exists(aideVoisine) && QFileInfo(aideInstallee).isDir());
    QString donnees = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (donnees.isEmpty()) donnees = QDir::home().filePath(QStringLiteral(".local/share"));
    d.programme = d.installe ? QDir(donnees).filePath(QStringLiteral("Korvane")) : executable.absolutePath();
    d.aide = QFileInfo::exists(aideVoisine) ? aideVoisine : aideInstallee;
    return d;
}

QString dossierProgramme() {
    if (!dossierChoisi().isEmpty()) return dossierChoisi();
    return dispositionDuProgramme().programme;
}

void definirDossierProgramme(const QString &dossier) { dossierChoisi() = dossier; }

bool installe() { return dossierChoisi().isEmpty() && dispositionDuProgramme().installe; }

QString dossierAide() {
    if (!dossierChoisi().isEmpty()) return QDir(dossierChoisi()).filePath(QStringLiteral("Aide"));
    return dispositionDuProgramme().aide;
}

bool preparerDossierProgramme(QString *raison) {
    const QString dossier = dossierProgramme();
    // Made for Korvane, the user's alone, as the desktop's own rules ask for the data folders.
    if (FichierEntier::creerDossier(dossier)) return true;
    if (raison)
        *raison = QStringLiteral(
                      "Le dossier de Korvane %1 n'a pas pu être créé.\n"
                      "Vérifiez les droits de son dossier parent et la place libre sur le disque.")
                      .arg(QDir::toNativeSeparators(dossier));
    return false;
}

QString cheminBase() { return QDir(dossierProgramme()).filePath(QStringLiteral("korvane.kvx")); }
QString dossierEdition() { return QDir(dossierProgramme()).filePath(QStringLiteral("edition")); }

}  // namespace Chemins
