#pragma once
// Reads a base the way any SQLCipher client does: the passphrase, then plain SQL.

#include "store/Chemins.h"

#include <QFile>
#include <QString>
#include <QStringList>
#include <sqlcipher/sqlite3.h>

namespace BaseSql {

// Rows of the query, fields joined by '|', or {"ERREUR: ..."} on failure.
inline QStringList lignes(const QString &chemin, const QString &sql) {
    sqlite3 *db = nullptr;
    QStringList resultat;
    // Read-write where the file allows it, as the stock shell opens it: a program killed
    // in a write leaves a journal that only such a reader rolls back before reading.
    if (sqlite3_open_v2(QFile::encodeName(chemin).constData(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        sqlite3_close(db);
        return {QStringLiteral("ERREUR: ouverture")};
    }
    sqlite3_exec(db, "PRAGMA key='Tarvex';", nullptr, nullptr, nullptr);
    sqlite3_stmt *st = nullptr;
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &st, nullptr) != SQLITE_OK) {
        resultat << QStringLiteral("ERREUR: ") + QString::fromUtf8(sqlite3_errmsg(db));
    } else {
        while (sqlite3_step(st) == SQLITE_ROW) {
            QStringList champs;
            for (int i = 0; i < sqlite3_column_count(st); ++i) {
                const auto *t = reinterpret_cast<const char *>(sqlite3_column_text(st, i));
                champs << (t ? QString::fromUtf8(t) : QStringLiteral("NULL"));
            }
            resultat << champs.join(u'|');
        }
    }
    sqlite3_finalize(st);
    sqlite3_close(db);
    return resultat;
}

// The same on the program's own base.
inline QStringList sql(const QString &requete) { return lignes(Chemins::cheminBase(), requete); }

inline bool executer(const QString &chemin, const QString &sql) {
    sqlite3 *db = nullptr;
    bool ok = sqlite3_open_v2(QFile::encodeName(chemin).constData(), &db, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK &&
              sqlite3_exec(db, "PRAGMA key='Tarvex';", nullptr, nullptr, nullptr) == SQLITE_OK &&
              sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    return ok;
}

}  // namespace BaseSql
