#pragma once
// A document's URL as the browser is given it.

#include <QString>
#include <QUrl>

namespace AdresseWeb {

// The text trimmed; an address written without its scheme ("www.exemple.fr") gets
// "https://". Empty for an empty text.
QUrl pourNavigateur(const QString &texte);

}  // namespace AdresseWeb
