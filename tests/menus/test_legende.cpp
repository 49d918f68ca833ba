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
        {"A{B}C{D}", "AC{D}", "{B|", ""},           // only the first pair
        {"{a}{{a}a}", "{a}", "{a|", ""},            // one pass leaves a copy
        {"x{Tip:a}y{TIP:A}", "xy", "{Tip:a|", ""},  // every copy, any case
        {"  Copier {IMG:i3}  \tCtrl+C", "Copier", "{IMG:i3|", "Ctrl+C"},
        {"\tseul", "", "", "seul"},
        {"a\tb\tc", "a", "", "b\tc"},
        {"Fin}{début", "Fin}{début", "", ""},  // "}" before "{", "{" alone
        {"-First Quarter{Raised}", "-First Quarter", "{Raised|", ""},
        {"{}", "", "{|", ""},
        {"", "", "", ""},
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
        {"{Bold|", "Italic", ""},
        {"{Bold|", "FSize:", ""},
        {"{FSize:|Bold|", "FSize:", "0"},  // a valued key with nothing is 0
        {"{FSize:14|Bold|", "fsize:", "14"},
        {"{Raised|", "RAISED", "True"},
        {"{Boldly|", "Bold", "ly"},        // keys are prefixes
        {"{lvColors:Font|", "Font", "0"},  // found after a colon
        {"{lvColors:Font:Arial|", "Font:", "Arial"},
        {"{Tip:Bold text|Italic|", "Bold", ""},  // a tip's words are no attributes
        {"{Tip:Bold text|Italic|", "Italic", "True"},
        {"{Tip:Bold text|Italic|", "Tip:", "Bold text"},
        {"{tip:x||", "Tip:", "x"},
        {"{Tip:a|x|Tip:b|", "Tip:", "b"},  // "|Tip:" is looked for before "{Tip:"
        {"{Tip:Raised|", "Raised", ""},
        {"{Sidebar|IMG:ImTool(1)|||Width:0|Tip:||", "IMG:", "ImTool(1)"},
        {"{Sidebar|IMG:ImTool(1)|||Width:0|Tip:||", "Width:", "0"},
        {"{Sidebar|IMG:ImTool(1)|||Width:0|Tip:||", "Tip:", "0"},
        {"{IMG:i3}", "IMG:", "i3"},   // a closing brace ends the last one
        {"{FSize:12", "FSize:", ""},  // no end, no value
        {"{Tip:x", "Tip:", ""},
        {"{|", "Bold", ""},  // under 3 characters
        {"", "Tip:", ""},
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

    // The default sidebar: its text is one blank, which leaves the font's blanks alone.
    QString texte, defaut, raccourci;
    SepareLegende(QStringLiteral("{Sidebar|Text: |FColor:8388608|BColor:12615680|GColor:16776960|Font:Times New Roman|"
                                 "FSize:14|MinFSize:9|Width:32|Align:Bot}"),
                  texte, defaut, raccourci);
    EXPECT_EQ(ExtraireTexteBarre(defaut), QStringLiteral(" "));
    EXPECT_EQ(LireAttribut(defaut, QStringLiteral("Font:")), QStringLiteral("Times New Roman"));
    EXPECT_EQ(LireAttribut(defaut, QStringLiteral("Align:")), QStringLiteral("Bot"));
    EXPECT_EQ(LireCouleur(LireAttribut(defaut, QStringLiteral("BColor:")), -1), 12615680);
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
        {"I3", G::ListeImages, 3, "", -1},
        {"&H1F", G::Numero, 31, "", -1},
        {"ImTool(1)", G::Controle, 0, "ImTool", 1},
        {"Image", G::Controle, 0, "Image", -1},
        {"Im(x)", G::Controle, 0, "Im(x)", -1},
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
    palette.setColor(QPalette::Active, QPalette::Base, QColor(4, 5, 6));
    palette.setColor(QPalette::Active, QPalette::Highlight, QColor(7, 8, 9));
    palette.setColor(QPalette::Active, QPalette::ToolTipBase, QColor(10, 11, 12));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(13, 14, 15));
    QGuiApplication::setPalette(palette);
    const int bouton = 0x030201;
    const struct {
        const char *valeur;
        int attendu;
    } cas[] = {
        {"vbred", 255},
        {"255", 255},
        {" 255 ", 255},
        {"&HFF", 255},
        {"&hff&", 255},
        {"vbBrown", 0x004466},
        {"vbGold", 0x00AACC},
        {"vbViolet", 0x9020D0},
        {"vbButtonFace", bouton},
        {"vb3DFace", bouton},
        {"&H8000000F", bouton},
        {"2147483663", bouton},
        {"-2147483633", bouton},  // 0x8000000F either way
        {"vbWindowBackground", 0x060504},
        {"vbHighlight", 0x090807},
        {"vbInfoBackground", 0x0C0B0A},
        {"vbGrayText", 0x0F0E0D},
        {"&H800000FF", 0},  // no system colour 255
        {"rouge", -7},
        {"", -7},
        {"&H", -7},
        {"&HGG", -7},
        {"12.5", -7},
        {"&H123456789", -7},
    };
    for (const auto &c : cas) EXPECT_EQ(LireCouleur(QString::fromUtf8(c.valeur), -7), c.attendu) << c.valeur;
    EXPECT_EQ(CouleurReelle(0x123456), 0x123456);
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
