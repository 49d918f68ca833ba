#include "cMenuItems.h"

#include "ChoixMenus.h"
#include "menus/FichiersMenus.h"
#include "menus/Legende.h"
#include "ListesMenus.h"
#include "menus/cTips.h"
#include "grid/ListeImages.h"
#include "menus/fenetres/BarreMenus.h"
#include "menus/fenetres/PeintreMenus.h"
#include "ui/Art.h"

#include <QAction>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QStorageInfo>

using namespace modMenus;

namespace {

constexpr char kProprieteId[] = "korvaneIdMenu";

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
cMenuItems::~cMenuItems() = default;

cMenuItems *cMenuItems::delegue(const QMenu *menu) const {
    const auto it = menus_.find(menu);
    // A submenu gone since leaves its entry behind; a new menu at the same address is not it.
    return it != menus_.end() && it->second.delegue && it->second.menuDelegue == menu ? it->second.delegue.get() : nullptr;
}

TypeItemMenu *cMenuItems::trouverItem(const QMenu *menu, int id) const {
    const auto it = menus_.find(menu);
    if (it == menus_.end()) return nullptr;
    const auto record = it->second.items.find(id);
    return record != it->second.items.end() ? record->second.get() : nullptr;
}

TypePanneau *cMenuItems::trouverPanneau(const QMenu *menu) const {
    const auto it = menus_.find(menu);
    return it != menus_.end() ? it->second.panneau.get() : nullptr;
}

int cMenuItems::nombreItems() const {
    int n = 0;
    for (const auto &[menu, records] : menus_) n += int(records.items.size());
    return n;
}

int cMenuItems::nombrePanneaux() const {
    int n = 0;
    for (const auto &[menu, records] : menus_) n += records.panneau ? 1 : 0;
    return n;
}

int cMenuItems::idAction(QAction *action) {
    static int prochain = 1;
    bool ok = false;
    const int id = action->property(kProprieteId).toInt(&ok);
    if (ok && id > 0) return id;
    action->setProperty(kProprieteId, prochain);
    return prochain++;
}

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
    if (menu && !trouverPanneau(menu)) {
        RecordsMenu &records = menus_[menu];
        records.panneau = std::make_unique<TypePanneau>();
        records.panneau->menu = menu;
    }
    TipDefaut = tipDefaut;
}

const TypeItemMenu *cMenuItems::GetMenuItem(int id, QMenu *menu) const {
    if (const cMenuItems *voisin = delegue(menu)) return voisin->GetMenuItem(id, menu);
    return trouverItem(menu, id);
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
    const TypePanneau *p = trouverPanneau(menu);
    const TypeItemMenu *record = ok ? trouverItem(menu, id) : nullptr;
    if (!p || !record) return 0;
    const auto pad = p->pads.find(record);
    return pad != p->pads.end() ? pad->second : 0;
}

TypePanneau *cMenuItems::GetPanelItem(QMenu *menu) {
    if (cMenuItems *voisin = delegue(menu)) return voisin->GetPanelItem(menu);
    return trouverPanneau(menu);
}

QString cMenuItems::Tips(int id, QMenu *menu) {
    if (cMenuItems *voisin = delegue(menu)) return voisin->Tips(id, menu);
    const TypeItemMenu *record = GetMenuItem(id, menu);
    return record ? record->Conseil : QString();
}

