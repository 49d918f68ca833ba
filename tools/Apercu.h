#pragma once
// A sample grid rendered to a picture, to look at the grid without a base of one's own.

#include <QString>

namespace grille {

// Title, section, three folders (one closed), documents with their icons and one
// selected row, saved as PNG. False when the file can't be written.
bool rendreApercu(const QString &cheminPng);

}  // namespace grille
