#include "Messages.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace Messages {

const QString kTitre = QStringLiteral("Korvane");

namespace {
struct EtatTest {
    bool actif = false;
    QList<bool> reponses;
    QStringList affiches;
};
EtatTest &etat() {
    static EtatTest e;
    return e;
}

QWidget *parentActif() { return QApplication::activeWindow(); }
}  // namespace

void information(const QString &texte) {
    if (etat().actif) {
        etat().affiches.append(texte);
        return;
    }
    QMessageBox boite(QMessageBox::Information, kTitre, texte, QMessageBox::NoButton, parentActif());
    boite.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    boite.exec();
}

bool question(const QString &texte) {
    if (etat().actif) {
        etat().affiches.append(texte);
        return etat().reponses.isEmpty() ? false : etat().reponses.takeFirst();
    }
    QMessageBox boite(QMessageBox::Question, kTitre, texte, QMessageBox::NoButton, parentActif());
    QPushButton *oui = boite.addButton(QStringLiteral("Oui"), QMessageBox::YesRole);
    QPushButton *non = boite.addButton(QStringLiteral("Non"), QMessageBox::NoRole);
    boite.setDefaultButton(oui);
    boite.setEscapeButton(non);
    boite.exec();
    return boite.clickedButton() == oui;
}

void preparerPourTests() {
    etat().actif = true;
    etat().reponses.clear();
    etat().affiches.clear();
}

void prevoirReponses(const QList<bool> &reponses) { etat().reponses = reponses; }

QStringList affiches() {
    QStringList l;
    l.swap(etat().affiches);
    return l;
}

int reponsesRestantes() { return int(etat().reponses.size()); }

}  // namespace Messages
