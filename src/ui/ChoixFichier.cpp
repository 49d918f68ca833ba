#include "ChoixFichier.h"

#include "Messages.h"

#include <QFileDialog>

namespace ChoixFichier {

namespace {
struct EtatTest {
    bool actif = false;
    QStringList reponses;
    QStringList filtres;
};
EtatTest &etat() {
    static EtatTest e;
    return e;
}

QString choisir(QWidget *parent, const QString &description, const QString &motif, QFileDialog::AcceptMode mode) {
    const QString filtre = QStringLiteral("%1 (%2)").arg(description, motif);
    if (etat().actif) {
        etat().filtres.append(filtre);
        return etat().reponses.isEmpty() ? QString() : etat().reponses.takeFirst();
    }
    QFileDialog dialogue(parent, Messages::kTitre, QString(), filtre);
    dialogue.setAcceptMode(mode);
    dialogue.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    const QString suffixe = motif.section(u'.', -1);
    if (!suffixe.isEmpty() && suffixe != motif) dialogue.setDefaultSuffix(suffixe);
    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return {};
    return dialogue.selectedFiles().constFirst();
}
}  // namespace

QString ouvrir(QWidget *parent, const QString &description, const QString &motif) {
    return choisir(parent, description, motif, QFileDialog::AcceptOpen);
}

QString enregistrer(QWidget *parent, const QString &description, const QString &motif) {
    return choisir(parent, description, motif, QFileDialog::AcceptSave);
}

void preparerPourTests() {
    etat().actif = true;
    etat().reponses.clear();
    etat().filtres.clear();
}

void prevoirReponses(const QStringList &chemins) { etat().reponses = chemins; }

QStringList filtresDemandes() {
    QStringList l;
    l.swap(etat().filtres);
    return l;
}

}  // namespace ChoixFichier
