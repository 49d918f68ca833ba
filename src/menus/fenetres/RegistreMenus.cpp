#include "RegistreMenus.h"

#include "menus/fenetres/cMenuItems.h"

#include <QWidget>

#include <memory>
#include <unordered_map>

namespace modMenus {

namespace {

std::unordered_map<const QObject *, std::unique_ptr<cMenuItems>> &objets() {
    static std::unordered_map<const QObject *, std::unique_ptr<cMenuItems>> table;
    return table;
}

cMenuItems *objetDe(const QObject *fenetre) {
    const auto it = objets().find(fenetre);
    return it != objets().end() ? it->second.get() : nullptr;
}

}  // namespace

cMenuItems *objetFenetre(const QWidget *fenetre) { return objetDe(fenetre); }
int nombreFenetresAttachees() { return int(objets().size()); }

cMenuItems *TrouverObjet(const QObject *menu) {
    for (const QObject *o = menu; o; o = o->parent())
        if (cMenuItems *objet = objetDe(o)) return objet;
    return nullptr;
}

cMenuItems *inscrireFenetre(const QObject *fenetre) {
    std::unique_ptr<cMenuItems> &objet = objets()[fenetre];
    objet = std::make_unique<cMenuItems>();
    return objet.get();
}

bool retirerFenetre(const QObject *fenetre) {
    auto noeud = objets().extract(fenetre);
    if (noeud.empty()) return false;
    // Out of the table before it goes: nothing finds an object being destroyed.
    noeud.mapped().reset();
    return objets().empty();
}

}  // namespace modMenus
