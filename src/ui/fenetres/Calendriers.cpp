#include "Calendriers.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QLocale>
#include <QPainter>
#include <QToolButton>

namespace Calendriers {

namespace {
// A white chevron pointing left or right, for the navy header.
QIcon fleche(bool gauche) {
    QPixmap image(16, 16);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Qt::white, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const qreal x = gauche ? 10 : 6, pointe = gauche ? 5 : 11;
    p.drawPolyline(QPolygonF({QPointF(x, 3.5), QPointF(pointe, 8), QPointF(x, 12.5)}));
    return QIcon(image);
}
}  // namespace

void habiller(QCalendarWidget *calendrier) {
    calendrier->setLocale(QLocale(QLocale::French, QLocale::France));
    calendrier->setFirstDayOfWeek(Qt::Monday);
    calendrier->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendrier->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
    calendrier->setStyleSheet(QStringLiteral(
        "#qt_calendar_navigationbar { background: #2e3f66; }"
        "#qt_calendar_navigationbar QToolButton { color: #ffffff; font-weight: bold; background: transparent; border: none; }"
        "#qt_calendar_navigationbar QToolButton:hover { background: #3d5286; border-radius: 3px; }"
        "#qt_calendar_navigationbar QToolButton::menu-indicator { image: none; }"
        "#qt_calendar_navigationbar QSpinBox { color: #ffffff; background: #3d5286; selection-background-color: #e0a526; }"
        "QAbstractItemView { selection-background-color: #2e3f66; selection-color: #ffffff; }"));
    for (auto [nom, gauche] : {std::pair{"qt_calendar_prevmonth", true}, std::pair{"qt_calendar_nextmonth", false}})
        if (auto *bouton = calendrier->findChild<QToolButton *>(QString::fromLatin1(nom))) bouton->setIcon(fleche(gauche));
}

QAbstractItemView *vueJours(QCalendarWidget *calendrier) { return calendrier->findChild<QAbstractItemView *>(); }

}  // namespace Calendriers
