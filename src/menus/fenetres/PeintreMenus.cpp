#include "PeintreMenus.h"

#include "menus/Legende.h"
#include "ui/Apparence.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QStyleOptionMenuItem>

#include <array>

namespace modMenus {

namespace {

struct Polices {
    std::array<QFont, 8> PolicesMenus;
    bool faites = false;
    bool policesSoulignees = false;
    QString nomPolice6;
    int CouleurSelection = 0;
};

Polices &polices() {
    static Polices p;
    return p;
}

bool optSoulignement = false, optDegrade = false, optRelief = false, optBarreAuto = false;
bool survolClavier = false;

void creerPolices() {
    Polices &e = polices();
    const QFont menu = QApplication::font("QMenu");
    e.PolicesMenus.fill(menu);
    e.PolicesMenus[2].setWeight(QFont::ExtraBold);
    const qreal points = menu.pointSizeF() > 0 ? menu.pointSizeF() : 9;
    const qreal reduite = points * 0.8 < 7.5 ? points - 0.5 : points * 0.8;
    e.PolicesMenus[3].setPointSizeF(reduite);
    e.faites = true;
    e.policesSoulignees = false;
    e.nomPolice6.clear();
    e.CouleurSelection = CouleurReelle(couleurSysteme(13));
}

void creerPolicesSoulignees() {
    Polices &e = polices();
    if (!e.faites || e.policesSoulignees) return;
    e.PolicesMenus[4] = e.PolicesMenus[1];
    e.PolicesMenus[4].setUnderline(true);
    e.PolicesMenus[5] = e.PolicesMenus[4];
    e.PolicesMenus[5].setWeight(QFont::ExtraBold);
    e.policesSoulignees = true;
}

QColor systeme(int index) { return versCouleur(CouleurReelle(couleurSysteme(index))); }

void DessinerCoche(QPainter &p, const QRect &boite, const QColor &couleur) {
    QPainterPath trait;
    const QPointF c = QRectF(boite).center();
    trait.moveTo(c.x() - 4, c.y());
    trait.lineTo(c.x() - 1, c.y() + 3);
    trait.lineTo(c.x() + 4, c.y() - 3);
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(couleur, 2));
    p.drawPath(trait);
    p.restore();
}

QImage imageGrisee(const QImage &source) {
    QImage gris = source.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < gris.height(); ++y) {
        auto *ligne = reinterpret_cast<QRgb *>(gris.scanLine(y));
        for (int x = 0; x < gris.width(); ++x) {
            const int v = 128 + qGray(ligne[x]) / 2;
            ligne[x] = qRgba(v, v, v, qAlpha(ligne[x]) / 2);
        }
    }
    return gris;
}

// The picture at its own size in the column, or scaled down when it is larger.
void DessinerImage(QPainter &p, const QRect &rect, const QImage &image, bool fondImage) {
    if (image.isNull()) return;
    if (!fondImage) p.setRenderHint(QPainter::SmoothPixmapTransform);
    QSize taille = image.size();
    if (taille.width() > rect.width() || taille.height() > rect.height()) taille.scale(rect.size(), Qt::KeepAspectRatio);
    p.drawImage(QRect(rect.x() + (rect.width() - taille.width()) / 2, rect.y() + (rect.height() - taille.height()) / 2,
                      taille.width(), taille.height()),
                image);
}

}  // namespace

