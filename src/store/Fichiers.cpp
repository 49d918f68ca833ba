// Whole-file helpers of module Def.

#include "Def.h"
#include "FichierEntier.h"

#include <QFile>
#include <QFileInfo>
#include <stdexcept>

QByteArray LireFichier(const QString &chemin) {
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly))
        throw std::runtime_error(QStringLiteral("Impossible de lire le fichier %1.").arg(QFileInfo(chemin).fileName()).toStdString());
    return f.readAll();
}

void EcrireFichier(const QString &chemin, const QByteArray &texte) {
    QString raison;
    if (!FichierEntier::ecrire(chemin, texte + "\r\n", FichierEntier::kDroitsProprietaire, &raison))
        throw std::runtime_error(
            QStringLiteral("Impossible d'écrire le fichier %1 : %2.").arg(QFileInfo(chemin).fileName(), raison).toStdString());
}
