#include "CopieBase.h"

#include "Base.h"
#include "Chemins.h"
#include "FichierEntier.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace CopieBase {

namespace {
[[noreturn]] void echec(const QString &cible, const QString &raison) {
    throw Base::ErreurBase(QStringLiteral("La copie vers %1 a échoué : %2.\n"
                                          "Vérifiez les droits du dossier et la place libre sur le disque. "
                                          "Le fichier %1 n'a pas été modifié.")
                               .arg(QFileInfo(cible).fileName(), raison));
}

// Writes the whole of source into sortie, a hidden file beside its target that only
// commit() renames over it: a failure half way (full disk, no right) leaves the
// target as it was.
void remplir(QSaveFile &sortie, const QString &source) {
    QFile entree(source);
    if (!entree.open(QIODevice::ReadOnly))
        throw Base::ErreurBase(QStringLiteral("Impossible de lire le fichier %1 : %2.")
                                   .arg(QFileInfo(source).fileName(), FichierEntier::raisonEchec(entree)));
    // A copy of the base is the user's alone, like the base, whatever its target held.
    if (!sortie.open(QIODevice::WriteOnly) || !sortie.setPermissions(FichierEntier::kDroitsProprietaire))
        echec(sortie.fileName(), FichierEntier::raisonEchec(sortie));
    while (!entree.atEnd()) {
        const QByteArray bloc = entree.read(1 << 20);
        if (bloc.isEmpty() || sortie.write(bloc) != bloc.size()) echec(sortie.fileName(), FichierEntier::raisonEchec(sortie));
    }
}

void valider(QSaveFile &sortie) {
    if (!FichierEntier::valider(sortie)) echec(sortie.fileName(), FichierEntier::raisonEchec(sortie));
}

}  // namespace

void copierEntier(const QString &source, const QString &cible) {
    QSaveFile sortie(cible);
    remplir(sortie, source);
    valider(sortie);
}

bool memeFichier(const QString &a, const QString &b) {
    const QFileInfo fa(a), fb(b);
    if (fa.exists() && fb.exists()) return fa.canonicalFilePath() == fb.canonicalFilePath();
    return fa.absoluteFilePath() == fb.absoluteFilePath();
}

QString cheminSauvegarde() { return Base::cheminSauvegarde(Chemins::cheminBase()); }

void copier(const QString &cible) {
    // The files Korvane works with are never a copy's target: the copy would take the
    // place of the base, of the only way back to the base before it, or of the lock.
    for (const QString &propre : {Chemins::cheminBase(), cheminSauvegarde(), Base::cheminVerrou(Chemins::cheminBase())})
        if (memeFichier(cible, propre))
            throw Base::ErreurBase(QStringLiteral("Korvane utilise lui-même le fichier %1 : choisissez un autre nom.\n"
                                                  "Rien n'a été copié.")
                                       .arg(QFileInfo(propre).fileName()));
    copierEntier(Chemins::cheminBase(), cible);
}

void remplacer(const QString &source) {
    if (memeFichier(source, Chemins::cheminBase())) return;
    QString raison;
    if (!Base::estBaseKorvane(source, &raison))
        throw Base::ErreurBase(raison + QStringLiteral("\nLa base actuelle n'a pas été modifiée."));
    // Read in whole before the old base goes to the .bak: the file chosen may be that .bak.
    QSaveFile nouvelle(Chemins::cheminBase());
    remplir(nouvelle, source);
    if (QFileInfo::exists(Chemins::cheminBase())) copierEntier(Chemins::cheminBase(), cheminSauvegarde());
    valider(nouvelle);
    Base::oublierEndommagee(Chemins::cheminBase());
}

QString reprendreBaseVoisine() {
    const QString voisine = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("korvane.kvx"));
    if (!Chemins::installe() || !QFileInfo::exists(voisine) || QFileInfo::exists(Chemins::cheminBase()) ||
        memeFichier(voisine, Chemins::cheminBase()))
        return {};
    const QString ici = QDir::toNativeSeparators(voisine), la = QDir::toNativeSeparators(Chemins::dossierProgramme());
    QString raison;
    if (!Base::estBaseKorvane(voisine, &raison))
        return QStringLiteral(
                   "La base %1 n'a pas été reprise :\n%2\nKorvane commence une base neuve dans %3 ; "
                   "le fichier %1 n'a pas été modifié.")
            .arg(ici, raison, la);
    copierEntier(voisine, Chemins::cheminBase());
    return QStringLiteral(
               "Korvane garde désormais sa base dans %2, car il ne peut pas écrire à côté du programme.\n"
               "La base %1 y a été copiée ; l'originale n'a pas été modifiée.")
        .arg(ici, la);
}

}  // namespace CopieBase
