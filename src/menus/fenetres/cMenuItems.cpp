#include "cMenuItems.h"

#include "ChoixMenus.h"
#include "menus/FichiersMenus.h"
#include "menus/Legende.h"
#include "ListesMenus.h"
#include "menus/cTips.h"
#include "grid/ListeImages.h"
#include "ui/Art.h"
#include "modMenus.h"

#include <QAction>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QStorageInfo>

using namespace modMenus;

namespace {

constexpr char kProprieteId[] = "korvaneIdMenu";
constexpr int kLargeurBarreMin = 35;

QString attribut(const QString &bloc, const char *cle) { return LireAttribut(bloc, QString::fromLatin1(cle)); }

int entier(const QString &valeur, int defaut) {
    bool ok = false;
    const int n = valeur.trimmed().toInt(&ok);
    return ok ? n : defaut;
}

// The room a screen leaves a menu: its height less 7 pixels.
int hauteurUtile(const QMenu *menu) {
    const QScreen *ecran = menu->screen() ? menu->screen() : QGuiApplication::primaryScreen();
    return (ecran ? ecran->availableGeometry().height() : 768) - 7;
}

// The states that the platform's action gives, as bits of Etat.
quint16 etatAction(const QAction *action, const QMenu *menu) {
    quint16 etat = 0;
    if (!action->isEnabled()) etat |= kEtatGrise;
    if (action->isChecked()) etat |= kEtatCoche;
    if (menu->defaultAction() == action) etat |= kEtatDefaut;
    if (action->menu()) etat |= kEtatSousMenu;
    return etat;
}

}  // namespace

cMenuItems::cMenuItems() = default;

cMenuItems::~cMenuItems() {
    for (const Delegation &d : std::as_const(MenusDelegues)) delete d.objet;
}

cMenuItems *cMenuItems::delegue(const QMenu *menu) const {
    const auto it = MenusDelegues.constFind(QString::number(quintptr(menu)) + u'g');
    // A submenu gone since leaves its key behind; a new menu at the same address is not it.
    return it != MenusDelegues.cend() && it->menu == menu ? it->objet : nullptr;
}

int cMenuItems::idAction(QAction *action) {
    static int prochain = 1;
    bool ok = false;
    const int id = action->property(kProprieteId).toInt(&ok);
    if (ok && id > 0) return id;
    action->setProperty(kProprieteId, prochain);
    return prochain++;
}

QString cMenuItems::cleItem(const QMenu *menu, int id) { return QString::number(quintptr(menu)) + u'.' + QString::number(id); }
QString cMenuItems::clePanneau(const QMenu *menu) { return QString::number(quintptr(menu)) + u'p'; }

void cMenuItems::InitializeSubMenu(QWidget *fenetre, const ListeImages *imageList, cTips *tips, bool sousFenetre, QMenu *menu,
                                   const QString &tipDefaut) {
    (void)sousFenetre;  // Qt windows have no system menu to prepare
    fenetre_ = fenetre;
    if (!tips) {
        tips_ = tipsPrecedent_;
    } else if (tips != tips_) {
        tipsPrecedent_ = tips_;
        tips_ = tips;
    }
    if (imageList) images_ = imageList;
    if (menu && !IndexPanneaux.contains(clePanneau(menu))) {
        Panneaux.append(TypePanneau{});
        Panneaux.last().menu = menu;
        IndexPanneaux.insert(clePanneau(menu), int(Panneaux.size()) - 1);
    }
    TipDefaut = tipDefaut;
}

const TypeItemMenu *cMenuItems::GetMenuItem(int id, QMenu *menu) const {
    if (const cMenuItems *voisin = delegue(menu)) return voisin->GetMenuItem(id, menu);
    const int index = IndexItems.value(cleItem(menu, id), 0);
    return index > 0 ? &Items[index] : nullptr;
}

