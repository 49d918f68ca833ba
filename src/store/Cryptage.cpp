#include "Cryptage.h"

#include <QStringList>

#include <cstdint>

namespace Cryptage {

namespace {

const std::array<LigneCode, 94> kTable = {{
    {u'a', u"p&)"},
    {u'b', u"rS$"},
    {u'c', u"7Ya"},
    {u'd', u"}a?"},
    {u'e', u"z|d"},
    {u'f', u"^FM"},
    {u'g', u"3Td"},
    {u'h', u"Yn>"},
    {u'i', u"l>a"},
    {u'j', u"=oU"},
    {u'k', u"Cw)"},
    {u'l', u".[N"},
    {u'm', u"\\99"},
    {u'n', u"TC9"},
    {u'o', u"fj2"},
    {u'p', u"Xk="},
    {u'q', u"[,k"},
    {u'r', u"3{\\"},
    {u's', u"}QW"},
    {u't', u"$U="},
    {u'u', u"Yy6"},
    {u'v', u"3EW"},
    {u'w', u".Fs"},
    {u'x', u"1R9"},
    {u'y', u"`F<"},
    {u'z', u"7U5"},
    {u'1', u"93j"},
    {u'2', u"_vK"},
    {u'3', u",0v"},
    {u'4', u"+>F"},
    {u'5', u"\"1S"},
    {u'6', u"=m]"},
    {u'7', u"={N"},
    {u'8', u"up7"},
    {u'9', u"V|t"},
    {u'0', u"Jv*"},
    {u'A', u"X}E"},
    {u'B', u"$^A"},
    {u'C', u"LA\\"},
    {u'D', u"$<f"},
    {u'E', u"gW@"},
    {u'F', u"o&S"},
    {u'G', u"3nv"},
    {u'H', u"H(("},
    {u'I', u"W.)"},
    {u'J', u";G!"},
    {u'K', u"KD^"},
    {u'L', u":d\\"},
    {u'M', u"!]S"},
    {u'N', u"Sg)"},
    {u'O', u"Q\\G"},
    {u'P', u"_6\'"},
    {u'Q', u"ii?"},
    {u'R', u"So!"},
    {u'S', u"`M<"},
    {u'T', u"{s."},
    {u'U', u"wJ["},
    {u'V', u"}Jq"},
    {u'W', u"bD|"},
    {u'X', u"`0Q"},
    {u'Y', u"1#M"},
    {u'Z', u"X}>"},
    {u'!', u"z?f"},
    {u'@', u"+ik"},
    {u'#', u"-m\""},
    {u'$', u"W=g"},
    {u'%', u"w>["},
    {u'^', u"$v}"},
    {u'&', u"0]t"},
    {u'*', u"AN)"},
    {u'(', u":<J"},
    {u')', u"m_C"},
    {u'_', u"[\"4"},
    {u'-', u"8s;"},
    {u'=', u"$U+"},
    {u'+', u"N\\%"},
    {u'[', u"b}?"},
    {u']', u"#W2"},
    {u'{', u"3gv"},
    {u'}', u"~jH"},
    {u':', u"t$a"},
    {u';', u"\'8A"},
    {u'\'', u"1\\Z"},
    {u'\"', u"d9n"},
    {u',', u"s@("},
    {u'.', u"hL!"},
    {u'<', u"HF4"},
    {u'>', u"73="},
    {u'/', u"{4?"},
    {u'?', u"Y]B"},
    {u'\\', u"!:b"},
    {u'|', u"y8,"},
    {u' ', u"Eu3"},
    {u'\u00b0', u"\u00b0\u00b0\u00b0"},
}};

constexpr char16_t kDegre = u'\u00b0';

// Index from a plain character to its row: direct for ASCII, one special slot
// for the degree sign.
struct IndexChiffrement {
    std::array<int8_t, 128> ascii{};
    int8_t degre = -1;

