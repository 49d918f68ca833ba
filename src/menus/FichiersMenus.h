#pragma once
// What the menus ask of files and of the desktop: parts of a path, the short form of a
// path, the description of a file, and the room the toolkit leaves in a menu.

#include <QChar>
#include <QString>

namespace modMenus {

// One part of a path, by its letter:
//   'D' the drive or root: "C:\", a UNC path up to and including its share's "\"
//       ("\\serveur\partage\"), "\" for a path rooted without a drive; "/" for an
//       absolute Linux path; empty for a relative path;
//   'P' the folder with its trailing separator, up to the last "\" or, lacking one,
//       the first ":" (on Linux the last "/"); empty when the path is a bare name;
//   'N' the name that follows that folder, so that P + N is the path;
//   'E' the extension: what follows the last "." of the name, empty without one;
//   'm' the name less its extension, and empty when the name has no "." at all.
// A path is read in the Linux form when it begins with "/" or holds "/" and no "\":
// only "/" separates there, and ":" is an ordinary character. An unknown letter or an
// empty path gives the empty text.
QString DecoupeChemin(const QString &chemin, QChar lettre);

// The short form of a path, for the image source of a file entry. Linux has no short
// names: a path is its own short form.
QString GetShortFileName(const QString &chemin);

// The description of a file, for the tip of a file entry. Linux files carry no version
// resource: the description is that of the file's type as the desktop knows it
// ("Document texte", "Image PNG", ...), in the language of the program's locale. Empty
// for a missing file or a type that nothing is known of, so that the caller's default
// tip stands.
QString GetFileDescription(const QString &chemin);

// The room that the toolkit itself leaves at the right of a menu for submenu arrows
// and shortcuts. Qt's menus draw our items whole and leave none, so the layout pass
// always adds its own pad.
constexpr int DecalageOS = 0;
constexpr int DecalageSysteme() { return DecalageOS; }

}  // namespace modMenus
