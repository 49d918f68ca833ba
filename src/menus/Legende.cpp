#include "Legende.h"

#include "ui/Apparence.h"

#include <QGuiApplication>
#include <QPalette>
#include <QStringView>

#include <climits>
#include <iterator>

namespace modMenus {

namespace {

constexpr QStringView kTip = u"Tip:";
constexpr QStringView kTexte = u"Text:";

// Flags: written bare, they answer "True".
constexpr QStringView kDrapeaux[] = {u"Raised", u"Bold", u"Italic", u"Underline", u"NoScroll",
                                     u"Transparent", u"ImgBkg", u"Default", u"Sidebar"};

bool memeMot(QStringView a, QStringView b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

// One UTF-16 unit without its case; ASCII, by far the most common, without a table.
inline char16_t plie(char16_t c) {
    if (c < 128) return c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c;
    return char16_t(QChar::toCaseFolded(char32_t(c)));
}

// s holds cle at pos, ignoring case.
bool debutEgal(QStringView s, qsizetype pos, QStringView cle) {
    if (pos + cle.size() > s.size()) return false;
    for (qsizetype k = 0; k < cle.size(); ++k)
        if (plie(s[pos + k].unicode()) != plie(cle[k].unicode())) return false;
    return true;
}

// Where "|" + cle first stands in s, else "{" + cle, else, when deuxPointsAussi,
// ":" + cle; -1 if nowhere. One pass that compares only after a delimiter: the
// searches run for every attribute of every item of a menu.
qsizetype trouverCle(QStringView s, QStringView cle, bool deuxPointsAussi) {
    qsizetype accolade = -1, deuxPoints = -1;
    for (qsizetype i = 0; i < s.size(); ++i) {
        const QChar c = s[i];
        if (c != u'|' && c != u'{' && (c != u':' || !deuxPointsAussi)) continue;
        if (!debutEgal(s, i + 1, cle)) continue;
        if (c == u'|') return i;
        if (c == u'{' && accolade < 0) accolade = i;
        if (c == u':' && deuxPoints < 0) deuxPoints = i;
    }
    return accolade >= 0 ? accolade : deuxPoints;
}

// s less every copy of motif (not empty), ignoring case, in one pass from the left.
QString sansMotif(QStringView s, QStringView motif) {
    const char16_t premier = plie(motif[0].unicode());
    QString r;
    r.reserve(s.size());
    qsizetype copie = 0;  // start of what is still to copy
    for (qsizetype i = 0; i + motif.size() <= s.size();) {
        if (plie(s[i].unicode()) == premier && debutEgal(s, i, motif)) {
            r.append(s.mid(copie, i - copie));
            i += motif.size();
            copie = i;
        } else {
            ++i;
        }
    }
    r.append(s.mid(copie));
    return r;
}

// The token that begins just after the delimiter at h: up to the next "|" searched
// from h + 2, or failing that the next "}". Empty view and false when neither comes.
bool jetonApres(QStringView s, qsizetype h, QStringView *jeton) {
    qsizetype fin = s.indexOf(u'|', h + 2);
    if (fin < 0) fin = s.indexOf(u'}', h + 2);
    if (fin < 0) return false;
    *jeton = s.mid(h + 1, fin - (h + 1));
    return true;
}

}  // namespace

void SepareLegende(const QString &legende, QString &texte, QString &bloc, QString &raccourci) {
    texte.clear();
    bloc.clear();
    raccourci.clear();
    QStringView partie(legende);
    // The tab first: a block written after it belongs to the shortcut.
    const qsizetype tab = partie.indexOf(u'\t');
    if (tab >= 0) {
        raccourci = legende.mid(tab + 1);
        partie = partie.left(tab);
    }
    const qsizetype ouvre = partie.indexOf(u'{');
    const qsizetype ferme = ouvre < 0 ? -1 : partie.indexOf(u'}', ouvre);
    if (ferme < 0) {
        texte = partie.trimmed().toString();
        return;
    }
    const QStringView tranche = partie.mid(ouvre, ferme - ouvre + 1);
    // Every copy goes in one pass: "{a}{{a}a}" leaves "{a}" in the text.
    texte = sansMotif(partie, tranche).trimmed();
    bloc.reserve(tranche.size());
    bloc.append(tranche.chopped(1));
    bloc.append(u'|');
}

QString LireAttribut(const QString &bloc, const QString &cle) {
    if (bloc.size() < 3) return {};
    const bool lireTip = memeMot(cle, kTip);

    // The tip is set apart first, so that the words of a tip are never attributes.
    QStringView tip;
    bool avecTip = false;
    const qsizetype p = trouverCle(bloc, kTip, false);
    if (p >= 0) avecTip = jetonApres(bloc, p, &tip);

    QStringView jeton;
    QString copie;  // the block less its tip, when it has one
    if (lireTip) {
        if (!avecTip) return {};
        jeton = tip;
    } else {
        QStringView travail(bloc);
        if (avecTip) {
            copie = sansMotif(bloc, tip);
            travail = copie;
        }
        const qsizetype h = trouverCle(travail, cle, true);
        if (h < 0 || !jetonApres(travail, h, &jeton)) return {};
    }

    const QStringView valeur = jeton.mid(qMin(jeton.size(), cle.size()));
    if (!valeur.isEmpty()) return valeur.toString();
    for (QStringView drapeau : kDrapeaux)
        if (memeMot(cle, drapeau)) return QStringLiteral("True");
    return QStringLiteral("0");
}

QString ExtraireTexteBarre(QString &bloc) {
    QString valeur = LireAttribut(bloc, kTexte.toString());
    if (!valeur.isEmpty()) {
        const qsizetype i = bloc.indexOf(kTexte.toString() + valeur, 0, Qt::CaseInsensitive);
        if (i >= 0) bloc.remove(i + kTexte.size(), valeur.size());
    }
    return valeur;
}

bool EstSeparateur(const QString &texte) { return texte.isEmpty() || texte.startsWith(u'-'); }

QString DoublerEsperluettes(const QString &texte) {
    QString r;
    r.reserve(texte.size() + 4);
    for (qsizetype i = 0; i < texte.size(); ++i) {
        r += texte[i];
        if (texte[i] != u'&') continue;
        // "&&" already shows one ampersand: it is passed as it stands.
        if (i + 1 < texte.size() && texte[i + 1] == u'&') {
            r += texte[++i];
        } else if (i + 1 < texte.size() && texte[i + 1] == u' ') {
            r += u'&';
        }
    }
    return r;
}

QString TexteLitteral(const QString &texte) {
    QString r = texte;
    r.replace(u'&', QStringLiteral("&&"));
    r.replace(u'\t', u' ');
    // A word joiner shows nothing and is no blank: the text no longer begins with "-".
    if (r.trimmed().startsWith(u'-')) r.insert(r.indexOf(u'-'), QChar(0x2060));
    return r;
}

ReferenceImage LireImage(const QString &valeur) {
    ReferenceImage r;
    const QStringView v = QStringView(valeur).trimmed();
    if (v.isEmpty()) return r;
    bool ok = false;
    if (const qint64 n = v.toLongLong(&ok); ok) {
        r.genre = ReferenceImage::Genre::Numero;
        r.numero = n;
    } else if (const qint64 i = v.mid(1).toLongLong(&ok); (v[0] == u'I' || v[0] == u'i') && ok) {
        r.genre = ReferenceImage::Genre::ListeImages;
        r.numero = i;
    } else if (const qint64 h = v.mid(2).toLongLong(&ok, 16); v.startsWith(u"&H", Qt::CaseInsensitive) && ok) {
        r.genre = ReferenceImage::Genre::Numero;
        r.numero = h;
    } else {
        r.genre = ReferenceImage::Genre::Controle;
        r.nom = v.toString();
        const qsizetype ouvre = v.indexOf(u'(');
        if (ouvre > 0 && v.endsWith(u')')) {
            const int index = v.mid(ouvre + 1, v.size() - ouvre - 2).toInt(&ok);
            if (ok) {
                r.nom = v.left(ouvre).toString();
                r.index = index;
            }
        }
    }
    return r;
}

namespace {

struct CouleurNommee {
    QStringView nom;
    int valeur;
};

constexpr CouleurNommee kCouleursNommees[] = {
    {u"vbWhite", 0xFFFFFF},
    {u"vbBlack", 0},
    {u"vbBlue", 0xFF0000},
    {u"vbGreen", 0x00FF00},
    {u"vbRed", 0x0000FF},
    {u"vbMagenta", 0xFF00FF},
    {u"vbYellow", 0x00FFFF},
    {u"vbCyan", 0xFFFF00},
    {u"vbMaroon", 0x000080},
    {u"vbOlive", 0x008080},
    {u"vbNavy", 0x800000},
    {u"vbPurple", 0x800080},
    {u"vbTeal", 0x808000},
    {u"vbGray", 0x808080},
    {u"vbSilver", 0xC0C0C0},
    {u"vbViolet", 0x9020D0},
    {u"vbOrange", 0x00A5FF},
    {u"vbGold", 0x00AACC},
    {u"vbIvory", 0xF0FFFF},
    {u"vbPeach", 0xB9DAFF},
    {u"vbTurquoise", 0xD1CE00},
    {u"vbTan", 0x8CB4D2},
    {u"vbBrown", 0x004466},
    {u"vbScrollBars", couleurSysteme(0)},
    {u"vbDesktop", couleurSysteme(1)},
    {u"vbActiveTitleBar", couleurSysteme(2)},
    {u"vbInactiveTitleBar", couleurSysteme(3)},
    {u"vbMenuBar", couleurSysteme(4)},
    {u"vbWindowBackground", couleurSysteme(5)},
    {u"vbWindowFrame", couleurSysteme(6)},
    {u"vbMenuText", couleurSysteme(7)},
    {u"vbWindowText", couleurSysteme(8)},
    {u"vbTitleBarText", couleurSysteme(9)},
    {u"vbActiveBorder", couleurSysteme(10)},
    {u"vbInactiveBorder", couleurSysteme(11)},
    {u"vbApplicationWorkspace", couleurSysteme(12)},
    {u"vbHighlight", couleurSysteme(13)},
    {u"vbHighlightText", couleurSysteme(14)},
    {u"vbButtonFace", couleurSysteme(15)},
    {u"vbButtonShadow", couleurSysteme(16)},
    {u"vbGrayText", couleurSysteme(17)},
    {u"vbButtonText", couleurSysteme(18)},
    {u"vbInactiveCaptionText", couleurSysteme(19)},
    {u"vb3DHighlight", couleurSysteme(20)},
    {u"vb3DDKShadow", couleurSysteme(21)},
    {u"vb3DLight", couleurSysteme(22)},
    {u"vbInfoText", couleurSysteme(23)},
    {u"vbInfoBackground", couleurSysteme(24)},
    {u"vb3DFace", couleurSysteme(15)},
    {u"vb3Dshadow", couleurSysteme(16)},
};

// "&H" and one to eight hexadecimal digits, a trailing "&" (the long suffix) allowed.
bool lireHexa(QStringView v, int *couleur) {
    QStringView chiffres = v.mid(2);
    if (chiffres.endsWith(u'&')) chiffres.chop(1);
    if (chiffres.isEmpty() || chiffres.size() > 8) return false;
    uint n = 0;
    for (QChar c : chiffres) {
        const char16_t u = c.toLower().unicode();
        int chiffre = -1;
        if (u >= u'0' && u <= u'9')
            chiffre = u - u'0';
        else if (u >= u'a' && u <= u'f')
            chiffre = u - u'a' + 10;
        if (chiffre < 0) return false;
        n = n * 16 + uint(chiffre);
    }
    *couleur = int(n);
    return true;
}

struct RoleSysteme {
    QPalette::ColorGroup groupe;
    QPalette::ColorRole role;
};

// System colour index -> the palette colour that plays its part here.
constexpr RoleSysteme kRolesSysteme[] = {
    {QPalette::Active, QPalette::Button},             //  0 scroll bars: the button face
    {QPalette::Active, QPalette::Dark},               //  1 desktop
    {QPalette::Active, QPalette::Highlight},          //  2 active title bar
    {QPalette::Inactive, QPalette::Highlight},        //  3 inactive title bar
    {QPalette::Active, QPalette::Window},             //  4 menu bar
    {QPalette::Active, QPalette::Base},               //  5 window background: where text is entered
    {QPalette::Active, QPalette::Shadow},             //  6 window frame
    {QPalette::Active, QPalette::WindowText},         //  7 menu text
    {QPalette::Active, QPalette::Text},               //  8 window text
    {QPalette::Active, QPalette::HighlightedText},    //  9 title bar text
    {QPalette::Active, QPalette::Button},             // 10 active border
    {QPalette::Inactive, QPalette::Button},           // 11 inactive border
    {QPalette::Active, QPalette::Mid},                // 12 application workspace
    {QPalette::Active, QPalette::Highlight},          // 13 highlight
    {QPalette::Active, QPalette::HighlightedText},    // 14 highlight text
    {QPalette::Active, QPalette::Button},             // 15 button face, 3-D face
    {QPalette::Active, QPalette::Dark},               // 16 button shadow, 3-D shadow
    {QPalette::Disabled, QPalette::Text},             // 17 grey text
    {QPalette::Active, QPalette::ButtonText},         // 18 button text
    {QPalette::Inactive, QPalette::HighlightedText},  // 19 inactive caption text
    {QPalette::Active, QPalette::Light},              // 20 3-D highlight
    {QPalette::Active, QPalette::Shadow},             // 21 3-D dark shadow
    {QPalette::Active, QPalette::Midlight},           // 22 3-D light
    {QPalette::Active, QPalette::ToolTipText},        // 23 tool tip text
    {QPalette::Active, QPalette::ToolTipBase},        // 24 tool tip background
};

}  // namespace

int CouleurReelle(int couleur) {
    if (!(couleur & kCouleurSysteme)) return couleur;
    const int index = couleur & 0xFF;
    if (index >= int(std::size(kRolesSysteme))) return 0;
    // Without a graphical application there is no desktop palette: a plain grey one.
    const QPalette palette = qGuiApp ? QGuiApplication::palette() : QPalette(QColor(0xEF, 0xEF, 0xEF));
    const QColor c = palette.color(kRolesSysteme[index].groupe, kRolesSysteme[index].role);
    return Apparence::nombre(c);
}

int LireCouleur(const QString &valeur, int defaut) {
    const QStringView v = QStringView(valeur).trimmed();
    bool ok = false;
    const qlonglong n = v.toLongLong(&ok, 10);
    if (ok && n >= qlonglong(INT_MIN) && n <= qlonglong(UINT_MAX)) return CouleurReelle(int(quint32(n)));
    for (const CouleurNommee &c : kCouleursNommees)
        if (memeMot(v, c.nom)) return CouleurReelle(c.valeur);
    int hexa = 0;
    if (v.startsWith(u"&H", Qt::CaseInsensitive) && lireHexa(v, &hexa)) return CouleurReelle(hexa);
    return defaut;
}

}  // namespace modMenus
