#include "Comptes.h"

#include "Base.h"
#include "Cryptage.h"

using Base::Connexion;
using Base::Requete;

namespace Comptes {

QString cleLogin(const QString &login) {
    // Blanks only, as a login may hold tabs or other spaces of its own.
    QString cle = login.toLower();
    qsizetype debut = 0, fin = cle.size();
    while (debut < fin && cle.at(debut) == u' ') ++debut;
    while (fin > debut && cle.at(fin - 1) == u' ') --fin;
    return cle.mid(debut, fin - debut);
}

QList<Compte> lister() {
    Connexion c;
    Requete r(c, "SELECT NumCompte, Login, Pass FROM Compte ORDER BY NumCompte ASC, Login ASC");
    QList<Compte> comptes;
    while (r.suivante()) comptes.append({r.entier(0), r.texte(1), r.estNull(1), r.texte(2)});
    return comptes;
}

int prochainNumero() {
    Connexion c;
    Requete r(c, "SELECT max(NumCompte) FROM Compte");
    if (r.suivante() && !r.estNull(0)) return qMax(1, r.entier(0) + 1);  // number 0 belongs to the templates
    return 1;
}

std::optional<Compte> chercher(const QString &cle) {
    Connexion c;
    Requete r(c, "SELECT NumCompte, Login, Pass FROM Compte WHERE Login = ? ORDER BY NumCompte LIMIT 1");
    r.lier(1, cle);
    if (!r.suivante()) return std::nullopt;
    return Compte{r.entier(0), r.texte(1), r.estNull(1), r.texte(2)};
}

bool motDePasseCorrect(const Compte &compte, const QString &passClair) {
    return DecrypterChamp(compte.passStocke) == passClair;
}

void creer(int num, const QString &cle, const QString &passClair) {
    Connexion c;
    Requete r(c, "INSERT INTO Compte (NumCompte, Login, Pass) VALUES (?, ?, ?)");
    r.lier(1, num).lier(2, cle).lier(3, CrypterChamp(passClair)).executer();
}

bool changerMotDePasse(const QString &cle, const QString &passClair) {
    Connexion c;
    Requete r(c, "UPDATE Compte SET Pass=? WHERE rowid = (SELECT rowid FROM Compte WHERE Login = ? ORDER BY NumCompte LIMIT 1)");
    r.lier(1, CrypterChamp(passClair)).lier(2, cle).executer();
    return c.changements() > 0;
}

}  // namespace Comptes
