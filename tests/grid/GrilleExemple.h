#pragma once
// A grid loaded the way the main window loads it, for the tests of the grid.

#include "grid/ModeleGrille.h"

#include <QPair>
#include <QStringList>

namespace GrilleExemple {

inline QStringList titres() {
    return {QStringLiteral("Titre"), QStringLiteral("Login"), QStringLiteral("Mot de passe"), QStringLiteral("Url"),
            QStringLiteral("Fichier"), QStringLiteral("Date de début"), QStringLiteral("Date de fin"),
            QStringLiteral("Remarques")};
}

inline const QString kTitre = QStringLiteral("Gestionnaire des mots de passe");

// The row image of a document as the loader hands it over: the eight fields, then
// the icon as text and the three keys, and an empty last element.
inline QStringList infos(const QString &titre, const QString &num, const QString &dossier) {
    return {titre, titre + QStringLiteral("@login"), QStringLiteral("secret"), QString(), QString(), QString(), QString(),
            QStringLiteral("note"), QStringLiteral("3"), QStringLiteral("1"), num, dossier, QString()};
}

// Title and section, then each folder (its key is 10 + its position) with its
// documents, named "<folder>-<k>" in the order of adding, with icons 1, 2, 3...
// Documents of a folder show in the reverse order.
inline void charger(ModeleGrille &g, const QList<QPair<QString, int>> &dossiers) {
    g.NbColonnes(int(titres().size()) - 1);
    g.AddSection(titres(), 2, 2);
    g.AddTitle(kTitre);
    for (int i = 0; i < dossiers.size(); ++i) {
        const QString dossier = QString::number(10 + i);
        QVariant cle = dossier;
        g.AddParent(QStringLiteral(" ") + dossiers[i].first, cle);
        for (int k = 0; k < dossiers[i].second; ++k) {
            int parent = cle.toInt();
            const QString num = QString::number(100 * (i + 1) + k);
            g.AddFils(infos(dossiers[i].first + QStringLiteral("-%1").arg(k), num, dossier), parent, k % 6 + 1, 0,
                      QStringLiteral("1"), num, dossier);
        }
    }
}

}  // namespace GrilleExemple
