#include "options/BibliothequeIcones.h"
#include "options/Blit.h"

#include "grid/ListeImages.h"
#include "support/BaseSql.h"
#include "support/EnvironnementTest.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QtEndian>
#include <gtest/gtest.h>

using BaseSql::sql;

namespace {

// Red on the left half, blue on the right.
QImage deuxMoities(int largeur, int hauteur) {
    QImage image(largeur, hauteur, QImage::Format_ARGB32);
    for (int y = 0; y < hauteur; ++y)
        for (int x = 0; x < largeur; ++x) image.setPixel(x, y, x < largeur / 2 ? qRgb(255, 0, 0) : qRgb(0, 0, 255));
    return image;
}

QByteArray octets(const QImage &image, const char *format) {
    QByteArray b;
    QBuffer tampon(&b);
    tampon.open(QIODevice::WriteOnly);
    image.save(&tampon, format);
    return b;
}

// An icon file holding a PNG picture of each side, in that order.
QByteArray fichierIco(std::initializer_list<int> cotes) {
    QList<QByteArray> images;
    for (int cote : cotes) images.append(octets(deuxMoities(cote, cote), "PNG"));
    QByteArray entete(6 + 16 * images.size(), '\0');
    auto ecrire = [&](int position, auto valeur) { qToLittleEndian(valeur, entete.data() + position); };
    ecrire(2, quint16(1));
    ecrire(4, quint16(images.size()));
    quint32 decalage = quint32(entete.size());
    int i = 0;
    for (int cote : cotes) {
        const int e = 6 + 16 * i;
        entete[e] = char(cote);
        entete[e + 1] = char(cote);
        ecrire(e + 4, quint16(1));
        ecrire(e + 6, quint16(32));
        ecrire(e + 8, quint32(images[i].size()));
        ecrire(e + 12, decalage);
        decalage += quint32(images[i].size());
        ++i;
    }
    return entete + images.join();
}

}  // namespace

TEST(Icones, ChaqueFichierDonneUneIconeDeDixHuitPixels) {
    EnvironnementTest env(false);
    const struct {
        const char *nom;
        QByteArray contenu;
        QSize lue;  // the picture kept from the file, before the resampling; 0 by 0 for none
    } cas[] = {
        {"carre32.png", octets(deuxMoities(32, 32), "PNG"), {32, 32}},
        {"carre16.bmp", octets(deuxMoities(16, 16), "BMP"), {16, 16}},
        {"dessin.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='24' height='48'><rect width='24' height='48' fill='red'/></svg>", {24, 48}},
        // Of several sizes, the smallest that covers the square; of small ones only, the largest.
        {"tailles.ico", fichierIco({16, 48, 32}), {32, 32}},
        {"petites.ico", fichierIco({8, 16}), {16, 16}},
        {"casse.png", "ceci n'est pas une image", {0, 0}},
        {"vide.ico", "", {0, 0}},
    };
    for (const auto &c : cas) {
        SCOPED_TRACE(c.nom);
        QFile f(env.chemin(QString::fromLatin1(c.nom)));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(c.contenu);
        f.close();
        const QImage lue = BibliothequeIcones::chargerFichier(f.fileName());
        EXPECT_EQ(lue.size(), c.lue);
        EXPECT_EQ(Blit::AjusterImage(lue).size(), c.lue.isEmpty() ? c.lue : QSize(18, 18));
    }
}

TEST(Icones, UneGrandePhotoDevientUneIcone) {
    // Pictures larger than what Qt lets a reader take (lowered here so that a small
    // file stands for a 50-megapixel photo): read smaller, they still become icons.
    EnvironnementTest env(false);
    const int limite = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(4);
    for (const char *format : {"JPEG", "PNG"}) {
        SCOPED_TRACE(format);
        QFile f(env.chemin(QStringLiteral("photo.") + QString::fromLatin1(format).toLower()));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(octets(deuxMoities(1600, 1200), format));
        f.close();
        const QImage lue = BibliothequeIcones::chargerFichier(f.fileName());
        ASSERT_FALSE(lue.isNull());
        EXPECT_LE(qMax(lue.width(), lue.height()), 256);
        const QImage icone = Blit::AjusterImage(lue);
        EXPECT_LT(qBlue(icone.pixel(0, 9)), 60);  // the red half, then the blue one
        EXPECT_GT(qBlue(icone.pixel(17, 9)), 200);
    }
    EXPECT_EQ(QImageReader::allocationLimit(), 4);
    QImageReader::setAllocationLimit(limite);
}

TEST(Icones, LeReechantillonnageEtireEtLisse) {
    // Stretched, not cut nor framed: each half keeps its colour across the square.
    const QImage etiree = Blit::AjusterImage(deuxMoities(40, 10));
    EXPECT_TRUE(etiree.pixel(0, 17) == qRgb(255, 0, 0) && etiree.pixel(17, 0) == qRgb(0, 0, 255));
    // A fine checkerboard comes out grey, not as a pick of its black and white pixels.
    QImage damier(32, 32, QImage::Format_RGB32);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) damier.setPixel(x, y, (x + y) % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
    const int gris = qRed(Blit::AjusterImage(damier).pixel(9, 9));
    EXPECT_GT(gris, 60);
    EXPECT_LT(gris, 200);
}

TEST(Icones, MajIconesEcritToutesLesIcones) {
    EnvironnementTest env;
    // A base whose first icon is gone and whose fifth never loaded: numbers 2 to 6.
    ASSERT_TRUE(BaseSql::executer(Chemins::cheminBase(),
                                  "DELETE FROM Icones WHERE Num = 1;"
                                  "UPDATE Icones SET ico = X'0011' WHERE Num = 5;"));
    ListeImages liste;
    ASSERT_TRUE(liste.chargerBase());
    ASSERT_EQ(liste.nombre(), 5);
    // A new icon follows the greatest number, never a row of the base.
    EXPECT_EQ(liste.numeroSuivant(), 7);
    liste.ajouter(QStringLiteral("A 7"), deuxMoities(32, 32), QStringLiteral("Coffre"));
    liste.definirTag(1, QStringLiteral("Programmes"));
    liste.definirTag(4, QStringLiteral("Courriel"));
    BibliothequeIcones::MajIcones(liste);

    EXPECT_EQ(sql("SELECT Num, Libelle FROM Icones ORDER BY Num"),
              (QStringList{"2|Programmes", "3|Favoris", "4|Email", "5|Courriel", "6|Web", "7|Coffre"}));
    // The bytes that never loaded are kept as they were; only the name changed.
    EXPECT_EQ(sql("SELECT hex(ico) FROM Icones WHERE Num = 5"), QStringList{"0011"});
    // Every picture that loads is stored again at 18 by 18, and the list keeps it so.
    ListeImages relue;
    ASSERT_TRUE(relue.chargerBase());
    for (int i : {1, 2, 3, 5, 6}) EXPECT_TRUE(relue.image(i).size() == QSize(18, 18) && liste.image(i).size() == QSize(18, 18)) << i;
    EXPECT_TRUE(relue.image(4).isNull());
    EXPECT_EQ(relue.entree(6)->cle, QStringLiteral("A 7"));

    // A base that can't be written changes nothing in memory.
    QFile::remove(Chemins::cheminBase());
    liste.definirTag(1, QStringLiteral("Perdu ?"));
    const quint64 generation = liste.generation();
    EXPECT_THROW(BibliothequeIcones::MajIcones(liste), Base::ErreurBase);
    EXPECT_EQ(liste.generation(), generation);
}