const TypeItemMenu *cMenuItems::itemAction(const QAction *action, QMenu *menu) const {
    bool ok = false;
    const int id = action->property(kProprieteId).toInt(&ok);
    return ok ? GetMenuItem(id, menu) : nullptr;
}

int cMenuItems::padAction(const QAction *action, QMenu *menu) const {
    if (const cMenuItems *voisin = delegue(menu)) return voisin->padAction(action, menu);
    bool ok = false;
    const int id = action->property(kProprieteId).toInt(&ok);
    const int p = IndexPanneaux.value(clePanneau(menu), 0);
    if (!ok || p == 0) return 0;
    return Panneaux[p].pads.value(IndexItems.value(cleItem(menu, id), 0), 0);
}

TypePanneau *cMenuItems::GetPanelItem(QMenu *menu) {
    if (cMenuItems *voisin = delegue(menu)) return voisin->GetPanelItem(menu);
    const int index = IndexPanneaux.value(clePanneau(menu), 0);
    return index > 0 ? &Panneaux[index] : nullptr;
}

QString cMenuItems::Tips(int id, QMenu *menu) {
    if (cMenuItems *voisin = delegue(menu)) return voisin->Tips(id, menu);
    const TypeItemMenu *item = GetMenuItem(id, menu);
    return item ? item->Conseil : QString();
}

bool cMenuItems::IsWindowList(QMenu *menu, bool isSystem) {
    if (cMenuItems *voisin = delegue(menu)) return voisin->IsWindowList(menu, isSystem);
    int usable = hauteurUtile(menu);
    int barre = 0;  // the sidebar's record
    int colonnes = 1, hauteurColonne = 0;
    const QList<QAction *> actions = menu->actions();
    for (int position = 0; position < actions.size(); ++position) {
        QAction *action = actions[position];
        bool estBarre = false;
        const int index = analyserItem(action, menu, position, isSystem, &estBarre);
        // A generated list is made anew at each opening: a list control may have changed.
        if (Items[index].Etat & kEtatListeGeneree) deplier(action, menu, Items[index]);
        if (estBarre) {
            barre = index;
            continue;
        }
        if (!action->isVisible()) continue;
        // One more column once this one is full; the columns after the second stop
        // where the first did. The frame's line above the first item counts.
        const int h = Items[index].Hauteur;
        if (barre && hauteurColonne > 0 && hauteurColonne + h + 1 > usable) {
            if (++colonnes == 2) usable = hauteurColonne + 1;
            hauteurColonne = 0;
        }
        hauteurColonne += h;
    }
    if (!IndexPanneaux.contains(clePanneau(menu))) InitializeSubMenu(fenetre_, nullptr, tips_, true, menu, TipDefaut);
    TypePanneau &panneau = *GetPanelItem(menu);
    panneau.colonnes = colonnes;
    panneau.indexBarre = barre;
    if (barre) {
        TypeItemMenu &item = Items[barre];
        QString texte, bloc, raccourci;
        SepareLegende(item.Legende, texte, bloc, raccourci);
        // A sidebar that can't scroll with the columns leaves the menu; its items stay.
        if (colonnes >= 2 && !attribut(bloc, "NoScroll").isEmpty())
            item.Etat |= kEtatBarreOtee;
        else
            item.Etat &= quint16(~kEtatBarreOtee);
    }
    disposer(menu, usable);
    return true;
}

