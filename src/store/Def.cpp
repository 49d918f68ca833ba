#include "Def.h"

#include "Base.h"
#include "Session.h"

using Base::Connexion;
using Base::Requete;

namespace Def {

namespace {
const SelectionGrille *grilleCourante = nullptr;

struct CleDocument {
    int num = 0;
    int dossier = 0;
    qint64 rowid = 0;  // 0 when the grid gave none
};

bool lireEntier(const QString &texte, int *valeur) {
    bool ok = false;
    *valeur = texte.trimmed().toInt(&ok);
    return ok;
}

// The keys of the selected row, or false when the grid has no document there.
bool cleSelection(CleDocument *cle, bool avecNum = true) {
    if (!grilleCourante) return false;
    if (!lireEntier(grilleCourante->texteSelection(CleGrille::NumDossier), &cle->dossier)) return false;
    cle->rowid = grilleCourante->texteSelection(CleGrille::Rowid).trimmed().toLongLong();
    return !avecNum || lireEntier(grilleCourante->texteSelection(CleGrille::NumDocument), &cle->num);
}

[[noreturn]] void ligneDisparue(bool dossier) {
    throw Base::ErreurBase(dossier ? QStringLiteral("Ce dossier n'est plus dans la base : un autre programme l'a modifié "
                                                    "ou supprimé. Rien n'a été enregistré.")
                                   : QStringLiteral("Ce document n'est plus dans la base : un autre programme l'a modifié "
                                                    "ou supprimé. Rien n'a été enregistré."));
}

// The one row of the account with these keys: the grid's rowid when it gave one,
// checked against the keys (the row may have gone and its rowid gone to another
// since), or else the only row that has them. Two rows with the same numbers (a
// base edited by hand) are never told apart by guessing.
qint64 ligneUnique(Connexion &c, bool dossier, qint64 rowid, int num, int numDossier = 0) {
    Requete r(c, dossier ? "SELECT rowid FROM Dossiers WHERE NumCompte=?1 AND Num=?2 AND (?4=0 OR rowid=?4) LIMIT 2"
                         : "SELECT rowid FROM Documents WHERE NumCompte=?1 AND Num=?2 AND NumDossier=?3 "
                           "AND (?4=0 OR rowid=?4) LIMIT 2");
    r.lier(1, Session::NumCompteCourant).lier(2, num).lier(3, numDossier).lier(4, rowid);
    if (!r.suivante()) ligneDisparue(dossier);
    const qint64 trouvee = r.entierLong(0);
    if (r.suivante())
        throw Base::ErreurBase(dossier ? QStringLiteral("Plusieurs dossiers portent le numéro %1 : choisissez-le dans la "
                                                        "liste. Rien n'a été modifié.")
                                             .arg(num)
                                       : QStringLiteral("Plusieurs documents portent le numéro %1 : choisissez-le dans la "
                                                        "liste. Rien n'a été modifié.")
                                             .arg(num));
    return trouvee;
}

qint64 rowidSelection(Connexion &c, const CleDocument &cle) { return ligneUnique(c, false, cle.rowid, cle.num, cle.dossier); }

// Row id of the document (account, num, folder), the first one by title.
qint64 rowidDocument(Connexion &c, int num, int dossier) {
    Requete r(c, "SELECT rowid FROM Documents WHERE NumCompte=? AND Num=? AND NumDossier=? ORDER BY Titre ASC LIMIT 1");
    r.lier(1, Session::NumCompteCourant).lier(2, num).lier(3, dossier);
    return r.suivante() ? r.entierLong(0) : 0;
}

// Sets one field of a row; index 11 takes a number and keeps its value when given none.
void ecrireChamp(Connexion &c, qint64 rowid, int indice, const QString &valeur) {
    const QString nom = nomChampDocument(indice);
    if (nom.isEmpty()) return;
    const QByteArray sql = "UPDATE Documents SET " + nom.toLatin1() + "=? WHERE rowid=?";
    Requete r(c, sql.constData());
    if (indice == 11) {
        int icone = 0;
        if (!lireEntier(valeur, &icone)) return;
        r.lier(1, icone);
    } else {
        r.lier(1, couperChamp(valeur));
    }
    r.lier(2, rowid).executer();
}

qint64 ajouterDocument(Connexion &c, int num, int dossier) {
    Requete r(c, "INSERT INTO Documents (NumCompte, Num, NumDossier) VALUES (?, ?, ?)");
    r.lier(1, Session::NumCompteCourant).lier(2, num).lier(3, dossier).executer();
    return c.dernierRowid();
}

// The selected row when it is the folder of number num, with its row of the base.
bool dossierSelectionne(int num, qint64 *rowid) {
    if (!grilleCourante || !grilleCourante->texteSelection(CleGrille::NumDocument).isEmpty()) return false;
    int numSelection = 0;
    if (!lireEntier(grilleCourante->texteSelection(CleGrille::NumDossier), &numSelection) || numSelection != num) return false;
    *rowid = grilleCourante->texteSelection(CleGrille::Rowid).trimmed().toLongLong();
    return true;
}
}  // namespace

void definirSelectionGrille(const SelectionGrille *grille) { grilleCourante = grille; }

void oublierSelectionGrille(const SelectionGrille *grille) {
    if (grilleCourante == grille) grilleCourante = nullptr;
}

QString nomChampDocument(int indice) {
    static const char *const kNoms[] = {"Titre", "LoginDoc", "MotDePasse", "Url", "Fichier",
                                        "DateDebut", "DateFin", "Remarques", "Icone"};
    if (indice < 3 || indice > 11) return {};
    return QString::fromLatin1(kNoms[indice - 3]);
}

QString couperChamp(const QString &valeur) {
    if (valeur.size() <= kLongueurChamp) return valeur;
    qsizetype n = kLongueurChamp;
    if (valeur.at(n - 1).isHighSurrogate()) --n;
    return valeur.left(n);
}

}  // namespace Def

