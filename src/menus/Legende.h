#pragma once
// The caption language of the owner-drawn menus, as plain text work.
//
// A caption is  text [TAB shortcut]  where the text may hold, anywhere, one block
// "{ attributes }". The block is kept in its working form: "{", the attributes, each
// ended by "|" ("{IMG:i3}" becomes "{IMG:i3|"). An attribute is a flag ("Raised") or a
// keyword ending in ":" followed by its value ("FSize:14"). Keywords and every search
// here ignore case.

#include <QString>

namespace modMenus {

// Splits a caption. The tab is cut first: what follows the first tab is the shortcut,
// block or not. Only the first "{" ... "}" pair is a block; the text loses every copy
// of that stretch (ignoring case), in one pass, and is trimmed. A "}" before any "{",
// or a "{" without a "}" after it, is literal text. Never fails.
void SepareLegende(const QString &legende, QString &texte, QString &bloc, QString &raccourci);

// Reads one attribute of a block in working form. cle is the keyword with its colon if
// it has one. The tip ("Tip:...") is taken out of the block before any other key is
// looked for, so that its words are never attributes. A key is found after "|", else
// after "{", else after ":" (so "lvColors:Font" answers "Font"), and as a prefix
// ("|Boldly" answers "Bold" with "ly"). Answers:
//   - empty when the key is absent or the block is shorter than 3 characters;
//   - the value when it is not empty;
//   - "True" for the flags Raised, Bold, Italic, Underline, NoScroll, Transparent,
//     ImgBkg, Default and Sidebar written bare;
//   - "0" for any other key written with nothing after it ("FSize:" alone is size 0).
QString LireAttribut(const QString &bloc, const QString &cle);

// The sidebar's "Text:" read, and its value taken out of the block at its place, so
// that the words of the text are not read as attributes by the readings that follow.
// Answers as LireAttribut(bloc, "Text:").
QString ExtraireTexteBarre(QString &bloc);

// A separator is a caption whose text begins with "-" or is empty; the rest of the
// text is its title ("-First Quarter{Raised}" is a titled raised bar).
bool EstSeparateur(const QString &texte);
// "& " doubled to "&& ", so that an ampersand before a blank shows as an ampersand and
// not as a mnemonic mark.
QString DoublerEsperluettes(const QString &texte);
// A text shown as it stands by a caption whose block comes first ("{IMG:i3}" + text),
// where the braces of the text are plain characters: every ampersand doubled (no
// mnemonic), tabs made blanks (no shortcut), and a leading "-" preceded by a word
// joiner, which shows nothing, so that the item is no separator.
QString TexteLitteral(const QString &texte);

// What the value of IMG: names, by the first of its forms that fits: a plain number
// (an image of the program by that number), "I" and a number (picture n of the menu's
// image list, from 1; the engine checks it against the list), "&H" and hexadecimal
// digits (as a plain number), or the name of a control of the owning window, with an
// optional index in parentheses ("ImTool(1)"). The empty value names nothing.
struct ReferenceImage {
    enum class Genre { Aucune,
                       Numero,
                       ListeImages,
                       Controle };
    Genre genre = Genre::Aucune;
    qint64 numero = 0;  // Numero and ListeImages
    QString nom;        // Controle
    int index = -1;     // Controle: the index in parentheses, -1 without one
};
ReferenceImage LireImage(const QString &valeur);

// Colours are 32-bit numbers, red in the low byte, then green, then blue. A number
// with the top bit set names a system colour: its low byte is the index of the table
// of CouleurReelle.
constexpr int kCouleurSysteme = int(0x80000000u);
constexpr int couleurSysteme(int index) { return kCouleurSysteme | index; }

// A colour notation read as a colour: a whole decimal number, a name of the vb table
// ("vbRed", "vbInfoBackground", ...), or "&H" and hexadecimal digits; system colours
// come back resolved. Anything else, the empty text included, gives defaut.
int LireCouleur(const QString &valeur, int defaut);

// A system colour number replaced by the colour of the application's palette that
// stands for its index (see the table in the source); any other number is itself. An
// index outside the table is black.
int CouleurReelle(int couleur);

}  // namespace modMenus
