#include "store/Cryptage.h"
#include "support/ImpressionQt.h"

#include <gtest/gtest.h>

namespace {

// Every character of the alphabet, in the order of the table.
QString tout() {
    QString t;
    for (const auto &l : Cryptage::TableCodes()) t += QChar(l.clair);
    return t;
}

}  // namespace

TEST(Cryptage, LAlphabetFaitLAllerRetourExact) {
    ASSERT_EQ(Cryptage::TableCodes().size(), 94u);
    const QString texte = tout() + QStringLiteral("  Mot de passe: P@ss w0rd!  ");
    const QString stocke = CrypterChamp(texte);
    EXPECT_EQ(stocke.size(), texte.size() * 3);
    EXPECT_EQ(DecrypterChamp(stocke), texte);
    EXPECT_NE(stocke, texte);
    EXPECT_EQ(DecrypterChamp(QString()), QString());
    // The degree sign stands for itself; far past the old 16-bit limits every length works.
    EXPECT_EQ(CrypterChamp(QStringLiteral("°")), QString(3, QChar(0x00b0)));
    const QString long_ = QString(40000, u'k') + QStringLiteral("Z");
    EXPECT_EQ(DecrypterChamp(CrypterChamp(long_)), long_);
    // Case counts: a and A are two rows, and a code in other case is no match.
    EXPECT_NE(CrypterChamp(QStringLiteral("a")), CrypterChamp(QStringLiteral("A")));
    const QString codeA = CrypterChamp(QStringLiteral("a"));
    if (codeA != codeA.toUpper()) {
        EXPECT_EQ(DecrypterChamp(codeA.toUpper()), codeA.toUpper());
    }
}

TEST(Cryptage, HorsAlphabetLeChiffrementPasseLeCaractereEtLeDechiffrementSortDeLaGrille) {
    const QString texte = QStringLiteral("élan");
    const QString stocke = CrypterChamp(texte);
    EXPECT_EQ(stocke.size(), 1 + 3 * 3);
    EXPECT_EQ(stocke.at(0), QChar(u'é'));
    EXPECT_EQ(stocke.mid(1), CrypterChamp(QStringLiteral("lan")));
    // é and the first two characters of the next code form a piece that is no code.
    const QString retour = DecrypterChamp(stocke);
    EXPECT_TRUE(retour != texte && retour.startsWith(stocke.left(3)));
    // A line end is outside the alphabet too.
    EXPECT_NE(DecrypterChamp(CrypterChamp(QStringLiteral("a\r\nb"))), QStringLiteral("a\r\nb"));
}

TEST(Cryptage, LeDechiffrementLaisseLesMorceauxInconnusEtLaQueue) {
    const QString code = CrypterChamp(QStringLiteral("x"));
    // A tail of one or two characters is appended as it stands.
    EXPECT_EQ(DecrypterChamp(code + QStringLiteral("ab")), QStringLiteral("xab"));
    EXPECT_EQ(DecrypterChamp(code + QStringLiteral("a")), QStringLiteral("xa"));
    // A plain field changes only where a piece on the three-character grid equals a code.
    EXPECT_EQ(DecrypterChamp(QStringLiteral("é") + code), QStringLiteral("é") + code);
    EXPECT_EQ(DecrypterChamp(QStringLiteral("zzz") + code).right(1), QStringLiteral("x"));
}

TEST(Cryptage, UnChampDeDocumentNestDechiffreQueFaitEntierDeCodes) {
    const QString code = CrypterChamp(QStringLiteral("a"));
    auto lire = [](const QString &t) {
        // Both ways in: the text, and the base's UTF-8 bytes.
        QString parTexte = LireChampDocument(QStringView(t));
        EXPECT_EQ(LireChampDocument(QByteArrayView(t.toUtf8())), parTexte) << t.toStdString();
        return parTexte;
    };
    // The cipher's work is read back, characters it passed through on the grid included.
    for (const QString &clair : {QStringLiteral("Pa55 w0rd!°"), QStringLiteral("chiffré"), QStringLiteral("éééx"), QString()})
        EXPECT_EQ(lire(CrypterChamp(clair)), clair) << clair.toStdString();
    // Off the grid after a passed character, it was never read right: now it shows as held.
    EXPECT_EQ(lire(CrypterChamp(QStringLiteral("aéb"))), CrypterChamp(QStringLiteral("aéb")));
    // A plain text with a code on the grid, or off it by a tail or an accent, stays as held.
    for (const QString &clair : {QStringLiteral("xyz") + code + QStringLiteral("9"), code + QStringLiteral("ab"),
                                 QStringLiteral("Boî") + code}) {
        EXPECT_EQ(lire(clair), clair);
        EXPECT_TRUE(clair.size() % 3 != 0 || DecrypterChamp(clair) != clair) << clair.toStdString();
    }
    // The dialog's texts: as typed, enciphered when the load would take them for
    // codes, refused when neither reads back (a backquote is no character of the alphabet).
    EXPECT_EQ(ChampDuDialogue(QStringLiteral("Boîte pro, transférée")), QStringLiteral("Boîte pro, transférée"));
    EXPECT_EQ(ChampDuDialogue(code + code), CrypterChamp(code + code));
    EXPECT_EQ(lire(*ChampDuDialogue(code + code)), code + code);
    const QString codeAvecAccentGrave = CrypterChamp(QStringLiteral("y"));
    ASSERT_TRUE(codeAvecAccentGrave.contains(u'`'));
    EXPECT_EQ(ChampDuDialogue(codeAvecAccentGrave), std::nullopt);
}

TEST(Cryptage, LesCaracteresHorsAlphabetSontNommes) {
    // The whole alphabet passes, the degree sign included.
    EXPECT_TRUE(MessageHorsAlphabet(QStringLiteral("Az09 !@#°|\\\"'")).isEmpty());
    // Each refused character once, in order; a sign beyond the basic plane is one character.
    EXPECT_EQ(HorsAlphabet(QStringLiteral("été~ \U0001F511é")), (QStringList{QStringLiteral("é"), QStringLiteral("~"), QStringLiteral("\U0001F511")}));
    const QString message = MessageHorsAlphabet(QStringLiteral("a\tb\nç\u00a0"));
    EXPECT_TRUE(message.startsWith(QStringLiteral(
        "Ces caractères ne peuvent pas être enregistrés : la tabulation, "
        "le retour à la ligne, « ç », l'espace insécable.")))
        << message.toStdString();
    EXPECT_TRUE(MessageHorsAlphabet(QStringLiteral("x`")).startsWith(QStringLiteral("Ce caractère ne peut pas être enregistré : « ` ».")));
}
