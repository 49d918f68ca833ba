#pragma once
// Files Korvane writes beside its base or in the user's folders: written whole or
// not at all, so that a full disk or a missing right leaves the old file as it was.

#include <QByteArray>
#include <QFileDevice>
#include <QString>

class QSaveFile;

namespace FichierEntier {

// Read and write for the user alone: what holds logins, passwords or the base.
constexpr QFileDevice::Permissions kDroitsProprietaire = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// Writes octets to chemin (its folder must exist) through a hidden file renamed over it at the end. With
// droits set, the file has those rights before its first byte; without, an existing
// file keeps its own. False, with the reason in French, when nothing was replaced.
bool ecrire(const QString &chemin, const QByteArray &octets, QFileDevice::Permissions droits = {},
            QString *raison = nullptr);

// Ends a QSaveFile: what is still in Qt's buffer is written first and checked, as
// commit() alone would rename a file cut short by a full disk. False when nothing
// was replaced.
bool valider(QSaveFile &sortie);

// Why a file operation failed, in French, never with the system's own English text.
QString raisonEchec(const QFileDevice &fichier);

// Narrows the rights of an existing file to the user alone; true when it is so.
bool reserverAuProprietaire(const QString &chemin);

}  // namespace FichierEntier
