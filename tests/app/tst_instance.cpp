// One running copy: a second start says so and touches nothing.

#include "app/InstanceUnique.h"
#include "support/EnvironnementTest.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

class TestInstance : public QObject {
    Q_OBJECT
private slots:
    void uneSeuleCopieParBase() {
        QTemporaryDir a, b;
        const QString base = a.filePath(QStringLiteral("korvane.kvx"));
        using R = InstanceUnique::Resultat;
        {
            // The lock is the owner's alone, whatever the umask.
            const mode_t ancien = ::umask(0);
            InstanceUnique premiere(base);
            const R r = premiere.acquerir();
            ::umask(ancien);
            QCOMPARE(r, R::Tenu);
            QCOMPARE(EnvironnementTest::mode(base + QStringLiteral(".lock")), 0600);
            InstanceUnique seconde(base);
            QCOMPARE(seconde.acquerir(), R::Occupe);
            InstanceUnique ailleurs(b.filePath(QStringLiteral("korvane.kvx")));
            QCOMPARE(ailleurs.acquerir(), R::Tenu);
        }
        // The lock goes with the copy that held it; one left readable by others is narrowed.
        QVERIFY(QFile::setPermissions(base + QStringLiteral(".lock"), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                                          QFileDevice::ReadGroup | QFileDevice::ReadOther));
        InstanceUnique suivante(base);
        QCOMPARE(suivante.acquerir(), R::Tenu);
        QCOMPARE(EnvironnementTest::mode(base + QStringLiteral(".lock")), 0600);

        // A lock that can't be taken is said, never passed over.
        QVERIFY(QDir(b.path()).mkdir(QStringLiteral("autre.kvx.lock")));
        InstanceUnique sansVerrou(b.filePath(QStringLiteral("autre.kvx")));
        QCOMPARE(sansVerrou.acquerir(), R::Impossible);
        QVERIFY(sansVerrou.raison().contains(QStringLiteral("autre.kvx.lock")));
        InstanceUnique sansDossier(b.filePath(QStringLiteral("absent/korvane.kvx")));
        QCOMPARE(sansDossier.acquerir(), R::Impossible);
    }

    void uneSecondeCopieSArreteSansRienToucher() {
        const QString binaire = qEnvironmentVariable("KORVANE_BIN");
        if (binaire.isEmpty() || !QFile::exists(binaire)) QSKIP("korvane executable not given");
        QTemporaryDir dossier;
        const QString copie = dossier.filePath(QStringLiteral("korvane"));
        QVERIFY(QFile::copy(binaire, copie));
        InstanceUnique tenue(dossier.filePath(QStringLiteral("korvane.kvx")));
        QCOMPARE(tenue.acquerir(), InstanceUnique::Resultat::Tenu);

        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("KORVANE_MESSAGES_SANS_FENETRE"), QStringLiteral("1"));
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), dossier.filePath(QStringLiteral("config")));
        // Another desktop session, or another user: the lock is on the base, not the session.
        QVERIFY(QDir().mkpath(dossier.filePath(QStringLiteral("session"))));
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), dossier.filePath(QStringLiteral("session")));
        p.setProcessEnvironment(env);
        p.start(copie, {});
        QVERIFY(p.waitForFinished(20000));
        QCOMPARE(p.exitStatus(), QProcess::NormalExit);
        QVERIFY2(QString::fromUtf8(p.readAllStandardError()).contains(QStringLiteral("Korvane est déjà ouvert.")),
                 "no message about the running copy");
        QVERIFY(!QFile::exists(dossier.filePath(QStringLiteral("korvane.kvx"))));
    }
};

QTEST_MAIN(TestInstance)
#include "tst_instance.moc"
