#pragma once
// A small disk of the test's own, filled to its last block: a tmpfs mounted in a
// mount namespace private to the test, so that it goes with the process whatever
// happens. Only an account that may mount (root, as the build machine runs) gets one.

#include <QFile>
#include <QString>
#include <sched.h>
#include <sys/mount.h>

class DisquePlein {
public:
    explicit DisquePlein(const QString &dossier) : dossier_(QFile::encodeName(dossier)) {
        pret_ = ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                ::mount("tmpfs", dossier_.constData(), "tmpfs", 0, "size=512k") == 0;
    }
    ~DisquePlein() {
        if (pret_) ::umount2(dossier_.constData(), MNT_DETACH);
    }
    bool pret() const { return pret_; }
    // Takes every block still free but laisser bytes: a write then fails half way.
    void remplir(qint64 laisser = 0) {
        QFile f(QFile::decodeName(dossier_) + QStringLiteral("/remplissage"));
        if (!f.open(QIODevice::Append | QIODevice::Unbuffered)) return;
        const QByteArray bloc(4096, '\0');
        while (f.write(bloc) > 0) {
        }
        f.resize(qMax<qint64>(0, f.size() - laisser));
    }

private:
    QByteArray dossier_;
    bool pret_ = false;
};
