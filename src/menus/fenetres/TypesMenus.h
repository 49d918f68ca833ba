#pragma once
// The records of the owner-drawn menus: one per prepared action, one panel per
// prepared menu. The records are read by the painter, the style and the sidebar.

#include <QImage>
#include <QPixmap>
#include <QPointer>
#include <QString>

#include <unordered_map>

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
    QString Legende;  // the raw caption as the application gave it
    QString Texte;
    QString Raccourci;  // or "Remeasure" on a sidebar to render again
    QString Conseil;
    int Largeur = 0;
    int Hauteur = 0;
    int Identifiant = 0;
    QString Image;        // "i" + n for picture n of the image list, or the name of a control
    QImage imageFichier;  // the picture of a file or drive entry, from the desktop
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
    QPixmap barre;          // the rendered sidebar, kept until the menu's height changes
    int hauteurBarre = -1;  // the height it was rendered for; -1 nothing measured yet
    int largeurBarre = 0;
    int largeurImages = 16;             // the image column: the widest picture of the menu
    TypeItemMenu *itemBarre = nullptr;  // the sidebar's record, null for none
    bool HasImages = false;
    int colonnes = 0;
    std::unordered_map<const TypeItemMenu *, int> pads;  // the extra width of each record of the menu
    int margeGauche = 0;                                 // the sidebar's band along the left edge, as laid out
    int rendus = 0;                                      // how many times its sidebar was rendered
};

}  // namespace modMenus
