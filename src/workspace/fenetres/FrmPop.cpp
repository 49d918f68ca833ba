#include "FrmPop.h"

#include "grid/ListeImages.h"
#include "menus/Legende.h"
#include "menus/cTips.h"
#include "menus/fenetres/modMenus.h"
#include "store/Base.h"
#include "store/TableIcones.h"
#include "ui/Apparence.h"
#include "ui/Art.h"

#include <QAction>
#include <QLabel>
#include <QMenu>

bool FrmPop::IconesModifiees = false;
const QString FrmPop::kAucuneIcone = QStringLiteral("Aucune icône : ajoutez-en dans les options");

FrmPop::FrmPop(const ListeImages &images, QWidget *parent) : QWidget(parent, Qt::Window), images_(images) {
    setObjectName(QStringLiteral("FrmPop"));
    ImTool = new QLabel(this);
    ImTool->setObjectName(QStringLiteral("ImTool(1)"));
    ImTool->setPixmap(Art::pixmap(QStringLiteral("barre_icones"), QSize(35, 128)));
    ImTool->hide();
    myTips = new cTips(this);
    Icones = new QMenu(QStringLiteral("&Icones"), this);
    Icones->setObjectName(QStringLiteral("Icones"));
    // The picture at the band's foot, over the navy of its plate, however tall the menu.
    Barre = Icones->addAction(QStringLiteral("{Sidebar|IMG:ImTool(1)|Align:Bot|BColor:&H663F2E|GColor:&H442A1F|Width:0|Tip:|}"));
    Barre->setObjectName(QStringLiteral("Barre"));
    connect(Barre, &QAction::triggered, this, &FrmPop::barreCliquee);
    Icone.append(Icones->addAction(QString()));  // element 0, there from the start
    connect(Icones, &QMenu::triggered, this, [this](QAction *action) {
        if (action == Barre || !Icone.contains(action)) return;
        // The Tag is the icon's key: its number follows the "A ".
        bool ok = false;
        const int num = Apparence::numDeCle(action->data().toString(), &ok);
        if (ok) emit iconeChoisie(num);
    });
    ChargerIconesDatabase();
}

void FrmPop::ChargerIconesDatabase() {
    while (Icone.size() > 1) delete Icone.takeLast();
    Icone[0]->setText(QString());
    Icone[0]->setData(QString());
    QList<TableIcones::Ligne> lignes;
    try {
        lignes = TableIcones::lire(false);
    } catch (const Base::ErreurBase &) {
        lignes.clear();  // an unreadable base: the menu stays empty, the caller told it already
    }
    for (int i = 0; i < lignes.size(); ++i) {
        if (i > 0) Icone.append(Icones->addAction(QString()));
        QAction *item = Icone[i];
        item->setText(legendeIcone(lignes[i].libelle, i + 1, lignes[i].num));
        item->setData(Apparence::cleIcone(lignes[i].num));
    }
    // An empty library says so in one line that can't be picked.
    if (lignes.isEmpty()) Icone[0]->setText(kAucuneIcone);
    Icone[0]->setEnabled(!lignes.isEmpty());
}

QString FrmPop::legendeIcone(const QString &libelle, int position, const QString &num) {
    // The block first: the name after it is read as plain text, braces, ampersands and
    // a leading "-" included. An icon without a name is still named.
    const QString nom = libelle.trimmed().isEmpty() ? QStringLiteral("Icône ") + num : libelle;
    return QStringLiteral("{IMG:i ") + QString::number(position) + QStringLiteral("}  ") + modMenus::TexteLitteral(nom);
}

void FrmPop::AfficherIcones() {
    modMenus::ChoisirRelief(true);
    modMenus::ChoisirDegrade(true);
    modMenus::ChoisirSoulignement(false);
    modMenus::ChoisirBarreAuto(true);
    modMenus::AttacherMenus(this, &images_, myTips, 0);
    IconesModifiees = false;
}

void FrmPop::montrer(const QPoint &pos) { Icones->exec(pos); }