int cMenuItems::analyserItem(QAction *action, QMenu *menu, int position, bool isSystem, bool *barre) {
    (void)isSystem;
    const int id = idAction(action);
    const QString cle = cleItem(menu, id);
    int index = IndexItems.value(cle, 0);
    const quint16 etatQt = etatAction(action, menu);
    if (index > 0 && action->text() == Items[index].texteAction && Items[index].action == action) {
        // A known item keeps its record; only the states of the platform are refreshed.
        TypeItemMenu &item = Items[index];
        constexpr quint16 kEtatsQt = kEtatCoche | kEtatDefaut | kEtatSousMenu;
        if (!(item.Etat & (kEtatSeparateur | kEtatBarre)))
            item.Etat = quint16((item.Etat & ~(kEtatsQt | kEtatGrise)) | etatQt);
        *barre = (item.Etat & kEtatBarre) && position == 0;
        return index;
    }
    if (index == 0) {
        if (!libres_.isEmpty()) {
            index = libres_.takeLast();
        } else {
            Items.append(TypeItemMenu{});
            index = int(Items.size()) - 1;
        }
        IndexItems.insert(cle, index);
    }
    TypeItemMenu &item = Items[index];
    item = TypeItemMenu{};
    item.action = action;
    item.Identifiant = id;
    item.Legende = action->isSeparator() && action->text().isEmpty() ? QStringLiteral("-") : action->text();
    item.Etat = etatQt;

    QString texte, bloc, raccourci;
    SepareLegende(item.Legende, texte, bloc, raccourci);
    // The generated entries come with their ampersands doubled already.
    if (attribut(bloc, "gControl:").isEmpty()) texte = DoublerEsperluettes(texte);
    item.Raccourci = raccourci;
    // "Tip:" written with nothing after it reads "0": no tip at all.
    const QString conseil = attribut(bloc, "Tip:");
    item.Conseil = conseil.isEmpty() ? TipDefaut : (conseil == u"0" ? QString() : conseil);

    bool estBarre = !attribut(bloc, "Sidebar").isEmpty();
    if (estBarre && position != 0) {
        texte.clear();  // a sidebar anywhere but first is an empty item: a bar
        estBarre = false;
    }
    *barre = estBarre;
    if (estBarre) {
        item.Etat = quint16(kEtatBarre | (etatQt & kEtatGrise));
        item.Raccourci = QStringLiteral("Remeasure");
        item.Texte.clear();
        item.Largeur = qMax(kLargeurBarreMin, entier(attribut(bloc, "Width:"), 0));
        item.texteAction = QString();
        action->setText(QString());
        action->setVisible(false);
        item.texteAction = action->text();
        return index;
    }
    if (EstSeparateur(texte)) {
        if (!attribut(bloc, "Raised").isEmpty()) item.Etat |= kEtatRelief;
        item.Etat |= kEtatSeparateur | kEtatGrise;
        item.Etat &= quint16(~(kEtatCoche | kEtatDefaut));
        item.Texte = texte.startsWith(u'-') ? texte.mid(1) : texte;
        item.Raccourci.clear();
        action->setEnabled(false);
    } else {
        item.Texte = texte;
        if (!attribut(bloc, "Default").isEmpty()) item.Etat |= kEtatDefaut;
        const QString touche = attribut(bloc, "HotKey:");
        if (!touche.isEmpty()) item.Raccourci = touche;
        for (const char *motListe : {"LB:", "CB:"}) {
            const QString nom = attribut(bloc, motListe);
            if (nom.isEmpty() || !fenetre_) continue;
            item.ListeLiee = fenetre_->findChild<QWidget *>(nom);
            item.TypeListe = motListe[0] == 'L' ? 1 : 0;
        }
        item.ControleLie = entier(attribut(bloc, "gControl:"), 0);
        item.TypeListe = quint8(entier(attribut(bloc, "gType:"), item.TypeListe));
        const QString couleur = attribut(bloc, "LColor:");
        if (!couleur.isEmpty() && couleur.trimmed() != u"-1") item.Etat |= kEtatNuancier;
        if (!attribut(bloc, "LFont:").isEmpty()) item.Etat |= kEtatEchantillon;
        const ReferenceImage ref = LireImage(attribut(bloc, "IMG:"));
        if (ref.genre == ReferenceImage::Genre::ListeImages && images_ && images_->existe(int(ref.numero)))
            item.Image = u'i' + QString::number(ref.numero);
        else if (ref.genre == ReferenceImage::Genre::Controle)
            item.Image = ref.index >= 0 ? ref.nom + u'(' + QString::number(ref.index) + u')' : ref.nom;
        item.FondImage = ref.genre == ReferenceImage::Genre::Controle && !attribut(bloc, "ImgBkg").isEmpty();
        lireFichierOuLecteur(item, bloc);
        // An entry of a generated list is never a list itself; any other item with a
        // list keyword, or linked to a list control, stands for its submenu.
        const bool entree = !attribut(bloc, "gControl:").isEmpty() || !attribut(bloc, "gType:").isEmpty();
        if (!entree && (TrouverListe(bloc) != GenreListe::Aucune || item.ListeLiee)) {
            item.Etat |= kEtatListeGeneree;
            deplier(action, menu, item);
        }
        if (action->menu()) item.Raccourci.clear();
    }
    mesurerItem(item);
    // The shortcut stays in the record: a tab in the action's text would make Qt widen
    // the column by the shortcut's width a second time.
    action->setText(item.Texte);
    item.texteAction = action->text();
    return index;
}

