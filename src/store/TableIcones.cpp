#include "TableIcones.h"

#include "Base.h"

using Base::Connexion;
using Base::Requete;

namespace TableIcones {

QList<Ligne> lire(bool avecImages) {
    Connexion c;
    QList<Ligne> lignes;
    if (avecImages) {
        Requete r(c, "SELECT Num, ico, Libelle FROM Icones ORDER BY Num ASC, Libelle ASC");
        while (r.suivante()) lignes.append({r.texte(0), r.octets(1), r.texte(2)});
    } else {
        Requete r(c, "SELECT Num, Libelle FROM Icones ORDER BY Num ASC, Libelle ASC");
        while (r.suivante()) lignes.append({r.texte(0), QByteArray(), r.texte(1)});
    }
    return lignes;
}

void ecrire(const QList<Ecriture> &icones) {
    Connexion c;
    c.debutTransaction();
    for (const Ecriture &e : icones) {
        if (!e.avecImage) {
            Requete(c, "UPDATE Icones SET Libelle = ? WHERE Num = ?").lier(1, e.libelle).lier(2, e.num).executer();
            continue;
        }
        Requete(c, "UPDATE Icones SET ico = ?, Libelle = ? WHERE Num = ?").lierOctets(1, e.ico).lier(2, e.libelle).lier(3, e.num).executer();
        if (c.changements() == 0)
            Requete(c, "INSERT INTO Icones (Num, ico, Libelle) VALUES (?, ?, ?)").lier(1, e.num).lierOctets(2, e.ico).lier(3, e.libelle).executer();
    }
    c.valider();
}

}  // namespace TableIcones
