// The owner-drawn menus as a user sees them: menus shown offscreen, grabbed to
// pictures, and read pixel by pixel.

#include "grid/ListeImages.h"
#include "menus/Legende.h"
#include "menus/fenetres/cMenuItems.h"
#include "menus/cTips.h"
#include "menus/fenetres/modMenus.h"

#include "support/EnvironnementTest.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QFontMetrics>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <memory>

using namespace modMenus;

namespace {

QColor systeme(int index) { return versCouleur(CouleurReelle(couleurSysteme(index))); }

// The menu shown, laid out and painted, as the screen would show it.
QImage montrer(QMenu *menu) {
    if (!menu->isVisible()) menu->popup(QPoint(0, 0));
    QTest::qWait(20);
    return menu->grab().toImage();
}

void fermer(QMenu *menu) {
    menu->hide();
    QTest::qWait(10);
}

// How many pixels of the rectangle are far from the colour.
int pixelsLoinDe(const QImage &image, const QRect &zone, const QColor &couleur) {
    int n = 0;
    for (int y = zone.top(); y <= zone.bottom(); ++y)
        for (int x = zone.left(); x <= zone.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (qAbs(c.red() - couleur.red()) + qAbs(c.green() - couleur.green()) + qAbs(c.blue() - couleur.blue()) > 90) ++n;
        }
    return n;
}

}  // namespace

class TestMoteurMenus : public QObject {
    Q_OBJECT

    ListeImages images;

private slots:
    void initTestCase() {
        QImage bleu(16, 16, QImage::Format_ARGB32);
        bleu.fill(QColor(0, 0, 255));
        images.ajouter(QStringLiteral("A 1"), bleu, QStringLiteral("Bleu"));
        ChoisirRelief(false);
        ChoisirDegrade(true);
        ChoisirSoulignement(true);
        ChoisirBarreAuto(true);
    }

    // One menu holding each kind of item, painted as the user sees it.
    void ceQueVoitLUtilisateur() {
        QWidget fenetre;
        auto *menu = new QMenu(&fenetre);
        menu->addAction(QStringLiteral("{Sidebar|Text:Korvane|BColor:255|FColor:16777215|Width:40}"));
        QAction *titre = menu->addAction(QStringLiteral("-Titre{Raised}"));
        QAction *coche = menu->addAction(QStringLiteral("Coché{IMG:i1}"));
        coche->setCheckable(true);
        coche->setChecked(true);
        QAction *grise = menu->addAction(QStringLiteral("Grisé"));
        grise->setEnabled(false);
        QAction *normal = menu->addAction(QStringLiteral("Défaut"));
        menu->addSeparator();
        QAction *ouvrir = menu->addAction(QStringLiteral("Ouvrir\tCtrl+O"));
        AttacherMenus(&fenetre, &images, nullptr, 0);
        const QImage vue = montrer(menu);

        // The sidebar: a red band along the whole left edge, the items beside it.
        for (int y : {2, menu->height() / 2, menu->height() - 3}) QCOMPARE(vue.pixelColor(3, y), QColor(255, 0, 0));
        QVERIFY(vue.pixelColor(43, menu->actionGeometry(normal).center().y()) != QColor(255, 0, 0));

        // The raised bar shows its title; the checked item its picture in a sunken border.
        const QRect t = menu->actionGeometry(titre), c = menu->actionGeometry(coche), m = menu->actionGeometry(normal);
        const QColor fond = versCouleur(CouleurMenu());
        QVERIFY(pixelsLoinDe(vue, t.adjusted(t.width() / 3, 0, -t.width() / 3, 0), fond) > 5);
        QCOMPARE(vue.pixelColor(c.left() + 1, c.top() + 1), systeme(16));
        QCOMPARE(vue.pixelColor(c.left() + 11, c.center().y()), QColor(0, 0, 255));

        // The shortcut right-aligned, 16 pixels in from the right edge.
        const QRect o = menu->actionGeometry(ouvrir);
        QCOMPARE(pixelsLoinDe(vue, QRect(o.right() - 15, o.top(), 15, o.height()), fond), 0);
        QVERIFY(pixelsLoinDe(vue, QRect(o.right() - 30, o.top(), 14, o.height()), fond) > 0);

        // A greyed item under the pointer keeps the menu's back; an enabled one is highlighted.
        menu->setActiveAction(grise);
        QImage survol = montrer(menu);
        const QRect g = menu->actionGeometry(grise);
        QCOMPARE(survol.pixelColor(g.right() - 3, g.center().y()), fond);
        menu->setActiveAction(normal);
        survol = montrer(menu);
        QVERIFY(survol.pixelColor(m.right() - 3, m.center().y()) != fond);
        fermer(menu);
    }

