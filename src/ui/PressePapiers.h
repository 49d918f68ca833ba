#pragma once
// What Korvane puts on the clipboard, and its clearing: a copied text leaves the
// clipboard after a delay, at a change of account, when the base is replaced and at
// quit, but only while the clipboard still holds it. Nothing goes to the primary
// selection, and a password carries the hint that keeps it out of clipboard
// managers' history.

#include <QObject>
#include <QString>
#include <QTimer>

class QMimeData;

class PressePapiers : public QObject {
    Q_OBJECT
public:
    static PressePapiers &instance();

    // Puts texte on the clipboard; cleared after delaiSecondes (0: never).
    void copier(const QString &texte, bool secret, int delaiSecondes);
    // Clears now, if the clipboard still holds what was put there; true when it did.
    // Either way nothing waits any longer.
    bool effacerSiIntact();
    // Seconds before the clearing; 0 when no copy waits.
    int secondesRestantes() const { return restantes_; }

    // The text and, for a secret, the hint of clipboard managers.
    static QMimeData *donnees(const QString &texte, bool secret);
    static constexpr const char *kTypeIndice = "x-kde-passwordManagerHint";

signals:
    // Each second of the countdown, then 0 when nothing waits any longer.
    void compteARebours(int secondes);

private:
    PressePapiers();
    void seconde();
    bool contientCopie() const;

    QTimer minuterie_;
    QString copie_;
    int restantes_ = 0;
};
