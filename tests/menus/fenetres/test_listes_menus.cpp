#include "menus/fenetres/ChoixMenus.h"
#include "menus/FichiersMenus.h"
#include "menus/fenetres/ListesMenus.h"
#include "menus/cTips.h"
#include "support/EnvironnementTest.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <gtest/gtest.h>

using namespace modMenus;

namespace {

QStringList legendes(const QList<EntreeListe> &entrees) {
    QStringList l;
    for (const EntreeListe &e : entrees) l.append(e.legende);
    return l;
}

QList<int> cochees(const QList<EntreeListe> &entrees) {
    QList<int> l;
    for (int i = 0; i < entrees.size(); ++i)
        if (entrees[i].cochee) l.append(i);
    return l;
}

QList<EntreeListe> deplier(const char *bloc, const QDate &jour = QDate(2024, 2, 10)) {
    int id = 100;
    return DeplierMotCle(QString::fromUtf8(bloc), id, jour);
}

struct Choix {
    QString identifiant, categorie, valeur;
};

}  // namespace

TEST(ListesMenus, ChaqueGenerateur) {
    EnvironnementTest env(false);
    const struct {
        const char *bloc;
        qsizetype nombre;
        const char *premiere, *derniere;
    } cas[] = {
        {"{lvColors:Fond:ID:|", 26, "Couleur par Défaut{gControl:0|lvID:Fond|LColor:16761024}",
         "Sélectionner une couleur Personnalisée{gControl:0|lvID:Fond|LDefClr:0|LColor:-1}"},
        {"{lvMonths:|ID:Paie|", 12, "janvier{gControl:0|lvID:Paie|LMonth:1}", "décembre{gControl:0|lvID:Paie|LMonth:12}"},
        {"{lvMonths:Echeance:ID:Group:CYQtr|", 16, "-First Quarter{Raised}",
         "décembre{gControl:0|lvID:Echeance|LMonth:12}"},
        {"{lvDays:|", 7, "lundi{gControl:0|lvID:|LDay:1}", "dimanche{gControl:0|lvID:|LDay:7}"},
        {"{lvStates:|", 51, "Alabama{gControl:0|lvID:|LState:AL}", "Wyoming{gControl:0|lvID:|LState:WY}"},
        {"{lvMonth:0|", 29, "févr. 1, jeudi{gControl:0|lvID:|LDate:2024-02-01}",
         "févr. 29, jeudi{gControl:0|lvID:|LDate:2024-02-29}"},
        {"{lvMonth:3|Year:2023|", 31, "mars 1, mercredi{gControl:0|lvID:|LDate:2023-03-01}",
         "mars 31, vendredi{gControl:0|lvID:|LDate:2023-03-31}"},
        {"{lvMonth:13|", 0, "", ""},
        {"{lvFonts:|", 0, "", ""},
        {"{lvDrives:|", 0, "", ""},
        {"{IMG:i3|", 0, "", ""},
    };
    for (const auto &c : cas) {
        int id = 100;
        const QList<EntreeListe> e = DeplierMotCle(QString::fromUtf8(c.bloc), id, QDate(2024, 2, 10));
        ASSERT_EQ(e.size(), c.nombre) << c.bloc;
        EXPECT_EQ(id, 100 + c.nombre) << c.bloc;  // every entry, bars included, takes the next id
        if (e.isEmpty()) continue;
        EXPECT_EQ(e.first().legende, QString::fromUtf8(c.premiere)) << qPrintable(e.first().legende);
        EXPECT_EQ(e.last().legende, QString::fromUtf8(c.derniere)) << qPrintable(e.last().legende);
        EXPECT_TRUE(cochees(e).isEmpty()) << c.bloc;
    }
    EXPECT_EQ(TrouverListe("{lvFonts:|"), GenreListe::Polices);
    EXPECT_EQ(TrouverListe("{lvDays:|lvColors:|"), GenreListe::Couleurs);  // colours are tested first

    const QStringList fiscal = legendes(deplier("{lvMonths:Group:FYQtr|"));
    EXPECT_EQ(fiscal.indexOf("-1st Fiscal Quarter{Raised}"), 0);
    EXPECT_EQ(fiscal.indexOf("-4th Fiscal Quarter{Raised}"), 12);
    EXPECT_EQ(deplier("{lvColors:|")[24].legende, "-{Raised}");
    EXPECT_EQ(cochees(deplier("{lvMonth:3|Year:2023|Day:5|")), QList<int>{4});
}

