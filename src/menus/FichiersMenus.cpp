#include "FichiersMenus.h"

#include <QFileInfo>
#include <QMimeDatabase>

namespace modMenus {

namespace {

// "\\serveur\partage\..." up to and including the share's "\".
QString racineUnc(const QString &chemin) {
    const qsizetype serveur = chemin.indexOf(u'\\', 2);
    const qsizetype partage = serveur < 0 ? -1 : chemin.indexOf(u'\\', serveur + 1);
    return partage < 0 ? chemin + u'\\' : chemin.left(partage + 1);
}

QString racine(const QString &chemin) {
    if (chemin.size() >= 2 && chemin[1] == u':') return chemin.left(2) + u'\\';
    if (chemin.startsWith(QStringLiteral("\\\\"))) return racineUnc(chemin);
    return chemin.startsWith(u'\\') ? QStringLiteral("\\") : QString();
}

}  // namespace

QString DecoupeChemin(const QString &chemin, QChar lettre) {
    if (chemin.isEmpty()) return {};
    const bool formeLinux = chemin.startsWith(u'/') || (chemin.contains(u'/') && !chemin.contains(u'\\'));
    qsizetype coupe = chemin.lastIndexOf(formeLinux ? u'/' : u'\\');
    if (coupe < 0 && !formeLinux) coupe = chemin.indexOf(u':');
    QString nom = chemin.mid(coupe + 1);
    const qsizetype point = nom.lastIndexOf(u'.');
    switch (lettre.unicode()) {
    case u'D':
        if (formeLinux) return chemin.startsWith(u'/') ? QStringLiteral("/") : QString();
        return racine(chemin);
    case u'P': return chemin.left(coupe + 1);
    case u'N': return nom;
    case u'E': return point < 0 ? QString() : nom.mid(point + 1);
    case u'm': return point < 0 ? QString() : nom.left(point);
    default: return {};
    }
}

QString GetShortFileName(const QString &chemin) { return chemin; }

QString GetFileDescription(const QString &chemin) {
    if (chemin.isEmpty() || !QFileInfo::exists(chemin)) return {};
    const QMimeType type = QMimeDatabase().mimeTypeForFile(chemin);
    if (!type.isValid() || type.isDefault()) return {};
    return type.comment();
}

}  // namespace modMenus
