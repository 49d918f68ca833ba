#pragma once
// The icon library as the options window edits it: pictures read from files, and
// the save of the whole library to the Icones table.

#include <QImage>
#include <QString>

class ListeImages;

namespace BibliothequeIcones {

// The picture of a file, whatever format Qt reads; of an icon file with several
// sizes, the one that resamples best. Null when the file is no picture. A picture
// larger than 256 pixels on a side comes at that size: JPEG and SVG decode it so
// directly, whatever their size, in a few MB; the formats that decode whole first
// (PNG, BMP, GIF, ...) take up to 64 megapixels, 4 bytes a pixel while they are read.
QImage chargerFichier(const QString &chemin);

// Writes every icon of the list to Icones, all of them or none: each picture is
// resampled again and stored, each tag becomes its Libelle, and a key the table
// lacks becomes a new row of that Num. The list keeps the pictures as written.
// An icon whose stored bytes never loaded keeps them; only its name is written.
// Throws Base::ErreurBase.
void MajIcones(ListeImages &liste);

}  // namespace BibliothequeIcones