    // 200 items wrap into columns; a NoScroll sidebar leaves, one without it stays.
    void colonnesEtNoScroll() {
        for (const bool noScroll : {true, false}) {
            QWidget fenetre;
            auto *menu = new QMenu(&fenetre);
            menu->addAction(noScroll ? QStringLiteral("{Sidebar|Text:Liste|BColor:255|NoScroll}")
                                     : QStringLiteral("{Sidebar|Text:Liste|BColor:255}"));
            for (int i = 0; i < 200; ++i) menu->addAction(QStringLiteral("Élément %1").arg(i));
            AttacherMenus(&fenetre, &images, nullptr, 0);
            montrer(menu);
            const QList<QAction *> actions = menu->actions();
            QSet<int> gauches;
            for (int i = 1; i < actions.size(); ++i) gauches.insert(menu->actionGeometry(actions[i]).left());
            QVERIFY2(gauches.size() >= 2, "the items wrap into columns");
            QVERIFY(menu->height() <= menu->screen()->availableGeometry().height());
            const TypeItemMenu *barre = objetFenetre(&fenetre)->itemAction(actions[0], menu);
            QCOMPARE(bool(barre->Etat & kEtatBarreOtee), noScroll);
            QCOMPARE(menu->actionGeometry(actions[1]).left(), noScroll ? 1 : 36);
            fermer(menu);
        }
    }

    // A text too long for the menu's height breaks into lines and widens its band.
    void barreTexteSurPlusieursLignes() {
        QWidget fenetre;
        auto *menu = new QMenu(&fenetre);
        menu->addAction(QStringLiteral("{Sidebar|Text:Le gestionnaire<br>des mots de passe|FSize:12|MinFSize:11}"));
        menu->addAction(QStringLiteral("Un"));
        menu->addAction(QStringLiteral("Deux"));
        AttacherMenus(&fenetre, &images, nullptr, 0);
        montrer(menu);
        const TypePanneau *panneau = objetFenetre(&fenetre)->GetPanelItem(menu);
        QVERIFY(panneau->largeurBarre > 35);
        QCOMPARE(menu->actionGeometry(menu->actions()[1]).left(), 1 + panneau->largeurBarre);
        QCOMPARE(panneau->barre.height(), menu->height() - 2);
        fermer(menu);
    }

    // The moments of a menu's life: prepared once a loop, a sidebar rendered once,
    // one object a window, commands of the application left alone, fonts freed last.
    void vieDUnMenu() {
        auto fenetre = std::make_unique<QWidget>();
        auto *menu = new QMenu(fenetre.get());
        menu->addAction(QStringLiteral("{Sidebar|Text:Korvane}"));
        QAction *item = menu->addAction(QStringLiteral("Avant{Tip:Le conseil}"));
        QAction *mois = menu->addAction(QStringLiteral("Mars{LMonth:3|lvID:Echeance}"));
        QAction *sansConseil = menu->addAction(QStringLiteral("Rien{Tip:|}"));
        cTips tips;
        AttacherMenus(fenetre.get(), &images, &tips, 0);
        AttacherMenus(fenetre.get(), &images, &tips, 4);
        QCOMPARE(nombreFenetresAttachees(), 1);
        cMenuItems *objet = objetFenetre(fenetre.get());
        QVERIFY(objet->IsMenuLess);

        QSignalSpy conseils(&tips, &cTips::MontrerConseil);
        montrer(menu);
        menu->setActiveAction(item);
        QCOMPARE(conseils.size(), 1);
        QCOMPARE(conseils.last().at(0).toString(), QStringLiteral("Le conseil"));
        menu->setActiveAction(sansConseil);
        QCOMPARE(conseils.last().at(0).toString(), QString());

        // Opened again in the same loop: not prepared again.
        item->setText(QStringLiteral("Après"));
        emit menu->aboutToShow();
        QCOMPARE(objet->itemAction(item, menu)->Texte, QStringLiteral("Avant"));
        QStringList choix;
        connect(&tips, &cTips::ChoixListe, this,
                [&choix](const QString &, const QString &categorie, QString &valeur) { choix << categorie + u'=' + valeur; });
        fermer(menu);
        QCOMPARE(choix, QStringList{cTips::motMenusFermes() + u'='});
        montrer(menu);
        QCOMPARE(objet->itemAction(item, menu)->Texte, QStringLiteral("Après"));
        QCOMPARE(objet->GetPanelItem(menu)->rendus, 1);
        fermer(menu);

        // A command of the application is not the engine's and reaches the application;
        // a generated entry is, and goes to the tip receiver.
        QSignalSpy declenche(item, &QAction::triggered);
        QVERIFY(!objet->MenuSelected(cMenuItems::idAction(item), menu, false));
        QVERIFY(!objet->MenuSelected(987654, menu, false));
        choix.clear();
        mois->trigger();
        item->trigger();
        QCOMPARE(declenche.size(), 1);
        QCOMPARE(choix, QStringList{QStringLiteral("Month=3")});

        // The last window gone, the fonts go; a new window brings them back.
        fenetre.reset();
        QCOMPARE(nombreFenetresAttachees(), 0);
        QVERIFY(!policesCreees());
        QWidget autre;
        AttacherMenus(&autre, &images, nullptr, 0);
        QVERIFY(policesCreees());
    }

