// Registers .kvx files with Korvane for the current user, the freedesktop way: a MIME
// type, a desktop entry, the program's icon, and Korvane as default application.

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
#include <QStandardPaths>
#include <QTextStream>

namespace {

const QString kTypeMime = QStringLiteral("application/x-korvane");
const QString kEntree = QStringLiteral("korvane.desktop");

// Whole or not at all: the user's own files there must never be left cut.
bool ecrireOctets(const QString &chemin, const QByteArray &octets) {
    QDir().mkpath(QFileInfo(chemin).absolutePath());
    return FichierEntier::ecrire(chemin, octets);
}

bool ecrireTexte(const QString &chemin, const QString &texte) { return ecrireOctets(chemin, texte.toUtf8()); }

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
    ecrireTexte(chemin, lignes.join(u'\n') + u'\n');
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

}  // namespace

void AssocierExtension() {
    const QString donnees = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (donnees.isEmpty() || config.isEmpty()) return;
    const QDir d(donnees);

    ecrireTexte(d.filePath(QStringLiteral("mime/packages/korvane.xml")),
                QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
                               "  <mime-type type=\"%1\">\n"
                               "    <comment>Korvane</comment>\n"
                               "    <icon name=\"korvane\"/>\n"
                               "    <glob pattern=\"*.kvx\"/>\n"
                               "  </mime-type>\n"
                               "</mime-info>\n")
                    .arg(kTypeMime));

    ecrireTexte(d.filePath(QStringLiteral("applications/") + kEntree),
                QStringLiteral("[Desktop Entry]\n"
                               "Type=Application\n"
                               "Name=Korvane\n"
                               "Comment=Le gestionnaire des mots de passe\n"
                               "Exec=%1 %f\n"
                               "Icon=korvane\n"
                               "MimeType=%2;\n"
                               "Terminal=false\n"
                               "Categories=Utility;Security;\n")
                    .arg(argumentExec(QCoreApplication::applicationFilePath()), kTypeMime));

    // The program's icon, for the application and for its files.
    QFile svg(QStringLiteral(":/art/korvane.svg"));
    if (svg.open(QIODevice::ReadOnly)) {
        const QByteArray octets = svg.readAll();
        for (const QString &chemin : {QStringLiteral("icons/hicolor/scalable/apps/korvane.svg"),
                                      QStringLiteral("icons/hicolor/scalable/mimetypes/application-x-korvane.svg")})
            ecrireOctets(d.filePath(chemin), octets);
    }
    QByteArray png;
    QBuffer tampon(&png);
    tampon.open(QIODevice::WriteOnly);
    if (Art::pixmap(QStringLiteral("korvane"), QSize(48, 48)).save(&tampon, "PNG"))
        ecrireOctets(d.filePath(QStringLiteral("icons/hicolor/48x48/apps/korvane.png")), png);

    fixerDansListe(QDir(config).filePath(QStringLiteral("mimeapps.list")), QStringLiteral("Default Applications"), kTypeMime,
                   kEntree);
    fixerDansListe(QDir(config).filePath(QStringLiteral("mimeapps.list")), QStringLiteral("Added Associations"), kTypeMime,
                   kEntree + u';');

    actualiser(QStringLiteral("update-mime-database"), {d.filePath(QStringLiteral("mime"))});
    actualiser(QStringLiteral("update-desktop-database"), {d.filePath(QStringLiteral("applications"))});
}
