#pragma once
// The table of numbered strings of the interface (resources/chaines.txt).

#include <QString>

// The text of string num; the empty text for a number the table lacks.
QString Chaine(int num);

namespace Chaines {
int nombre();  // how many strings the table holds
}
