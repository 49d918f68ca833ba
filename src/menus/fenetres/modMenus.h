#pragma once
// The owner-drawn menus: the life cycle of the menus of every window that uses them.
// A window is attached once; from then on each QMenu it owns is prepared as it is
// about to show (its actions become records of cMenuItems), measured and painted by
// the engine's style, and its choices are told apart from the application's commands.
//
// Qt has no window procedure to replace: the moments of a menu's life are the menu's
// own signals (about to show, hovered, triggered, about to hide) and the window's
// destruction, caught by one event filter and a few connections.
//
// The engine's other jobs have files of their own, included here for its users: the
// painter and its options (PeintreMenus), the sidebar (BarreMenus), the table of
// attached windows (RegistreMenus); the style (StyleMenus) and the records of a
// window (cMenuItems) are the engine's own.

#include "menus/fenetres/BarreMenus.h"
#include "menus/fenetres/PeintreMenus.h"
#include "menus/fenetres/RegistreMenus.h"

class ListeImages;
class QWidget;
class cTips;

namespace modMenus {

// Attaches the engine to a window, or, for a window already attached, changes only
// whether it counts as menu-less (mode 3 has a menu, 4 and 5 are menu-less). The
// absolute value of mode is used; 1 names a container whose first tool bar child holds
// the menus. imageList is what IMG:i references read; tipReceiver may be null.
void AttacherMenus(QWidget *fenetre, const ListeImages *imageList, cTips *tipReceiver, int mode);

}  // namespace modMenus