void DessinerItem(QPainter &p, const TypeItemMenu &item, const QImage &image, const QStyleOptionMenuItem &opt, int colonne) {
    const QRect r = opt.rect;
    const int enPlus = colonne - 16;  // what a wider column pushes the text along
    QString etape = QStringLiteral("getting attributes");
    try {
        const bool selectionne = opt.state & QStyle::State_Selected;
        const bool grise = !(opt.state & QStyle::State_Enabled) || (item.Etat & kEtatGrise);
        const bool coche = item.Etat & kEtatCoche;
        const bool survolSimple = survolClavier || optRelief;

        etape = QStringLiteral("converting colors");
        const int menu = CouleurMenu();
        const bool surligne = selectionne && !grise;
        const QColor fond = versCouleur(surligne ? CouleurReelle(couleurSysteme(13)) : menu);

        etape = QStringLiteral("drawing back rect");
        if (surligne && optDegrade)
            Degrade(menu, polices().CouleurSelection, true, p, r);
        else
            p.fillRect(r, fond);
        const QRect boite(r.left() + 1, r.top() + 1, 19 + enPlus, r.height() - 2);
        if (!image.isNull() && surligne && !optDegrade) p.fillRect(boite, versCouleur(menu));

        if (item.Etat & kEtatSeparateur) {
            etape = QStringLiteral("drawing separator bars");
            const bool releve = item.Etat & kEtatRelief;
            const int milieu = r.top() + r.height() / 2;
            if (item.Texte.isEmpty()) {
                Bordure3D(p, QRect(r.left() + 2, milieu - 1, r.width() - 4, 2), releve);
                return;
            }
            const QRect zone = r.adjusted(1, 0, 0, 0);
            p.setFont(PolicesMenus(3));
            const int largeur = QFontMetrics(PolicesMenus(3)).horizontalAdvance(item.Texte);
            const int gauche = zone.left() + (zone.width() - largeur) / 2;
            p.setPen(systeme(13));
            p.drawText(QRect(gauche, zone.top(), largeur, zone.height()), Qt::AlignCenter | Qt::TextHideMnemonic, item.Texte);
            Bordure3D(p, QRect(zone.left() + 2, milieu - 1, gauche - zone.left() - 6, 2), releve);
            Bordure3D(p, QRect(gauche + largeur + 4, milieu - 1, zone.right() - gauche - largeur - 6, 2), releve);
            return;
        }

        const bool imageSimple = !selectionne && !optBarreAuto;
        if ((!image.isNull() || coche) && !imageSimple) {
            etape = QStringLiteral("drawing icon back button");
            if (coche)
                p.fillRect(boite, systeme(22));
            else if (optBarreAuto)
                p.fillRect(boite, versCouleur(menu));
        }
        // Sunken round a checked item's box, raised round a hovered one's.
        if ((!image.isNull() || coche) && (coche || surligne) && !(survolSimple && !coche)) {
            etape = QStringLiteral("drawing icon border");
            Bordure3D(p, boite, !coche);
        }
        if (coche && image.isNull()) {
            if (grise) {
                DessinerCoche(p, boite.translated(1, 1), systeme(14));
                DessinerCoche(p, boite, systeme(17));
            } else {
                DessinerCoche(p, boite, surligne ? systeme(14) : systeme(7));
            }
        }

        int slot = (item.Etat & kEtatDefaut) ? 2 : 1;
        if (optSoulignement && selectionne) slot += 3;
        if (item.Etat & kEtatEchantillon) {
            // A font list entry shows itself in its own font.
            QString t, bloc, rc;
            SepareLegende(item.Legende, t, bloc, rc);
            PoliceNommee(LireAttribut(bloc, QStringLiteral("LFont:")));
            slot = optSoulignement && selectionne ? 7 : 6;
        }
        const QFont &police = PolicesMenus(slot);
        p.setFont(police);
        const QRect zoneTexte(r.left() + 23 + enPlus, r.top(), r.width() - 23 - enPlus - 16, r.height());
        const int alignTexte = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextSingleLine;
        const int alignRaccourci = Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine;
        if (grise) {
            if (!selectionne) {
                p.setPen(systeme(14));
                p.drawText(zoneTexte.translated(1, 1), alignTexte, item.Texte);
                p.drawText(zoneTexte.translated(1, 1), alignRaccourci, item.Raccourci);
            }
            etape = QStringLiteral("Drawing disabled text");
            p.setPen(systeme(17));
        } else {
            p.setPen(surligne ? systeme(14) : systeme(7));
        }
        p.drawText(zoneTexte, alignTexte, item.Texte);
        if (!item.Raccourci.isEmpty()) p.drawText(zoneTexte, alignRaccourci, item.Raccourci);

        if (!image.isNull()) {
            etape = QStringLiteral("drawing icons");
            const int haut = qMin(colonne, r.height() - 2);
            const QRect cadre(boite.left() + 2, r.top() + (r.height() - haut) / 2, colonne, haut);
            if (grise) {
                DessinerImage(p, cadre, imageGrisee(image), item.FondImage);
            } else if (surligne && optBarreAuto) {
                // Two layers: the picture's shadow, and the picture lifted above it.
                DessinerImage(p, cadre.translated(1, 1), imageGrisee(image), item.FondImage);
                DessinerImage(p, cadre.translated(-1, -1), image, item.FondImage);
            } else {
                DessinerImage(p, cadre, image, item.FondImage);
            }
        }
        if (item.Etat & kEtatNuancier) {
            QString t, bloc, rc;
            SepareLegende(item.Legende, t, bloc, rc);
            const int couleur = LireCouleur(LireAttribut(bloc, QStringLiteral("LColor:")), -1);
            if (couleur != -1) {
                const QRect nuance(r.right() - 22, r.top() + 3, 16, r.height() - 6);
                p.fillRect(nuance, versCouleur(couleur));
                p.setPen(systeme(16));
                p.drawRect(nuance.adjusted(0, 0, -1, -1));
            }
        }
    } catch (...) {
        // Only this item stays as far as it got, and the menu goes on; the stage is
        // where a debugger finds it.
        (void)etape;
    }
}

void definirSurvolClavier(bool clavier) { survolClavier = clavier; }

void preparerPolices() {
    if (!polices().faites) creerPolices();
    if (optSoulignement) creerPolicesSoulignees();
}

void oublierPolices() {
    Polices &e = polices();
    e.faites = false;
    e.policesSoulignees = false;
    e.PolicesMenus.fill(QFont());
}

