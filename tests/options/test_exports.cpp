#include "options/Exports.h"

#include "grid/ModeleGrille.h"
#include "support/EnvironnementTest.h"
#include "ui/Chaines.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include <initializer_list>
#include <sys/stat.h>

namespace {

// Each line followed by CR LF.
QByteArray lignes(std::initializer_list<const char *> l) {
    QByteArray octets;
    for (const char *ligne : l) octets.append(ligne).append("\r\n");
    return octets;
}

// Title and section as the main window adds them.
void entetes(ModeleGrille &g) {
    QStringList titres;
    for (int i = 110; i <= 117; ++i) titres << Chaine(i);
    g.NbColonnes(int(titres.size()) - 1);
    g.AddSection(titres, 2, 2);
    g.AddTitle(QStringLiteral("Gestionnaire des mots de passe"));
}

// A folder with one document, then an empty folder as the last row; both closed.
void remplir(ModeleGrille &g) {
    entetes(g);
    QVariant cle = QStringLiteral("10");
    g.AddParent(QStringLiteral(" Banque é°"), cle);
    int parent = cle.toInt();
    g.AddFils({"Ma banque", "jean;dupont", "mon mot de passe", "https://a.fr/?x=1&y=2", "<vide>", "01/02/2024", "",
               "n° 5 é", "1", "1", "100", "10", ""},
              parent, 1, 0, "1", "100", "10");
    QVariant cle2 = QStringLiteral("11");
    g.AddParent(QStringLiteral(" Vide"), cle2);
    for (int k : {0, 1}) g.SelectLine(g.ligneParent(k));  // both closed, as a click closes them
}

const QByteArray kTeteHtml = lignes({
    "<title>          Korvane - Le gestionnaire des mots de passe</title>",
    "<body bgcolor='#6699CC' leftmargin='0' topmargin='0' marginwidth='0' marginheight='0>'",
    "<table width='100%' border='0' cellspacing='0' cellpadding='0'>",
});
const QByteArray kQueueHtml = lignes({"</table>", "</body>"});
int mode(const QString &chemin) { return EnvironnementTest::mode(chemin); }

}  // namespace

TEST(Exports, ContenusDesQuatreFichiers) {
    EnvironnementTest env(false);
    ModeleGrille g;
    remplir(g);

    // The page: its head and tail, a row a folder and the document's fields, each
    // with its caption, the remarks on a row of their own.
    const QString htm = QString::fromUtf8(Exports::contenuHtm(g));
    EXPECT_TRUE(htm.startsWith(QString::fromUtf8(kTeteHtml)) && htm.endsWith(QString::fromUtf8(kQueueHtml)));
    for (const char *attendu :
         {"color='red'>[Banque é°]<br>", "color='red'>[Vide]<br>", "Titre</b> : Ma banque</font>",
          "Login</b> : jean;dupont</font>", "Mot de passe</b> : mon mot de passe</font>", "Url</b> : https://a.fr/?x=1&y=2</font>",
          "Fichier</b> : <vide></font>", "Date de début</b> : 01/02/2024</font>", "Date de fin</b> : </font>",
          "<td colspan='7'><font face='Verdana, Arial, Helvetica, sans-serif' size='2' color='0'>&nbsp;&nbsp;&nbsp;&nbsp;n° 5 é"})
        EXPECT_TRUE(htm.contains(QString::fromUtf8(attendu))) << attendu;
    EXPECT_LT(htm.indexOf("[Banque"), htm.indexOf("Ma banque"));
    EXPECT_LT(htm.indexOf("n° 5 é"), htm.indexOf("[Vide]"));

    EXPECT_EQ(Exports::contenuTxt(g).toStdString(), lignes({
                                                               "",
                                                               "[Banque é°]",
                                                               "",
                                                               "     Titre : Ma banque",
                                                               "     Login : jean;dupont",
                                                               "     Mot de passe : mon mot de passe",
                                                               "     Url : https://a.fr/?x=1&y=2",
                                                               "     Fichier : <vide>",
                                                               "     Date de début : 01/02/2024",
                                                               "     Date de fin : ",
                                                               "     Remarques : n° 5 é",
                                                               "",
                                                               "",
                                                               "[Vide]",
                                                               "",
                                                           })
                                                        .toStdString());

    EXPECT_EQ(Exports::contenuCsv(g).toStdString(), lignes({
                                                               "[Banque é°]",
                                                               "Ma banque;jean;dupont;mon mot de passe;https://a.fr/?x=1&y=2;<vide>;01/02/2024;;n° 5 é",
                                                               "[Vide]",
                                                           })
                                                        .toStdString());

    // Blanks go, "é" becomes "e" and "°" a blank, in names and values alike; a
    // folder closes at the next row, the last one at the end.
    EXPECT_EQ(Exports::contenuXml(g).toStdString(), lignes({
                                                               "<EditionXml>",
                                                               "<Dossier>",
                                                               "[Banquee ]",
                                                               "</Dossier>",
                                                               "<Titre>Mabanque",
                                                               "<Login>jean;dupont</Login>",
                                                               "<Motdepasse>monmotdepasse</Motdepasse>",
                                                               "<Url>https://a.fr/?x=1&y=2</Url>",
                                                               "<Fichier><vide></Fichier>",
                                                               "<Datededebut>01/02/2024</Datededebut>",
                                                               "<Datedefin></Datedefin>",
                                                               "<Remarques>n 5e</Remarques>",
                                                               "</Titre>",
                                                               "<Dossier>",
                                                               "[Vide]",
                                                               "</Dossier>",
                                                               "</EditionXml>",
                                                           })
                                                        .toStdString());

    // An account with no folders; and rows deleted since they were counted, which
    // NbLignes still counts, give nothing either.
    ModeleGrille vide, supprime;
    entetes(vide);
    entetes(supprime);
    QVariant cle = QStringLiteral("12");
    supprime.AddParent(QStringLiteral(" Parti"), cle);
    supprime.DelParent(2);
    ASSERT_EQ(vide.NbLignes, 2);
    ASSERT_EQ(supprime.NbLignes, 3);
    for (const ModeleGrille *v : {&vide, &supprime}) {
        EXPECT_EQ(Exports::contenuHtm(*v), kTeteHtml + kQueueHtml);
        EXPECT_EQ(Exports::contenuXml(*v), lignes({"<EditionXml>", "</EditionXml>"}));
        EXPECT_TRUE(Exports::contenuTxt(*v).isEmpty());
        EXPECT_TRUE(Exports::contenuCsv(*v).isEmpty());
    }
}

