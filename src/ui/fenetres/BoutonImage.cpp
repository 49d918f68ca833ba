#include "BoutonImage.h"

#include "ui/Apparence.h"
#include "ui/Art.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>

BoutonImage::BoutonImage(QWidget *parent) : QAbstractButton(parent) {
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
}

void BoutonImage::definirImages(const QPixmap &repos, const QPixmap &survol) {
    repos_ = repos;
    survol_Image_ = survol.isNull() ? Art::eclaircie(repos) : survol;
    update();
}

void BoutonImage::definirArt(const QString &nom, const QSize &taille) {
    const QPixmap repos = Art::pixmap(nom, taille);
    QPixmap survol = Art::pixmap(nom + QStringLiteral("_survol"), taille);
    definirImages(repos, survol);
}

void BoutonImage::definirCommande(const QString &icone, const QString &texte) {
    commande_ = true;
    setText(texte);
    definirImages(Art::iconeTheme(icone, 22));
}

QSize BoutonImage::sizeHint() const {
    QSize s = repos_.isNull() ? QSize(24, 24) : repos_.size() / repos_.devicePixelRatio();
    if (!text().isEmpty()) s.setWidth(s.width() + fontMetrics().horizontalAdvance(text()) + 12);
    return s + (commande_ ? QSize(20, 10) : QSize(6, 6));
}

void BoutonImage::peindreCommande(QPainter &p) {
    const bool enfonce = isChecked() || isDown();
    const bool chaud = survole_ && isEnabled() && !enfonce;
    const QRectF zone = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    // A raised face, lit from above; sunk, the light comes from below.
    QLinearGradient face(0, 0, 0, height());
    if (enfonce) {
        face.setColorAt(0, QColor(0xc4, 0xcd, 0xe0));
        face.setColorAt(1, QColor(0xe9, 0xed, 0xf5));
    } else if (chaud) {
        face.setColorAt(0, QColor(0xff, 0xfb, 0xf0));
        face.setColorAt(1, QColor(0xf6, 0xe0, 0xaa));
    } else {
        face.setColorAt(0, QColor(0xfd, 0xfd, 0xff));
        face.setColorAt(1, QColor(0xd6, 0xdd, 0xeb));
    }
    p.setPen(QPen(hasFocus() || chaud ? Apparence::kOr : QColor(0x4a, 0x5b, 0x86), hasFocus() ? 2 : 1));
    p.setBrush(face);
    p.drawRoundedRect(hasFocus() ? zone.adjusted(0.5, 0.5, -0.5, -0.5) : zone, 4, 4);
    // The bevel: a light line under the top edge when raised, a shadow when sunk.
    p.setPen(enfonce ? QColor(0x2e, 0x3f, 0x66, 90) : QColor(255, 255, 255, 200));
    p.drawLine(QPointF(5, 2.5), QPointF(width() - 5, 2.5));
    if (!isEnabled()) p.setOpacity(0.45);
    const QPoint decalage = enfonce ? QPoint(1, 1) : QPoint();
    const QPixmap &image = chaud ? survol_Image_ : repos_;
    const QSize t = image.isNull() ? QSize() : image.size() / image.devicePixelRatio();
    const QFontMetrics mesures(font());
    const int largeur = t.width() + (t.isEmpty() ? 0 : 8) + mesures.horizontalAdvance(text());
    const int x = qMax(6, (width() - largeur) / 2);
    if (!image.isNull()) p.drawPixmap(QPoint(x, (height() - t.height()) / 2) + decalage, image);
    p.setPen(Apparence::kEncre);
    p.drawText(QRect(x + t.width() + (t.isEmpty() ? 0 : 8), 0, width() - x, height()).translated(decalage),
               Qt::AlignVCenter | Qt::AlignLeft, text());
}

void BoutonImage::paintEvent(QPaintEvent *) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    if (commande_) {
        peindreCommande(p);
        return;
    }
    const bool enfonce = isChecked() || isDown();
    QRectF zone = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (survole_ || enfonce || hasFocus()) {
        p.setPen(QColor(224, 165, 38, enfonce ? 230 : 150));
        p.setBrush(QColor(255, 255, 255, enfonce ? 40 : 25));
        p.drawRoundedRect(zone, 4, 4);
    }
    const QPixmap &image = (survole_ && isEnabled()) ? survol_Image_ : repos_;
    const QPoint decalage = enfonce ? QPoint(1, 1) : QPoint();
    int x = 3;
    if (!image.isNull()) {
        const QSize t = image.size() / image.devicePixelRatio();
        const int gauche = text().isEmpty() ? (width() - t.width()) / 2 : 3;
        if (!isEnabled()) p.setOpacity(0.35);
        p.drawPixmap(QPoint(gauche, (height() - t.height()) / 2) + decalage, image);
        p.setOpacity(1.0);
        x = gauche + t.width() + 6;
    }
    if (!text().isEmpty()) {
        p.setPen(isEnabled() ? palette().color(QPalette::ButtonText) : palette().color(QPalette::Disabled, QPalette::ButtonText));
        p.drawText(QRect(x, 0, width() - x - 3, height()).translated(decalage), Qt::AlignVCenter | Qt::AlignLeft, text());
    }
}

void BoutonImage::enterEvent(QEnterEvent *e) {
    survole_ = true;
    update();
    emit survolDebut();
    QAbstractButton::enterEvent(e);
}

void BoutonImage::leaveEvent(QEvent *e) {
    survole_ = false;
    update();
    emit survolFin();
    QAbstractButton::leaveEvent(e);
}
