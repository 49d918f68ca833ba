#include "MiseAJourGrille.h"

#include "Chargement.h"
#include "grid/Colonnes.h"
#include "grid/ModeleGrille.h"
#include "store/Base.h"
#include "ui/Chaines.h"

#include <QVariant>
#include <vector>

namespace MiseAJourGrille {

namespace {

// The folder of number num, as a load attaches documents to it: the last one of that number.
int dossierDeNumero(const ModeleGrille &g, QStringView num) {
    for (int k = g.nbParents() - 1; k >= 0; --k)
        if (g.vue(g.ligneParent(k), Colonne::NumDossier) == num) return k;
    return -1;
}

std::vector<int> ordreDesDossiers(const ModeleGrille &g) {
    std::vector<QStringView> noms;
    std::vector<int> nums;
    for (int k = 0; k < g.nbParents(); ++k) {
        noms.push_back(g.vue(g.ligneParent(k), Colonne::Nom).mid(1));  // the grid shows it after a blank
        nums.push_back(grille::nombre(g.vue(g.ligneParent(k), Colonne::NumDossier)));
    }
    return Chargement::ordreDesDossiers(noms, nums);
}

// A document without an icon shows the library's second one.
int iconeAffichee(int icone) { return icone == 0 ? 2 : icone; }

}  // namespace

void entetes(ModeleGrille &g) {
    QStringList TitresColonnes;
    for (int i = 110; i <= 117; ++i) TitresColonnes << Chaine(i);
    g.NbColonnes(int(TitresColonnes.size()) - 1);
    // Each inserts at the top: the section first, so that the title ends above it.
    g.AddSection(TitresColonnes, 2, 2);
    g.AddTitle(Chaine(118));
    g.Redraw(true);
}

void chargerArbre(ModeleGrille &g, int numCompte) {
    g.Redraw(false);
    const QString compte = QString::number(numCompte);
    // The documents come in the file's order, each appended at the end of the
    // grid; then each folder's are put by title under it, in one move.
    struct Venu {
        int ligne;
        int num;
        qint64 rowid;
    };
    std::vector<std::vector<Venu>> venus;
    Chargement::lireArbre(
        numCompte,
        [&g, &venus](const QList<Chargement::Dossier> &dossiers) {
            for (const Chargement::Dossier &d : dossiers) {
                QVariant cle = QString::number(d.num);
                g.AddParent(QStringLiteral(" ") + d.nom, cle);
                g.definirRowid(g.ligneParent(g.nbParents() - 1), d.rowid);
            }
            venus.resize(size_t(dossiers.size()));
        },
        [&g, &compte, &venus](int indice, const Chargement::Document &doc) {
            const int ligne = g.ajouterFilsEnVrac(doc.infos, indice, iconeAffichee(doc.icone), 0, compte, doc.num, doc.dossier);
            if (ligne >= 0) venus[size_t(indice)].push_back({ligne, doc.num.toInt(), doc.rowid});
        });
    std::vector<std::vector<int>> ordre(venus.size());
    for (size_t k = 0; k < venus.size(); ++k) {
        std::vector<Venu> &v = venus[k];
        std::vector<Chargement::RangDocument> rangs;
        rangs.reserve(v.size());
        for (const Venu &e : v) rangs.push_back({g.vue(e.ligne, Colonne::Titre), e.num, e.rowid});
        for (const int i : Chargement::ordreDesDocuments(rangs)) ordre[k].push_back(v[size_t(i)].ligne);
        std::vector<Venu>().swap(v);
    }
    g.rangerFilsEnVrac(ordre);
    g.Redraw(true);
}

bool placerDocument(ModeleGrille &g, int numCompte, qint64 rowid) {
    Chargement::Document doc;
    bool lu = false;
    try {
        lu = Chargement::lireDocument(numCompte, rowid, doc);
    } catch (const Base::ErreurBase &) {
        // The load that follows says what is wrong with the base.
    }
    const int dossier = lu ? dossierDeNumero(g, doc.dossier) : -1;
    if (dossier < 0) return false;
    g.Redraw(false);
    g.oublierMarques();
    int debut = 0, fin = 0;
    g.lignesFils(dossier, debut, fin);
    // The folder shows its documents from the last in load order: the new one goes
    // above the first that comes before it.
    const Chargement::RangDocument nouveau{doc.infos.value(0), doc.num.toInt(), doc.rowid};
    int ligne = debut;
    while (ligne <= fin && Chargement::comparerDocuments({g.vue(ligne, Colonne::Titre), grille::nombre(g.vue(ligne, Colonne::NumDocument)),
                                                          g.vue(ligne, Colonne::Rowid).toLongLong()},
                                                         nouveau) > 0)
        ++ligne;
    g.insererFils(ligne, doc.infos, dossier, iconeAffichee(doc.icone), 0, QString::number(numCompte), doc.num, doc.dossier);
    return true;
}

bool placerDossier(ModeleGrille &g, int numCompte, qint64 rowid) {
    QString nom;
    int num = 0;
    bool lu = false;
    int documents = 0;
    try {
        lu = Chargement::lireDossier(numCompte, rowid, nom, num, documents);
    } catch (const Base::ErreurBase &) {
    }
    int ligne = -1, memeNumero = 0;
    const QString cle = QString::number(rowid), numero = QString::number(num);
    for (int k = 0; k < g.nbParents(); ++k) {
        const int l = g.ligneParent(k);
        if (g.vue(l, Colonne::Rowid) == cle)
            ligne = l;
        else if (g.vue(l, Colonne::NumDossier) == numero)
            ++memeNumero;
    }
    // A load hands a folder's documents to the last folder of its number: when another
    // folder shares it, or a new folder finds documents waiting for its number, only
    // a load knows where they go.
    if (!lu || memeNumero > 0 || (ligne < 0 && documents > 0)) return false;
    g.Redraw(false);
    g.oublierMarques();
    if (ligne >= 0) {
        g.renommerParent(ligne, QStringLiteral(" ") + nom);
    } else {
        QVariant numDossier = QString::number(num);
        g.AddParent(QStringLiteral(" ") + nom, numDossier);
        g.definirRowid(g.ligneParent(g.nbParents() - 1), rowid);
    }
    g.rangerDossiers(ordreDesDossiers(g));
    return true;
}

}  // namespace MiseAJourGrille
