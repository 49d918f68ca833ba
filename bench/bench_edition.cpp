// One field of a document edited in place, in a main window of 100,000 documents:
// the write to the base by the row's keys, the cell, and the repaint. Then the same
// document in its form: opened (read from the base, the dialog built, filled and
// painted), and stored (the changed field written, the row brought up to date).

#include "app/fenetres/Navigation.h"
#include "dialogs/fenetres/FrmAjoutDoc.h"
#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "ui/fenetres/BoutonImage.h"
#include "store/Base.h"
#include "store/Chemins.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "support/BaseExemple.h"
#include "ui/fenetres/Messages.h"
#include "workspace/fenetres/frmMain.h"
#include "Banc.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

// A main window over a base of n documents in 200 folders, a document of the 101st selected.
class Fenetre {
public:
    explicit Fenetre(int n) {
        Chemins::definirDossierProgramme(dossier.path());
        Reglages::definirDossier(dossier.filePath(QStringLiteral("config")));
        Reglages::ecrire(Reglages::Cle::Demarrage, 1);
        Messages::preparerPourTests();
        Base::preparerBase();
        BaseExemple::remplir(1, 200, n);
        Session::NumCompteCourant = 1;
        Session::Ouverte = true;
        Navigation::afficherPrincipale();
        f = Navigation::fenetrePrincipale();
        QApplication::processEvents();
        ligne = f->MG->ligneParent(100) + 1;
        f->MG->SelectLine(ligne);
    }
    ~Fenetre() { Navigation::fermerTout(); }

    QTemporaryDir dossier;
    frmMain *f = nullptr;
    int ligne = 0;
};

void BM_OuvrirLeFormulaire(benchmark::State &s) {
    Fenetre fenetre(int(s.range(0)));
    // The form is painted once, then closed: the command returns.
    fenetre.f->definirPreparationDialogue([](QWidget *d) {
        QTimer::singleShot(0, d, [d] {
            d->repaint();
            d->close();
        });
    });
    for (auto _ : s) fenetre.f->modifierDocument();
}

void BM_EnregistrerLeFormulaire(benchmark::State &s) {
    Fenetre fenetre(int(s.range(0)));
    FrmAjoutDoc formulaire(fenetre.f, fenetre.f->MG);
    // The row of the main window shows what the form wrote, as when the window opens it.
    QObject::connect(&formulaire, &FrmAjoutDoc::documentModifie, fenetre.f, &frmMain::documentModifie);
    QStringList champs;
    for (int c = 3; c <= 10; ++c) champs << fenetre.f->MG->GetColumnInfos(fenetre.ligne, c);
    formulaire.modifier(champs, 0, {});
    int n = 0;
    for (auto _ : s) {
        s.PauseTiming();
        formulaire.show();
        formulaire.Saisie[1]->setText(QStringLiteral("identifiant %1").arg(++n));
        s.ResumeTiming();
        formulaire.OK->click();
    }
}

// The floor of a store: the same row written by its rowid in one transaction, on a
// connection of its own, without a window.
void BM_EcrireLaLigneSeule(benchmark::State &s) {
    Fenetre fenetre(int(s.range(0)));
    const qint64 rowid = fenetre.f->MG->GetColumnInfos(fenetre.ligne, Colonne::Rowid).toLongLong();
    int n = 0;
    for (auto _ : s) {
        Base::Connexion c;
        c.debutTransaction();
        Base::Requete r(c, "UPDATE Documents SET LoginDoc=? WHERE rowid=?");
        r.lier(1, QStringLiteral("identifiant %1").arg(++n)).lier(2, rowid).executer();
        c.valider();
    }
}

void BM_EditerUnChamp(benchmark::State &s) {
    Fenetre fenetre(int(s.range(0)));
    frmMain *f = fenetre.f;
    const int ligne = fenetre.ligne;
    int n = 0;
    for (auto _ : s) {
        const QString texte = QStringLiteral("identifiant %1").arg(++n);
        MajChampDocument(4, CrypterChamp(texte));
        f->MG->MajColumnInfos(ligne, Colonne::Login, texte);
        QApplication::processEvents();
    }
}

}  // namespace

BENCHMARK(BM_EditerUnChamp)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OuvrirLeFormulaire)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EnregistrerLeFormulaire)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EcrireLaLigneSeule)->Arg(100000)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::AvecFenetres); }
