#pragma once
// Fills the base with an account's folders and documents of realistic lengths,
// half of them enciphered as in-place editing leaves them.

#include "store/Base.h"
#include "store/Cryptage.h"

#include <QFile>
#include <QString>

namespace BaseExemple {

inline void remplir(int numCompte, int nbDossiers, int nbDocuments, int premierNumDossier = 100) {
    Base::Connexion c;
    c.debutTransaction();
    for (int d = 0; d < nbDossiers; ++d) {
        Base::Requete r(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) VALUES (?, ?, ?)");
        r.lier(1, numCompte).lier(2, premierNumDossier + d).lier(3, QStringLiteral("Dossier %1").arg(d, 4, 10, QChar(u'0'))).executer();
    }
    for (int i = 0; i < nbDocuments; ++i) {
        const bool chiffre = i % 2 == 0;
        auto champ = [chiffre](const QString &t) { return chiffre ? CrypterChamp(t) : t; };
        Base::Requete r(c, "INSERT INTO Documents VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        r.lier(1, numCompte).lier(2, 1000 + i).lier(3, premierNumDossier + i % qMax(1, nbDossiers));
        r.lier(4, champ(QStringLiteral("Compte en ligne numero %1").arg(i)));
        r.lier(5, champ(QStringLiteral("jean.dupont%1@exemple.fr").arg(i)));
        r.lier(6, champ(QStringLiteral("Pa55-word_%1!").arg(i * 7919)));
        r.lier(7, champ(QStringLiteral("https://www.exemple.fr/connexion/%1").arg(i)));
        r.lier(8, champ(QStringLiteral("/home/jean/documents/contrat-%1.pdf").arg(i)));
        r.lier(9, champ(QStringLiteral("01/02/2025")));
        r.lier(10, champ(QStringLiteral("31/12/2027")));
        if (i % 5 == 0)
            r.lierNull(11);
        else
            r.lier(11, champ(QStringLiteral("Renouveler avant la fin de l'annee, voir le contrat")));
        r.lier(12, i % 7);
        r.executer();
    }
    c.valider();
}

// Damages a copy of the base inside a page well past the first (its schema still
// reads); the base must be large enough, a few hundred documents.
inline void abimer(const QString &chemin) {
    QFile f(chemin);
    if (f.open(QIODevice::ReadWrite) && f.seek(f.size() / 2 + 100)) f.write(QByteArray(16, 'X'));
}

}  // namespace BaseExemple
