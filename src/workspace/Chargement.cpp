#include "Chargement.h"

#include "store/Base.h"
#include "store/Cryptage.h"

#include <QHash>

using Base::Connexion;
using Base::Requete;

namespace Chargement {

namespace {
constexpr int kChamps = 12;  // fields of a Documents row

QList<Dossier> lireDossiers(Connexion &c, int numCompte) {
    Requete r(c, "SELECT Num, Nom FROM Dossiers WHERE NumCompte=? ORDER BY Nom COLLATE NOCASE ASC, Nom ASC");
    r.lier(1, numCompte);
    QList<Dossier> dossiers;
    while (r.suivante()) dossiers.append({r.entier(0), r.texte(1), {}});
    return dossiers;
}
}  // namespace

QList<Dossier> lireArbre(int numCompte) {
    Connexion c;
    QList<Dossier> dossiers = lireDossiers(c, numCompte);
    if (dossiers.isEmpty()) {
        GénérerDossiersDefaut(numCompte);
        dossiers = lireDossiers(c, numCompte);
    }

    QHash<int, int> indexDossier;
    for (int i = 0; i < dossiers.size(); ++i) indexDossier.insert(dossiers[i].num, i);

    // One pass over the account's documents, sorted by folder then title, shared out to their folders.
    Requete r(c, "SELECT * FROM Documents WHERE NumCompte=? ORDER BY NumDossier ASC, Titre COLLATE NOCASE ASC, Titre ASC");
    r.lier(1, numCompte);
    const QString compte = QString::number(numCompte);
    while (r.suivante()) {
        const auto it = indexDossier.constFind(r.entier(2));
        if (it == indexDossier.constEnd()) continue;  // its folder is gone: nowhere to show it
        Document d;
        d.infos.reserve(kChamps + 1);
        for (int j = 3; j < kChamps; ++j) d.infos.append(r.estNull(j) ? QString() : DecrypterChamp(r.texte(j)));
        d.num = r.texte(1);
        d.dossier = r.texte(2);
        d.icone = r.entier(11);
        d.infos << compte << d.num << d.dossier << QString();
        dossiers[*it].documents.append(std::move(d));
    }
    return dossiers;
}

}  // namespace Chargement

void GénérerDossiersDefaut(int numCompte) {
    Connexion c;
    Requete r(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) SELECT ?, Num, Nom FROM Dossiers WHERE NumCompte=0 ORDER BY Nom");
    r.lier(1, numCompte).executer();
}

int ChercherNouveauNumDossier() {
    Connexion c;
    Requete r(c, "SELECT max(Num) FROM Dossiers");
    return r.suivante() && !r.estNull(0) ? qMax(1, r.entier(0) + 1) : 1;
}
