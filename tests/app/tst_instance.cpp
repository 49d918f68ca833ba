// One running copy: a second start says so and touches nothing.

#include "app/InstanceUnique.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class TestInstance : public QObject {
    Q_OBJECT
private slots:
    void uneSeuleCopieParDossier() {
        QTemporaryDir a, b;
        InstanceUnique premiere(a.path());
        QVERIFY(premiere.acquerir());
        InstanceUnique seconde(a.path());
        QVERIFY(!seconde.acquerir());
        InstanceUnique ailleurs(b.path());
        QVERIFY(ailleurs.acquerir());
    }

    void uneSecondeCopieSArreteSansRienToucher() {
        const QString binaire = qEnvironmentVariable("KORVANE_BIN");
        if (binaire.isEmpty() || !QFile::exists(binaire)) QSKIP("korvane executable not given");
        QTemporaryDir dossier;
        const QString copie = dossier.filePath(QStringLiteral("korvane"));
        QVERIFY(QFile::copy(binaire, copie));
        InstanceUnique tenue(dossier.path());
        QVERIFY(tenue.acquerir());

        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("KORVANE_MESSAGES_SANS_FENETRE"), QStringLiteral("1"));
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), dossier.filePath(QStringLiteral("config")));
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
