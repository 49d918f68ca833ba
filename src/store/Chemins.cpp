#include "Chemins.h"

#include <QCoreApplication>
#include <QDir>

namespace Chemins {

namespace {
QString &dossierChoisi() {
    static QString dossier;
    return dossier;
}
}  // namespace

QString dossierProgramme() {
    if (!dossierChoisi().isEmpty()) return dossierChoisi();
    return QCoreApplication::applicationDirPath();
}

void definirDossierProgramme(const QString &dossier) { dossierChoisi() = dossier; }

QString cheminBase() { return QDir(dossierProgramme()).filePath(QStringLiteral("korvane.kvx")); }
QString fichierIcoTmp() { return QDir(dossierProgramme()).filePath(QStringLiteral("ico.tmp")); }
QString dossierEdition() { return QDir(dossierProgramme()).filePath(QStringLiteral("edition")); }

}  // namespace Chemins
