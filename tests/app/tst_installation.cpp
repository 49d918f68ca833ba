// Korvane installed as its package installs it, into a root of the test's own, and run
// from there headless with a home folder of its own.

#include "store/Base.h"
#include "store/Chemins.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <functional>

namespace {

QByteArray lire(const QString &chemin) {
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

}  // namespace

class TestInstallation : public QObject {
    Q_OBJECT

    QTemporaryDir racine_;

    QString installe(const QString &chemin) const { return racine_.filePath(QStringLiteral("usr/") + chemin); }

    // Runs the installed program with maison as its home until attendu() holds, then ends
    // it as a logout would. What it said on its error output comes back.
    QString lancer(const QString &maison, const std::function<bool()> &attendu) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *v : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
            env.remove(QString::fromLatin1(v));
        env.insert(QStringLiteral("HOME"), maison);
        const QString session = QDir(maison).filePath(QStringLiteral("session"));
        QDir().mkpath(session);
        QFile::setPermissions(session, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), session);
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("KORVANE_MESSAGES_SANS_FENETRE"), QStringLiteral("1"));
        QProcess p;
        p.setProcessEnvironment(env);
        p.start(installe(QStringLiteral("bin/korvane")), {});
        p.waitForStarted();
        const QDeadlineTimer limite(30000);
        while (!attendu() && p.state() == QProcess::Running && !limite.hasExpired()) QTest::qWait(50);
        p.terminate();
        p.waitForFinished(10000);
        return QString::fromUtf8(p.readAllStandardError());
    }

private slots:
    void initTestCase() {
        const QString binaire = qEnvironmentVariable("KORVANE_BIN");
        if (binaire.isEmpty() || !QFile::exists(binaire)) QSKIP("korvane executable not given");
        QDir construction = QFileInfo(binaire).dir();
        construction.cdUp();
        QProcess cmake;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DESTDIR"), racine_.path());
        cmake.setProcessEnvironment(env);
        cmake.start(QStringLiteral("cmake"), {QStringLiteral("--install"), construction.path(), QStringLiteral("--prefix"), QStringLiteral("/usr")});
        QVERIFY(cmake.waitForFinished(120000));
        QVERIFY2(cmake.exitCode() == 0, cmake.readAllStandardError().constData());
    }

    void chaqueFichierASaPlace() {
        for (const char *chemin : {"bin/korvane", "share/applications/korvane.desktop", "share/mime/packages/korvane.xml"})
            QVERIFY2(QFile::exists(installe(QString::fromLatin1(chemin))), chemin);
        // The installed program's own reading of where it stands: even in a folder it
        // could write into, the layout says installed.
        const Chemins::Disposition d = Chemins::disposition(installe(QStringLiteral("bin")));
        QVERIFY(d.installe);
        QCOMPARE(d.programme, QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)).filePath(QStringLiteral("Korvane")));
        QVERIFY(QFile::exists(QDir(d.aide).filePath(QStringLiteral("index.htm"))));
        QCOMPARE(QFileInfo(d.aide).canonicalFilePath(), QFileInfo(installe(QStringLiteral("share/korvane/Aide"))).canonicalFilePath());
        // The build folder keeps everything beside the executable.
        const QString bin = QFileInfo(qEnvironmentVariable("KORVANE_BIN")).absolutePath();
        QCOMPARE(Chemins::disposition(bin).programme, bin);
    }

    void laBaseVitDansLesDonneesDeLUtilisateur() {
        QTemporaryDir maison;
        const QDir donnees(maison.filePath(QStringLiteral(".local/share")));
        const QString base = donnees.filePath(QStringLiteral("Korvane/korvane.kvx"));
        lancer(maison.path(), [&] { return QFile::exists(base); });
        QCOMPARE(EnvironnementTest::mode(base), 0600);
        QCOMPARE(EnvironnementTest::mode(donnees.filePath(QStringLiteral("Korvane"))), 0700);
        QCOMPARE(QDir(installe(QStringLiteral("bin"))).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("korvane")});

        // An account without password opens by itself: the main window then stands on the
        // base found again, and registers the file type the installed way.
        QVERIFY(BaseSql::executer(base, QStringLiteral("INSERT INTO Compte VALUES (1, 'claire', '')")));
        // What a copy run from a build folder wrote before the package came.
        const QString entree = donnees.filePath(QStringLiteral("applications/korvane.desktop"));
        QDir().mkpath(QFileInfo(entree).absolutePath());
        QFile portable(entree);
        QVERIFY(portable.open(QIODevice::WriteOnly));
        portable.write(lire(installe(QStringLiteral("share/applications/korvane.desktop")))
                           .replace("\nExec=korvane %f", "\nExec=\"/home/claire/korvane/build/bin/korvane\" %f"));
        portable.close();
        const QString liste = maison.filePath(QStringLiteral(".config/mimeapps.list"));
        const QString dit = lancer(maison.path(), [&] { return lire(liste).contains("application/x-korvane=korvane.desktop\n"); });
        QVERIFY2(lire(liste).contains("application/x-korvane=korvane.desktop\n"), qPrintable(dit));
        QVERIFY(!QFile::exists(entree));
        QCOMPARE(BaseSql::lignes(base, QStringLiteral("SELECT Login FROM Compte")), QStringList{QStringLiteral("claire")});
    }

    void uneBaseLaisseeAcoteDuProgrammeEstCopieeJamaisEcrasee() {
        QTemporaryDir maison, ailleurs;
        const QString voisine = installe(QStringLiteral("bin/korvane.kvx"));
        const QString base = maison.filePath(QStringLiteral(".local/share/Korvane/korvane.kvx"));
        Base::preparerBase(ailleurs.filePath(QStringLiteral("korvane.kvx")));
        QVERIFY(BaseSql::executer(ailleurs.filePath(QStringLiteral("korvane.kvx")), QStringLiteral("INSERT INTO Compte VALUES (1, 'portable', 'x')")));
        QVERIFY(QFile::copy(ailleurs.filePath(QStringLiteral("korvane.kvx")), voisine));
        const QByteArray octets = lire(voisine);

        QString dit = lancer(maison.path(), [&] { return QFile::exists(base); });
        QVERIFY2(dit.contains(QStringLiteral("l'originale n'a pas été modifiée")), qPrintable(dit));
        QCOMPARE(lire(base), octets);
        QCOMPARE(EnvironnementTest::mode(base), 0600);

        // Once the user has a base of their own, the one beside the program never replaces
        // it: the user's account, without password, opens the main window.
        QVERIFY(BaseSql::executer(voisine, QStringLiteral("UPDATE Compte SET Login = 'autre'")));
        QVERIFY(BaseSql::executer(base, QStringLiteral("UPDATE Compte SET Pass = ''")));
        const QString liste = maison.filePath(QStringLiteral(".config/mimeapps.list"));
        dit = lancer(maison.path(), [&] { return QFile::exists(liste); });
        QVERIFY2(QFile::exists(liste), qPrintable(dit));
        QCOMPARE(BaseSql::lignes(base, QStringLiteral("SELECT Login FROM Compte")), QStringList{QStringLiteral("portable")});
        QVERIFY2(!dit.contains(QStringLiteral("copiée")), qPrintable(dit));
        QVERIFY(QFile::remove(voisine));
    }
};

QTEST_MAIN(TestInstallation)
#include "tst_installation.moc"
