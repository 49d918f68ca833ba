#pragma once
// A program folder, a base and settings of the test's own, never the user's.

#include "support/ImpressionQt.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "ui/Messages.h"

#include <QString>
#include <QTemporaryDir>

class EnvironnementTest {
public:
    explicit EnvironnementTest(bool avecBase = true) {
        Chemins::definirDossierProgramme(dossier.path());
        Reglages::definirDossier(dossier.filePath(QStringLiteral("config")));
        Session::reinitialiser();
        Messages::preparerPourTests();
        if (avecBase) Base::preparerBase();
    }
    ~EnvironnementTest() {
        Chemins::definirDossierProgramme(QString());
        Reglages::definirDossier(QString());
    }
    QString chemin(const QString &nom) const { return dossier.filePath(nom); }

    QTemporaryDir dossier;
};
