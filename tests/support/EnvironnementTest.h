#pragma once
// A program folder, a base and settings of the test's own, never the user's.

#include "support/ImpressionQt.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/Reglages.h"
#include "store/Session.h"
// Window tests get the windows' hooks too; logic tests can't reach them.
#if __has_include(<QWidget>)
#define KORVANE_TEST_FENETRES
#include "ui/fenetres/ChoixFichier.h"
#include "ui/fenetres/FenetreCadre.h"
#include "ui/fenetres/Messages.h"
#endif

#include <QFile>
#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <sys/stat.h>

class EnvironnementTest {
public:
    explicit EnvironnementTest(bool avecBase = true) {
        Chemins::definirDossierProgramme(dossier.path());
        // The desktop's folders too: the file association writes there.
        for (const char *variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
            anciens.append(qgetenv(variable));
            qputenv(variable, QFile::encodeName(dossier.filePath(QString::fromLatin1(variable).toLower())));
        }
        Reglages::definirDossier(dossier.filePath(QStringLiteral("config")));
        Session::reinitialiser();
#ifdef KORVANE_TEST_FENETRES
        Messages::preparerPourTests();
        ChoixFichier::preparerPourTests();
#endif
        if (avecBase) Base::preparerBase();
    }
    ~EnvironnementTest() {
        qputenv("XDG_DATA_HOME", anciens.value(0));
        qputenv("XDG_CONFIG_HOME", anciens.value(1));
        Chemins::definirDossierProgramme(QString());
        Reglages::definirDossier(QString());
    }
    QString chemin(const QString &nom) const { return dossier.filePath(nom); }
    // The file's bytes, empty when it can't be read.
    static QByteArray octets(const QString &chemin) {
        QFile f(chemin);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    // The file's mode bits (0600...), or -1 when it is missing.
    static int mode(const QString &chemin) {
        struct stat st {};
        return ::stat(QFile::encodeName(chemin).constData(), &st) == 0 ? int(st.st_mode & 07777) : -1;
    }

    QTemporaryDir dossier;

private:
    QList<QByteArray> anciens;
};

#ifdef KORVANE_TEST_FENETRES
// While it lives, runs the steps on each modal window of type W, once the window's
// loop runs; a window the steps leave open is closed. Other windows are left alone.
template <typename W>
class SurModale {
public:
    explicit SurModale(std::function<void(W *)> etapes) {
        FenetreCadre::definirPreparationModale([this, etapes](FenetreCadre *fenetre) {
            auto *w = qobject_cast<W *>(fenetre);
            if (!w) return;
            QTimer::singleShot(0, w, [this, etapes, w] {
                ++venues;
                etapes(w);
                if (w->isVisible()) w->close();
            });
        });
    }
    ~SurModale() { FenetreCadre::definirPreparationModale(nullptr); }
    SurModale(const SurModale &) = delete;
    SurModale &operator=(const SurModale &) = delete;

    int venues = 0;
};
#endif