bool cMenuItems::IsWindowList(QMenu *menu, bool isSystem) {
    if (cMenuItems *voisin = delegue(menu)) return voisin->IsWindowList(menu, isSystem);
    int usable = hauteurUtile(menu);
    TypeItemMenu *barre = nullptr;  // the sidebar's record
    int colonnes = 1, hauteurColonne = 0;
    const QList<QAction *> actions = menu->actions();
    for (int position = 0; position < actions.size(); ++position) {
        QAction *action = actions[position];
        bool estBarre = false;
        TypeItemMenu *record = analyserItem(action, menu, position, isSystem, &estBarre);
        // A generated list is made anew at each opening: a list control may have changed.
        if (record->Etat & kEtatListeGeneree) deplier(action, menu, *record);
        if (estBarre) {
            barre = record;
            continue;
        }
        if (!action->isVisible()) continue;
        // One more column once this one is full; the columns after the second stop
        // where the first did. The frame's line above the first item counts.
        const int h = record->Hauteur;
        if (barre && hauteurColonne > 0 && hauteurColonne + h + 1 > usable) {
            if (++colonnes == 2) usable = hauteurColonne + 1;
            hauteurColonne = 0;
        }
        hauteurColonne += h;
    }
    if (!trouverPanneau(menu)) InitializeSubMenu(fenetre_, nullptr, tips_, true, menu, TipDefaut);
    TypePanneau &p = *trouverPanneau(menu);
    p.colonnes = colonnes;
    p.itemBarre = barre;
    if (barre) {
        QString texte, bloc, raccourci;
        SepareLegende(barre->Legende, texte, bloc, raccourci);
        // A sidebar that can't scroll with the columns leaves the menu; its items stay.
        if (colonnes >= 2 && !attribut(bloc, "NoScroll").isEmpty())
            barre->Etat |= kEtatBarreOtee;
        else
            barre->Etat &= quint16(~kEtatBarreOtee);
    }
    disposer(menu, usable);
    return true;
}

TypeItemMenu *cMenuItems::analyserItem(QAction *action, QMenu *menu, int position, bool isSystem, bool *barre) {
    (void)isSystem;
    const int id = idAction(action);
    std::unique_ptr<TypeItemMenu> &record = menus_[menu].items[id];
    const quint16 etatQt = etatAction(action, menu);
    if (record && action->text() == record->texteAction && record->action == action) {
        // A known item keeps its record; only the states of the platform are refreshed.
        TypeItemMenu &item = *record;
        constexpr quint16 kEtatsQt = kEtatCoche | kEtatDefaut | kEtatSousMenu;
        if (!(item.Etat & (kEtatSeparateur | kEtatBarre)))
            item.Etat = quint16((item.Etat & ~(kEtatsQt | kEtatGrise)) | etatQt);
        *barre = (item.Etat & kEtatBarre) && position == 0;
        return &item;
    }
    // Made anew in place: the panel's pads and sidebar keep pointing at it.
    if (record)
        *record = TypeItemMenu{};
    else
        record = std::make_unique<TypeItemMenu>();
    TypeItemMenu &item = *record;
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
        return &item;
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
    return &item;
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
    RecordsMenu &records = menus_[popup];
    records.menuDelegue = popup;
    records.delegue = std::make_unique<cMenuItems>();
    records.delegue->InitializeSubMenu(fenetre_, images_, tips_, true, popup, conseil);
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
    const QFont &police = PolicesMenus(separateur ? 3 : (item.Etat & kEtatDefaut) ? 2
                                                                                  : 1);
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
    TypePanneau &panneau = *trouverPanneau(menu);
    panneau.HasImages = false;
    panneau.largeurImages = 16;
    panneau.pads.clear();
    // Column by column: the pad makes room for shortcuts and submenu arrows.
    QList<const TypeItemMenu *> colonne;
    int hauteurColonne = 0, hauteurPremiere = -1, nombre = 0;
    bool raisonRendu = false;
    auto finirColonne = [&] {
        bool raccourci = false, sousMenu = false;
        for (const TypeItemMenu *i : std::as_const(colonne)) {
            raccourci |= !i->Raccourci.isEmpty();
            sousMenu |= (i->Etat & kEtatSousMenu) != 0;
        }
        int pad = 0;
        if (raccourci && DecalageSysteme() == 0) pad = sousMenu ? 35 : 15;
        for (const TypeItemMenu *i : std::as_const(colonne)) panneau.pads[i] = pad + ((i->Etat & kEtatNuancier) ? 10 : 0);
        if (hauteurPremiere < 0) hauteurPremiere = hauteurColonne;
        colonne.clear();
        hauteurColonne = 0;
    };
    const bool avecBarre = panneau.itemBarre != nullptr;
    for (QAction *action : menu->actions()) {
        const TypeItemMenu *record = trouverItem(menu, idAction(action));
        if (!record || record == panneau.itemBarre || !action->isVisible()) continue;
        const TypeItemMenu &item = *record;
        ++nombre;
        panneau.HasImages |= !item.Image.isEmpty() || !item.imageFichier.isNull();
        // Pictures show at their own size, up to the item's height: 18 by 18 stays so.
        panneau.largeurImages = qMax(panneau.largeurImages, qMin(imageItem(item).width(), qMax(16, item.Hauteur - 4)));
        if (!item.Image.isEmpty() && !item.Image.startsWith(u'i')) raisonRendu = true;  // an image by name
        if (avecBarre && !colonne.isEmpty() && hauteurColonne + item.Hauteur + 1 > usable) finirColonne();
        colonne.append(record);
        hauteurColonne += item.Hauteur;
    }
    finirColonne();
    panneau.margeGauche = 0;
    if (!avecBarre) return;
    TypeItemMenu &barre = *panneau.itemBarre;
    const bool otee = barre.Etat & kEtatBarreOtee;
    const int H = qMax(hauteurPremiere, 1);
    if (!otee && (barre.Hauteur != H || barre.Raccourci == u"Remeasure" || raisonRendu || nombre > 50 || panneau.barre.isNull())) {
        barre.Hauteur = H;
        rendreBarre(menu, H);
    }
    panneau.margeGauche = otee ? 0 : panneau.largeurBarre;
}

