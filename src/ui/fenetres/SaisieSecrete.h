#pragma once
// A password box: what it holds is hidden, an eye at its right end (or Ctrl+H in the
// box) shows it, and what it shows never goes to the primary selection.

class QLineEdit;

namespace SaisieSecrete {

void equiper(QLineEdit *boite);
void montrer(QLineEdit *boite, bool visible);
bool estVisible(const QLineEdit *boite);

}  // namespace SaisieSecrete