    // Items that stand for lists: each becomes a submenu, prepared by its own object,
    // and a pick in it goes where its keywords say. The list control's submenu follows
    // the control at each opening.
    void listesGenerees() {
        EnvironnementTest env(false);
        QWidget fenetre;
        auto *villes = new QComboBox(&fenetre);
        villes->setObjectName(QStringLiteral("Villes"));
        villes->addItems({QStringLiteral("Lyon"), QStringLiteral("Nantes")});
        villes->setCurrentIndex(1);
        auto *fichiers = new QListWidget(&fenetre);
        fichiers->setObjectName(QStringLiteral("Fichiers"));
        QFile note(env.chemin(QStringLiteral("notes.txt")));
        QVERIFY(note.open(QIODevice::WriteOnly));
        note.write("Des notes.\n");
        note.close();
        fichiers->addItem(note.fileName());
        auto *menu = new QMenu(&fenetre);
        QAction *couleurs = menu->addAction(QStringLiteral("Couleurs{lvColors:|ID:Fond}"));
        QAction *mois = menu->addAction(QStringLiteral("Mois{lvMonths:Echeance:ID:Group:CYQtr}"));
        QAction *ville = menu->addAction(QStringLiteral("Ville{CB:Villes|Tip:Une ville}"));
        QAction *fichier = menu->addAction(QStringLiteral("Fichier{LB:Fichiers|Files:-1}"));
        QAction *polices = menu->addAction(QStringLiteral("Polices{lvFonts:}"));
        QAction *cle = menu->addAction(QStringLiteral("/media/cle{LDrv:/media/cle Removable Media}"));
        cTips tips;
        QStringList choix;
        connect(&tips, &cTips::ChoixListe, this, [&choix](const QString &id, const QString &categorie, QString &valeur) {
            if (categorie != cTips::motMenusFermes()) choix << id + u'/' + categorie + u'=' + valeur;
        });
        AttacherMenus(&fenetre, &images, &tips, 0);
        montrer(menu);
        cMenuItems *objet = objetFenetre(&fenetre);
        auto textes = [objet](QMenu *sous) {
            if (!sous->isVisible()) sous->popup(QPoint(0, 0));
            QTest::qWait(20);
            QStringList t;
            for (QAction *a : sous->actions())
                if (const TypeItemMenu *i = objet->itemAction(a, sous)) t << i->Texte + (a->isChecked() ? QStringLiteral("*") : QString());
            sous->hide();
            return t;
        };
        for (QAction *a : {couleurs, mois, ville, fichier, polices}) {
            QVERIFY2(a->menu(), qPrintable(a->text()));
            QVERIFY(objet->itemAction(a, menu)->Etat & kEtatListeGeneree);
        }
        QCOMPARE(objet->itemAction(cle, menu)->Texte, QStringLiteral("/media/cle Removable"));

        QCOMPARE(textes(couleurs->menu()).value(16), QStringLiteral("Rouge"));
        QCOMPARE(textes(ville->menu()), (QStringList{"Lyon", "Nantes*"}));
        QCOMPARE(objet->Tips(cMenuItems::idAction(ville->menu()->actions()[0]), ville->menu()), QStringLiteral("Une ville"));
        QVERIFY(textes(polices->menu()).isEmpty());
        // A file entry: its name, its type as tip, its desktop picture.
        QAction *note0 = fichier->menu()->actions().value(0);
        QCOMPARE(textes(fichier->menu()), QStringList{"Notes.txt"});
        const TypeItemMenu *entree = objet->itemAction(note0, fichier->menu());
        QVERIFY(!entree->imageFichier.isNull());
        QVERIFY(!entree->Conseil.isEmpty());

        // Picks: a colour to the receiver by its list's name, a city to its control.
        QSignalSpy activee(villes, &QComboBox::activated);
        couleurs->menu()->actions()[16]->trigger();
        ville->menu()->actions()[0]->trigger();
        QCOMPARE(choix, QStringList{"Fond/Color=255"});
        QCOMPARE(villes->currentIndex(), 0);
        QCOMPARE(activee.size(), 1);
        fermer(menu);

        // Opened again: the control's new entry is there, the old submenu gone.
        villes->addItem(QStringLiteral("Paris"));
        QPointer<QMenu> ancien = ville->menu();
        montrer(menu);
        QVERIFY(!ancien);
        QCOMPARE(textes(ville->menu()), (QStringList{"Lyon*", "Nantes", "Paris"}));
        fermer(menu);
    }
};

QTEST_MAIN(TestMoteurMenus)
#include "tst_moteurmenus.moc"