void cMenuItems::deplier(QAction *action, QMenu *menu, TypeItemMenu &item) {
    if (action->menu() && action->menu()->property("korvaneGenere").toBool()) DestroyPopup(menu, item.Identifiant);
    QString texte, bloc, raccourci;
    SepareLegende(item.Legende, texte, bloc, raccourci);
    QList<EntreeListe> entrees;
    QString conseil = TipDefaut;
    if (TrouverListe(bloc) != GenreListe::Aucune) {
        entrees = DeplierMotCle(bloc, prochainIdListe_);
    } else {
        // A list that can't be shown as a menu (several columns, entries drawn their
        // own way) stays an ordinary item.
        const std::optional<QList<EntreeListe>> liste = DeplierListe(item.Legende, item.ListeLiee, prochainIdListe_);
        if (!liste) return;
        entrees = *liste;
        const QString tip = attribut(bloc, "Tip:");
        conseil = tip == u"0" ? QString() : tip;
    }
    auto *popup = new QMenu(menu);
    popup->setProperty("korvaneGenere", true);
    for (const EntreeListe &e : std::as_const(entrees)) {
        QAction *a = popup->addAction(e.legende);
        a->setProperty("korvaneIdMenu", e.identifiant);
        a->setCheckable(e.cochee);
        a->setChecked(e.cochee);
        a->setEnabled(!e.desactivee);
    }
    action->setMenu(popup);
    item.Etat |= kEtatSousMenu;
    auto *objet = new cMenuItems;
    objet->InitializeSubMenu(fenetre_, images_, tips_, true, popup, conseil);
    MenusDelegues.insert(QString::number(quintptr(popup)) + u'g', Delegation{popup, objet});
    suivreMenu(popup);
}

