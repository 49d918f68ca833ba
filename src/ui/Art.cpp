#include "Art.h"

#include <memory>
#include <unordered_map>
#include <QFileInfo>
#include <QHash>
#include <QIcon>
#include <QPainter>
#include <QStandardPaths>
#include <QSvgRenderer>

namespace Art {

namespace {
// One renderer a picture, kept for the whole run; a missing picture is remembered as none.
QSvgRenderer *rendu(const QString &nom) {
    static std::unordered_map<QString, std::unique_ptr<QSvgRenderer>> rendus;
    auto it = rendus.find(nom);
    if (it == rendus.end()) {
        auto r = std::make_unique<QSvgRenderer>(QStringLiteral(":/art/%1.svg").arg(nom));
        if (!r->isValid()) r.reset();
        it = rendus.emplace(nom, std::move(r)).first;
    }
    return it->second.get();
}
}  // namespace

QPixmap pixmap(const QString &nom, const QSize &taille) {
    QSvgRenderer *r = rendu(nom);
    if (!r || taille.isEmpty()) return {};
    QPixmap pm(taille);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    r->render(&p);
    return pm;
}

QPixmap eclaircie(const QPixmap &source) {
    if (source.isNull()) return source;
    QImage image = source.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *ligne = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb c = ligne[x];
            // Towards a warm white, keeping the alpha: the picture "lights up" under the pointer.
            ligne[x] = qRgba(qMin(255, qRed(c) + (255 - qRed(c)) * 2 / 5 + 10), qMin(255, qGreen(c) + (255 - qGreen(c)) * 2 / 5),
                             qMin(255, qBlue(c) + (255 - qBlue(c)) / 4), qAlpha(c));
        }
    }
    return QPixmap::fromImage(image);
}

namespace {
void choisirTheme() {
    static bool fait = false;
    if (fait) return;
    fait = true;
    QStringList chemins = QIcon::themeSearchPaths();
    for (const QString &dossier : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        if (!chemins.contains(dossier + QStringLiteral("/icons"))) chemins << dossier + QStringLiteral("/icons");
    QIcon::setThemeSearchPaths(chemins);
    QIcon::setThemeName(QStringLiteral("Papirus"));
}
}  // namespace

QPixmap iconeTheme(const QString &nom, int cote) {
    choisirTheme();
    // Drawn once a run: windows that come and go find their pictures ready.
    static QHash<QPair<QString, int>, QPixmap> faites;
    if (const auto it = faites.constFind({nom, cote}); it != faites.constEnd()) return *it;
    // The action set's drawings, whatever size the theme would otherwise pick from
    // other sets in other styles.
    const QString fichier = QStringLiteral("Papirus/24x24/actions/%1.svg").arg(nom);
    QIcon icone;
    for (const QString &dossier : QIcon::themeSearchPaths())
        if (QFileInfo::exists(dossier + u'/' + fichier)) {
            icone = QIcon(dossier + u'/' + fichier);
            break;
        }
    if (icone.isNull()) icone = QIcon::fromTheme(nom);
    QPixmap image = icone.isNull() ? pixmap(QStringLiteral("korvane"), QSize(cote, cote)) : icone.pixmap(QSize(cote, cote));
    faites.insert({nom, cote}, image);
    return image;
}

bool dessiner(QPainter &p, const QString &nom, const QRectF &rect) {
    QSvgRenderer *r = rendu(nom);
    if (!r) return false;
    r->setAspectRatioMode(Qt::IgnoreAspectRatio);
    r->render(&p, rect);
    return true;
}

}  // namespace Art
