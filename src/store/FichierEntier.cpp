#include "FichierEntier.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace FichierEntier {

bool ecrire(const QString &chemin, const QByteArray &octets, QFileDevice::Permissions droits, QString *raison) {
    QSaveFile sortie(chemin);
    const bool ok = sortie.open(QIODevice::WriteOnly) && (droits == QFileDevice::Permissions() || sortie.setPermissions(droits)) &&
                    sortie.write(octets) == octets.size() && valider(sortie);
    if (!ok && raison) *raison = raisonEchec(sortie);
    return ok;
}

bool valider(QSaveFile &sortie) { return sortie.flush() && sortie.commit(); }

namespace {
// Below this, a write that failed failed for want of room: the system says so only
// when not a byte of the write went through.
constexpr qint64 kPlaceMinimale = qint64{64} * 1024;

bool disquePlein(const QFileDevice &f) {
    // Only files being written: a file read may lie on a full disk for no fault of its own.
    if (!qobject_cast<const QSaveFile *>(&f) || f.error() == QFileDevice::PermissionsError) return false;
    const QStorageInfo disque(QFileInfo(f.fileName()).absolutePath());
    return disque.isValid() && disque.bytesAvailable() < kPlaceMinimale;
}
}  // namespace

QString raisonEchec(const QFileDevice &f) {
    if (disquePlein(f)) return QStringLiteral("le disque est plein");
    switch (f.error()) {
    case QFileDevice::ResourceError: return QStringLiteral("le disque est plein");
    case QFileDevice::PermissionsError: return QStringLiteral("les droits manquent");
    case QFileDevice::OpenError: return QStringLiteral("il ne peut pas être ouvert");
    case QFileDevice::ReadError: return QStringLiteral("la lecture a échoué");
    default: return QStringLiteral("l'écriture a échoué");
    }
}

bool reserverAuProprietaire(const QString &chemin) {
    const QByteArray local = QFile::encodeName(chemin);
    struct stat st {};
    // Only a plain file of the user's own: a folder in its place, or somebody
    // else's file, is not Korvane's to change.
    if (::stat(local.constData(), &st) != 0 || !S_ISREG(st.st_mode) || st.st_uid != ::geteuid()) return false;
    if ((st.st_mode & (S_IRWXG | S_IRWXO)) == 0) return true;
    // The owner's own bits stay: a base made read-only stays read-only.
    return ::chmod(local.constData(), st.st_mode & S_IRWXU) == 0;
}

bool creerDossier(const QString &chemin) {
    const QFileInfo info(chemin);
    if (info.isDir()) return true;
    const QString parent = info.absolutePath();
    if (parent != info.absoluteFilePath() && !creerDossier(parent)) return false;
    const QByteArray local = QFile::encodeName(info.absoluteFilePath());
    // Its rights are set from its making on, whatever the umask.
    if (::mkdir(local.constData(), S_IRWXU) != 0) return errno == EEXIST && QFileInfo(chemin).isDir();
    return ::chmod(local.constData(), S_IRWXU) == 0;
}

bool creerVide(const QString &chemin, QFileDevice::Permissions droits) {
    if (QFileInfo::exists(chemin)) return true;
    QFile f(chemin);
    if (!f.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return QFileInfo::exists(chemin);
    return f.setPermissions(droits);
}

}  // namespace FichierEntier