void cMenuItems::lireFichierOuLecteur(TypeItemMenu &item, const QString &bloc) {
    const QString dossier = attribut(bloc, "gEXE:");
    if (!dossier.isEmpty()) {
        // The entry's text is the file's name, its ampersands doubled for the menu.
        const QString chemin = GetShortFileName(dossier + QString(item.Texte).replace(QStringLiteral("&&"), QStringLiteral("&")));
        item.imageFichier = QFileIconProvider().icon(QFileInfo(chemin)).pixmap(16, 16).toImage();
        QString nom = DecoupeChemin(chemin, u'm');
        const QString extension = DecoupeChemin(chemin, u'E');
        if (nom.isEmpty()) nom = DecoupeChemin(chemin, u'N');
        if (nom.toLower() == nom && !nom.isEmpty()) nom[0] = nom[0].toUpper();
        QString montre = extension.isEmpty() || nom == DecoupeChemin(chemin, u'N') ? nom : nom + u'.' + extension.toLower();
        item.Texte = montre.replace(u'&', QStringLiteral("&&"));
        const QString description = GetFileDescription(chemin);
        if (!description.isEmpty()) item.Conseil = description;
        return;
    }
    const QString lecteur = attribut(bloc, "LDrv:").trimmed();
    if (lecteur.isEmpty()) return;
    // The root, then the kind of drive: "C:\ Fixed", "/media/clé Removable Media".
    static const QString kAmovible = QStringLiteral("Removable Media"), kReseau = QStringLiteral("Network/Mapped Drive");
    QString racine = lecteur, genre;
    if (const qsizetype barre = lecteur.indexOf(u'\\'); barre >= 0) {
        racine = lecteur.left(barre + 1);
        genre = lecteur.mid(barre + 1).trimmed();
    } else if (const qsizetype blanc = lecteur.lastIndexOf(u' '); blanc > 0) {
        for (const QString &g : {kAmovible, kReseau})
            if (lecteur.endsWith(g, Qt::CaseInsensitive)) genre = g;
        if (genre.isEmpty()) genre = lecteur.mid(blanc + 1);
        racine = lecteur.left(lecteur.size() - genre.size()).trimmed();
    }
    if (genre.compare(kAmovible, Qt::CaseInsensitive) == 0) {
        item.imageFichier = Art::iconeTheme(QStringLiteral("drive-removable-media"), 16).toImage();
        item.Texte += QStringLiteral(" Removable");
        return;
    }
    const QString etiquette = QStorageInfo(racine).name();
    if (etiquette.isEmpty()) return;
    item.Texte = genre.compare(kReseau, Qt::CaseInsensitive) == 0 ? item.Texte + u' ' + etiquette
                                                                   : etiquette + QStringLiteral("  (") + item.Texte + u')';
}

void cMenuItems::mesurerItem(TypeItemMenu &item) {
    const bool separateur = item.Etat & kEtatSeparateur;
    const QFont &police = PolicesMenus(separateur ? 3 : (item.Etat & kEtatDefaut) ? 2 : 1);
    const QFontMetrics mesures(police);
    int largeur = mesures.horizontalAdvance(item.Texte);
    int hauteur = mesures.height();
    if (item.Etat & kEtatEchantillon) {
        QString t, bloc, r;
        SepareLegende(item.Legende, t, bloc, r);
        PoliceNommee(attribut(bloc, "LFont:"));
        const QFontMetrics echantillon(PolicesMenus(6));
        largeur += echantillon.horizontalAdvance(item.Texte);
        hauteur = qMin(hauteur, echantillon.height());
    }
    // The shortcut stands at the right of the text, a blank apart.
    if (!item.Raccourci.isEmpty()) largeur += mesures.horizontalAdvance(u' ' + item.Raccourci);
    if (separateur && item.Texte.isEmpty()) {
        hauteur = 4;
    } else {
        if (!separateur) hauteur = qMax(hauteur, 20);
        largeur += 40;
    }
    item.Largeur = largeur;
    item.Hauteur = hauteur + 2;
    if ((item.Etat & kEtatListeGeneree) && !item.Raccourci.isEmpty()) {
        item.Largeur -= mesures.horizontalAdvance(u' ' + item.Raccourci);
        item.Raccourci.clear();
    }
}

