#include "BarreMenus.h"

#include "menus/Legende.h"
#include "menus/fenetres/PeintreMenus.h"

#include <QFontMetrics>
#include <QPainter>

namespace modMenus {

QString attribut(const QString &bloc, const char *cle) { return LireAttribut(bloc, QString::fromLatin1(cle)); }

int entier(const QString &valeur, int defaut) {
    bool ok = false;
    const int n = valeur.trimmed().toInt(&ok);
    return ok ? n : defaut;
}

namespace {

// The back of a sidebar: BColor: (empty or 1: the menu's colour), a gradient towards
// GColor: when it differs, or for -1 the top left pixel of the picture.
void peindreFondBarre(QPainter &p, const QRect &rect, const QString &bloc, const QImage *image) {
    const QString valeurFond = LireAttribut(bloc, QStringLiteral("BColor:")).trimmed();
    int fond = CouleurMenu();
    if (!valeurFond.isEmpty() && valeurFond != u"1") fond = valeurFond == u"-1" ? -1 : LireCouleur(valeurFond, -1);
    const int degrade = LireCouleur(LireAttribut(bloc, QStringLiteral("GColor:")), 1);
    if (degrade != 1 && degrade != fond && fond >= 0) {
        Degrade(fond, degrade, false, p, rect);
    } else if (fond < 0) {
        p.fillRect(rect, image && !image->isNull() ? image->pixelColor(0, 0) : versCouleur(CouleurMenu()));
    } else {
        p.fillRect(rect, versCouleur(fond));
    }
}

}  // namespace

void rendreBarreImage(TypePanneau &panneau, const QImage &image, const QString &bloc, int H) {
    const int W = qMax(kLargeurBarreMin, entier(attribut(bloc, "Width:"), 0));
    const QString align = attribut(bloc, "Align:").trimmed().toUpper();
    QSize taille = image.size();
    if (taille.width() > W || taille.height() > H) taille = taille.scaled(W, H, Qt::KeepAspectRatio);
    const int x = (W - taille.width()) / 2;
    const int y = align == u"TOP" ? 0 : align == u"BOT" ? H - taille.height()
                                                        : (H - taille.height()) / 2;
    QPixmap rendu(W, H);
    QPainter p(&rendu);
    peindreFondBarre(p, rendu.rect(), bloc, &image);
    const QRect cible(x, y, taille.width(), taille.height());
    if (!attribut(bloc, "Transparent").isEmpty()) {
        DessinerTransparent(p, cible, image, -1);
    } else {
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(cible, image);
    }
    p.end();
    panneau.barre = rendu;
    panneau.largeurBarre = W;
}

void rendreBarreTexte(TypePanneau &panneau, TypeItemMenu &item, QString bloc, int H) {
    const QString texte = ExtraireTexteBarre(bloc);
    const QString famille = attribut(bloc, "Font:").isEmpty() ? QStringLiteral("Arial") : attribut(bloc, "Font:");
    const int taille = qBound(7, entier(attribut(bloc, "FSize:"), 11), 24);
    const int tailleMin = qBound(5, entier(attribut(bloc, "MinFSize:"), 5), taille);
    int W = qMax(kLargeurBarreMin, entier(attribut(bloc, "Width:"), 0));
    const int couleurTexte = LireCouleur(attribut(bloc, "FColor:"), 0);
    QFont police(famille);
    police.setWeight(attribut(bloc, "Bold").isEmpty() ? QFont::Normal : QFont::ExtraBold);
    police.setItalic(!attribut(bloc, "Italic").isEmpty());
    police.setUnderline(!attribut(bloc, "Underline").isEmpty());

    // The largest size, and then the fewest lines, with which the text fits along H.
    QStringList lignes{texte};
    int points = taille;
    police.setPointSize(points);
    QString joint = ComposerLignes(lignes, true, QFontMetrics(police), H);
    int w = 0, h = 0;
    for (;;) {
        auto mesurer = [&] {
            const QRect r = QFontMetrics(police).boundingRect(QRect(0, 0, 100000, 100000), Qt::AlignCenter, joint);
            w = r.width();
            h = r.height();
        };
        mesurer();
        while (w + 6 > H || h > W) {
            if (points - 1 < tailleMin) break;
            police.setPointSize(--points);
            mesurer();
        }
        if (w + 6 <= H) break;
        if (h < W) {
            points = taille;
            police.setPointSize(points);
        }
        const QString suivant = ComposerLignes(lignes, false, QFontMetrics(police), H);
        if (suivant.isEmpty()) break;
        joint = suivant;
    }
    if (h + 6 > W) W = h + 6;
    QPixmap rendu(W, H);
    QPainter p(&rendu);
    peindreFondBarre(p, rendu.rect(), bloc, nullptr);
    p.setFont(police);
    p.setPen(versCouleur(couleurTexte));
    const QFontMetrics mesures(police);
    const qreal pas = mesures.boundingRect(QStringLiteral("X")).height() * 1.5;
    const QString align = attribut(bloc, "Align:").trimmed().toUpper();
    // Written from bottom to top: the painter turned a quarter left.
    p.rotate(-90);
    qreal travers = (W - h) / 2.0 + mesures.ascent();
    for (QString ligne : std::as_const(lignes)) {
        ligne.replace(QStringLiteral("<br0>"), QStringLiteral(" "), Qt::CaseInsensitive);
        ligne.replace(QStringLiteral("<br>"), QStringLiteral(" "), Qt::CaseInsensitive);
        const int t = mesures.horizontalAdvance(ligne);
        const int depart = align == u"BOT" ? H - 3 : align == u"TOP" ? t + 3
                                                                     : (H - t) / 2 + t;
        p.drawText(QPointF(-depart, travers), ligne);
        travers += pas;
    }
    p.end();
    panneau.barre = rendu;
    panneau.largeurBarre = W;
    item.Largeur = W;
}

QString ComposerLignes(QStringList &lignes, bool premierePasse, const QFontMetrics &mesures, int largeurMax) {
    static const QString kToujours = QStringLiteral("<br!>"), kPeutEtre = QStringLiteral("<br>");
    if (lignes.isEmpty()) lignes.append(QString());
    for (qsizetype p; (p = lignes.last().indexOf(kToujours, 0, Qt::CaseInsensitive)) >= 0;) {
        const QString reste = lignes.last().mid(p + kToujours.size());
        lignes.last().truncate(p);
        lignes.append(reste);
    }
    if (!premierePasse) {
        bool coupee = false;
        for (int i = 0; i < lignes.size() && !coupee; ++i) {
            const qsizetype p = lignes[i].indexOf(kPeutEtre, 0, Qt::CaseInsensitive);
            if (p < 0) continue;
            lignes.insert(i + 1, lignes[i].mid(p + kPeutEtre.size()));
            lignes[i].truncate(p);
            coupee = true;
        }
        for (int i = 0; i < lignes.size() && !coupee; ++i) {
            QString vue = lignes[i];
            vue.replace(QStringLiteral("<br0>"), QStringLiteral(" "), Qt::CaseInsensitive);
            if (mesures.horizontalAdvance(vue) + 6 <= largeurMax) continue;
            // The blank nearest the middle, forwards or backwards; "<br0>" is no blank.
            const QString &l = lignes[i];
            const qsizetype milieu = l.size() / 2;
            qsizetype place = -1;
            for (qsizetype d = 0; d <= milieu + 1 && place < 0; ++d) {
                if (milieu + d < l.size() && l[milieu + d] == u' ')
                    place = milieu + d;
                else if (milieu - d >= 0 && milieu - d < l.size() && l[milieu - d] == u' ')
                    place = milieu - d;
            }
            if (place < 0) continue;  // no blank: the line stays whole
            lignes.insert(i + 1, l.mid(place + 1));
            lignes[i].truncate(place);
            coupee = true;
        }
        if (!coupee) return {};
    }
    QString joint = lignes.join(QStringLiteral("\r\n"));
    joint.replace(QStringLiteral("<br0>"), QStringLiteral(" "), Qt::CaseInsensitive);
    joint.replace(kPeutEtre, QStringLiteral(" "), Qt::CaseInsensitive);
    return joint;
}

QString barreParDefaut() {
    return QStringLiteral(
        "{Sidebar|Text: |FColor:8388608|BColor:12615680|GColor:16776960|Font:Times New Roman|FSize:14|"
        "MinFSize:9|Width:32|Align:Bot}");
}

}  // namespace modMenus
