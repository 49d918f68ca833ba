#include "AdresseWeb.h"

#include <QRegularExpression>

namespace AdresseWeb {

QUrl pourNavigateur(const QString &texte) {
    const QString t = texte.trimmed();
    if (t.isEmpty()) return {};
    // A scheme is letters before "://", or one of those written without slashes.
    static const QRegularExpression schema(QStringLiteral("^([a-z][a-z0-9+.-]*://|(mailto|tel|file):)"),
                                           QRegularExpression::CaseInsensitiveOption);
    return QUrl(schema.match(t).hasMatch() ? t : QStringLiteral("https://") + t, QUrl::TolerantMode);
}

}  // namespace AdresseWeb