TEST(ListesMenus, LaCouleurCouranteEstCochee) {
    EnvironnementTest env(false);
    Reglages::ecrire(Reglages::Cle::FontColor, 0);
    QList<EntreeListe> e = deplier("{lvColors:|");
    EXPECT_EQ(cochees(e), QList<int>{1});  // "Noir"
    Reglages::ecrire(Reglages::Cle::FontColor, 255);
    e = deplier("{lvColors:|");
    EXPECT_EQ(cochees(e), QList<int>{16});
    EXPECT_TRUE(e[16].legende.startsWith("Rouge{"));
    EXPECT_TRUE(e.last().legende.contains("|LDefClr:255|LColor:-1}"));
}

TEST(ListesMenus, ListeDUnControle) {
    EnvironnementTest env(false);
    QComboBox combo;
    combo.addItems({"Un", "Deux & trois", "Quatre{IMG:i2}"});
    combo.setCurrentIndex(1);
    int id = 7;
    auto e = DeplierListe("Choisir{CB:Liste|Tip:Une valeur}", &combo, id);
    ASSERT_TRUE(e);
    EXPECT_EQ(legendes(*e), QStringList({"Un{CB:Liste|Tip:Une valeur|LIndex:0|gType:0}",
                                         "Deux && trois{CB:Liste|Tip:Une valeur|LIndex:1|gType:0}",
                                         "Quatre{CB:Liste|Tip:Une valeur|LIndex:2|gType:0|IMG:i2}"}));
    EXPECT_EQ(cochees(*e), QList<int>{1});
    EXPECT_EQ(id, 10);

    combo.clear();
    e = DeplierListe("Choisir{CB:Liste}", &combo, id);
    ASSERT_EQ(e->size(), 1);
    EXPECT_EQ(e->first().legende, "-No Selections Available{CB:Liste|LIndex:x|gType:0|Raised}");
    EXPECT_EQ(e->first().identifiant, kIdAucuneSelection);
    EXPECT_TRUE(e->first().desactivee);

    QListWidget liste;
    liste.setSelectionMode(QAbstractItemView::MultiSelection);
    const QString dossier = env.chemin("docs");
    QDir().mkpath(dossier);
    liste.addItems({dossier + "/a.txt", "/nulle/part/b.txt", "c.txt"});
    liste.item(0)->setSelected(true);
    liste.item(2)->setSelected(true);
    e = DeplierListe("{LB:Liste|Files:-1}", &liste, id);
    EXPECT_EQ(legendes(*e), QStringList({"a.txt{LB:Liste|Files:-1|LIndex:0|gType:1|gEXE:" + dossier + "/}",
                                         "b.txt{LB:Liste|Files:-1|LIndex:1|gType:1}",  // a missing folder
                                         "c.txt{LB:Liste|Files:-1|LIndex:2|gType:1}"}));
    EXPECT_EQ(cochees(*e), QList<int>({0, 2}));
    e = DeplierListe("{LB:Liste|Files:/nulle/part}", &liste, id);  // a missing folder: full paths
    EXPECT_EQ(e->at(1).legende, "b.txt{LB:Liste|Files:/nulle/part|LIndex:1|gType:1}");
    e = DeplierListe("{LB:Liste|Files:" + dossier + "}", &liste, id);
    EXPECT_TRUE(e->at(2).legende.endsWith("|gEXE:" + dossier + "/}"));

    QLineEdit saisie;
    EXPECT_FALSE(DeplierListe("{LB:Liste}", &saisie, id));
    EXPECT_FALSE(DeplierListe("{LB:Liste}", nullptr, id));
    liste.setViewMode(QListView::IconMode);  // entries in several columns
    EXPECT_FALSE(DeplierListe("{LB:Liste}", &liste, id));
}

