// The window kit: latching picture buttons, the clipboard's clearing.

#include "ui/fenetres/BoutonImage.h"
#include "ui/PressePapiers.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

class TestKit : public QObject {
    Q_OBJECT
private slots:
    void unBoutonResteEnfonceJusquAuGestionnaire() {
        BoutonImage b;
        b.resize(30, 30);
        b.show();
        int actions = 0;
        connect(&b, &QAbstractButton::clicked, &b, [&] {
            if (!b.estEnfonce()) return;
            ++actions;
            b.relacher();
        });
        QTest::mouseClick(&b, Qt::LeftButton);
        QCOMPARE(actions, 1);
        QVERIFY(!b.estEnfonce());
        // A handler that does not release leaves it latched; the next click then does nothing.
        disconnect(&b, nullptr, nullptr, nullptr);
        QTest::mouseClick(&b, Qt::LeftButton);
        QVERIFY(b.estEnfonce());
        connect(&b, &QAbstractButton::clicked, &b, [&] {
            if (b.estEnfonce()) ++actions;
        });
        QTest::mouseClick(&b, Qt::LeftButton);
        QCOMPARE(actions, 1);
    }

    void lePressePapiersNEffaceQueSaPropreCopie() {
        PressePapiers &p = PressePapiers::instance();
        QClipboard *c = QGuiApplication::clipboard();
        const QString indice = QString::fromLatin1(PressePapiers::kTypeIndice);
        p.copier(QStringLiteral("s3cret"), true, 1);
        QCOMPARE(c->mimeData()->data(indice), QByteArrayLiteral("secret"));
        QCOMPARE(p.secondesRestantes(), 1);
        QTRY_COMPARE_WITH_TIMEOUT(c->text(), QString(), 2500);
        QCOMPARE(p.secondesRestantes(), 0);
        // What was copied since, from elsewhere, stays; a login carries no hint.
        p.copier(QStringLiteral("moi"), false, 1);
        QVERIFY(!c->mimeData()->hasFormat(indice));
        c->setText(QStringLiteral("autre"));
        QTRY_COMPARE_WITH_TIMEOUT(p.secondesRestantes(), 0, 2500);
        QCOMPARE(c->text(), QStringLiteral("autre"));
        // At once (quit, change of account): only its own text; 0 never clears by itself.
        p.copier(QStringLiteral("s3cret"), true, 0);
        QCOMPARE(p.secondesRestantes(), 0);
        QVERIFY(p.effacerSiIntact());
        QCOMPARE(c->text(), QString());
        c->setText(QStringLiteral("autre"));
        QVERIFY(!p.effacerSiIntact());
        QCOMPARE(c->text(), QStringLiteral("autre"));
    }
};

QTEST_MAIN(TestKit)
#include "tst_kit.moc"
