#pragma once
// Where Korvane keeps its files: everything lives in the program's folder.

#include <QString>

namespace Chemins {

// The folder of the executable, unless a test has chosen another.
QString dossierProgramme();
void definirDossierProgramme(const QString &dossier);  // empty = back to the executable's folder

QString cheminBase();       // korvane.kvx
QString fichierIcoTmp();    // ico.tmp, scratch file for icon bytes
QString dossierEdition();   // edition, the export folder

}  // namespace Chemins
