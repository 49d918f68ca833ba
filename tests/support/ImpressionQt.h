#pragma once
// Lets GoogleTest print Qt strings readably in its failure messages.

#include <QString>
#include <QStringList>
#include <ostream>

inline void PrintTo(const QString &s, std::ostream *os) { *os << '"' << s.toStdString() << '"'; }
inline void PrintTo(const QStringList &l, std::ostream *os) { *os << "[\"" << l.join("\", \"").toStdString() << "\"]"; }
