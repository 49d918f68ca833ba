#include "BibliothequeIcones.h"

#include "Blit.h"
#include "grid/ListeImages.h"
#include "store/IconesStock.h"
#include "store/TableIcones.h"
#include "ui/Apparence.h"

#include <QImageReader>
#include <QList>

#include <limits>

namespace BibliothequeIcones {

namespace {

// A picture larger than this on a side is read at this size: it ends as 18 by 18
// anyway, and a 50-megapixel photo read whole would take 200 MB.
constexpr int kCoteLecture = 256;
// What a format that can only decode whole (PNG, BMP, ...) may take for one file:
// 64 megapixels at 4 bytes a pixel.
constexpr int kLimiteMegaOctets = 256;

QImage lireMeilleure(const QString &chemin) {
    QImageReader lecteur(chemin);
    lecteur.setDecideFormatFromContent(true);
    // An icon file holds several sizes: the smallest that still covers the square
    // loses least in the resampling; failing one, the largest.
    const auto rang = [](const QImage &image) {
        const int cote = qMin(image.width(), image.height());
        return cote >= IconesStock::kCote ? cote : std::numeric_limits<int>::max() - cote;
    };
    QImage meilleure;
    for (int i = 0, n = qMax(1, lecteur.imageCount()); i < n; ++i) {
        if (i > 0 && !lecteur.jumpToImage(i)) break;
        const QSize taille = lecteur.size();
        const bool grande = taille.width() > kCoteLecture || taille.height() > kCoteLecture;
        lecteur.setScaledSize(grande ? taille.scaled(kCoteLecture, kCoteLecture, Qt::KeepAspectRatio) : QSize());
        const QImage image = lecteur.read();
        if (!image.isNull() && (meilleure.isNull() || rang(image) < rang(meilleure))) meilleure = image;
    }
    return meilleure;
}

}  // namespace

QImage chargerFichier(const QString &chemin) {
    QImage image = lireMeilleure(chemin);
    const int limite = QImageReader::allocationLimit();
    if (image.isNull() && limite > 0 && limite < kLimiteMegaOctets) {
        // A format that reads whole before it scales needs more than Qt's usual limit
        // for a large photo; it gets it for this file only.
        QImageReader::setAllocationLimit(kLimiteMegaOctets);
        image = lireMeilleure(chemin);
        QImageReader::setAllocationLimit(limite);
    }
    return image;
}

void MajIcones(ListeImages &liste) {
    QList<QImage> ajustees;
    ajustees.reserve(liste.nombre());
    QList<TableIcones::Ecriture> lignes;
    for (int i = 1; i <= liste.nombre(); ++i) {
        const ListeImages::Entree *e = liste.entree(i);
        bool numerique = false;
        const int num = Apparence::numDeCle(e->cle, &numerique);
        ajustees.append(Blit::AjusterImage(e->image));
        if (!numerique) continue;  // a row without a Num can't be told from another
        // An icon whose bytes never loaded keeps them: only its name is written.
        if (e->image.isNull())
            lignes.append({num, e->tag, false, {}});
        else
            lignes.append({num, e->tag, true, IconesStock::octetsPng(ajustees.constLast())});
    }
    TableIcones::ecrire(lignes);
    for (int i = 1; i <= liste.nombre(); ++i)
        if (!ajustees[i - 1].isNull()) liste.remplacerImage(i, ajustees[i - 1]);
}

}  // namespace BibliothequeIcones