void cMenuItems::disposer(QMenu *menu, int usable) {
    TypePanneau &panneau = *GetPanelItem(menu);
    panneau.HasImages = false;
    panneau.largeurImages = 16;
    panneau.pads.clear();
    // Column by column: the pad makes room for shortcuts and submenu arrows.
    QList<int> colonne;
    int hauteurColonne = 0, hauteurPremiere = -1, nombre = 0;
    bool raisonRendu = false;
    auto finirColonne = [&] {
        bool raccourci = false, sousMenu = false;
        for (int i : colonne) {
            raccourci |= !Items[i].Raccourci.isEmpty();
            sousMenu |= (Items[i].Etat & kEtatSousMenu) != 0;
        }
        int pad = 0;
        if (raccourci && DecalageSysteme() == 0) pad = sousMenu ? 35 : 15;
        for (int i : colonne) panneau.pads.insert(i, pad + ((Items[i].Etat & kEtatNuancier) ? 10 : 0));
        if (hauteurPremiere < 0) hauteurPremiere = hauteurColonne;
        colonne.clear();
        hauteurColonne = 0;
    };
    const bool avecBarre = panneau.indexBarre > 0;
    for (QAction *action : menu->actions()) {
        const int index = IndexItems.value(cleItem(menu, idAction(action)), 0);
        if (index == 0 || index == panneau.indexBarre || !action->isVisible()) continue;
        const TypeItemMenu &item = Items[index];
        ++nombre;
        panneau.HasImages |= !item.Image.isEmpty() || !item.imageFichier.isNull();
        // Pictures show at their own size, up to the item's height: 18 by 18 stays so.
        panneau.largeurImages = qMax(panneau.largeurImages, qMin(imageItem(item).width(), qMax(16, item.Hauteur - 4)));
        if (!item.Image.isEmpty() && !item.Image.startsWith(u'i')) raisonRendu = true;  // an image by name
        if (avecBarre && !colonne.isEmpty() && hauteurColonne + item.Hauteur + 1 > usable) finirColonne();
        colonne.append(index);
        hauteurColonne += item.Hauteur;
    }
    finirColonne();
    if (!avecBarre) {
        preparerAffichage(menu, 0);
        return;
    }
    TypeItemMenu &barre = Items[panneau.indexBarre];
    const bool otee = barre.Etat & kEtatBarreOtee;
    const int H = qMax(hauteurPremiere, 1);
    if (!otee && (barre.Hauteur != H || barre.Raccourci == u"Remeasure" || raisonRendu || nombre > 50 || panneau.barre.isNull())) {
        barre.Hauteur = H;
        rendreBarre(menu, H);
    }
    preparerAffichage(menu, otee ? 0 : panneau.largeurBarre);
}

void cMenuItems::rendreBarre(QMenu *menu, int hauteur) {
    if (cMenuItems *voisin = delegue(menu)) return voisin->rendreBarre(menu, hauteur);
    TypePanneau *panneau = GetPanelItem(menu);
    if (!panneau || panneau->indexBarre == 0) return;
    TypeItemMenu &item = Items[panneau->indexBarre];
    QString texte, bloc, raccourci;
    SepareLegende(item.Legende, texte, bloc, raccourci);
    const QImage image = imageBarre(attribut(bloc, "IMG:"));
    if (!image.isNull())
        rendreBarreImage(*panneau, item, bloc, hauteur);
    else if (QString copie = bloc; !ExtraireTexteBarre(copie).trimmed().isEmpty())
        rendreBarreTexte(*panneau, item, bloc, hauteur);
    else
        rendreBarreTexte(*panneau, item, barreParDefaut().chopped(1) + u'|', hauteur);
    item.Raccourci.clear();
    item.Hauteur = hauteur;
    item.Largeur = panneau->largeurBarre;
    panneau->hauteurBarre = hauteur;
    ++panneau->rendus;
}

int cMenuItems::largeurImages(QMenu *menu) {
    const TypePanneau *panneau = GetPanelItem(menu);
    return panneau ? panneau->largeurImages : 16;
}

QImage cMenuItems::imageItem(const TypeItemMenu &item) const {
    if (!item.imageFichier.isNull()) return item.imageFichier;
    if (item.Image.isEmpty()) return {};
    if (item.Image.startsWith(u'i')) return images_ ? images_->image(item.Image.mid(1).toInt()) : QImage();
    const auto *controle = fenetre_ ? fenetre_->findChild<QLabel *>(item.Image) : nullptr;
    return controle ? controle->pixmap().toImage() : QImage();
}

