#pragma once
// What the pick of an entry that the menus generated does, apart from any window of
// the engine: a list value goes to the tip receiver, the custom colour opens the
// colour dialog, an entry of a list control selects that entry.

#include <QString>

class QWidget;
class cTips;

namespace modMenus {

// legende is the picked entry's raw caption. Its block is searched for LColor:,
// LMonth:, LState:, LDay:, LDate:, LFont:, LDrv:, in that order; the first found is
// reported through recepteur->ChoixListe with the list's name (lvID:) and the category
// "Color", "Month", "State", "WeekDay", "DayOfMonth", "Font" or "Drive". A font is also
// written to the setting Font/FontName. LColor:-1 opens the colour dialog over parent,
// from the colour LDefClr:; a confirmed colour is written to Font/FontColor and
// reported under "Color", a cancel reports nothing. Settings are written before the
// report, so a receiver reads the new value.
// With none of these keywords, an entry of the list control liste (a QComboBox or a
// QListWidget) selects the entry LIndex: and sends the control's activation signal;
// an LIndex: that is no index of the list selects nothing.
// recepteur and liste may be null. Returns true when the pick was the menus' own,
// false when the command belongs to the application.
bool RouterChoix(const QString &legende, cTips *recepteur, QWidget *liste, QWidget *parent);

}  // namespace modMenus
