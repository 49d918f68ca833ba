#include "Def.h"

#include "Base.h"
#include "Session.h"
#include "ui/Messages.h"

#include <QApplication>

using Base::Connexion;
using Base::Requete;

namespace Def {

namespace {
const SelectionGrille *grilleCourante = nullptr;
std::function<void()> finProgramme;

struct CleDocument {
    int num = 0;
    int dossier = 0;
};

bool lireEntier(const QString &texte, int *valeur) {
    bool ok = false;
    *valeur = texte.trimmed().toInt(&ok);
    return ok;
}

// The keys of the selected row, or false when the grid has no document there.
bool cleSelection(CleDocument *cle, bool avecNum = true) {
    if (!grilleCourante) return false;
    if (!lireEntier(grilleCourante->texteSelection(kColonneNumDossier), &cle->dossier)) return false;
    return !avecNum || lireEntier(grilleCourante->texteSelection(kColonneNumDocument), &cle->num);
}

// Row id of the document (account, num, folder), the first one by title.
constexpr const char *kRowidDocument =
    "SELECT rowid FROM Documents WHERE NumCompte=? AND Num=? AND NumDossier=? ORDER BY Titre ASC LIMIT 1";

int rowidDocument(Connexion &c, int num, int dossier) {
    Requete r(c, kRowidDocument);
    r.lier(1, Session::NumCompteCourant).lier(2, num).lier(3, dossier);
    return r.suivante() ? r.entier(0) : 0;
}

// Sets one field of a row; index 11 takes a number and keeps its value when given none.
void ecrireChamp(Connexion &c, int rowid, int indice, const QString &valeur) {
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

int ajouterDocument(Connexion &c, int num, int dossier) {
    Requete r(c, "INSERT INTO Documents (NumCompte, Num, NumDossier) VALUES (?, ?, ?)");
    r.lier(1, Session::NumCompteCourant).lier(2, num).lier(3, dossier).executer();
    return rowidDocument(c, num, dossier);
}
}  // namespace

void definirSelectionGrille(const SelectionGrille *grille) { grilleCourante = grille; }

void oublierSelectionGrille(const SelectionGrille *grille) {
    if (grilleCourante == grille) grilleCourante = nullptr;
}

QString nomChampDocument(int indice) {
    static const char *const kNoms[] = {"Titre", "LoginDoc", "MotDePasse", "Url",      "Fichier",
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

void definirFinProgramme(std::function<void()> fin) { finProgramme = std::move(fin); }

}  // namespace Def

bool ConfirmerQuitter() {
    if (!Messages::question(QStringLiteral("Etes-vous sûr de vouloir quitter le programme ?"))) return false;
    if (Def::finProgramme)
        Def::finProgramme();
    else
        QApplication::exit(0);
    return true;
}

bool MajChampDocument(int indice, const QString &valeur) {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle)) return false;
    Connexion c;
    const int rowid = Def::rowidDocument(c, cle.num, cle.dossier);
    if (rowid == 0 || indice < 3 || indice > 10) return false;
    Def::ecrireChamp(c, rowid, indice, valeur);
    return true;
}

bool SupprimerDocument() {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle)) return false;
    Connexion c;
    const int rowid = Def::rowidDocument(c, cle.num, cle.dossier);
    if (rowid == 0) return false;
    Requete r(c, "DELETE FROM Documents WHERE rowid=?");
    r.lier(1, rowid).executer();
    return true;
}

bool SupprimerDossier(int num) {
    Connexion c;
    Requete r(c, "DELETE FROM Dossiers WHERE rowid = (SELECT rowid FROM Dossiers WHERE NumCompte=? AND Num=? "
                 "ORDER BY Nom ASC LIMIT 1)");
    r.lier(1, Session::NumCompteCourant).lier(2, num).executer();
    return c.changements() > 0;
}

bool EcrireChampDocument(int indice, const QString &valeur, int num) {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle, false)) return false;
    Connexion c;
    int rowid = Def::rowidDocument(c, num, cle.dossier);
    if (rowid == 0) rowid = Def::ajouterDocument(c, num, cle.dossier);
    Def::ecrireChamp(c, rowid, indice, valeur);
    return true;
}

bool EcrireDocument(int num, const QStringList &champs) {
    Def::CleDocument cle;
    if (!Def::cleSelection(&cle, false)) return false;
    Connexion c;
    c.debutTransaction();
    int rowid = Def::rowidDocument(c, num, cle.dossier);
    if (rowid == 0) rowid = Def::ajouterDocument(c, num, cle.dossier);
    for (int i = 0; i < champs.size() && i + 3 <= 11; ++i) Def::ecrireChamp(c, rowid, i + 3, champs[i]);
    c.valider();
    return true;
}

bool EcrireDossier(const QString &nom, int num) {
    Connexion c;
    const QString coupe = Def::couperChamp(nom);
    Requete maj(c, "UPDATE Dossiers SET Nom=? WHERE rowid = (SELECT rowid FROM Dossiers WHERE NumCompte=? AND Num=? "
                   "ORDER BY Nom ASC LIMIT 1)");
    maj.lier(1, coupe).lier(2, Session::NumCompteCourant).lier(3, num).executer();
    if (c.changements() > 0) return true;
    Requete ajout(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) VALUES (?, ?, ?)");
    ajout.lier(1, Session::NumCompteCourant).lier(2, num).lier(3, coupe).executer();
    return true;
}