TEST(ListesMenus, DecoupeChemin) {
    const struct {
        const char *chemin, *d, *p, *n, *e, *m;
    } cas[] = {
        {"C:\\Dossier\\Sous\\fichier.tar.gz", "C:\\", "C:\\Dossier\\Sous\\", "fichier.tar.gz", "gz", "fichier.tar"},
        {"\\\\serveur\\partage\\doc\\a.txt", "\\\\serveur\\partage\\", "\\\\serveur\\partage\\doc\\", "a.txt", "txt", "a"},
        {"C:fichier.txt", "C:\\", "C:", "fichier.txt", "txt", "fichier"},
        {"\\dossier\\f.ini", "\\", "\\dossier\\", "f.ini", "ini", "f"},
        {"LISEZMOI", "", "", "LISEZMOI", "", ""},  // no extension: no name less it either
        {"/home/zoé/Documents/rapport.final.pdf", "/", "/home/zoé/Documents/", "rapport.final.pdf", "pdf", "rapport.final"},
        {"/tmp/a:b", "/", "/tmp/", "a:b", "", ""},
        {"docs/notes.txt", "", "docs/", "notes.txt", "txt", "notes"},
        {"/home/u/.bashrc", "/", "/home/u/", ".bashrc", "bashrc", ""},
        {"/home/u.v/lisez", "/", "/home/u.v/", "lisez", "", ""},  // a dotted folder is no extension
    };
    for (const auto &c : cas) {
        const QString chemin = QString::fromUtf8(c.chemin);
        EXPECT_EQ(DecoupeChemin(chemin, 'D'), QString::fromUtf8(c.d)) << c.chemin;
        EXPECT_EQ(DecoupeChemin(chemin, 'P'), QString::fromUtf8(c.p)) << c.chemin;
        EXPECT_EQ(DecoupeChemin(chemin, 'N'), QString::fromUtf8(c.n)) << c.chemin;
        EXPECT_EQ(DecoupeChemin(chemin, 'E'), QString::fromUtf8(c.e)) << c.chemin;
        EXPECT_EQ(DecoupeChemin(chemin, 'm'), QString::fromUtf8(c.m)) << c.chemin;
    }
    EXPECT_EQ(DecoupeChemin(QString(), 'N'), QString());
    EXPECT_EQ(DecoupeChemin("C:\\a.txt", 'd'), QString());  // letters are exact
}

