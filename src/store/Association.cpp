// Registers .kvx files with Korvane for the current user, the freedesktop way: a MIME
// type, a desktop entry, the program's icon, and Korvane as default application. An
// installed Korvane has all but the last from its package.

#include "Chemins.h"
#include "Def.h"
#include "FichierEntier.h"
#include "ui/Art.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTextStream>

namespace {

const QString kTypeMime = QStringLiteral("application/x-korvane");
const QString kEntree = QStringLiteral("korvane.desktop");

// What the desktop reads: for all to read, for the user alone to change.
constexpr QFileDevice::Permissions kDroitsPublics =
    FichierEntier::kDroitsProprietaire | QFileDevice::ReadGroup | QFileDevice::ReadOther;

// Whole or not at all: the user's own files there must never be left cut. A file
// that exists keeps its rights unless droits are given.
bool ecrireOctets(const QString &chemin, const QByteArray &octets, QFileDevice::Permissions droits = kDroitsPublics) {
    FichierEntier::creerDossier(QFileInfo(chemin).absolutePath());
    return FichierEntier::ecrire(chemin, octets, droits);
}

bool ecrireTexte(const QString &chemin, const QString &texte, QFileDevice::Permissions droits = kDroitsPublics) {
    return ecrireOctets(chemin, texte.toUtf8(), droits);
}

// One argument of an Exec line: quoted, with the characters the quotes don't protect
// escaped, then the backslashes doubled as every desktop-entry string requires.
QString argumentExec(const QString &chemin) {
    QString a;
    for (QChar c : chemin) {
        if (c == u'"' || c == u'`' || c == u'$' || c == u'\\') a += u'\\';
        a += c;
    }
    a = u'"' + a + u'"';
    return a.replace(u'\\', QStringLiteral("\\\\"));
}

// Sets key=valeur in one section of an INI-like file without disturbing the rest
// (mimeapps.list holds the user's other choices).
void fixerDansListe(const QString &chemin, const QString &section, const QString &cle, const QString &valeur) {
    QStringList lignes;
    QFile f(chemin);
    if (f.open(QIODevice::ReadOnly)) {
        lignes = QString::fromUtf8(f.readAll()).split(u'\n');
    } else if (f.exists()) {
        return;  // unreadable: rewriting it would drop the choices it holds
    }
    f.close();
    while (!lignes.isEmpty() && lignes.last().isEmpty()) lignes.removeLast();

    const QString entete = u'[' + section + u']';
    const QString nouvelle = cle + u'=' + valeur;
    qsizetype debut = lignes.indexOf(entete);
    if (debut < 0) {
        lignes << entete << nouvelle;
    } else {
        qsizetype i = debut + 1;
        bool remplacee = false;
        for (; i < lignes.size() && !lignes[i].startsWith(u'['); ++i)
            if (lignes[i].section(u'=', 0, 0).trimmed() == cle) {
                lignes[i] = nouvelle;
                remplacee = true;
            }
        if (!remplacee) lignes.insert(debut + 1, nouvelle);
    }
    // The user's list keeps the rights it has; a new one gets those of its kind.
    ecrireTexte(chemin, lignes.join(u'\n') + u'\n', f.exists() ? QFileDevice::Permissions() : kDroitsPublics);
}

// Runs a refresh tool if it is installed; its absence or failure is not the user's concern.
void actualiser(const QString &outil, const QStringList &arguments) {
    const QString programme = QStandardPaths::findExecutable(outil);
    if (programme.isEmpty()) return;
    QProcess p;
    p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p.setStandardOutputFile(QProcess::nullDevice());
    p.start(programme, arguments);
    if (!p.waitForFinished(10000)) p.kill();
}

QByteArray ressource(const QString &nom) {
    QFile f(nom);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The package's desktop entry, made to start the executable at chemin.
QString entreePour(const QString &chemin) {
    return QString::fromUtf8(ressource(QStringLiteral(":/bureau/korvane.desktop")))
        .replace(QStringLiteral("\nExec=korvane "), QStringLiteral("\nExec=") + argumentExec(chemin) + u' ');
}

QString cheminEntreePersonnelle() {
    const QString donnees = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return donnees.isEmpty() ? QString() : QDir(donnees).filePath(QStringLiteral("applications/") + kEntree);
}

// Korvane as the default application of its files, in the user's mimeapps.list.
void choisirParDefaut() {
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (config.isEmpty()) return;
    const QString liste = QDir(config).filePath(QStringLiteral("mimeapps.list"));
    fixerDansListe(liste, QStringLiteral("Default Applications"), kTypeMime, kEntree);
    fixerDansListe(liste, QStringLiteral("Added Associations"), kTypeMime, kEntree + u';');
}

}  // namespace

void AssocierExtension() {
    // Installed, the package brings the type, the entry and the icons for every user:
    // only the user's choice of Korvane is written here.
    if (Chemins::installe()) {
        OterEntreePortable();
        choisirParDefaut();
        return;
    }
    const QString donnees = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (donnees.isEmpty() || QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).isEmpty()) return;
    const QDir d(donnees);

    ecrireOctets(d.filePath(QStringLiteral("mime/packages/korvane.xml")), ressource(QStringLiteral(":/bureau/korvane.xml")));
    ecrireTexte(cheminEntreePersonnelle(), entreePour(QCoreApplication::applicationFilePath()));

    // The program's icon, for the application and for its files.
    const QByteArray svg = ressource(QStringLiteral(":/art/korvane.svg"));
    if (!svg.isEmpty()) {
        for (const QString &chemin : {QStringLiteral("icons/hicolor/scalable/apps/korvane.svg"),
                                      QStringLiteral("icons/hicolor/scalable/mimetypes/application-x-korvane.svg")})
            ecrireOctets(d.filePath(chemin), svg);
    }
    QByteArray png;
    QBuffer tampon(&png);
    tampon.open(QIODevice::WriteOnly);
    if (Art::pixmap(QStringLiteral("korvane"), QSize(48, 48)).save(&tampon, "PNG"))
        ecrireOctets(d.filePath(QStringLiteral("icons/hicolor/48x48/apps/korvane.png")), png);

    choisirParDefaut();

    actualiser(QStringLiteral("update-mime-database"), {d.filePath(QStringLiteral("mime"))});
    actualiser(QStringLiteral("update-desktop-database"), {d.filePath(QStringLiteral("applications"))});
}

void OterEntreePortable() {
    if (!Chemins::installe()) return;
    const QString chemin = cheminEntreePersonnelle();
    QFile f(chemin);
    if (chemin.isEmpty() || !f.open(QIODevice::ReadOnly)) return;
    const QString texte = QString::fromUtf8(f.readAll());
    f.close();
    // Only an entry as Korvane writes it for a copy run from its own folder, whatever
    // that folder: one the user changed by hand is theirs to keep.
    static const QRegularExpression exec(QStringLiteral("^Exec=\"(?:[^\"\\\\]|\\\\.)*\" %f$"),
                                         QRegularExpression::MultilineOption);
    const QRegularExpressionMatch m = exec.match(texte);
    if (!m.hasMatch()) return;
    const QString modele = QString(texte).replace(m.capturedStart(), m.capturedLength(), QStringLiteral("Exec=korvane %f"));
    if (modele.toUtf8() != ressource(QStringLiteral(":/bureau/korvane.desktop")) || !QFile::remove(chemin)) return;
    actualiser(QStringLiteral("update-desktop-database"), {QFileInfo(chemin).absolutePath()});
}
