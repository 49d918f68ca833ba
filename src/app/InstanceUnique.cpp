#include "InstanceUnique.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

InstanceUnique::InstanceUnique(const QString &dossierProgramme) {
    QString dossier = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (dossier.isEmpty()) dossier = QDir::tempPath();
    const QByteArray empreinte =
        QCryptographicHash::hash(QDir(dossierProgramme).absolutePath().toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    verrou_ = std::make_unique<QLockFile>(QDir(dossier).filePath(QStringLiteral("korvane-%1.lock").arg(QString::fromLatin1(empreinte))));
    verrou_->setStaleLockTime(0);  // a lock left by a crashed copy is recognised by its dead process
}

InstanceUnique::~InstanceUnique() = default;

bool InstanceUnique::acquerir() { return verrou_->tryLock(0); }