void ChoisirSoulignement(bool actif) {
    optSoulignement = actif;
    if (actif) creerPolicesSoulignees();
}
void ChoisirDegrade(bool actif) { optDegrade = actif; }
void ChoisirRelief(bool actif) { optRelief = actif; }
void ChoisirBarreAuto(bool actif) { optBarreAuto = actif; }
bool Soulignement() { return optSoulignement; }
bool DegradeActif() { return optDegrade; }
bool Relief() { return optRelief; }
bool BarreAuto() { return optBarreAuto; }

QString PoliceMenus() {
    static const QString nom = QApplication::font("QMenu").family();
    return nom;
}

const QFont &PolicesMenus(int slot) {
    Polices &e = polices();
    if (!e.faites) creerPolices();
    if ((slot == 4 || slot == 5) && !e.policesSoulignees) creerPolicesSoulignees();
    return e.PolicesMenus[size_t(qBound(0, slot, 7))];
}

bool policesCreees() { return polices().faites; }

void PoliceNommee(const QString &nom) {
    Polices &e = polices();
    if (!e.faites) creerPolices();
    if (e.nomPolice6 == nom) return;
    e.PolicesMenus[6] = QFont(nom, e.PolicesMenus[1].pointSize());
    e.PolicesMenus[6].setWeight(QFont::Normal);
    e.PolicesMenus[7] = e.PolicesMenus[6];
    e.PolicesMenus[7].setUnderline(true);
    e.nomPolice6 = nom;
}

QColor versCouleur(int couleur) {
    return Apparence::couleur(CouleurReelle(couleur));
}

int CouleurMenu() { return CouleurReelle(couleurSysteme(4)); }

void Degrade(int couleurA, int couleurB, bool horizontal, QPainter &p, const QRect &rect) {
    const int longueur = horizontal ? rect.width() : rect.height();
    if (longueur <= 0) return;
    const QScreen *ecran = QGuiApplication::primaryScreen();
    const int ecranPixels = ecran ? (horizontal ? ecran->size().width() : ecran->size().height()) : 1024;
    const int bande = ecranPixels / longueur < 5 ? 2 : 1;
    const int bandes = qMax(1, longueur / bande);
    const QColor a = versCouleur(horizontal ? couleurA : couleurB), b = versCouleur(horizontal ? couleurB : couleurA);
    const double pas[3] = {double(b.red() - a.red()) / bandes, double(b.green() - a.green()) / bandes,
                           double(b.blue() - a.blue()) / bandes};
    QRect r = horizontal ? QRect(rect.left(), rect.top(), bande, rect.height()) : QRect(rect.left(), rect.top(), rect.width(), bande);
    for (int i = 1; i <= bandes; ++i) {
        const QColor c(qBound(0, int(a.red() + pas[0] * i), 255), qBound(0, int(a.green() + pas[1] * i), 255),
                       qBound(0, int(a.blue() + pas[2] * i), 255));
        // The last band takes what the division left.
        QRect zone = r;
        if (i == bandes) zone = horizontal ? zone.adjusted(0, 0, rect.right() - zone.right(), 0) : zone.adjusted(0, 0, 0, rect.bottom() - zone.bottom());
        p.fillRect(zone, c);
        r.translate(horizontal ? bande : 0, horizontal ? 0 : bande);
    }
}

void Bordure3D(QPainter &p, const QRect &rect, bool raised, int largeur) {
    if (rect.width() <= 0 || rect.height() <= 0) return;
    const QColor clair = systeme(20), ombre = systeme(16);
    const QColor haut = raised ? clair : ombre, bas = raised ? ombre : clair;
    p.save();
    for (int i = 0; i < largeur; ++i) {
        const QRect r = rect.adjusted(i, i, -i, -i);
        p.fillRect(QRect(r.left(), r.top(), r.width(), 1), haut);
        p.fillRect(QRect(r.left(), r.top(), 1, r.height()), haut);
        p.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), bas);
        p.fillRect(QRect(r.right(), r.top(), 1, r.height()), bas);
    }
    p.restore();
}

void DessinerTransparent(QPainter &p, const QRect &dest, const QImage &source, int couleurMasque) {
    if (source.isNull()) return;
    QImage copie = source.convertToFormat(QImage::Format_ARGB32);
    const QRgb masque = couleurMasque < 0 ? copie.pixel(0, 0) : versCouleur(couleurMasque).rgb();
    for (int y = 0; y < copie.height(); ++y) {
        auto *ligne = reinterpret_cast<QRgb *>(copie.scanLine(y));
        for (int x = 0; x < copie.width(); ++x)
            if ((ligne[x] & 0xFFFFFF) == (masque & 0xFFFFFF)) ligne[x] = 0;
    }
    QSize taille = copie.size();
    if (taille.width() > dest.width() || taille.height() > dest.height()) taille.scale(dest.size(), Qt::KeepAspectRatio);
    p.save();
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(QRect(dest.x() + (dest.width() - taille.width()) / 2, dest.y() + (dest.height() - taille.height()) / 2,
                      taille.width(), taille.height()),
                copie);
    p.restore();
}

}  // namespace modMenus
