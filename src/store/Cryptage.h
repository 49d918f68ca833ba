#pragma once
// Field cipher: a fixed substitution of each character of a known alphabet
// by a three-character code. No key and no state: the same text always gives
// the same stored text.

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

namespace Cryptage {

struct LigneCode {
    char16_t clair;
    const char16_t *code;  // three characters
};

// The 94 rows, in alphabet order: a-z, 1-9 then 0, A-Z, 30 signs, blank, degree sign.
const std::array<LigneCode, 94> &TableCodes();

}  // namespace Cryptage

// Plain text to stored text. A character outside the alphabet passes through unchanged.
QString CrypterChamp(const QString &texte);

// The characters of texte that the cipher can't keep, each once, in order of appearance.
QStringList HorsAlphabet(const QString &texte);

// The French refusal that names those characters, or the empty text when every
// character of texte is kept by the cipher.
QString MessageHorsAlphabet(const QString &texte);

// Stored text to plain text, three characters at a time. A piece that is no code
// passes through as it stands, so text with characters outside the alphabet does
// not round-trip: the stored text leaves the three-character grid there.
QString DecrypterChamp(const QString &texte);
QString DecrypterChamp(QStringView texte);

// UTF-8 bytes read from the base as text, every character kept: a leading U+FEFF
// is a character of the field, not a header.
QString depuisUtf8(QByteArrayView utf8);

// A field of a document as the load shows it: deciphered when the stored text is
// wholly the cipher's work, codes on the three-character grid and, between them,
// characters outside the alphabet that it passes through; else as the base holds
// it, so that a text stored as typed never comes back altered.
QString LireChampDocument(QStringView stocke);
QString LireChampDocument(QByteArrayView utf8);

// What the document dialog stores for a typed text so that the load gives it back:
// the text as typed, or enciphered when the load would take it for codes. None when
// neither reads back (codes mixed with a character outside the alphabet).
std::optional<QString> ChampDuDialogue(const QString &texte);
