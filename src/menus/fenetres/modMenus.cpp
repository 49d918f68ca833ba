#include "modMenus.h"

#include "cMenuItems.h"
#include "menus/cTips.h"
#include "menus/fenetres/StyleMenus.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>

#include <memory>
#include <unordered_map>

namespace modMenus {

namespace {

class FiltreMenus;

// The menus prepared in the current menu loop.
using MenusDeLaBoucle = std::unordered_map<const QObject *, QPointer<QMenu>>;

struct EtatGlobal {
    // Absent between loops.
    std::unique_ptr<MenusDeLaBoucle> MenusOuverts;
    FiltreMenus *filtre = nullptr;
};

EtatGlobal &etat() {
    static EtatGlobal e;
    return e;
}

void initMenuPopup(QMenu *menu);
void finBoucle(QMenu *menu);

class FiltreMenus : public QObject {
public:
    using QObject::QObject;

    // A menu of an attached window is followed from its first showing on.
    void suivre(QMenu *menu) {
        if (menu->property("korvaneSuivi").toBool()) return;
        menu->setProperty("korvaneSuivi", true);
        menu->installEventFilter(this);
        QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] { initMenuPopup(menu); });
        QObject::connect(menu, &QMenu::aboutToHide, menu, [menu] { finBoucle(menu); });
        QObject::connect(menu, &QMenu::hovered, menu, [menu](QAction *action) {
            cMenuItems *objet = TrouverObjet(menu);
            if (objet && objet->ShowTips()) emit objet->ShowTips()->MontrerConseil(objet->Tips(cMenuItems::idAction(action), menu));
        });
        QObject::connect(menu, &QMenu::triggered, menu, [menu](QAction *action) {
            // A command the engine doesn't know goes on to the application as it is. The
            // pick in a submenu reaches its parents too: only the action's own menu acts.
            if (!menu->actions().contains(action)) return;
            if (cMenuItems *objet = TrouverObjet(menu); objet && !action->menu())
                objet->MenuSelected(cMenuItems::idAction(action), menu, false);
        });
        QObject::connect(menu, &QObject::destroyed, this, [menu] {
            oublierMenuStyle(static_cast<const QMenu *>(menu));
            if (etat().MenusOuverts) etat().MenusOuverts->erase(menu);
        });
        for (QAction *a : menu->actions())
            if (a->menu()) suivre(a->menu());
    }

protected:
    bool eventFilter(QObject *objet, QEvent *e) override {
        if (auto *menu = qobject_cast<QMenu *>(objet)) {
            if (e->type() == QEvent::KeyPress)
                definirSurvolClavier(true);
            else if (e->type() == QEvent::MouseMove)
                definirSurvolClavier(false);
            else if (e->type() == QEvent::MouseButtonRelease)
                cliquerBarre(menu, static_cast<QMouseEvent *>(e));
            else if (e->type() == QEvent::ActionAdded) {
                if (QAction *a = static_cast<QActionEvent *>(e)->action(); a && a->menu()) suivre(a->menu());
            } else if (e->type() == QEvent::ActionRemoved) {
                // A removed item takes its record with it: a library read again makes no heap of them.
                if (cMenuItems *o = TrouverObjet(menu)) o->oublierAction(static_cast<QActionEvent *>(e)->action(), menu);
            }
            return false;
        }
        if (e->type() == QEvent::ChildAdded)
            if (auto *menu = qobject_cast<QMenu *>(static_cast<QChildEvent *>(e)->child())) suivre(menu);
        return false;
    }

private:
    // The sidebar band is the first item: a click on it triggers its action.
    static void cliquerBarre(QMenu *menu, QMouseEvent *e) {
        cMenuItems *o = TrouverObjet(menu);
        TypePanneau *panneau = o ? o->GetPanelItem(menu) : nullptr;
        if (!panneau || !panneau->itemBarre || menu->actions().isEmpty()) return;
        QAction *barre = menu->actions().first();
        const TypeItemMenu *item = o->itemAction(barre, menu);
        if (!item || (item->Etat & (kEtatBarreOtee | kEtatGrise)) || e->position().x() >= panneau->largeurBarre + 1) return;
        menu->hide();
        barre->trigger();
    }
};

