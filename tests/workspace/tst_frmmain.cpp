// The main window's start: the first start of a user registers .kvx files, once.

#include "app/Navigation.h"
#include "support/EnvironnementTest.h"
#include "workspace/frmMain.h"

#include <QDir>
#include <QTest>
#include <memory>

class TestFrmMain : public QObject {
    Q_OBJECT
private slots:
    void lAssociationSeFaitAuPremierDemarrageSeulement() {
        EnvironnementTest env;
        const QString entree = QDir(qEnvironmentVariable("XDG_DATA_HOME")).filePath(QStringLiteral("applications/korvane.desktop"));
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::Demarrage), 0);
        Navigation::afficherPrincipale();
        QVERIFY(QFile::exists(entree));
        QCOMPARE(Reglages::lireNombre(Reglages::Cle::Demarrage), 1);
        QCOMPARE(Session::ModeLogin, std::optional<int>(0));

        QFile::remove(entree);
        Navigation::afficherPrincipale();
        QVERIFY(!QFile::exists(entree));
        Navigation::fermerTout();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

QTEST_MAIN(TestFrmMain)
#include "tst_frmmain.moc"
