#pragma once
// The engine's style for the menus it prepared: their items measured and painted
// from their records, their panel, frame and sidebar band.

class QMenu;

namespace modMenus {

// The menu is drawn by the engine from now on, its sidebar band, when it has one,
// margeGauche pixels wide along its left edge.
void preparerAffichage(QMenu *menu, int margeGauche);
// A menu gone: the style forgets it.
void oublierMenuStyle(const QMenu *menu);

}  // namespace modMenus
