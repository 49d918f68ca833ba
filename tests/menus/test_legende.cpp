#include "menus/InvariantsLegende.h"
#include "menus/Legende.h"
#include "support/ImpressionQt.h"

#include <QGuiApplication>
#include <QPalette>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace modMenus;

TEST(Legende, TexteBlocEtRaccourci) {
    const struct {
        const char *legende, *texte, *bloc, *raccourci;
    } cas[] = {
        {"Ouvrir\tCtrl+O{IMG:i1}", "Ouvrir", "", "Ctrl+O{IMG:i1}"},  // the tab is cut first
        {"{Raised}", "", "{Raised|", ""},
        {"x{Tip:a}y{TIP:A}", "xy", "{Tip:a|", ""},  // every copy, any case
        {"a\tb\tc", "a", "", "b\tc"},
        {"Fin}{début", "Fin}{début", "", ""},  // "}" before "{", "{" alone
    };
    for (const auto &c : cas) {
        QString texte = QStringLiteral("avant"), bloc = texte, raccourci = texte;
        SepareLegende(QString::fromUtf8(c.legende), texte, bloc, raccourci);
        EXPECT_EQ(texte, QString::fromUtf8(c.texte)) << c.legende;
        EXPECT_EQ(bloc, QString::fromUtf8(c.bloc)) << c.legende;
        EXPECT_EQ(raccourci, QString::fromUtf8(c.raccourci)) << c.legende;
    }
}

TEST(Legende, LectureDesAttributs) {
    const struct {
        const char *bloc, *cle, *attendu;
    } cas[] = {
        {"{Bold|", "Bold", "True"},
        {"{FSize:14|Bold|", "fsize:", "14"},
        {"{Boldly|", "Bold", "ly"},              // keys are prefixes
        {"{lvColors:Font|", "Font", "0"},        // found after a colon
        {"{Tip:Bold text|Italic|", "Bold", ""},  // a tip's words are no attributes
        {"{Tip:Bold text|Italic|", "Tip:", "Bold text"},
        {"{Tip:a|x|Tip:b|", "Tip:", "b"},  // "|Tip:" is looked for before "{Tip:"
        {"{IMG:i3}", "IMG:", "i3"},        // a closing brace ends the last one
        {"{FSize:12", "FSize:", ""},       // no end, no value
    };
    for (const auto &c : cas)
        EXPECT_EQ(LireAttribut(QString::fromUtf8(c.bloc), QString::fromUtf8(c.cle)), QString::fromUtf8(c.attendu))
            << c.bloc << " " << c.cle;
}

TEST(Legende, LeTexteDeLaBarreNEstPasLu) {
    QString bloc = QStringLiteral("{Sidebar|Text:Bold and Italic|FSize:14|");
    EXPECT_EQ(LireAttribut(bloc, QStringLiteral("Bold")), QStringLiteral(" and Italic"));  // read through "Text:Bold"
    EXPECT_EQ(ExtraireTexteBarre(bloc), QStringLiteral("Bold and Italic"));
    EXPECT_EQ(LireAttribut(bloc, QStringLiteral("Bold")), QString());
    EXPECT_EQ(LireAttribut(bloc, QStringLiteral("FSize:")), QStringLiteral("14"));
}

TEST(Legende, ImagesSeparateursEtEsperluettes) {
    using G = ReferenceImage::Genre;
    const struct {
        const char *valeur;
        G genre;
        qint64 numero;
        const char *nom;
        int index;
    } cas[] = {
        {"1234", G::Numero, 1234, "", -1},
        {"i12", G::ListeImages, 12, "", -1},
        {"ImTool(1)", G::Controle, 0, "ImTool", 1},
        {"", G::Aucune, 0, "", -1},
    };
    for (const auto &c : cas) {
        const ReferenceImage r = LireImage(QString::fromUtf8(c.valeur));
        EXPECT_EQ(r.genre, c.genre) << c.valeur;
        EXPECT_EQ(r.numero, c.numero) << c.valeur;
        EXPECT_EQ(r.nom, QString::fromUtf8(c.nom)) << c.valeur;
        EXPECT_EQ(r.index, c.index) << c.valeur;
    }
    EXPECT_TRUE(EstSeparateur("") && EstSeparateur("-First Quarter") && !EstSeparateur("Ouvrir -"));
    EXPECT_EQ(DoublerEsperluettes("Pierre & Paul &Fichier"), "Pierre && Paul &Fichier");
    EXPECT_EQ(DoublerEsperluettes("R && D &"), "R && D &");  // already one ampersand shown
    // A name after a block reads as it stands: no mnemonic, no shortcut, no separator.
    for (const char *nom : {"-Moins", "R&D", "A{B}C", "x\ty", ""}) {
        QString texte, bloc, raccourci;
        SepareLegende("{IMG:i1}  " + TexteLitteral(QString::fromUtf8(nom)), texte, bloc, raccourci);
        EXPECT_EQ(bloc, "{IMG:i1|") << nom;
        EXPECT_TRUE(raccourci.isEmpty()) << nom;
        EXPECT_EQ(EstSeparateur(texte), *nom == 0) << nom;
        EXPECT_EQ(texte.replace("&&", "&").remove(QChar(0x2060)), QString::fromUtf8(nom).replace('\t', ' ')) << nom;
    }
}

TEST(Legende, Couleurs) {
    QPalette palette = QGuiApplication::palette();
    const QPalette avant = palette;
    palette.setColor(QPalette::Active, QPalette::Button, QColor(1, 2, 3));
    QGuiApplication::setPalette(palette);
    const int bouton = 0x030201;
    const struct {
        const char *valeur;
        int attendu;
    } cas[] = {
        {"vbred", 255},
        {"255", 255},
        {"vbButtonFace", bouton},
        {"&H8000000F", bouton},
        {"&H800000FF", 0},  // no system colour 255
        {"rouge", -7},
        {"&H123456789", -7},
    };
    for (const auto &c : cas) EXPECT_EQ(LireCouleur(QString::fromUtf8(c.valeur), -7), c.attendu) << c.valeur;
    QGuiApplication::setPalette(avant);
}

// Captions made of the pieces that matter to the rules, from a fixed seed.
TEST(Legende, CaptionsAuHasardTiennentLesRegles) {
    const QString morceaux[] = {"{", "}", "|", "\t", ":", " ", "Tip:", "tIP:", "Bold", "Raised", "FSize:", "14",
                                "IMG:i3", "Text:", "é", "&", "-", "a", "B", "\n", "{a}", "|Tip:", "Boldly"};
    const QString cles[] = {"Bold", "Tip:", "FSize:", "IMG:", "Raised", "Text:", "a", "{", "|", ":", "x:y", ""};
    QRandomGenerator hasard(20240613);
    for (int i = 0; i < 2000000; ++i) {
        QString legende;
        const int n = int(hasard.bounded(14));
        for (int k = 0; k < n; ++k) legende += morceaux[hasard.bounded(int(std::size(morceaux)))];
        const QString &cle = cles[hasard.bounded(int(std::size(cles)))];
        const QString echec = verifierLegende(legende, cle);
        ASSERT_TRUE(echec.isEmpty()) << qPrintable(echec) << " : " << qPrintable(legende) << " / " << qPrintable(cle);
    }
}
