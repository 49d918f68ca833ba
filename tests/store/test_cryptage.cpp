#include "store/Cryptage.h"
#include "support/ImpressionQt.h"

#include <QSet>
#include <gtest/gtest.h>

namespace {

QString alphabetAttendu() {
    QString a;
    for (char16_t c = u'a'; c <= u'z'; ++c) a += QChar(c);
    a += QStringLiteral("1234567890");
    for (char16_t c = u'A'; c <= u'Z'; ++c) a += QChar(c);
    a += QStringLiteral("!@#$%^&*()_-=+[]{}:;'\",.<>/?\\| ");
    a += QChar(0x00b0);
    return a;
}

QString tout() {
    QString t;
    for (const auto &l : Cryptage::TableCodes()) t += QChar(l.clair);
    return t;
}

}  // namespace

TEST(Cryptage, LaTableObeitASesRegles) {
    const auto &table = Cryptage::TableCodes();
    ASSERT_EQ(table.size(), 94u);
    EXPECT_EQ(tout(), alphabetAttendu());

    QSet<QString> codes;
    int avecGuillemet = 0;
    for (size_t i = 0; i < table.size(); ++i) {
        const QString code = QString::fromUtf16(table[i].code);
        ASSERT_EQ(code.size(), 3) << "row " << i;
        codes.insert(code);
        if (code.contains(u'"')) ++avecGuillemet;
        if (i < 93) {
            for (QChar c : code) EXPECT_TRUE(c.unicode() >= 0x20 && c.unicode() < 0x7f) << "row " << i;
        }
    }
    EXPECT_EQ(codes.size(), 94);
    EXPECT_EQ(avecGuillemet, 3);
    EXPECT_EQ(QString::fromUtf16(table[93].code), QString(3, QChar(0x00b0)));

    // Letters, digits and signs all appear among the codes.
    bool lettre = false, chiffre = false, signe = false;
    for (const QString &c : codes)
        for (QChar ch : c) {
            lettre |= ch.isLetter();
            chiffre |= ch.isDigit();
            signe |= ch.isPunct() || ch.isSymbol();
        }
    EXPECT_TRUE(lettre && chiffre && signe);
}

TEST(Cryptage, LAlphabetFaitLAllerRetourExact) {
    const QString texte = alphabetAttendu() + QStringLiteral("  Mot de passe: P@ss w0rd!  ");
    const QString stocke = CrypterChamp(texte);
    EXPECT_EQ(stocke.size(), texte.size() * 3);
    EXPECT_EQ(DecrypterChamp(stocke), texte);
    EXPECT_NE(stocke, texte);
    EXPECT_EQ(CrypterChamp(QString()), QString());
    EXPECT_EQ(DecrypterChamp(QString()), QString());
    // Case counts: a and A are two rows, and a code in other case is no match.
    EXPECT_NE(CrypterChamp(QStringLiteral("a")), CrypterChamp(QStringLiteral("A")));
    const QString codeA = CrypterChamp(QStringLiteral("a"));
    if (codeA != codeA.toUpper()) {
        EXPECT_EQ(DecrypterChamp(codeA.toUpper()), codeA.toUpper());
    }
}

TEST(Cryptage, LeDegreNeCacheRien) {
    const QString degre(QChar(0x00b0));
    EXPECT_EQ(CrypterChamp(degre), QString(3, QChar(0x00b0)));
    EXPECT_EQ(DecrypterChamp(QString(3, QChar(0x00b0))), degre);
}

TEST(Cryptage, HorsAlphabetLeChiffrementPasseLeCaractereEtLeDechiffrementSortDeLaGrille) {
    const QString texte = QStringLiteral("élan");
    const QString stocke = CrypterChamp(texte);
    EXPECT_EQ(stocke.size(), 1 + 3 * 3);
    EXPECT_EQ(stocke.at(0), QChar(u'é'));
    EXPECT_EQ(stocke.mid(1), CrypterChamp(QStringLiteral("lan")));
    // é and the first two characters of the next code form a piece that is no code.
    const QString retour = DecrypterChamp(stocke);
    EXPECT_NE(retour, texte);
    EXPECT_TRUE(retour.startsWith(stocke.left(3)));
    // A line end is outside the alphabet too.
    EXPECT_NE(DecrypterChamp(CrypterChamp(QStringLiteral("a\r\nb"))), QStringLiteral("a\r\nb"));
}

TEST(Cryptage, LeDechiffrementLaisseLesMorceauxInconnusEtLaQueue) {
    const QString code = CrypterChamp(QStringLiteral("x"));
    // A tail of one or two characters is appended as it stands.
    EXPECT_EQ(DecrypterChamp(code + QStringLiteral("ab")), QStringLiteral("xab"));
    EXPECT_EQ(DecrypterChamp(code + QStringLiteral("a")), QStringLiteral("xa"));
    // Plain text shorter than a code never changes.
    EXPECT_EQ(DecrypterChamp(QStringLiteral("ab")), QStringLiteral("ab"));
    // A plain field changes only where a piece on the three-character grid equals a code.
    EXPECT_EQ(DecrypterChamp(QStringLiteral("é") + code), QStringLiteral("é") + code);
    EXPECT_EQ(DecrypterChamp(QStringLiteral("zzz") + code).right(1), QStringLiteral("x"));
}

TEST(Cryptage, UnChampDeDocumentNestDechiffreQueFaitEntierDeCodes) {
    const QString code = CrypterChamp(QStringLiteral("a"));
    auto lire = [](const QString &t) {
        // Both ways in: the text, and the base's UTF-8 bytes.
        const QString parTexte = LireChampDocument(QStringView(t));
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

TEST(Cryptage, LesLongsTextesNeDebordentPas) {
    // Far past the old 16-bit limits: every length works.
    const QString long_ = QString(40000, u'k') + QStringLiteral("Z");
    const QString stocke = CrypterChamp(long_);
    EXPECT_EQ(stocke.size(), long_.size() * 3);
    EXPECT_EQ(DecrypterChamp(stocke), long_);
}

TEST(Cryptage, LesCaracteresHorsAlphabetSontNommes) {
    // The whole alphabet passes, the degree sign included.
    EXPECT_TRUE(MessageHorsAlphabet(QStringLiteral("Az09 !@#°|\\\"'")).isEmpty());
    // Each refused character once, in order; a sign beyond the basic plane is one character.
    EXPECT_EQ(HorsAlphabet(QStringLiteral("été~ \U0001F511é")), (QStringList{QStringLiteral("é"), QStringLiteral("~"), QStringLiteral("\U0001F511")}));
    const QString message = MessageHorsAlphabet(QStringLiteral("a\tb\nç\u00a0"));
    EXPECT_TRUE(message.startsWith(QStringLiteral("Ces caractères ne peuvent pas être enregistrés : la tabulation, "
                                                  "le retour à la ligne, « ç », l'espace insécable.")))
        << message.toStdString();
    EXPECT_TRUE(MessageHorsAlphabet(QStringLiteral("x`")).startsWith(QStringLiteral("Ce caractère ne peut pas être enregistré : « ` ».")));
}
