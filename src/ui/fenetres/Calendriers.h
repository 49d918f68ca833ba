#pragma once
// The look and the reading of dates shared by every calendar of the program.

#include <QDate>
#include <QString>

class QAbstractItemView;
class QCalendarWidget;

namespace Calendriers {

// French days and months, weeks from Monday, a navy header whose month arrows and
// title read in white.
void habiller(QCalendarWidget *calendrier);
// The table of days, which holds the keyboard while the calendar has it.
QAbstractItemView *vueJours(QCalendarWidget *calendrier);
// A date typed as dd/mm/yyyy (one or two digits for day and month); invalid when it is none.
QDate lireDate(const QString &texte);

}  // namespace Calendriers
