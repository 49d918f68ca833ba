#include "PressePapiers.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMimeData>

PressePapiers &PressePapiers::instance() {
    static PressePapiers *unique = new PressePapiers;
    return *unique;
}

PressePapiers::PressePapiers() {
    minuterie_.setInterval(1000);
    connect(&minuterie_, &QTimer::timeout, this, &PressePapiers::seconde);
    // A copy must not outlive the program.
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { effacerSiIntact(); });
}

QMimeData *PressePapiers::donnees(const QString &texte, bool secret) {
    auto *d = new QMimeData;
    d->setText(texte);
    if (secret) d->setData(QString::fromLatin1(kTypeIndice), QByteArrayLiteral("secret"));
    return d;
}

void PressePapiers::copier(const QString &texte, bool secret, int delaiSecondes) {
    // The clipboard only: a selection would hand the text to the next middle click.
    QGuiApplication::clipboard()->setMimeData(donnees(texte, secret), QClipboard::Clipboard);
    copie_ = texte;
    restantes_ = qMax(0, delaiSecondes);
    if (restantes_ > 0)
        minuterie_.start();
    else
        minuterie_.stop();
    emit compteARebours(restantes_);
}

bool PressePapiers::contientCopie() const {
    const QMimeData *d = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    return !copie_.isEmpty() && d && d->hasText() && d->text() == copie_;
}

bool PressePapiers::effacerSiIntact() {
    const bool efface = contientCopie();
    if (efface) QGuiApplication::clipboard()->clear(QClipboard::Clipboard);
    copie_.clear();
    minuterie_.stop();
    const bool attendait = restantes_ > 0;
    restantes_ = 0;
    if (attendait) emit compteARebours(0);
    return efface;
}

void PressePapiers::seconde() {
    // What the user copied since, from Korvane or elsewhere, stays.
    if (!contientCopie()) {
        effacerSiIntact();
        return;
    }
    if (--restantes_ > 0) {
        emit compteARebours(restantes_);
        return;
    }
    restantes_ = 1;  // so that the clearing tells its end
    effacerSiIntact();
}
