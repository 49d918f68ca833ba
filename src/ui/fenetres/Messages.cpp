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
    QList<Reponse> reponses;
    QStringList affiches;
};
EtatTest &etat() {
    static EtatTest e;
    return e;
}

Retenue *retenue = nullptr;

QWidget *parentActif() { return QApplication::activeWindow(); }

// Without a screen to show a box on (headless runs), the text goes to the error
// output and every question is answered No, the answer that changes nothing.
bool sansFenetre() {
    static const bool sans = qEnvironmentVariableIsSet("KORVANE_MESSAGES_SANS_FENETRE");
    return sans;
}
}  // namespace

Retenue::Retenue() : avant_(retenue) { retenue = this; }
Retenue::~Retenue() { retenue = avant_; }

void information(const QString &texte) {
    if (retenue) {
        retenue->textes_.append(texte);
        return;
    }
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
        return !etat().reponses.isEmpty() && etat().reponses.takeFirst() == Reponse::Oui;
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

Reponse questionAnnulable(const QString &texte) {
    if (etat().actif) {
        etat().affiches.append(texte);
        return etat().reponses.isEmpty() ? Reponse::Non : etat().reponses.takeFirst();
    }
    if (sansFenetre()) {
        std::fprintf(stderr, "%s\n", qPrintable(texte));
        return Reponse::Annuler;
    }
    QMessageBox boite(QMessageBox::Question, kTitre, texte, QMessageBox::NoButton, parentActif());
    QPushButton *oui = boite.addButton(QStringLiteral("Oui"), QMessageBox::YesRole);
    QPushButton *non = boite.addButton(QStringLiteral("Non"), QMessageBox::NoRole);
    QPushButton *annuler = boite.addButton(QStringLiteral("Annuler"), QMessageBox::RejectRole);
    boite.setDefaultButton(oui);
    boite.setEscapeButton(annuler);
    boite.exec();
    if (boite.clickedButton() == oui) return Reponse::Oui;
    return boite.clickedButton() == non ? Reponse::Non : Reponse::Annuler;
}

void preparerPourTests() {
    etat().actif = true;
    etat().reponses.clear();
    etat().affiches.clear();
}

void prevoirReponses(const QList<bool> &reponses) {
    etat().reponses.clear();
    for (const bool r : reponses) etat().reponses.append(r ? Reponse::Oui : Reponse::Non);
}

void prevoirReponsesAnnulables(const QList<Reponse> &reponses) { etat().reponses = reponses; }

QStringList affiches() {
    QStringList l;
    l.swap(etat().affiches);
    return l;
}

int reponsesRestantes() { return int(etat().reponses.size()); }

namespace {
std::function<void()> finProgramme;
}

void definirFinProgramme(std::function<void()> fin) { finProgramme = std::move(fin); }

}  // namespace Messages

bool ConfirmerQuitter() {
    if (!Messages::question(QStringLiteral("Etes-vous sûr de vouloir quitter le programme ?"))) return false;
    if (Messages::finProgramme)
        Messages::finProgramme();
    else
        QApplication::exit(0);
    return true;
}
