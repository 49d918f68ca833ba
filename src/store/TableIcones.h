#pragma once
// The icon library as the base keeps it: the rows of Icones.

#include <QByteArray>
#include <QList>
#include <QString>

namespace TableIcones {

struct Ligne {
    QString num;     // as stored
    QByteArray ico;  // the picture file's bytes; empty when not asked for
    QString libelle;
};

// The library in the order of Num then Libelle; avecImages false leaves out the
// pictures' bytes, for whoever needs only the names. Throws Base::ErreurBase.
QList<Ligne> lire(bool avecImages = true);

struct Ecriture {
    int num = 0;
    QString libelle;
    bool avecImage = false;  // false: the row keeps its picture, only its name is written
    QByteArray ico;
};

// Writes each icon over the row of its Num, all of them or none: a Num the table
// lacks becomes a new row, unless only its name is written. Throws Base::ErreurBase.
void ecrire(const QList<Ecriture> &icones);

}  // namespace TableIcones
