#include "InstanceUnique.h"
#include "app/fenetres/Navigation.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/CopieBase.h"
#include "ui/fenetres/Messages.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Korvane"));
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    QTranslator traduction;
    if (traduction.load(QLocale(QLocale::French), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&traduction);

    QString raison;
    if (!Chemins::preparerDossierProgramme(&raison)) {
        Messages::information(raison);
        return 1;
    }
    // The command line is ignored, the path of an opened .kvx file included.
    InstanceUnique instance(Chemins::cheminBase());
    switch (instance.acquerir()) {
    case InstanceUnique::Resultat::Tenu:
        break;
    case InstanceUnique::Resultat::Occupe:
        Messages::information(QStringLiteral("Korvane est déjà ouvert."));
        return 0;
    case InstanceUnique::Resultat::Impossible:
        Messages::information(instance.raison());
        return 1;
    }
    try {
        const QString reprise = CopieBase::reprendreBaseVoisine();
        if (!reprise.isEmpty()) Messages::information(reprise);
        // A damaged base opens read-only, after a word on how to take the one before it.
        if (const QString avis = Base::preparerBase(); !avis.isEmpty()) Messages::information(avis);
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
        return 1;
    }
    Navigation::afficherLogin();
    const int code = app.exec();
    Navigation::finirSession();
    return code;
}
