#pragma once
// The attached windows of the owner-drawn menus, each with the object that keeps its
// records, owned here and keyed by the window itself.

class QObject;
class QWidget;
class cMenuItems;

namespace modMenus {

// The object of an attached window, or null.
cMenuItems *objetFenetre(const QWidget *fenetre);
int nombreFenetresAttachees();
// The object that prepares this menu: the first attached window among its parents.
cMenuItems *TrouverObjet(const QObject *menu);

// A new object for the window, owned until retirerFenetre.
cMenuItems *inscrireFenetre(const QObject *fenetre);
// The window's object goes; true when it was the last attached window.
bool retirerFenetre(const QObject *fenetre);

}  // namespace modMenus
