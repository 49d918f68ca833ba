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

// Narrows the rights of an existing plain file of the user's to the user alone,
// keeping the owner's own bits (0444 becomes 0400); true when it is so. Anything
// else (a folder, another user's file, nothing) is left as it is.
bool reserverAuProprietaire(const QString &chemin);

// Makes a folder, and the folders above it that are missing, for the user alone
// (0700), whatever the umask. True when the folder exists.
bool creerDossier(const QString &chemin);

// Makes an empty file with exactly these rights when there is none, so that what is
// written into it next never has wider ones. True when the file exists.
bool creerVide(const QString &chemin, QFileDevice::Permissions droits);

}  // namespace FichierEntier