void cMenuItems::rendreBarre(QMenu *menu, int hauteur) {
    if (cMenuItems *voisin = delegue(menu)) return voisin->rendreBarre(menu, hauteur);
    TypePanneau *panneau = trouverPanneau(menu);
    if (!panneau || !panneau->itemBarre) return;
    TypeItemMenu &item = *panneau->itemBarre;
    QString texte, bloc, raccourci;
    SepareLegende(item.Legende, texte, bloc, raccourci);
    const QImage image = imageBarre(attribut(bloc, "IMG:"));
    if (!image.isNull())
        rendreBarreImage(*panneau, image, bloc, hauteur);
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

bool cMenuItems::MenuSelected(int id, QMenu *menu, bool isSystem) {
    if (!isSystem)
        if (cMenuItems *voisin = delegue(menu)) return voisin->MenuSelected(id, menu, isSystem);
    const TypeItemMenu *record = GetMenuItem(id, menu);
    if (!record) return false;
    return RouterChoix(record->Legende, tips_, record->ListeLiee, fenetre_);
}

void cMenuItems::UpdateMenuItems(QMenu *menu) {
    // After the loop, what the application changed meanwhile on its actions shows
    // at the next opening: check and enabled states follow the actions.
    for (QAction *action : menu->actions()) {
        TypeItemMenu *record = trouverItem(menu, idAction(action));
        if (!record || (record->Etat & (kEtatSeparateur | kEtatBarre))) continue;
        record->Etat = quint16((record->Etat & ~(kEtatCoche | kEtatGrise)) | (etatAction(action, menu) & (kEtatCoche | kEtatGrise)));
    }
}

void cMenuItems::DestroyPopup(QMenu *menu, int id) {
    const TypeItemMenu *record = GetMenuItem(id, menu);
    QMenu *popup = record && record->action ? record->action->menu() : nullptr;
    if (!popup) return;
    menus_.erase(popup);
    record->action->setMenu(nullptr);
    delete popup;
}

void cMenuItems::oublierAction(QAction *action, QMenu *menu) {
    bool ok = false;
    const int id = action ? action->property(kProprieteId).toInt(&ok) : 0;
    const auto it = ok ? menus_.find(menu) : menus_.end();
    if (it == menus_.end()) return;
    const auto record = it->second.items.find(id);
    if (record == it->second.items.end()) return;
    // The panel forgets the record before it goes.
    if (TypePanneau *p = it->second.panneau.get()) {
        p->pads.erase(record->second.get());
        if (p->itemBarre == record->second.get()) p->itemBarre = nullptr;
    }
    it->second.items.erase(record);
}
