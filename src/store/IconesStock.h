#pragma once
// The icons of the library as the base keeps them (their side, their PNG bytes),
// and the six every new base starts with, drawn by us.

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

namespace IconesStock {

// The side, in pixels, of every icon of the library.
constexpr int kCote = 18;

struct Icone {
    QString libelle;
    QByteArray octets;  // a PNG file
};

// The PNG file that the Icones table keeps of a picture.
QByteArray octetsPng(const QImage &image);

// In library order: "Compte", "Logiciels", "Favoris", "Email", "Login réseau", "Web".
QList<Icone> icones();

}  // namespace IconesStock