    IndexChiffrement() {
        ascii.fill(-1);
        for (int i = 0; i < int(kTable.size()); ++i) {
            const char16_t c = kTable[i].clair;
            if (c < 128)
                ascii[c] = int8_t(i);
            else if (c == kDegre)
                degre = int8_t(i);
        }
    }
    int ligne(char16_t c) const {
        if (c < 128) return ascii[c];
        return c == kDegre ? degre : -1;
    }
};

// Open-addressing hash from a three-character code to its row.
struct IndexDechiffrement {
    static constexpr int kTaille = 512;  // power of two, well above 94
    std::array<uint64_t, kTaille> cles{};
    std::array<int8_t, kTaille> lignes{};

    static uint64_t cle(char16_t a, char16_t b, char16_t c) {
        return (uint64_t(a) << 32) | (uint64_t(b) << 16) | uint64_t(c) | (uint64_t(1) << 63);
    }
    static int case_(uint64_t k) { return int((k * 0x9E3779B97F4A7C15ull) >> 55) & (kTaille - 1); }

    IndexDechiffrement() {
        lignes.fill(-1);
        for (int i = 0; i < int(kTable.size()); ++i) {
            const char16_t *c = kTable[i].code;
            const uint64_t k = cle(c[0], c[1], c[2]);
            int p = case_(k);
            while (cles[p] != 0) p = (p + 1) & (kTaille - 1);
            cles[p] = k;
            lignes[p] = int8_t(i);
        }
    }
    int ligne(char16_t a, char16_t b, char16_t c) const {
        const uint64_t k = cle(a, b, c);
        for (int p = case_(k);; p = (p + 1) & (kTaille - 1)) {
            if (cles[p] == k) return lignes[p];
            if (cles[p] == 0) return -1;
        }
    }
};

const IndexChiffrement &indexChiffrement() {
    static const IndexChiffrement index;
    return index;
}

const IndexDechiffrement &indexDechiffrement() {
    static const IndexDechiffrement index;
    return index;
}

}  // namespace

const std::array<LigneCode, 94> &TableCodes() { return kTable; }

}  // namespace Cryptage

QString CrypterChamp(const QString &texte) {
    const auto &index = Cryptage::indexChiffrement();
    const auto &table = Cryptage::TableCodes();
    // Written straight into a buffer of the largest size, then cut to what was written.
    QString resultat(texte.size() * 3, Qt::Uninitialized);
    QChar *sortie = resultat.data();
    for (const QChar qc : texte) {
        const int ligne = index.ligne(qc.unicode());
        if (ligne >= 0) {
            const char16_t *code = table[ligne].code;
            *sortie++ = QChar(code[0]);
            *sortie++ = QChar(code[1]);
            *sortie++ = QChar(code[2]);
        } else {
            *sortie++ = qc;
        }
    }
    resultat.truncate(sortie - resultat.constData());
    return resultat;
}

QStringList HorsAlphabet(const QString &texte) {
    const auto &index = Cryptage::indexChiffrement();
    QStringList hors;
    // By whole characters: a sign beyond the basic plane is one character, not two halves.
    for (qsizetype i = 0; i < texte.size(); ++i) {
        if (index.ligne(texte.at(i).unicode()) >= 0) continue;
        const qsizetype n = texte.at(i).isHighSurrogate() && i + 1 < texte.size() && texte.at(i + 1).isLowSurrogate() ? 2 : 1;
        const QString c = texte.mid(i, n);
        if (!hors.contains(c)) hors.append(c);
        i += n - 1;
    }
    return hors;
}

namespace {
// A character as a user can read it in a message: blanks and controls by name.
QString nommerCaractere(const QString &c) {
    const char32_t u = c.size() == 2 ? QChar::surrogateToUcs4(c.at(0), c.at(1)) : c.at(0).unicode();
    switch (u) {
    case U'\t': return QStringLiteral("la tabulation");
    case U'\n':
    case U'\r': return QStringLiteral("le retour à la ligne");
    case U'\u00a0':
    case U'\u202f': return QStringLiteral("l'espace insécable");
    default: break;
    }
    if (QChar::isSpace(u)) return QStringLiteral("un espace spécial");
    if (!QChar::isPrint(u))
        return QStringLiteral("le caractère invisible U+%1").arg(QString::number(uint(u), 16).toUpper().rightJustified(4, u'0'));
    return QStringLiteral("« %1 »").arg(c);
}
}  // namespace

