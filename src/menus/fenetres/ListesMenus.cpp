#include "ListesMenus.h"

#include "menus/FichiersMenus.h"
#include "menus/Legende.h"
#include "store/Reglages.h"

#include <QComboBox>
#include <QFileInfo>
#include <QListWidget>
#include <QLocale>
#include <QStyledItemDelegate>

#include <iterator>

namespace modMenus {

namespace {

struct MotListe {
    GenreListe genre;
    QStringView mot;
};

constexpr MotListe kMotsListes[] = {
    {GenreListe::Couleurs, u"lvColors:"},
    {GenreListe::Mois, u"lvMonths:"},
    {GenreListe::Jours, u"lvDays:"},
    {GenreListe::Etats, u"lvStates:"},
    {GenreListe::UnMois, u"lvMonth:"},
    {GenreListe::Polices, u"lvFonts:"},
    {GenreListe::Lecteurs, u"lvDrives:"},
};

struct CouleurPalette {
    QStringView nom;
    int valeur;
};

// The palette follows its own naming: "Vert" is the teal, "Vert Foncé" the olive and
// "Marron" the brown of the vb names.
constexpr CouleurPalette kPalette[] = {
    {u"Couleur par Défaut", 0xFFC0C0},
    {u"Noir", 0},
    {u"Bleu", 0xFF0000},
    {u"Marron", 0x004466},
    {u"Cyan", 0xFFFF00},
    {u"Doré", 0x00AACC},
    {u"Gris", 0x808080},
    {u"Vert Clair", 0x00FF00},
    {u"Vert Foncé", 0x008080},
    {u"Ivoire", 0xF0FFFF},
    {u"Magenta", 0xFF00FF},
    {u"Bordeau", 0x000080},
    {u"Bleu Foncé", 0x800000},
    {u"Orange", 0x00A5FF},
    {u"Pêche", 0xB9DAFF},
    {u"Pourpre", 0x800080},
    {u"Rouge", 0x0000FF},
    {u"Gris Clair", 0xC0C0C0},
    {u"Pêche Foncé", 0x8CB4D2},
    {u"Vert", 0x808000},
    {u"Turquoise", 0xD1CE00},
    {u"Violet", 0x9020D0},
    {u"Blanc", 0xFFFFFF},
    {u"Jaune", 0x00FFFF},
};

struct Etat {
    QStringView nom;
    QStringView code;
};

constexpr Etat kEtats[] = {
    {u"Alabama", u"AL"},
    {u"Alaska", u"AK"},
    {u"Arizona", u"AZ"},
    {u"Arkansas", u"AR"},
    {u"California", u"CA"},
    {u"Colorado", u"CO"},
    {u"Connecticut", u"CT"},
    {u"Delaware", u"DE"},
    {u"District of Columbia", u"DC"},
    {u"Florida", u"FL"},
    {u"Georgia", u"GA"},
    {u"Hawaii", u"HI"},
    {u"Idaho", u"ID"},
    {u"Illinois", u"IL"},
    {u"Indiana", u"IN"},
    {u"Iowa", u"IA"},
    {u"Kansas", u"KS"},
    {u"Kentucky", u"KY"},
    {u"Louisiana", u"LA"},
    {u"Maine", u"ME"},
    {u"Maryland", u"MD"},
    {u"Massachusettes", u"MA"},
    {u"Michigan", u"MI"},
    {u"Minnesota", u"MN"},
    {u"Mississippi", u"MS"},
    {u"Missouri", u"MO"},
    {u"Montana", u"MT"},
    {u"Nebraska", u"NE"},
    {u"Nevada", u"NV"},
    {u"New Hampshire", u"NH"},
    {u"New Jersey", u"NJ"},
    {u"New Mexico", u"NM"},
    {u"New York", u"NY"},
    {u"North Carolina", u"NC"},
    {u"North Dakota", u"ND"},
    {u"Ohio", u"OH"},
    {u"Oklahoma", u"OK"},
    {u"Oregon", u"OR"},
    {u"Pennsylvania", u"PA"},
    {u"Rhode Island", u"RI"},
    {u"South Carolina", u"SC"},
    {u"South Dakota", u"SD"},
    {u"Tennessee", u"TN"},
    {u"Texas", u"TX"},
    {u"Utah", u"UT"},
    {u"Vermont", u"VT"},
    {u"Virginia", u"VA"},
    {u"Washington", u"WA"},
    {u"West Virginia", u"WV"},
    {u"Wisconsin", u"WI"},
    {u"Wyoming", u"WY"},
};
static_assert(std::size(kPalette) == 24 && std::size(kEtats) == 51);

constexpr QStringView kBarresCalendaires[] = {u"-First Quarter{Raised}", u"-Second Quarter{Raised}",
                                              u"-Third Quarter{Raised}", u"-Fourth Quarter{Raised}"};
constexpr QStringView kBarresFiscales[] = {u"-1st Fiscal Quarter{Raised}", u"-2nd Fiscal Quarter{Raised}",
                                           u"-3rd Fiscal Quarter{Raised}", u"-4th Fiscal Quarter{Raised}"};

const QLocale &francais() {
    static const QLocale l(QLocale::French, QLocale::France);
    return l;
}

// A whole number, or nullopt for any other text.
std::optional<int> entier(const QString &texte) {
    bool ok = false;
    const int n = texte.trimmed().toInt(&ok);
    if (!ok) return std::nullopt;
    return n;
}

// The current colour of the lists: the setting, when it is set and is a number.
std::optional<int> couleurCourante() {
    const Reglages::Definition &d = Reglages::definition(Reglages::Cle::FontColor);
    return entier(Reglages::lire(QString::fromLatin1(d.section), QString::fromLatin1(d.nom), QString()));
}

// What the entries of a keyword list share: the keyword's value less the list's name,
// and the start of every entry's block.
struct Gabarit {
    QString valeur;
    QString debut;
};

Gabarit lireGabarit(const QString &bloc, QStringView mot) {
    Gabarit g;
    g.valeur = LireAttribut(bloc, mot.toString());
    QString nom;
    const qsizetype deuxPoints = g.valeur.indexOf(u':');
    if (deuxPoints >= 0 && QStringView(g.valeur).mid(deuxPoints).startsWith(u":ID:", Qt::CaseInsensitive)) {
        nom = g.valeur.left(deuxPoints);
        g.valeur.remove(0, deuxPoints + 4);
    } else {
        nom = LireAttribut(bloc, QStringLiteral("ID:"));
    }
    g.debut = QStringLiteral("{gControl:0|lvID:") + nom;
    return g;
}

class Remplissage {
public:
    Remplissage(QList<EntreeListe> &entrees, int &prochainId) : entrees_(entrees), prochainId_(prochainId) {}
    void ajouter(const QString &legende, bool cochee = false) { entrees_.append({legende, prochainId_++, cochee, false}); }

private:
    QList<EntreeListe> &entrees_;
    int &prochainId_;
};

void couleurs(const Gabarit &g, Remplissage &r) {
    const std::optional<int> courante = couleurCourante();
    for (const CouleurPalette &c : kPalette)
        r.ajouter(c.nom.toString() + g.debut + QStringLiteral("|LColor:%1}").arg(c.valeur), courante == c.valeur);
    r.ajouter(QStringLiteral("-{Raised}"));
    r.ajouter(QStringLiteral("Sélectionner une couleur Personnalisée") + g.debut +
              QStringLiteral("|LDefClr:%1|LColor:-1}").arg(courante.value_or(0)));
}

void mois(const QString &bloc, const Gabarit &g, Remplissage &r) {
    const QString groupe = LireAttribut(bloc, QStringLiteral("Group:"));
    const QStringView *barres = nullptr;
    if (groupe.compare(u"CYQtr", Qt::CaseInsensitive) == 0) barres = kBarresCalendaires;
    if (groupe.compare(u"FYQtr", Qt::CaseInsensitive) == 0) barres = kBarresFiscales;
    for (int n = 1; n <= 12; ++n) {
        if (barres && n % 3 == 1) r.ajouter(barres[n / 3].toString());
        r.ajouter(francais().monthName(n, QLocale::LongFormat) + g.debut + QStringLiteral("|LMonth:%1}").arg(n));
    }
}

void jours(const Gabarit &g, Remplissage &r) {
    for (int n = 1; n <= 7; ++n)
        r.ajouter(francais().dayName(n, QLocale::LongFormat) + g.debut + QStringLiteral("|LDay:%1}").arg(n));
}

void etats(const Gabarit &g, Remplissage &r) {
    for (const Etat &e : kEtats) r.ajouter(e.nom.toString() + g.debut + QStringLiteral("|LState:") + e.code.toString() + u'}');
}

void unMois(const QString &bloc, const Gabarit &g, const QDate &aujourdhui, Remplissage &r) {
    int numero = entier(g.valeur).value_or(0);
    if (numero == 0) numero = aujourdhui.month();
    if (numero < 1 || numero > 12) return;
    int annee = entier(LireAttribut(bloc, QStringLiteral("Year:"))).value_or(0);
    if (annee < 1 || annee > 9999) annee = aujourdhui.year();
    const int jourCoche = entier(LireAttribut(bloc, QStringLiteral("Day:"))).value_or(0);
    const QDate premier(annee, numero, 1);
    for (int j = 1; j <= premier.daysInMonth(); ++j) {
        const QDate d(annee, numero, j);
        r.ajouter(francais().toString(d, QStringLiteral("MMM d, dddd")) + g.debut + QStringLiteral("|LDate:") +
                      d.toString(Qt::ISODate) + u'}',
                  j == jourCoche);
    }
}

// The attributes of a block in working form, without its braces and its last "|".
QString attributs(const QString &bloc) { return bloc.size() < 2 ? QString() : bloc.mid(1, bloc.size() - 2); }

bool listeDessineeAutrement(const QListWidget *liste) {
    const bool plusieursColonnes = liste->viewMode() == QListView::IconMode || liste->isWrapping();
    const QAbstractItemDelegate *delegue = liste->itemDelegate();
    return plusieursColonnes || !delegue || delegue->metaObject() != &QStyledItemDelegate::staticMetaObject;
}

}  // namespace

GenreListe TrouverListe(const QString &bloc) {
    for (const MotListe &m : kMotsListes)
        if (!LireAttribut(bloc, m.mot.toString()).isEmpty()) return m.genre;
    return GenreListe::Aucune;
}

QList<EntreeListe> DeplierMotCle(const QString &bloc, int &prochainId, const QDate &aujourdhui) {
    QList<EntreeListe> entrees;
    const GenreListe genre = TrouverListe(bloc);
    if (genre == GenreListe::Aucune) return entrees;
    QStringView mot;
    for (const MotListe &m : kMotsListes)
        if (m.genre == genre) mot = m.mot;
    const Gabarit g = lireGabarit(bloc, mot);
    Remplissage r(entrees, prochainId);
    switch (genre) {
    case GenreListe::Couleurs: couleurs(g, r); break;
    case GenreListe::Mois: mois(bloc, g, r); break;
    case GenreListe::Jours: jours(g, r); break;
    case GenreListe::Etats: etats(g, r); break;
    case GenreListe::UnMois: unMois(bloc, g, aujourdhui, r); break;
    case GenreListe::Polices:
    case GenreListe::Lecteurs:
    case GenreListe::Aucune: break;
    }
    return entrees;
}

std::optional<QList<EntreeListe>> DeplierListe(const QString &legende, QWidget *fenetre, int &prochainId) {
    auto *combo = qobject_cast<QComboBox *>(fenetre);
    auto *liste = qobject_cast<QListWidget *>(fenetre);
    if (!combo && !liste) return std::nullopt;
    if (liste && listeDessineeAutrement(liste)) return std::nullopt;
    const int genre = combo ? 0 : 1;

    QString texte, bloc, raccourci;
    SepareLegende(legende, texte, bloc, raccourci);
    QString modele = QLatin1Char('{') + attributs(bloc) + QStringLiteral("|LIndex:x|gType:%1").arg(genre);
    bool cheminsInclus = false;
    const QString fichiers = genre != 0 ? LireAttribut(bloc, QStringLiteral("Files:")) : QString();
    if (!fichiers.isEmpty()) {
        if (fichiers != u"-1" && QFileInfo(fichiers).isDir())
            modele += QStringLiteral("|gEXE:") + (fichiers.endsWith(u'/') ? fichiers : fichiers + u'/');
        else
            cheminsInclus = true;
    }

    QList<EntreeListe> entrees;
    const int nombre = combo ? combo->count() : liste->count();
    for (int i = 0; i < nombre; ++i) {
        QString brut = combo ? combo->itemText(i) : liste->item(i)->text();
        brut.replace(modele, QString(), Qt::CaseInsensitive);
        QString texteEntree, blocEntree, raccourciEntree;
        SepareLegende(brut, texteEntree, blocEntree, raccourciEntree);
        QString blocFinal = modele;
        blocFinal.replace(QStringLiteral("LIndex:x"), QStringLiteral("LIndex:%1").arg(i));
        if (cheminsInclus) {
            const QString dossier = DecoupeChemin(texteEntree, u'P');
            if (!dossier.isEmpty() && QFileInfo(dossier).isDir()) blocFinal += QStringLiteral("|gEXE:") + dossier;
            texteEntree = DecoupeChemin(texteEntree, u'N');
        }
        if (!blocEntree.isEmpty()) blocFinal += QLatin1Char('|') + attributs(blocEntree);
        QString legendeEntree = texteEntree.replace(u'&', QStringLiteral("&&")) + blocFinal + u'}';
        if (!raccourciEntree.isEmpty()) legendeEntree += u'\t' + raccourciEntree;
        const bool cochee = combo ? combo->currentIndex() == i : liste->item(i)->isSelected();
        entrees.append({legendeEntree, prochainId++, cochee, false});
    }
    if (entrees.isEmpty())
        entrees.append({QStringLiteral("-No Selections Available") + modele + QStringLiteral("|Raised}"), kIdAucuneSelection,
                        false, true});
    return entrees;
}

}  // namespace modMenus
