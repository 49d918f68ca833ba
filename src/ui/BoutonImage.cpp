#include "BoutonImage.h"

#include "Art.h"

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

QSize BoutonImage::sizeHint() const {
    QSize s = repos_.isNull() ? QSize(24, 24) : repos_.size() / repos_.devicePixelRatio();
    if (!text().isEmpty()) s.setWidth(s.width() + fontMetrics().horizontalAdvance(text()) + 12);
    return s + QSize(6, 6);
}

void BoutonImage::paintEvent(QPaintEvent *) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
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
