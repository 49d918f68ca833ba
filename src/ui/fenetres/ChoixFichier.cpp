#include "ChoixFichier.h"

#include "ui/Apparence.h"
#include "Messages.h"

#include <QColorDialog>
#include <QFileDialog>

namespace ChoixFichier {

namespace {
struct EtatTest {
    bool actif = false;
    QStringList reponses;
    QStringList filtres;
    QList<int> couleurs;
};
EtatTest &etat() {
    static EtatTest e;
    return e;
}

// filtres: each "description (patterns)", the first shown at first; a name typed
// without a suffix takes the one of motif, when it is a single pattern.
QString choisir(QWidget *parent, const QStringList &filtres, const QString &motif, QFileDialog::AcceptMode mode) {
    if (etat().actif) {
        etat().filtres.append(filtres.join(QStringLiteral(";;")));
        return etat().reponses.isEmpty() ? QString() : etat().reponses.takeFirst();
    }
    QFileDialog dialogue(parent, Messages::kTitre);
    dialogue.setNameFilters(filtres);
    dialogue.setAcceptMode(mode);
    dialogue.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    const QString suffixe = motif.section(u'.', -1);
    if (!suffixe.isEmpty() && suffixe != motif) dialogue.setDefaultSuffix(suffixe);
    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return {};
    return dialogue.selectedFiles().constFirst();
}

QString filtre(const QString &description, const QString &motif) { return QStringLiteral("%1 (%2)").arg(description, motif); }
}  // namespace

QString ouvrir(QWidget *parent, const QString &description, const QString &motif) {
    return choisir(parent, {filtre(description, motif)}, motif, QFileDialog::AcceptOpen);
}

QString ouvrir(QWidget *parent, const QStringList &filtres) { return choisir(parent, filtres, QString(), QFileDialog::AcceptOpen); }

QString enregistrer(QWidget *parent, const QString &description, const QString &motif) {
    return choisir(parent, {filtre(description, motif)}, motif, QFileDialog::AcceptSave);
}

std::optional<int> couleurConfirmee(QWidget *parent, int initiale) {
    if (etat().actif) {
        const int choix = etat().couleurs.isEmpty() ? -1 : etat().couleurs.takeFirst();
        if (choix < 0) return std::nullopt;
        return choix;
    }
    const QColor depart = Apparence::couleur(initiale);
    const QColor choisie = QColorDialog::getColor(depart, parent, Messages::kTitre);
    if (!choisie.isValid()) return std::nullopt;
    return Apparence::nombre(choisie);
}

int couleur(QWidget *parent, int initiale) { return couleurConfirmee(parent, initiale).value_or(initiale); }

void preparerPourTests() {
    etat().actif = true;
    etat().reponses.clear();
    etat().filtres.clear();
    etat().couleurs.clear();
}

void prevoirCouleurs(const QList<int> &couleurs) { etat().couleurs = couleurs; }

void prevoirReponses(const QStringList &chemins) { etat().reponses = chemins; }

QStringList filtresDemandes() {
    QStringList l;
    l.swap(etat().filtres);
    return l;
}

}  // namespace ChoixFichier
