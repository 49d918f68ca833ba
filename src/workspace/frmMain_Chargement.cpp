// frmMain: the loading of the tree into the grid, and of the icon library.

#include "frmMain.h"

#include "Chargement.h"
#include "grid/MyCoolGrid.h"
#include "store/Base.h"
#include "store/IconesStock.h"
#include "store/Session.h"
#include "ui/Chaines.h"
#include "ui/Messages.h"

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
        Chargement::lireArbre(
            numCompte,
            [this](const QList<Chargement::Dossier> &dossiers) {
                for (const Chargement::Dossier &d : dossiers) {
                    QVariant cle = QString::number(d.num);
                    MG->AddParent(QStringLiteral(" ") + d.nom, cle);
                    MG->definirRowid(MG->ligneParent(NbDossiers++), d.rowid);
                }
            },
            [this, &compte](int indice, QList<Chargement::Document> &documents) {
                for (const Chargement::Document &doc : documents) {
                    int parent = indice;
                    // A document without an icon shows the library's second one.
                    MG->AddFils(doc.infos, parent, doc.icone == 0 ? 2 : doc.icone, 0, compte, doc.num, doc.dossier);
                }
            });
    } catch (const Base::ErreurBase &e) {
        if (!chargementMuet_) Messages::information(e.message());
    }
    MG->Redraw(true);
}

void frmMain::ChargerIconesDatabase() { imgCONTENU.chargerBase(); }

void frmMain::ChargerImageList1() {
    ImageList1.vider();
    const auto stock = IconesStock::icones();
    for (int i = 0; i < stock.size(); ++i)
        ImageList1.ajouter(QStringLiteral("A %1").arg(i + 1), QImage::fromData(stock[i].octets), stock[i].libelle);
}
