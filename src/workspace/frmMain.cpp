#include "frmMain.h"

#include "store/Def.h"
#include "store/Reglages.h"
#include "store/Session.h"
#include "ui/Chaines.h"
#include "ui/Messages.h"

#include <QLabel>

frmMain::frmMain(QWidget *parent) : FenetreCadre(parent) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(Messages::kTitre);
    Session::ModeLogin = 0;
    // The first start of this user registers .kvx files; later starts leave that alone.
    if (Reglages::lireNombre(Reglages::Cle::Demarrage) == 0) {
        AssocierExtension();
        Reglages::ecrire(Reglages::Cle::Demarrage, 1);
    }
    definirTailleContenu(QSize(760, 480));
    entete->setText(QStringLiteral("%1 (%2 : %3)").arg(Chaine(118).trimmed(), Chaine(119), Session::LoginCourant));
    EnteteB->definirTexte(Chaine(154).trimmed());
    connect(this, &FenetreCadre::fermetureDemandee, this, [] { ConfirmerQuitter(); });
}
