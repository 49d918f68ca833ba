#include "Reglages.h"

#include "FichierEntier.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace Reglages {

namespace {

constexpr Definition kTable[] = {
    {"Login", "Username", ""},
    {"Settings", "Demarrage", "0"},
    {"Settings", "Windowstate", "0"},
    {"Settings", "MainLeft", nullptr},
    {"Settings", "MainTop", nullptr},
    {"Settings", "Edition", "0"},
    {"Settings", "Options", "0"},
    {"Couleurs", "Backcolor", "16777215"},
    {"Couleurs", "CouleurTitre", "0"},
    {"Couleurs", "CouleurSection", "16777215"},
    {"Couleurs", "CouleurParent", "0"},
    {"Couleurs", "CouleurFils", "0"},
    {"Couleurs", "CouleurSelection", "14737632"},
    {"Font", "FontName", nullptr},
    {"Font", "FontColor", "0"},
    {"Settings", "PressePapiers", "20"},
    {"Affichage", "MotsDePasse", "0"},
    {"Securite", "Verrouillage", "5"},
};

QString &dossierChoisi() {
    static QString dossier;
    return dossier;
}

QSettings ouvrir() { return QSettings(cheminFichier(), QSettings::IniFormat); }

// The stored names that match nom without regard to case, the exact form first.
QStringList variantes(const QStringList &existants, const QString &nom) {
    QStringList v;
    for (const QString &e : existants)
        if (e.compare(nom, Qt::CaseInsensitive) == 0) {
            if (e == nom)
                v.prepend(e);
            else
                v.append(e);
        }
    return v;
}

bool enNombre(const QString &texte, int *valeur) {
    bool ok = false;
    const qlonglong n = texte.trimmed().toLongLong(&ok);
    if (!ok || n < INT_MIN || n > INT_MAX) return false;
    *valeur = int(n);
    return true;
}

QString nomColonne(int index) { return QStringLiteral("Colonne %1").arg(index); }

constexpr int kCouleurMax = 0xFFFFFF;

bool estCouleur(const Definition &d) { return qstrcmp(d.section, "Couleurs") == 0 || qstrcmp(d.nom, "FontColor") == 0; }

}  // namespace

QString cheminFichier() {
    QString dossier = dossierChoisi();
    if (dossier.isEmpty()) dossier = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir(dossier).filePath(QStringLiteral("Korvane/Korvane.ini"));
}

void definirDossier(const QString &dossier) { dossierChoisi() = dossier; }

QString lire(const QString &section, const QString &nom, const QString &defaut) {
    QSettings s = ouvrir();
    for (const QString &groupe : variantes(s.childGroups(), section)) {
        s.beginGroup(groupe);
        const QStringList cles = variantes(s.childKeys(), nom);
        if (!cles.isEmpty()) return s.value(cles.first()).toString();
        s.endGroup();
    }
    return defaut;
}

void ecrire(const QString &section, const QString &nom, const QString &valeur) {
    // It holds the last login: the user's alone from its making on.
    FichierEntier::creerDossier(QFileInfo(cheminFichier()).absolutePath());
    FichierEntier::creerVide(cheminFichier(), FichierEntier::kDroitsProprietaire);
    QSettings s = ouvrir();
    // One value per key whatever its case: other forms go, the key keeps its own name.
    for (const QString &groupe : variantes(s.childGroups(), section)) {
        s.beginGroup(groupe);
        for (const QString &cle : variantes(s.childKeys(), nom)) s.remove(cle);
        s.endGroup();
    }
    s.beginGroup(section);
    s.setValue(nom, valeur);
    s.endGroup();
    s.sync();
    FichierEntier::reserverAuProprietaire(cheminFichier());
}

const Definition &definition(Cle cle) { return kTable[int(cle)]; }

QString lireTexte(Cle cle) {
    const Definition &d = definition(cle);
    return lire(QString::fromLatin1(d.section), QString::fromLatin1(d.nom), QString::fromLatin1(d.defaut ? d.defaut : ""));
}

int lireNombre(Cle cle, int defaut) {
    const Definition &d = definition(cle);
    int valeur = defaut;
    if (!enNombre(lire(QString::fromLatin1(d.section), QString::fromLatin1(d.nom), QString()), &valeur)) return defaut;
    // A colour is 24 bits; anything else in its key is as unreadable as a word.
    if (estCouleur(d) && (valeur < 0 || valeur > kCouleurMax)) return defaut;
    return valeur;
}

int lireNombre(Cle cle) {
    const Definition &d = definition(cle);
    int defaut = 0;
    if (d.defaut) enNombre(QString::fromLatin1(d.defaut), &defaut);
    return lireNombre(cle, defaut);
}

void ecrire(Cle cle, const QString &valeur) {
    const Definition &d = definition(cle);
    ecrire(QString::fromLatin1(d.section), QString::fromLatin1(d.nom), valeur);
}

void ecrire(Cle cle, int valeur) { ecrire(cle, QString::number(valeur)); }

bool colonneVisible(int index) {
    int valeur = -1;
    enNombre(lire(QStringLiteral("Settings"), nomColonne(index), QString()), &valeur);
    // -1 shows the column; any other number hides it.
    return valeur == -1;
}

void ecrireColonneVisible(int index, bool visible) {
    ecrire(QStringLiteral("Settings"), nomColonne(index), QString::number(visible ? -1 : 0));
}

int couleurParentDialogue() { return lireNombre(Cle::CouleurParent, 16777215); }

}  // namespace Reglages
