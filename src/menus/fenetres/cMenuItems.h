#pragma once
// What the owner-drawn menus keep for one attached window: a record per prepared
// action, a panel per prepared menu, the image list and the tip receiver.

#include <QHash>
#include <QImage>
#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QString>

#include "menus/cTips.h"

class ListeImages;
class QAction;
class QMenu;
class QWidget;

namespace modMenus {

// Bits of TypeItemMenu::Etat.
enum : quint16 {
    kEtatSeparateur = 2,
    kEtatGrise = 4,
    kEtatCoche = 8,
    kEtatDefaut = 16,
    kEtatRelief = 32,
    kEtatBarre = 64,
    kEtatBarreOtee = 128,  // a NoScroll sidebar dropped because the menu has columns
    kEtatSousMenu = 0x0200,
    kEtatListeGeneree = 0x0400,
    kEtatNuancier = 0x0800,
    kEtatEchantillon = 0x1000,
};

struct TypeItemMenu {
    QString Legende;    // the raw caption as the application gave it
    QString Texte;
    QString Raccourci;  // or "Remeasure" on a sidebar to render again
    QString Conseil;
    int Largeur = 0;
    int Hauteur = 0;
    int Identifiant = 0;
    QString Image;         // "i" + n for picture n of the image list, or the name of a control
    QImage imageFichier;   // the picture of a file or drive entry, from the desktop
    bool FondImage = false;
    quint8 TypeListe = 0;
    QPointer<QWidget> ListeLiee;
    int ControleLie = 0;
    quint16 Etat = 0;
    // What the action showed when it was prepared: an action whose text the
    // application changed since is read again.
    QString texteAction;
    QPointer<QAction> action;
};

struct TypePanneau {
    QPointer<QMenu> menu;
    QPixmap barre;       // the rendered sidebar, kept until the menu's height changes
    int hauteurBarre = -1;  // the height it was rendered for; -1 nothing measured yet
    int largeurBarre = 0;
    int largeurImages = 16;  // the image column: the widest picture of the menu
    int indexBarre = 0;     // the sidebar's record, 0 for none
    bool HasImages = false;
    int colonnes = 0;
    QHash<int, int> pads;   // the extra width of each record of the menu, by its index
    int rendus = 0;         // how many times its sidebar was rendered
};

}  // namespace modMenus

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

    // Prepares the menu about to show: each action becomes an owner-drawn record.
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
    int nombreItems() const { return int(Items.size()) - 1; }
    int nombrePanneaux() const { return int(Panneaux.size()) - 1; }

    static int idAction(QAction *action);

private:
    int analyserItem(QAction *action, QMenu *menu, int position, bool isSystem, bool *barre);
    // The submenu that a list keyword or a linked list control stands for, made anew.
    void deplier(QAction *action, QMenu *menu, modMenus::TypeItemMenu &item);
    // A file entry (gEXE:) or a drive entry (LDrv:) takes its picture, name and tip
    // from the desktop.
    void lireFichierOuLecteur(modMenus::TypeItemMenu &item, const QString &bloc);
    // The object that prepares a generated submenu, or null.
    cMenuItems *delegue(const QMenu *menu) const;
    void mesurerItem(modMenus::TypeItemMenu &item);
    void disposer(QMenu *menu, int usable);
    void rendreBarreImage(modMenus::TypePanneau &panneau, const modMenus::TypeItemMenu &item, const QString &bloc, int H);
    void rendreBarreTexte(modMenus::TypePanneau &panneau, modMenus::TypeItemMenu &item, QString bloc, int H);
    QImage imageBarre(const QString &valeur) const;
    static QString cleItem(const QMenu *menu, int id);
    static QString clePanneau(const QMenu *menu);

    QWidget *fenetre_ = nullptr;
    QPointer<cTips> tips_, tipsPrecedent_;
    const ListeImages *images_ = nullptr;
    QList<modMenus::TypeItemMenu> Items{1};
    QList<modMenus::TypePanneau> Panneaux{1};
    QHash<QString, int> IndexItems;
    QList<int> libres_;  // records of removed actions, for the next new ones
    QHash<QString, int> IndexPanneaux;
    // The generated submenus, by the submenu's address and "g": each is prepared by
    // an object of its own, which this one owns and forwards to.
    struct Delegation {
        QPointer<QMenu> menu;
        cMenuItems *objet = nullptr;
    };
    QHash<QString, Delegation> MenusDelegues;
    int prochainIdListe_ = 1;  // the ids of generated entries
};
