#include "IconesStock.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace IconesStock {

QByteArray octetsPng(const QImage &image) {
    QByteArray octets;
    QBuffer tampon(&octets);
    tampon.open(QIODevice::WriteOnly);
    image.save(&tampon, "PNG");
    return octets;
}

namespace {
QByteArray pngDepuisSvg(const QString &ressource) {
    QSvgRenderer rendu(ressource);
    QImage image(kCote, kCote, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter p(&image);
        rendu.render(&p);
    }
    return octetsPng(image);
}
}  // namespace

QList<Icone> icones() {
    static const struct {
        const char16_t *libelle;
        const char *fichier;
    } kStock[] = {
        {u"Compte", ":/art/compte.svg"},
        {u"Logiciels", ":/art/logiciels.svg"},
        {u"Favoris", ":/art/favoris.svg"},
        {u"Email", ":/art/email.svg"},
        {u"Login réseau", ":/art/login_reseau.svg"},
        {u"Web", ":/art/web.svg"},
    };
    QList<Icone> liste;
    for (const auto &s : kStock)
        liste.append({QString::fromUtf16(s.libelle), pngDepuisSvg(QString::fromLatin1(s.fichier))});
    return liste;
}

}  // namespace IconesStock