TEST(ListesMenus, ChoixRendusAuRecepteur) {
    EnvironnementTest env(false);
    cTips tips;
    QList<Choix> recus;
    QObject::connect(&tips, &cTips::ChoixListe, [&](const QString &i, const QString &c, QString &v) { recus.append({i, c, v}); });
    const struct {
        const char *legende, *categorie, *valeur;
    } cas[] = {
        {"Rouge{gControl:0|lvID:Fond|LColor:255}", "Color", "255"},
        {"Noir{gControl:0|lvID:Fond|LColor:0}", "Color", "0"},
        {"mars{gControl:0|lvID:Fond|LMonth:3}", "Month", "3"},
        {"Ohio{gControl:0|lvID:Fond|LState:OH}", "State", "OH"},
        {"lundi{gControl:0|lvID:Fond|LDay:1}", "WeekDay", "1"},
        {"mars 1{gControl:0|lvID:Fond|LDate:2023-03-01}", "DayOfMonth", "2023-03-01"},
        {"Sans{gControl:0|lvID:Fond|LFont:DejaVu Sans}", "Font", "DejaVu Sans"},
        {"/{gControl:0|lvID:Fond|LDrv:/ Removable Media}", "Drive", "/ Removable Media"},
    };
    for (const auto &c : cas) {
        recus.clear();
        EXPECT_TRUE(RouterChoix(QString::fromUtf8(c.legende), &tips, nullptr, nullptr)) << c.legende;
        ASSERT_EQ(recus.size(), 1) << c.legende;
        EXPECT_EQ(recus[0].identifiant, "Fond");
        EXPECT_EQ(recus[0].categorie, c.categorie);
        EXPECT_EQ(recus[0].valeur, c.valeur);
    }
    EXPECT_EQ(Reglages::lire("Font", "FontName", "-"), "DejaVu Sans");
    EXPECT_EQ(Reglages::lire("Font", "FontColor", "-"), "-");  // a colour of the palette is only reported

    recus.clear();
    EXPECT_FALSE(RouterChoix("Ouvrir{IMG:i1}", &tips, nullptr, nullptr));              // the application's command
    EXPECT_TRUE(RouterChoix("Arial{lvID:P|LFont:Arial}", nullptr, nullptr, nullptr));  // no receiver
    EXPECT_EQ(Reglages::lireTexte(Reglages::Cle::FontName), "Arial");
    EXPECT_TRUE(recus.isEmpty());

    // The custom colour: a cancel reports and stores nothing, a choice both.
    const QString perso = deplier("{lvColors:Fond:ID:|").last().legende;
    ChoixFichier::prevoirCouleurs({-1, 0x123456});
    EXPECT_TRUE(RouterChoix(perso, &tips, nullptr, nullptr));
    EXPECT_TRUE(recus.isEmpty());
    EXPECT_TRUE(RouterChoix(perso, &tips, nullptr, nullptr));
    ASSERT_EQ(recus.size(), 1);
    EXPECT_EQ(recus[0].categorie, "Color");
    EXPECT_EQ(recus[0].valeur, "1193046");
    EXPECT_EQ(Reglages::lireNombre(Reglages::Cle::FontColor), 0x123456);

    recus.clear();
    tips.annoncerMenusFermes();
    ASSERT_EQ(recus.size(), 1);
    EXPECT_EQ(recus[0].categorie, "MenusClosed");
    EXPECT_TRUE(recus[0].identifiant.isEmpty() && recus[0].valeur.isEmpty());
}

TEST(ListesMenus, ChoixDansUnControle) {
    EnvironnementTest env(false);
    QComboBox combo;
    combo.addItems({"Un", "Deux", "Trois"});
    int id = 1;
    const auto entrees = *DeplierListe("{CB:Liste}", &combo, id);
    QList<int> actives;
    QObject::connect(&combo, &QComboBox::activated, [&](int i) { actives.append(i); });
    EXPECT_TRUE(RouterChoix(entrees[2].legende, nullptr, &combo, nullptr));
    EXPECT_EQ(combo.currentIndex(), 2);
    EXPECT_EQ(actives, QList<int>{2});

    QListWidget liste;
    liste.addItems({"a", "b"});
    EXPECT_TRUE(RouterChoix("b{LB:Liste|LIndex:1|gType:1}", nullptr, &liste, nullptr));
    EXPECT_EQ(liste.currentRow(), 1);
    EXPECT_TRUE(RouterChoix("-No Selections Available{LB:Liste|LIndex:x|gType:1|Raised}", nullptr, &liste, nullptr));
    EXPECT_TRUE(RouterChoix("z{LB:Liste|LIndex:9|gType:1}", nullptr, &liste, nullptr));
    EXPECT_EQ(liste.currentRow(), 1);  // no index of the list: nothing moves
}

TEST(ListesMenus, DescriptionDUnFichier) {
    EnvironnementTest env(false);
    QFile texte(env.chemin("notes.txt"));
    ASSERT_TRUE(texte.open(QIODevice::WriteOnly));
    texte.write("Des notes.\n");
    texte.close();
    QFile brut(env.chemin("brut"));
    ASSERT_TRUE(brut.open(QIODevice::WriteOnly));
    brut.write(QByteArray("\x00\x01\x02\xff\xfe\x00\x10", 7));
    brut.close();
    const QLocale avant;
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));  // as the program sets it
    EXPECT_EQ(GetFileDescription(texte.fileName()), "document texte brut");
    QLocale::setDefault(avant);
    EXPECT_EQ(GetFileDescription(brut.fileName()), QString());  // nothing known of it
    EXPECT_EQ(GetFileDescription(env.chemin("absent.txt")), QString());
}