// A menu of an attached window (or one the engine generated) followed through its life.
void suivreMenu(QMenu *menu) {
    EtatGlobal &e = etat();
    if (!e.filtre) e.filtre = new FiltreMenus(qApp);
    e.filtre->suivre(menu);
}

void initMenuPopup(QMenu *menu) {
    EtatGlobal &e = etat();
    cMenuItems *objet = TrouverObjet(menu);
    if (!objet) return;
    if (!e.MenusOuverts) e.MenusOuverts = std::make_unique<MenusDeLaBoucle>();  // the loop begins
    definirSurvolClavier(false);
    // Opened again in the same loop: already prepared.
    if (e.MenusOuverts->count(menu)) return;
    if (objet->IsWindowList(menu, false)) e.MenusOuverts->emplace(menu, menu);
    if (const TypePanneau *panneau = objet->GetPanelItem(menu)) preparerAffichage(menu, panneau->margeGauche);
    // The submenus that the preparation generated are followed like the window's own.
    for (QAction *a : menu->actions())
        if (a->menu()) suivreMenu(a->menu());
}

void finBoucle(QMenu *menu) {
    EtatGlobal &e = etat();
    if (!e.MenusOuverts) return;
    // The loop ends with its outermost menu: no other prepared menu stays open.
    for (const auto &[cle, m] : *e.MenusOuverts)
        if (m && m != menu && m->isVisible()) return;
    cMenuItems *objet = TrouverObjet(menu);
    if (objet && objet->ShowTips()) objet->ShowTips()->annoncerMenusFermes();
    const auto ouverts = std::move(e.MenusOuverts);
    for (const auto &[cle, m] : *ouverts)
        if (m)
            if (cMenuItems *o = TrouverObjet(m)) o->UpdateMenuItems(m);
}

void Detacher(const QObject *fenetre) {
    if (!retirerFenetre(fenetre)) return;
    // The last window: the fonts and the loop go with it.
    oublierPolices();
    etat().MenusOuverts.reset();
}

}  // namespace

void AttacherMenus(QWidget *fenetre, const ListeImages *imageList, cTips *tipReceiver, int mode) {
    EtatGlobal &e = etat();
    preparerPolices();
    mode = qAbs(mode);
    if (mode == 1 && fenetre) {
        // A container: its first tool bar holds the menus.
        QWidget *barre = nullptr;
        for (QWidget *enfant : fenetre->findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
            if (enfant->inherits("QToolBar") || enfant->inherits("QMenuBar")) {
                barre = enfant;
                break;
            }
        fenetre = barre;
    }
    if (!fenetre) return;
    if (cMenuItems *objet = objetFenetre(fenetre)) {
        if (mode == 3)
            objet->IsMenuLess = false;
        else if (mode == 4)
            objet->IsMenuLess = true;
        if (imageList || tipReceiver) objet->InitializeSubMenu(fenetre, imageList, tipReceiver, false, nullptr, objet->TipDefaut);
        return;
    }
    cMenuItems *objet = inscrireFenetre(fenetre);
    objet->IsMenuLess = mode == 4 || mode == 5;
    objet->InitializeSubMenu(fenetre, imageList, tipReceiver, false, nullptr, QString());
    // Object first, then the hooks: nothing reaches a window without its object.
    if (!e.filtre) e.filtre = new FiltreMenus(qApp);
    fenetre->installEventFilter(e.filtre);
    for (QMenu *menu : fenetre->findChildren<QMenu *>()) e.filtre->suivre(menu);
    QObject::connect(fenetre, &QObject::destroyed, e.filtre, [fenetre] { Detacher(fenetre); });
}

}  // namespace modMenus
