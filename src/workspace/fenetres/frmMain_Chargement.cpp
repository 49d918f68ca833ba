// frmMain: the loading of the tree into the grid, and of the icon library.

#include "frmMain.h"

#include "workspace/Chargement.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Base.h"
#include "store/Session.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"

#include <QVariant>

void frmMain::ChargerMG() {
    QStringList TitresColonnes;
    for (int i = 110; i <= 117; ++i) TitresColonnes << Chaine(i);
    MG->NbColonnes(int(TitresColonnes.size()) - 1);
    // Each inserts at the top: the section first, so that the title ends above it.
    MG->AddSection(TitresColonnes, 2, 2);
    MG->AddTitle(Chaine(118));
    MG->Redraw(true);
    NbDossiers = 0;
    ChargerTreeview(Session::NumCompteCourant);
    restaurerSelection();
}

void frmMain::ChargerTreeview(int numCompte) {
    NomDossierCourant.clear();
    MG->Redraw(false);
    try {
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
            [this, &venus](const QList<Chargement::Dossier> &dossiers) {
                for (const Chargement::Dossier &d : dossiers) {
                    QVariant cle = QString::number(d.num);
                    MG->AddParent(QStringLiteral(" ") + d.nom, cle);
                    MG->definirRowid(MG->ligneParent(NbDossiers++), d.rowid);
                }
                venus.resize(size_t(dossiers.size()));
            },
            [this, &compte, &venus](int indice, const Chargement::Document &doc) {
                // A document without an icon shows the library's second one.
                const int ligne = MG->ajouterFilsEnVrac(doc.infos, indice, doc.icone == 0 ? 2 : doc.icone, 0, compte,
                                                        doc.num, doc.dossier);
                if (ligne >= 0) venus[size_t(indice)].push_back({ligne, doc.num.toInt(), doc.rowid});
            });
        std::vector<std::vector<int>> ordre(venus.size());
        for (size_t k = 0; k < venus.size(); ++k) {
            std::vector<Venu> &v = venus[k];
            std::vector<Chargement::RangDocument> rangs;
            rangs.reserve(v.size());
            for (const Venu &e : v) rangs.push_back({MG->vue(e.ligne, 3), e.num, e.rowid});
            for (const int i : Chargement::ordreDesDocuments(rangs)) ordre[k].push_back(v[size_t(i)].ligne);
            std::vector<Venu>().swap(v);
        }
        MG->rangerFilsEnVrac(ordre);
    } catch (const Base::ErreurBase &e) {
        if (!chargementMuet_) Messages::information(e.message());
    }
    MG->Redraw(true);
}

void frmMain::ChargerIconesDatabase() { imgCONTENU.chargerBase(); }
