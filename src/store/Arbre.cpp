#include "Arbre.h"

#include "Cryptage.h"

#include <limits>

using Base::Connexion;
using Base::Requete;

namespace Arbre {

namespace {
constexpr int kChampsTexte = 8;     // Titre to Remarques
constexpr int kColonnesInfos = 16;  // grid columns 3 to 18

// Columns by name: a base with columns of its own added keeps the fields in place.
constexpr const char *kColonnesDocument =
    "SELECT Num, NumDossier, Titre, LoginDoc, MotDePasse, Url, Fichier, DateDebut, DateFin, Remarques, Icone, rowid";

// A row of kColonnesDocument as the grid receives it.
void lireLigne(const Requete &r, Document &d) {
    d.infos.clear();
    for (int j = 2; j < 2 + kChampsTexte; ++j) d.infos.append(r.estNull(j) ? QString() : LireChampDocument(r.texteUtf8(j)));
    d.num = r.texte(0);
    d.dossier = r.texte(1);
    d.icone = r.entier(2 + kChampsTexte);
    d.rowid = r.entierLong(3 + kChampsTexte);
    d.infos.resize(kColonnesInfos - 1);
    d.infos.append(QString::number(d.rowid));
}
}  // namespace

Lecture::Lecture(int numCompte) : numCompte_(numCompte) {}

QList<Dossier> Lecture::dossiers() {
    Requete r(connexion_, "SELECT Num, Nom, rowid FROM Dossiers WHERE NumCompte=?");
    r.lier(1, numCompte_);
    QList<Dossier> lus;
    while (r.suivante()) lus.append({r.entier(0), r.entierLong(2), r.texte(1)});
    return lus;
}

bool Lecture::documentSuivant() {
    if (!documents_) {
        documents_.emplace(connexion_, (QByteArray(kColonnesDocument) + " FROM Documents NOT INDEXED WHERE NumCompte=?").constData());
        documents_->lier(1, numCompte_);
    }
    return documents_->suivante();
}

int Lecture::numDossier() const { return documents_->entier(1); }

void Lecture::lireDocument(Document &d) const { lireLigne(*documents_, d); }

bool lireDossier(int numCompte, qint64 rowid, QString &nom, int &num, int &documents) {
    Connexion c;
    Requete r(c, "SELECT Num, Nom FROM Dossiers WHERE NumCompte=? AND rowid=?");
    r.lier(1, numCompte).lier(2, rowid);
    if (!r.suivante()) return false;
    num = r.entier(0);
    nom = r.texte(1);
    Requete n(c, "SELECT count(*) FROM Documents WHERE NumCompte=? AND NumDossier=?");
    n.lier(1, numCompte).lier(2, num);
    documents = n.suivante() ? n.entier(0) : 0;
    return true;
}

bool lireDocument(int numCompte, qint64 rowid, Document &document) {
    Connexion c;
    Requete r(c, (QByteArray(kColonnesDocument) + " FROM Documents WHERE NumCompte=? AND rowid=?").constData());
    r.lier(1, numCompte).lier(2, rowid);
    if (!r.suivante()) return false;
    lireLigne(r, document);
    return true;
}

}  // namespace Arbre

void GenererDossiersDefaut(int numCompte) {
    Connexion c;
    Requete r(c, "INSERT INTO Dossiers (NumCompte, Num, Nom) SELECT ?, Num, Nom FROM Dossiers WHERE NumCompte=0 ORDER BY Nom");
    r.lier(1, numCompte).executer();
}

int ChercherNouveauNumDossier() {
    Connexion c;
    Requete r(c, "SELECT max(Num) FROM Dossiers");
    return r.suivante() && !r.estNull(0) ? qMax(1, r.entier(0) + 1) : 1;
}

int ChercherNouveauNumDocument() {
    Connexion c;
    // Over all accounts: a document's number is unique in the table.
    Requete r(c, "SELECT max(Num) FROM Documents");
    if (!r.suivante() || r.estNull(0)) return 1;
    const qint64 plusGrand = r.texte(0).toLongLong();
    if (plusGrand >= std::numeric_limits<int>::max())
        throw Base::ErreurBase(QStringLiteral("Plus aucun numéro de document n'est libre dans la base."));
    return int(plusGrand) + 1;
}
