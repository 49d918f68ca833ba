#pragma once
// Where Korvane keeps its files. Run from a folder it may write to (the build folder,
// a portable copy), everything lives beside the executable. Installed, the program's
// folder is the user's own $XDG_DATA_HOME/Korvane and the help pages come with the package.

#include <QString>

namespace Chemins {

// Where the files go for an executable that sits in dossierExecutable.
struct Disposition {
    bool installe = false;  // its folder can't be written to, or is laid out as an installation
    QString programme;      // base, .bak, lock, edition
    QString aide;           // the help pages
};
Disposition disposition(const QString &dossierExecutable);

// The program's folder of this run, unless a test has chosen another.
QString dossierProgramme();
void definirDossierProgramme(const QString &dossier);  // empty = back to the executable's own
bool installe();
QString dossierAide();

// Makes the program's folder when it is missing, for the user alone (0700). False,
// with the French reason, when it can't be made.
bool preparerDossierProgramme(QString *raison);

QString cheminBase();      // korvane.kvx
QString dossierEdition();  // edition, the export folder

}  // namespace Chemins
