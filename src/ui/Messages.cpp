#include "Messages.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <cstdio>

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

// Without a screen to show a box on (headless runs), the text goes to the error
// output and every question is answered No, the answer that changes nothing.
bool sansFenetre() {
    static const bool sans = qEnvironmentVariableIsSet("KORVANE_MESSAGES_SANS_FENETRE");
    return sans;
}
}  // namespace

void information(const QString &texte) {
    if (etat().actif) {
        etat().affiches.append(texte);
        return;
    }
    if (sansFenetre()) {
        std::fprintf(stderr, "%s\n", qPrintable(texte));
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
    if (sansFenetre()) {
        std::fprintf(stderr, "%s\n", qPrintable(texte));
        return false;
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
