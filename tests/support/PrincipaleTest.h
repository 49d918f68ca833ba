#pragma once
// The main window of account 1 ("alice") over a test base of its own, for the tests
// that drive it, and the modal dialogs it opens.

#include "app/fenetres/Navigation.h"
#include "store/Comptes.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"
#include "workspace/fenetres/frmMain.h"

#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

// The grid row of the folder or document whose column 3 reads texte, -1 for none.
inline int ligneDe(const frmMain *f, const QString &texte) {
    for (int i = 2; i < f->MG->NbLignes; ++i)
        if (f->MG->GetColumnInfos(i, Colonne::Titre).trimmed() == texte) return i;
    return -1;
}

class PrincipaleTest {
public:
    // The rows of sql go into the base first; the window comes up active, as focus
    // moves (and with it the commits of the editing boxes) only in the active window.
    explicit PrincipaleTest(const QString &sql) : env(std::make_unique<EnvironnementTest>()) {
        Comptes::creer(1, QStringLiteral("alice"), QStringLiteral("a"));
        Reglages::ecrire(Reglages::Cle::Demarrage, 1);  // the desktop's association is not this test's
        BaseSql::executer(Chemins::cheminBase(), sql);
        Session::NumCompteCourant = 1;
        Session::LoginCourant = QStringLiteral("alice");
        Session::Ouverte = true;
        Navigation::afficherPrincipale();
        f = Navigation::fenetrePrincipale();
        f->activateWindow();
        actif = QTest::qWaitForWindowActive(f);
    }
    ~PrincipaleTest() {
        Navigation::fermerTout();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Runs the steps on the dialog that ouvrir() brings up, while its modal loop runs,
    // then closes it if the steps left it open. False when no such dialog came.
    template <typename Dialogue>
    bool dialogue(const std::function<void()> &ouvrir, const std::function<void(Dialogue *)> &etapes) {
        bool venu = false;
        f->definirPreparationDialogue([&](QWidget *d) {
            QTimer::singleShot(0, d, [&, d] {
                auto *dialogue = qobject_cast<Dialogue *>(d);
                venu = dialogue != nullptr;
                if (dialogue) etapes(dialogue);
                if (d->isVisible()) d->close();
            });
        });
        ouvrir();
        f->definirPreparationDialogue(nullptr);
        return venu;
    }

    std::unique_ptr<EnvironnementTest> env;
    frmMain *f = nullptr;
    bool actif = false;
};
