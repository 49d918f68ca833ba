#pragma once
// The tip receiver of the menus: a relay without state. The engine emits its signals
// and whoever holds the object listens. The engine keeps it by a QPointer and never
// owns it: the receiver's lifetime is its holder's, and a receiver that goes away
// simply means no tips.

#include <QObject>
#include <QString>

class cTips : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // The notice sent through ChoixListe when the menus have closed: the category
    // "MenusClosed", an empty identifier and an empty value.
    static QString motMenusFermes() { return QStringLiteral("MenusClosed"); }
    void annoncerMenusFermes() {
        QString vide;
        emit ChoixListe(QString(), motMenusFermes(), vide);
    }

signals:
    // The tip of the item under the pointer; the empty text when it has none.
    void MontrerConseil(const QString &texte);
    // A value picked in a generated list: the list's name (lvID:), the category
    // ("Color", "Month", "WeekDay", "State", "DayOfMonth", "Font", "Drive") and the
    // value, which a receiver connected directly may change in place.
    void ChoixListe(const QString &identifiant, const QString &categorie, QString &valeur);
};
