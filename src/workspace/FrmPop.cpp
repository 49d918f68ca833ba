#include "FrmPop.h"

#include "grid/ListeImages.h"
#include "menus/cTips.h"
#include "menus/modMenus.h"
#include "store/Base.h"
#include "ui/Art.h"

#include <QAction>
#include <QLabel>
#include <QMenu>

bool FrmPop::IconesModifiees = false;

FrmPop::FrmPop(const ListeImages &images, QWidget *parent) : QWidget(parent, Qt::Window), images_(images) {
    setObjectName(QStringLiteral("FrmPop"));
    ImTool = new QLabel(this);
    ImTool->setObjectName(QStringLiteral("ImTool(1)"));
    ImTool->setPixmap(Art::pixmap(QStringLiteral("barre_icones"), QSize(35, 128)));
    ImTool->hide();
    myTips = new cTips(this);
    Icones = new QMenu(QStringLiteral("&Icones"), this);
    Icones->setObjectName(QStringLiteral("Icones"));
    Barre = Icones->addAction(QStringLiteral("{Sidebar|IMG:ImTool(1)|||Width:0|Tip:|}"));
    Barre->setObjectName(QStringLiteral("Barre"));
    connect(Barre, &QAction::triggered, this, &FrmPop::barreCliquee);
    Icone.append(Icones->addAction(QString()));  // element 0, there from the start
    connect(Icones, &QMenu::triggered, this, [this](QAction *action) {
        if (action == Barre || !Icone.contains(action)) return;
        // The Tag is "A " + Num: the icon's number from its second character on.
        bool ok = false;
        const int num = action->data().toString().mid(1).trimmed().toInt(&ok);
        if (ok) emit iconeChoisie(num);
    });
    ChargerIconesDatabase();
}

void FrmPop::ChargerIconesDatabase() {
    while (Icone.size() > 1) delete Icone.takeLast();
    Icone[0]->setText(QString());
    Icone[0]->setData(QString());
    QList<QPair<QString, QString>> lignes;  // Num, Libelle
    try {
        Base::Connexion c;
        Base::Requete r(c, "SELECT Num, Libelle FROM Icones ORDER BY Num ASC, Libelle ASC");
        while (r.suivante()) lignes.append({r.texte(0), r.texte(1)});
    } catch (const Base::ErreurBase &) {
        lignes.clear();  // an unreadable base: the menu stays empty, the caller told it already
    }
    for (int i = 0; i < lignes.size(); ++i) {
        if (i > 0) Icone.append(Icones->addAction(QString()));
        QAction *item = Icone[i];
        item->setText(QStringLiteral("  ") + lignes[i].second + QStringLiteral("{IMG:i ") + QString::number(i + 1) + u'}');
        item->setData(QStringLiteral("A ") + lignes[i].first);
    }
    // An empty library leaves element 0 without a caption: a bar, never a choice.
    Icone[0]->setEnabled(!lignes.isEmpty());
}

void FrmPop::AfficherIcones() {
    modMenus::ChoisirRelief(false);
    modMenus::ChoisirDegrade(true);
    modMenus::ChoisirSoulignement(true);
    modMenus::ChoisirBarreAuto(true);
    modMenus::AttacherMenus(this, &images_, myTips, 0);
    IconesModifiees = false;
}

void FrmPop::montrer(const QPoint &pos) { Icones->exec(pos); }