QImage cMenuItems::imageBarre(const QString &valeur) const {
    const ReferenceImage ref = LireImage(valeur);
    if (ref.genre == ReferenceImage::Genre::ListeImages && images_) return images_->image(int(ref.numero));
    if (ref.genre != ReferenceImage::Genre::Controle || !fenetre_) return {};
    const QString nom = ref.index >= 0 ? ref.nom + u'(' + QString::number(ref.index) + u')' : ref.nom;
    const auto *controle = fenetre_->findChild<QLabel *>(nom);
    return controle ? controle->pixmap().toImage() : QImage();
}

namespace {

// The back of a sidebar: BColor: (empty or 1: the menu's colour), a gradient towards
// GColor: when it differs, or for -1 the top left pixel of the picture.
void peindreFondBarre(QPainter &p, const QRect &rect, const QString &bloc, const QImage *image) {
    const QString valeurFond = LireAttribut(bloc, QStringLiteral("BColor:")).trimmed();
    int fond = CouleurMenu();
    if (!valeurFond.isEmpty() && valeurFond != u"1") fond = valeurFond == u"-1" ? -1 : LireCouleur(valeurFond, -1);
    const int degrade = LireCouleur(LireAttribut(bloc, QStringLiteral("GColor:")), 1);
    if (degrade != 1 && degrade != fond && fond >= 0) {
        Degrade(fond, degrade, false, p, rect);
    } else if (fond < 0) {
        p.fillRect(rect, image && !image->isNull() ? image->pixelColor(0, 0) : versCouleur(CouleurMenu()));
    } else {
        p.fillRect(rect, versCouleur(fond));
    }
}

}  // namespace

void cMenuItems::rendreBarreImage(TypePanneau &panneau, const TypeItemMenu &item, const QString &bloc, int H) {
    (void)item;
    const QImage image = imageBarre(attribut(bloc, "IMG:"));
    const int W = qMax(kLargeurBarreMin, entier(attribut(bloc, "Width:"), 0));
    const QString align = attribut(bloc, "Align:").trimmed().toUpper();
    QSize taille = image.size();
    if (taille.width() > W || taille.height() > H) taille = taille.scaled(W, H, Qt::KeepAspectRatio);
    const int x = (W - taille.width()) / 2;
    const int y = align == u"TOP" ? 0 : align == u"BOT" ? H - taille.height() : (H - taille.height()) / 2;
    QPixmap rendu(W, H);
    QPainter p(&rendu);
    peindreFondBarre(p, rendu.rect(), bloc, &image);
    const QRect cible(x, y, taille.width(), taille.height());
    if (!attribut(bloc, "Transparent").isEmpty()) {
        DessinerTransparent(p, cible, image, -1);
    } else {
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(cible, image);
    }
    p.end();
    panneau.barre = rendu;
    panneau.largeurBarre = W;
}

