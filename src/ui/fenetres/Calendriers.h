#pragma once
// The look shared by every calendar of the program.

class QAbstractItemView;
class QCalendarWidget;

namespace Calendriers {

// French days and months, weeks from Monday, a navy header whose month arrows and
// title read in white.
void habiller(QCalendarWidget *calendrier);
// The table of days, which holds the keyboard while the calendar has it.
QAbstractItemView *vueJours(QCalendarWidget *calendrier);

}  // namespace Calendriers