QString MessageHorsAlphabet(const QString &texte) {
    QStringList noms = HorsAlphabet(texte);
    if (noms.isEmpty()) return {};
    for (QString &c : noms) c = nommerCaractere(c);
    return (noms.size() == 1 ? QStringLiteral("Ce caractère ne peut pas être enregistré : %1.")
                             : QStringLiteral("Ces caractères ne peuvent pas être enregistrés : %1."))
               .arg(noms.join(QStringLiteral(", "))) +
           QStringLiteral(
               "\nLes lettres accentuées, le tilde, l'accent grave, la tabulation et les retours à la ligne "
               "sont refusés. Remplacez-les, puis recommencez.");
}

namespace {
// Deciphers n characters of any 16-bit or 8-bit unit, three at a time. A piece that
// is no code passes as it stands; with exact, only when the cipher could have left
// it so (characters outside its alphabet), else false, resultat unspecified.
template <typename Unite>
bool dechiffrer(const Unite *d, qsizetype n, QString &resultat, bool exact) {
    const auto &index = Cryptage::indexDechiffrement();
    const auto &table = Cryptage::TableCodes();
    const auto &alphabet = Cryptage::indexChiffrement();
    auto passe = [&](qsizetype debut, qsizetype fin, QChar *&sortie) {
        for (qsizetype i = debut; i < fin; ++i) {
            if (exact && alphabet.ligne(char16_t(d[i])) >= 0) return false;
            *sortie++ = QChar(char16_t(d[i]));
        }
        return true;
    };
    resultat.resize(n);
    QChar *sortie = resultat.data();
    qsizetype pos = 0;
    for (; pos + 3 <= n; pos += 3) {
        const int ligne = index.ligne(char16_t(d[pos]), char16_t(d[pos + 1]), char16_t(d[pos + 2]));
        if (ligne >= 0)
            *sortie++ = QChar(table[ligne].clair);
        else if (!passe(pos, pos + 3, sortie))
            return false;
    }
    // A tail of one or two characters can match no code.
    if (!passe(pos, n, sortie)) return false;
    resultat.truncate(sortie - resultat.constData());
    return true;
}

template <typename Unite>
QString dechiffrer(const Unite *d, qsizetype n) {
    QString resultat;
    dechiffrer(d, n, resultat, false);
    return resultat;
}

// Stored text is ASCII but for characters the cipher passed through and the degree
// sign: those go through a proper decoding first.
bool estAscii(QByteArrayView utf8) {
    for (const char c : utf8)
        if (static_cast<unsigned char>(c) >= 0x80) return false;
    return true;
}
}  // namespace

QString depuisUtf8(QByteArrayView utf8) {
    // Qt's decoding takes a leading byte order mark for a header and drops it.
    static constexpr char kMarque[] = "\xEF\xBB\xBF";
    if (!utf8.startsWith(QByteArrayView(kMarque, 3))) return QString::fromUtf8(utf8);
    return QChar(0xFEFF) + QString::fromUtf8(utf8.sliced(3));
}

QString DecrypterChamp(const QString &texte) { return DecrypterChamp(QStringView(texte)); }

QString DecrypterChamp(QStringView texte) { return dechiffrer(texte.utf16(), texte.size()); }

QString LireChampDocument(QStringView stocke) {
    QString clair;
    return dechiffrer(stocke.utf16(), stocke.size(), clair, true) ? clair : stocke.toString();
}

QString LireChampDocument(QByteArrayView utf8) {
    if (!estAscii(utf8)) return LireChampDocument(depuisUtf8(utf8));
    QString clair;
    const auto *octets = reinterpret_cast<const unsigned char *>(utf8.data());
    return dechiffrer(octets, utf8.size(), clair, true) ? clair : QString::fromLatin1(utf8);
}

std::optional<QString> ChampDuDialogue(const QString &texte) {
    if (LireChampDocument(texte) == texte) return texte;
    const QString chiffre = CrypterChamp(texte);
    if (LireChampDocument(chiffre) == texte) return chiffre;
    return std::nullopt;
}