TEST(Exports, FichiersPrivesSousEdition) {
    EnvironnementTest env(false);
    ModeleGrille g;
    remplir(g);
    // Enough that each file goes out in several pieces, mostly long remarks that the
    // XML file cleans.
    QVariant cle = QStringLiteral("13");
    g.AddParent(QStringLiteral(" Gros"), cle);
    const QString remarque = QStringLiteral("note é ° ").repeated(250);
    for (int k = 0; k < 200; ++k) {
        int parent = cle.toInt();
        const QString n = QString::number(k);
        g.AddFils({"Document " + n, "login" + n, "secret", "", "", "", "", remarque, "1", "1", n, "13", ""}, parent, 1, 0,
                  "1", n, "13");
    }
    const QString edition = env.chemin(QStringLiteral("edition"));

    // Missing folder, then an older folder and file open to all: both made private.
    Exports::creerTout(g);
    ASSERT_EQ(mode(edition), 0700);
    QFile::setPermissions(edition, QFileDevice::Permissions(0x7755));
    QFile::setPermissions(edition + "/edition.htm", QFileDevice::Permissions(0x6644));
    Exports::creerTout(g);
    EXPECT_EQ(mode(edition), 0700);
    const QByteArray attendus[] = {Exports::contenuHtm(g), Exports::contenuTxt(g), Exports::contenuCsv(g),
                                   Exports::contenuXml(g)};
    for (int f = Exports::Html; f <= Exports::Xml; ++f) {
        QFile fichier(Exports::chemin(f));
        ASSERT_TRUE(fichier.open(QIODevice::ReadOnly)) << f;
        EXPECT_EQ(fichier.readAll(), attendus[f]) << f;
        EXPECT_GT(attendus[f].size(), 1 << 18) << f;
        EXPECT_EQ(mode(fichier.fileName()), 0600) << f;
    }
    // The cut of each file, as the preview reads it: a line a piece in the three
    // others, a row of the grid a piece in the page, between its head and its tail.
    const Exports::Instantane lignes(g);
    for (int f = Exports::Html; f <= Exports::Xml; ++f) {
        const Exports::Decoupe d = Exports::creerFichier(f, lignes);
        const QByteArray &octets = attendus[f];
        ASSERT_FALSE(d.bornes.empty()) << f;
        QList<QByteArray> pieces;
        for (int i = 0; i < d.nbPieces(); ++i) pieces << octets.mid(d.bornes[size_t(i)], d.bornes[size_t(i) + 1] - d.bornes[size_t(i)]);
        // The start made from the first rows, shown while the file is written: the
        // same pieces, cut at the same places, and no end of the file.
        Exports::Decoupe dd;
        const QByteArray debut = Exports::contenu(f, Exports::Instantane(g, 50), &dd);
        ASSERT_EQ(dd.nbPieces(), f == Exports::Html ? 50 : int(octets.left(dd.bornes.back()).count("\r\n"))) << f;
        EXPECT_EQ(std::vector<qint64>(d.bornes.begin(), d.bornes.begin() + qsizetype(dd.bornes.size())), dd.bornes) << f;
        EXPECT_EQ(debut.left(dd.bornes.back()), octets.left(dd.bornes.back())) << f;
        if (f == Exports::Html) {
            EXPECT_EQ(octets.left(d.bornes.front()) + octets.mid(d.bornes.back()), kTeteHtml + kQueueHtml);
            EXPECT_EQ(d.nbPieces(), lignes.nbLignes());
        } else {
            EXPECT_EQ(d.bornes.back() - d.bornes.front(), octets.size()) << f;
            for (const QByteArray &p : pieces) EXPECT_TRUE(p.indexOf('\n') == p.size() - 1) << p.data();
        }
    }

    // A folder deleted during the run is made again by the next writer alone.
    ASSERT_TRUE(QDir(edition).removeRecursively());
    Exports::CreerFicXml(g);
    EXPECT_EQ(mode(edition), 0700);
    EXPECT_EQ(mode(Exports::chemin(Exports::Xml)), 0600);

    // A file that can't be written: a message naming it, the others untouched, no leftovers.
    ASSERT_TRUE(QDir(edition).mkdir("edition.htm"));
    try {
        Exports::CreerFicHtm(g);
        ADD_FAILURE() << "no error";
    } catch (const Base::ErreurBase &e) {
        EXPECT_TRUE(e.message().contains(Exports::chemin(Exports::Html))) << e.message().toStdString();
    }
    EXPECT_EQ(QDir(edition).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({"edition.htm", "edition.xml"}));

    // "edition" taken by a file: refused with a message, nothing crashes.
    ASSERT_TRUE(QDir(edition).removeRecursively());
    QFile bouchon(edition);
    ASSERT_TRUE(bouchon.open(QIODevice::WriteOnly));
    bouchon.close();
    EXPECT_THROW(Exports::creerTout(g), Base::ErreurBase);
}
