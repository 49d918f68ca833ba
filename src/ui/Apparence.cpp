#include "Apparence.h"

namespace Apparence {

const QString kStyleChoix = QStringLiteral(
    "QRadioButton, QCheckBox { color: #1f2a44; font-weight: bold; background: transparent; spacing: 8px; }"
    "QRadioButton::indicator { width: 12px; height: 12px; border-radius: 7px; border: 2px solid #2e3f66; background: #ffffff; }"
    "QRadioButton::indicator:checked { background: #e0a526; }"
    "QCheckBox::indicator { width: 13px; height: 13px; border: 2px solid #2e3f66; border-radius: 3px; background: #ffffff; }"
    "QCheckBox::indicator:checked { background: #e0a526; }"
    "QRadioButton:focus, QCheckBox:focus { text-decoration: underline; }");

QString cleIcone(int num) { return QStringLiteral("A %1").arg(num); }

QString cleIcone(const QString &num) { return QStringLiteral("A ") + num; }

int numDeCle(const QString &cle, bool *ok) { return cle.mid(2).trimmed().toInt(ok); }

QDate lireDate(const QString &texte) {
    const QString t = texte.trimmed();
    for (const char *format : {"d/M/yyyy", "dd/MM/yyyy"}) {
        const QDate date = QDate::fromString(t, QString::fromLatin1(format));
        if (date.isValid()) return date;
    }
    return {};
}

QString ecrireDate(const QDate &date) { return date.toString(QStringLiteral("dd/MM/yyyy")); }

}  // namespace Apparence
