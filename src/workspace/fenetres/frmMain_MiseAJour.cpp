// frmMain: the grid brought up to date after the window's own writes, in place. A
// reload reads every document again, which takes a second on a large account; here
// only the row written is read, and put where a reload would have put it.

#include "frmMain.h"

#include "workspace/Chargement.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Base.h"
#include "store/Def.h"
#include "store/Session.h"

#include <QVariant>
#include <algorithm>

namespace {
constexpr int kColonneTitre = 3;
constexpr int kColonneNom = 2;
using Def::kColonneNumDocument;
using Def::kColonneNumDossier;
using Def::kColonneRowid;

// The folder of number num, as a load attaches documents to it: the last one of that number.
int dossierDeNumero(const ModeleGrille &g, QStringView num) {
    for (int k = g.nbParents() - 1; k >= 0; --k)
        if (g.vue(g.ligneParent(k), kColonneNumDossier) == num) return k;
    return -1;
}

std::vector<int> ordreDesDossiers(const ModeleGrille &g) {
    std::vector<QStringView> noms;
    std::vector<int> nums;
    for (int k = 0; k < g.nbParents(); ++k) {
        noms.push_back(g.vue(g.ligneParent(k), kColonneNom).mid(1));  // the grid shows it after a blank
        nums.push_back(grille::nombre(g.vue(g.ligneParent(k), kColonneNumDossier)));
    }
    return Chargement::ordreDesDossiers(noms, nums);
}
}  // namespace

void frmMain::rechargerGrille() {
    ++rechargements_;
    MG->Redraw(false);
    MemoriserMG();
    MG->Clear();
    ChargerMG();
    RaffraichirMG();
    MG->Redraw(true);
}

void frmMain::documentAjoute(qint64 rowid) {
    Chargement::Document doc;
    bool lu = false;
    try {
        lu = Chargement::lireDocument(Session::NumCompteCourant, rowid, doc);
    } catch (const Base::ErreurBase &) {
        // The reload below says what is wrong with the base.
    }
    const int dossier = lu ? dossierDeNumero(*MG, doc.dossier) : -1;
    if (dossier < 0) {
        rechargerGrille();
        return;
    }
    MG->Redraw(false);
    MG->oublierMarques();
    int debut = 0, fin = 0;
    MG->lignesFils(dossier, debut, fin);
    // The folder shows its documents from the last in load order: the new one goes
    // above the first that comes before it.
    const Chargement::RangDocument nouveau{doc.infos.value(0), doc.num.toInt(), doc.rowid};
    int ligne = debut;
    while (ligne <= fin && Chargement::comparerDocuments({MG->vue(ligne, kColonneTitre), grille::nombre(MG->vue(ligne, kColonneNumDocument)),
                                                          MG->vue(ligne, kColonneRowid).toLongLong()},
                                                         nouveau) > 0)
        ++ligne;
    MG->insererFils(ligne, doc.infos, dossier, doc.icone == 0 ? 2 : doc.icone, 0, QString::number(Session::NumCompteCourant),
                    doc.num, doc.dossier);
    finirMiseAJour();
}

void frmMain::dossierEcrit(qint64 rowid) {
    QString nom;
    int num = 0;
    bool lu = false;
    int documents = 0;
    try {
        lu = Chargement::lireDossier(Session::NumCompteCourant, rowid, nom, num, documents);
    } catch (const Base::ErreurBase &) {
    }
    int ligne = -1, memeNumero = 0;
    const QString cle = QString::number(rowid), numero = QString::number(num);
    for (int k = 0; k < MG->nbParents(); ++k) {
        const int l = MG->ligneParent(k);
        if (MG->vue(l, kColonneRowid) == cle)
            ligne = l;
        else if (MG->vue(l, kColonneNumDossier) == numero)
            ++memeNumero;
    }
    // A load hands a folder's documents to the last folder of its number: when another
    // folder shares it, or a new folder finds documents waiting for its number, only
    // a load knows where they go.
    if (!lu || memeNumero > 0 || (ligne < 0 && documents > 0)) {
        rechargerGrille();
        return;
    }
    MG->Redraw(false);
    MG->oublierMarques();
    if (ligne >= 0) {
        MG->renommerParent(ligne, QStringLiteral(" ") + nom);
    } else {
        QVariant cleDossier = QString::number(num);
        MG->AddParent(QStringLiteral(" ") + nom, cleDossier);
        MG->definirRowid(MG->ligneParent(MG->nbParents() - 1), rowid);
    }
    MG->rangerDossiers(ordreDesDossiers(*MG));
    finirMiseAJour();
}

void frmMain::dossierSupprime(int ligne) {
    MG->Redraw(false);
    MG->oublierMarques();
    MG->DelParent(ligne);
    finirMiseAJour();
}

void frmMain::documentSupprime(int ligne) {
    MG->Redraw(false);
    MG->oublierMarques();
    MG->DelFils(ligne);
    finirMiseAJour();
}

void frmMain::finirMiseAJour() {
    MG->commeCharge();
    NbDossiers = MG->nbParents();
    NomDossierCourant.clear();
    restaurerSelection();
    MG->Redraw(true);
}

void frmMain::documentModifie(const QList<QPair<int, QString>> &champs) {
    const int ligne = MG->LigneCourante;
    if (ligne < 2 || MG->IsLigneParent(ligne)) return;
    bool icone = false;
    MG->Redraw(false);
    for (const auto &[indice, texte] : champs) {
        if (indice == 11) {
            // As a load shows it: a document without an icon takes the library's second.
            const int numero = texte.toInt();
            MG->SetColumnInfos(ligne, 13, QString::number(numero == 0 ? 2 : numero));
            icone = true;
        } else {
            MG->MajColumnInfos(ligne, indice, texte);
        }
        if (indice == kColonneTitre) ecrireBandeDocument(ligne);
    }
    MG->Redraw(true);
    // The pictures are laid from column 13 by a pass over every row: only for a new icon.
    if (icone) MG->ReDessiner();
}
