#pragma once
// What the owner-drawn menus keep for one attached window: a record per prepared
// action, a panel per prepared menu, the image list and the tip receiver. It
// prepares, measures and lays out a menu; the life cycle of menus (modMenus) calls
// it, the style and the painter read its records, and it calls none of them.

#include "menus/cTips.h"
#include "menus/fenetres/TypesMenus.h"

#include <QImage>
#include <QPointer>
#include <QString>

#include <memory>
#include <unordered_map>

class ListeImages;
class QAction;
class QMenu;
class QWidget;

class cMenuItems {
public:
    cMenuItems();
    ~cMenuItems();
    cMenuItems(const cMenuItems &) = delete;
    cMenuItems &operator=(const cMenuItems &) = delete;

    void InitializeSubMenu(QWidget *fenetre, const ListeImages *imageList, cTips *tips, bool sousFenetre, QMenu *menu,
                           const QString &tipDefaut);

    bool IsMenuLess = false;
    bool IsMDIclient = false;
    QWidget *MDIClient = nullptr;
    QWidget *hwnd() const { return fenetre_; }
    cTips *ShowTips() const { return tips_; }
    const ListeImages *ImageListObject() const { return images_; }
    QString TipDefaut;

    // Prepares the menu about to show: each action becomes an owner-drawn record, and
    // the panel says how wide a band the menu keeps for its sidebar (margeGauche).
    // A list item gets its generated submenu, which the caller then follows.
    // True when the menu must be remembered for this menu loop.
    bool IsWindowList(QMenu *menu, bool isSystem);
    // A picked action: true when the pick was the engine's own (a generated list
    // entry); false for a command of the application, which reaches it unchanged.
    bool MenuSelected(int id, QMenu *menu, bool isSystem);
    QString Tips(int id, QMenu *menu);
    void UpdateMenuItems(QMenu *menu);
    // The generated submenu of the item id of menu goes, with the object that prepares it.
    void DestroyPopup(QMenu *menu, int id);
    // The record of an action taken out of its menu is dropped.
    void oublierAction(QAction *action, QMenu *menu);

    // The record and panel of an action or menu, or null; null records are not drawn.
    const modMenus::TypeItemMenu *GetMenuItem(int id, QMenu *menu) const;
    modMenus::TypePanneau *GetPanelItem(QMenu *menu);
    const modMenus::TypeItemMenu *itemAction(const QAction *action, QMenu *menu) const;
    int padAction(const QAction *action, QMenu *menu) const;

    // The sidebar of the menu rendered for a height, unless it already is.
    void rendreBarre(QMenu *menu, int hauteur);
    // The widest picture of the menu's image column, 16 at least.
    int largeurImages(QMenu *menu);
    // The picture that a record shows, or a null image.
    QImage imageItem(const modMenus::TypeItemMenu &item) const;

    // For tests and benchmarks.
    int nombreItems() const;
    int nombrePanneaux() const;

    static int idAction(QAction *action);

private:
    // What is kept for one menu: its panel and a record per prepared action, by the
    // action's id; or, for a generated submenu, the object that prepares it.
    struct RecordsMenu {
        std::unique_ptr<modMenus::TypePanneau> panneau;
        std::unordered_map<int, std::unique_ptr<modMenus::TypeItemMenu>> items;
        QPointer<QMenu> menuDelegue;  // a submenu gone since is not the new menu at its address
        std::unique_ptr<cMenuItems> delegue;
    };

    modMenus::TypeItemMenu *analyserItem(QAction *action, QMenu *menu, int position, bool isSystem, bool *barre);
    // The submenu that a list keyword or a linked list control stands for, made anew.
    void deplier(QAction *action, QMenu *menu, modMenus::TypeItemMenu &item);
    // A file entry (gEXE:) or a drive entry (LDrv:) takes its picture, name and tip
    // from the desktop.
    void lireFichierOuLecteur(modMenus::TypeItemMenu &item, const QString &bloc);
    // The object that prepares a generated submenu, or null.
    cMenuItems *delegue(const QMenu *menu) const;
    // The record of action id in menu, or null.
    modMenus::TypeItemMenu *trouverItem(const QMenu *menu, int id) const;
    modMenus::TypePanneau *trouverPanneau(const QMenu *menu) const;
    void mesurerItem(modMenus::TypeItemMenu &item);
    void disposer(QMenu *menu, int usable);
    QImage imageBarre(const QString &valeur) const;

    QWidget *fenetre_ = nullptr;
    QPointer<cTips> tips_, tipsPrecedent_;
    const ListeImages *images_ = nullptr;
    std::unordered_map<const QObject *, RecordsMenu> menus_;
    int prochainIdListe_ = 1;  // the ids of generated entries
};
