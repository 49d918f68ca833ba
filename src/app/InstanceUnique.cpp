#include "InstanceUnique.h"

#include "store/Base.h"
#include "store/FichierEntier.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

InstanceUnique::InstanceUnique(const QString &cheminBase) : cheminVerrou_(Base::cheminVerrou(cheminBase)) {}

InstanceUnique::~InstanceUnique() {
    // Closing the file lets the lock go; the file itself stays, empty, for the next start.
    if (descripteur_ >= 0) ::close(descripteur_);
}

InstanceUnique::Resultat InstanceUnique::acquerir() {
    if (descripteur_ >= 0) return Resultat::Tenu;
    const QByteArray chemin = QFile::encodeName(cheminVerrou_);
    // The owner's alone: an account that could open it could hold it and keep the
    // owner out. The kernel lets the lock go when the process ends, crash or not.
    FichierEntier::reserverAuProprietaire(cheminVerrou_);
    const int fd = ::open(chemin.constData(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    const int erreurOuverture = errno;
    struct stat st {};
    if (fd < 0 || ::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        if (fd >= 0) ::close(fd);
        const QString nom = QFileInfo(cheminVerrou_).fileName();
        raison_ = fd < 0 && (erreurOuverture == EACCES || erreurOuverture == EPERM || erreurOuverture == EROFS)
                      ? QStringLiteral("les droits manquent")
                      : QStringLiteral("il ne peut pas être ouvert");
        raison_ = QStringLiteral(
                      "Korvane ne peut pas protéger la base contre une seconde copie du programme : "
                      "le fichier %1 ne peut pas servir de verrou (%2).\n"
                      "Vérifiez les droits du dossier du programme, puis recommencez.")
                      .arg(nom, raison_);
        return Resultat::Impossible;
    }
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const bool tenu = errno == EWOULDBLOCK;
        ::close(fd);
        if (tenu) return Resultat::Occupe;
        raison_ = QStringLiteral(
                      "Korvane ne peut pas protéger la base contre une seconde copie du programme : "
                      "le verrou %1 ne peut pas être pris.\n"
                      "Vérifiez que le dossier du programme est sur un disque local, puis recommencez.")
                      .arg(QFileInfo(cheminVerrou_).fileName());
        return Resultat::Impossible;
    }
    descripteur_ = fd;
    return Resultat::Tenu;
}
