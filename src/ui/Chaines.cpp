#include "Chaines.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>

namespace {

QHash<int, QString> chargerTable() {
    QHash<int, QString> table;
    QFile f(QStringLiteral(":/chaines.txt"));
    if (!f.open(QIODevice::ReadOnly)) return table;
    // A line is a number, blanks, and the text between the first and the last double quote.
    static const QRegularExpression ligne(QStringLiteral("^(\\d+)\\s+\"(.*)\"\\s*$"));
    for (const QByteArray &brut : f.readAll().split('\n')) {
        const auto m = ligne.match(QString::fromUtf8(brut));
        if (m.hasMatch()) table.insert(m.captured(1).toInt(), m.captured(2));
    }
    return table;
}

const QHash<int, QString> &table() {
    static const QHash<int, QString> t = chargerTable();
    return t;
}

}  // namespace

QString Chaine(int num) { return table().value(num); }

int Chaines::nombre() { return int(table().size()); }