void cMenuItems::rendreBarreTexte(TypePanneau &panneau, TypeItemMenu &item, QString bloc, int H) {
    const QString texte = ExtraireTexteBarre(bloc);
    const QString famille = attribut(bloc, "Font:").isEmpty() ? QStringLiteral("Arial") : attribut(bloc, "Font:");
    const int taille = qBound(7, entier(attribut(bloc, "FSize:"), 11), 24);
    const int tailleMin = qBound(5, entier(attribut(bloc, "MinFSize:"), 5), taille);
    int W = qMax(kLargeurBarreMin, entier(attribut(bloc, "Width:"), 0));
    const int couleurTexte = LireCouleur(attribut(bloc, "FColor:"), 0);
    QFont police(famille);
    police.setWeight(attribut(bloc, "Bold").isEmpty() ? QFont::Normal : QFont::ExtraBold);
    police.setItalic(!attribut(bloc, "Italic").isEmpty());
    police.setUnderline(!attribut(bloc, "Underline").isEmpty());

    // The largest size, and then the fewest lines, with which the text fits along H.
    QStringList lignes{texte};
    int points = taille;
    police.setPointSize(points);
    QString joint = ComposerLignes(lignes, true, QFontMetrics(police), H);
    int w = 0, h = 0;
    for (;;) {
        auto mesurer = [&] {
            const QRect r = QFontMetrics(police).boundingRect(QRect(0, 0, 100000, 100000), Qt::AlignCenter, joint);
            w = r.width();
            h = r.height();
        };
        mesurer();
        while (w + 6 > H || h > W) {
            if (points - 1 < tailleMin) break;
            police.setPointSize(--points);
            mesurer();
        }
        if (w + 6 <= H) break;
        if (h < W) {
            points = taille;
            police.setPointSize(points);
        }
        const QString suivant = ComposerLignes(lignes, false, QFontMetrics(police), H);
        if (suivant.isEmpty()) break;
        joint = suivant;
    }
    if (h + 6 > W) W = h + 6;
    QPixmap rendu(W, H);
    QPainter p(&rendu);
    peindreFondBarre(p, rendu.rect(), bloc, nullptr);
    p.setFont(police);
    p.setPen(versCouleur(couleurTexte));
    const QFontMetrics mesures(police);
    const qreal pas = mesures.boundingRect(QStringLiteral("X")).height() * 1.5;
    const QString align = attribut(bloc, "Align:").trimmed().toUpper();
    // Written from bottom to top: the painter turned a quarter left.
    p.rotate(-90);
    qreal travers = (W - h) / 2.0 + mesures.ascent();
    for (QString ligne : std::as_const(lignes)) {
        ligne.replace(QStringLiteral("<br0>"), QStringLiteral(" "), Qt::CaseInsensitive);
        ligne.replace(QStringLiteral("<br>"), QStringLiteral(" "), Qt::CaseInsensitive);
        const int t = mesures.horizontalAdvance(ligne);
        const int depart = align == u"BOT" ? H - 3 : align == u"TOP" ? t + 3 : (H - t) / 2 + t;
        p.drawText(QPointF(-depart, travers), ligne);
        travers += pas;
    }
    p.end();
    panneau.barre = rendu;
    panneau.largeurBarre = W;
    item.Largeur = W;
}

bool cMenuItems::MenuSelected(int id, QMenu *menu, bool isSystem) {
    if (!isSystem)
        if (cMenuItems *voisin = delegue(menu)) return voisin->MenuSelected(id, menu, isSystem);
    const TypeItemMenu *item = GetMenuItem(id, menu);
    if (!item) return false;
    return RouterChoix(item->Legende, tips_, item->ListeLiee, fenetre_);
}

void cMenuItems::UpdateMenuItems(QMenu *menu) {
    // After the loop, what the application changed meanwhile on its actions shows
    // at the next opening: check and enabled states follow the actions.
    for (QAction *action : menu->actions()) {
        const int index = IndexItems.value(cleItem(menu, idAction(action)), 0);
        if (index == 0) continue;
        TypeItemMenu &item = Items[index];
        if (item.Etat & (kEtatSeparateur | kEtatBarre)) continue;
        item.Etat = quint16((item.Etat & ~(kEtatCoche | kEtatGrise)) | (etatAction(action, menu) & (kEtatCoche | kEtatGrise)));
    }
}

void cMenuItems::DestroyPopup(QMenu *menu, int id) {
    const TypeItemMenu *item = GetMenuItem(id, menu);
    QMenu *popup = item && item->action ? item->action->menu() : nullptr;
    if (!popup) return;
    const QString cle = QString::number(quintptr(popup)) + u'g';
    delete MenusDelegues.take(cle).objet;
    IndexPanneaux.remove(clePanneau(popup));
    item->action->setMenu(nullptr);
    delete popup;
}

void cMenuItems::oublierAction(QAction *action, QMenu *menu) {
    bool ok = false;
    const int id = action ? action->property(kProprieteId).toInt(&ok) : 0;
    if (!ok) return;
    const int index = IndexItems.take(cleItem(menu, id));
    if (index <= 0) return;
    if (index == Items.size() - 1) {
        Items.removeLast();
    } else {
        Items[index] = TypeItemMenu{};
        libres_.append(index);
    }
}