bool MajChampDocument(int indice, const QString &valeur) {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle) || indice < 3 || indice > 10) return false;
    Connexion c;
    Def::ecrireChamp(c, Def::rowidSelection(c, cle), indice, valeur);
    return true;
}

bool EcrireIconeDocument(int icone) {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle)) return false;
    Connexion c;
    Def::ecrireChamp(c, Def::rowidSelection(c, cle), 11, QString::number(icone));
    return true;
}

bool SupprimerDocument() {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle)) return false;
    Connexion c;
    Requete r(c, "DELETE FROM Documents WHERE rowid=?");
    r.lier(1, Def::rowidSelection(c, cle)).executer();
    return true;
}

bool SupprimerDossier(int num) {
    qint64 rowid = 0;
    Def::dossierSelectionne(num, &rowid);
    Connexion c;
    Requete r(c, "DELETE FROM Dossiers WHERE rowid=?");
    r.lier(1, Def::ligneUnique(c, true, rowid, num)).executer();
    return true;
}

bool EcrireDocument(int num, const QStringList &champs, qint64 *rowidEcrit) {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle, false)) return false;
    Connexion c;
    c.debutTransaction();
    qint64 rowid = Def::rowidDocument(c, num, cle.dossier);
    if (rowid == 0) rowid = Def::ajouterDocument(c, num, cle.dossier);
    for (int i = 0; i < champs.size() && i + 3 <= 11; ++i) Def::ecrireChamp(c, rowid, i + 3, champs[i]);
    c.valider();
    if (rowidEcrit) *rowidEcrit = rowid;
    return true;
}

bool ModifierDocument(const QList<QPair<int, QString>> &champs) {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle)) return false;
    Connexion c;
    c.debutTransaction();
    const qint64 rowid = Def::rowidSelection(c, cle);
    for (const auto &[indice, valeur] : champs) Def::ecrireChamp(c, rowid, indice, valeur);
    c.valider();
    return true;
}

bool EcrireDossier(const QString &nom, int num, qint64 *rowidEcrit) {
    Connexion c;
    const QString coupe = Def::couperChamp(nom);
    // The selected folder is renamed by its own row; a number no folder of the
    // account has is a new folder.
    qint64 rowid = 0;
    bool existe = Def::dossierSelectionne(num, &rowid);
    if (!existe) {
        Requete r(c, "SELECT 1 FROM Dossiers WHERE NumCompte=? AND Num=?");
        existe = r.lier(1, Session::NumCompteCourant).lier(2, num).suivante();
    }
    if (existe) {
        rowid = Def::ligneUnique(c, true, rowid, num);
        Requete maj(c, "UPDATE Dossiers SET Nom=? WHERE rowid=?");
        maj.lier(1, coupe).lier(2, rowid).executer();
    } else {
        Requete ajout(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) VALUES (?, ?, ?)");
        ajout.lier(1, Session::NumCompteCourant).lier(2, num).lier(3, coupe).executer();
        rowid = c.dernierRowid();
    }
    if (rowidEcrit) *rowidEcrit = rowid;
    return true;
}
