// One running copy: a second start says so and touches nothing.

#include "app/InstanceUnique.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class TestInstance : public QObject {
    Q_OBJECT
private slots:
    void uneSeuleCopieParBase() {
        QTemporaryDir a, b;
        const QString base = a.filePath(QStringLiteral("korvane.kvx"));
        {
            InstanceUnique premiere(base);
            QVERIFY(premiere.acquerir());
            InstanceUnique seconde(base);
            QVERIFY(!seconde.acquerir());
            InstanceUnique ailleurs(b.filePath(QStringLiteral("korvane.kvx")));
            QVERIFY(ailleurs.acquerir());
        }
        // The lock goes with the copy that held it.
        InstanceUnique suivante(base);
        QVERIFY(suivante.acquerir());
    }

    void uneSecondeCopieSArreteSansRienToucher() {
        const QString binaire = qEnvironmentVariable("KORVANE_BIN");
        if (binaire.isEmpty() || !QFile::exists(binaire)) QSKIP("korvane executable not given");
        QTemporaryDir dossier;
        const QString copie = dossier.filePath(QStringLiteral("korvane"));
        QVERIFY(QFile::copy(binaire, copie));
        InstanceUnique tenue(dossier.filePath(QStringLiteral("korvane.kvx")));
        QVERIFY(tenue.acquerir());

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
