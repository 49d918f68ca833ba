#include "InstanceUnique.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

InstanceUnique::InstanceUnique(const QString &cheminBase) : cheminVerrou_(cheminBase + QStringLiteral(".lock")) {}

InstanceUnique::~InstanceUnique() {
    // Closing the file lets the lock go; the file itself stays, empty, for the next start.
    if (descripteur_ >= 0) ::close(descripteur_);
}

bool InstanceUnique::acquerir() {
    if (descripteur_ >= 0) return true;
    const QByteArray chemin = QFile::encodeName(cheminVerrou_);
    // Readable by all, holding nothing: a copy started by another user must be able
    // to see the lock. The kernel lets it go when the process ends, crash or not.
    int fd = ::open(chemin.constData(), O_RDONLY | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) fd = ::open(chemin.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return true;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const bool tenu = errno == EWOULDBLOCK;
        ::close(fd);
        return !tenu;
    }
    descripteur_ = fd;
    return true;
}
