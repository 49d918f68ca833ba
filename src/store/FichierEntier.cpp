#include "FichierEntier.h"

#include <QFileInfo>
#include <QSaveFile>

namespace FichierEntier {

bool ecrire(const QString &chemin, const QByteArray &octets, QFileDevice::Permissions droits, QString *raison) {
    QSaveFile sortie(chemin);
    const bool ok = sortie.open(QIODevice::WriteOnly) && (droits == QFileDevice::Permissions() || sortie.setPermissions(droits)) &&
                    sortie.write(octets) == octets.size() && valider(sortie);
    if (!ok && raison) *raison = raisonEchec(sortie);
    return ok;
}

bool valider(QSaveFile &sortie) { return sortie.flush() && sortie.commit(); }

QString raisonEchec(const QFileDevice &f) {
    switch (f.error()) {
    case QFileDevice::ResourceError: return QStringLiteral("le disque est plein");
    case QFileDevice::PermissionsError: return QStringLiteral("les droits manquent");
    case QFileDevice::OpenError: return QStringLiteral("il ne peut pas être ouvert");
    case QFileDevice::ReadError: return QStringLiteral("la lecture a échoué");
    default: return QStringLiteral("l'écriture a échoué");
    }
}

bool reserverAuProprietaire(const QString &chemin) {
    const QFileInfo info(chemin);
    if (!info.exists()) return false;
    if ((info.permissions() & ~(kDroitsProprietaire | QFileDevice::ReadUser | QFileDevice::WriteUser)) == QFileDevice::Permissions())
        return true;
    return QFile::setPermissions(chemin, kDroitsProprietaire);
}

}  // namespace FichierEntier
