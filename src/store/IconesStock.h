#pragma once
// The six icons every new base starts with, drawn by us.

#include <QByteArray>
#include <QList>
#include <QString>

namespace IconesStock {

struct Icone {
    QString libelle;
    QByteArray octets;  // a PNG file
};

// In library order: "Compte", "Logiciels", "Favoris", "Email", "Login réseau", "Web".
QList<Icone> icones();

}  // namespace IconesStock
