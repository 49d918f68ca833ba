#pragma once
// The submenus that the menus generate by themselves: the entries that a list keyword
// (lvColors:, lvMonths:, ...) or a list control (LB:, CB:) stands for. Each entry is a
// caption of the caption language, with the keywords that tell the engine what was
// picked (LColor:, LMonth:, LIndex:, ...); the engine appends them to a popup.

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

class QWidget;

namespace modMenus {

struct EntreeListe {
    QString legende;
    int identifiant = 0;
    bool cochee = false;
    bool desactivee = false;
};

// The list keywords, in the order an item's block is tested for them.
enum class GenreListe { Aucune,
                        Couleurs,
                        Mois,
                        Jours,
                        Etats,
                        UnMois,
                        Polices,
                        Lecteurs };

// The first list keyword that the block holds.
GenreListe TrouverListe(const QString &bloc);

// The entries of the submenu that the block's list keyword asks for, with ids from
// prochainId on, bars included; prochainId is left after the last one.
//
// Each entry's block starts "{gControl:0|lvID:" + the list's name. The name is written
// in the keyword's value before ":ID:" ({lvMonths:Echeance:ID:Group:CYQtr}), or as an
// attribute of its own ({lvColors:|ID:Fond}).
//   lvColors:  24 colours, checked the one equal to the setting Font/FontColor (none
//              when it is not set), a raised bar, and "Sélectionner une couleur
//              Personnalisée" with LDefClr: the current colour (0 when unset), LColor:-1;
//   lvMonths:  the twelve months by their French names (LMonth: 1 to 12); Group:CYQtr
//              or Group:FYQtr put a titled bar before months 1, 4, 7 and 10;
//   lvDays:    the seven weekdays, Monday first (LDay: 1 to 7, Monday 1);
//   lvStates:  51 states (LState: the postal code);
//   lvMonth:   the days of month n ("janv. 5, vendredi", LDate: yyyy-mm-dd), 0 for the
//              month of aujourdhui, none outside 1 to 12; Year: the year (that of
//              aujourdhui when absent or 0), Day: the day shown checked;
//   lvFonts:, lvDrives:  no entries.
QList<EntreeListe> DeplierMotCle(const QString &bloc, int &prochainId, const QDate &aujourdhui = QDate::currentDate());

// The id of the disabled bar that stands for an empty list control.
constexpr int kIdAucuneSelection = 32500;

// The entries of the submenu for the list control of the item whose caption is
// legende: a QComboBox (kind 0) or a QListWidget (kind 1). Each entry is the list's
// text, ampersands doubled, with the caption's own block, "|LIndex:" + its index and
// "|gType:" + the kind; an entry text with a block of its own adds its attributes.
// The current entry of a combo box, and every selected entry of a list, is checked.
// For a list, Files: + an existing folder makes each entry a file of that folder
// (gEXE:); Files:-1, or a missing folder, makes each entry a full path, shown by its
// name, with gEXE: its folder when that folder exists. An empty list gives one disabled
// raised bar "-No Selections Available" with the id kIdAucuneSelection.
// No value (nothing to expand) without a control, for another kind of widget, or a
// list that shows several columns or draws its entries with a delegate of its own.
std::optional<QList<EntreeListe>> DeplierListe(const QString &legende, QWidget *liste, int &prochainId);

}  // namespace modMenus
