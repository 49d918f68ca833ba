#include "modMenus.h"

#include "menus/Legende.h"
#include "cMenuItems.h"
#include "menus/cTips.h"
#include "grid/ListeImages.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleOptionMenuItem>

#include <array>
#include <memory>

namespace modMenus {

namespace {

class StyleMenus;
class FiltreMenus;

struct EtatGlobal {
    // One object per attached window, by its address and "h".
    QHash<QString, cMenuItems *> ObjetsFenetres;
    // The menus prepared in the current menu loop; absent between loops.
    std::unique_ptr<QHash<QString, QPointer<QMenu>>> MenusOuverts;
    QString CleCourante = QStringLiteral("h0");
    std::array<QFont, 8> PolicesMenus;
    bool polices = false;
    bool policesSoulignees = false;
    QString nomPolice6;
    int CouleurSelection = 0;
    bool survolClavier = false;  // the last move in the open menu came from the keyboard
    StyleMenus *style = nullptr;
    FiltreMenus *filtre = nullptr;
};

EtatGlobal &etat() {
    static EtatGlobal e;
    return e;
}

bool optSoulignement = false, optDegrade = false, optRelief = false, optBarreAuto = false;

QString cleFenetre(const QObject *fenetre) { return QString::number(quintptr(fenetre)) + u'h'; }
QString cleMenu(const QObject *menu) { return QString::number(quintptr(menu)) + u'm'; }

// The window whose object prepares this menu: the first attached window among its parents.
cMenuItems *TrouverObjet(const QWidget *menu) {
    for (const QObject *o = menu; o; o = o->parent())
        if (cMenuItems *objet = etat().ObjetsFenetres.value(cleFenetre(o))) return objet;
    return nullptr;
}

void creerPolices() {
    EtatGlobal &e = etat();
    const QFont menu = QApplication::font("QMenu");
    e.PolicesMenus.fill(menu);
    e.PolicesMenus[2].setWeight(QFont::ExtraBold);
    const qreal points = menu.pointSizeF() > 0 ? menu.pointSizeF() : 9;
    const qreal reduite = points * 0.8 < 7.5 ? points - 0.5 : points * 0.8;
    e.PolicesMenus[3].setPointSizeF(reduite);
    e.polices = true;
    e.policesSoulignees = false;
    e.nomPolice6.clear();
    e.CouleurSelection = CouleurReelle(couleurSysteme(13));
}

void creerPolicesSoulignees() {
    EtatGlobal &e = etat();
    if (!e.polices || e.policesSoulignees) return;
    e.PolicesMenus[4] = e.PolicesMenus[1];
    e.PolicesMenus[4].setUnderline(true);
    e.PolicesMenus[5] = e.PolicesMenus[4];
    e.PolicesMenus[5].setWeight(QFont::ExtraBold);
    e.policesSoulignees = true;
}

// ---- The painter ------------------------------------------------------------------

QColor systeme(int index) { return versCouleur(CouleurReelle(couleurSysteme(index))); }

void DessinerCoche(QPainter &p, const QRect &boite, const QColor &couleur) {
    QPainterPath trait;
    const QPointF c = QRectF(boite).center();
    trait.moveTo(c.x() - 4, c.y());
    trait.lineTo(c.x() - 1, c.y() + 3);
    trait.lineTo(c.x() + 4, c.y() - 3);
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(couleur, 2));
    p.drawPath(trait);
    p.restore();
}

QImage imageGrisee(const QImage &source) {
    QImage gris = source.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < gris.height(); ++y) {
        auto *ligne = reinterpret_cast<QRgb *>(gris.scanLine(y));
        for (int x = 0; x < gris.width(); ++x) {
            const int v = 128 + qGray(ligne[x]) / 2;
            ligne[x] = qRgba(v, v, v, qAlpha(ligne[x]) / 2);
        }
    }
    return gris;
}

// The picture at its own size in the column, or scaled down when it is larger.
void DessinerImage(QPainter &p, const QRect &rect, const QImage &image, bool fondImage) {
    if (image.isNull()) return;
    if (!fondImage) p.setRenderHint(QPainter::SmoothPixmapTransform);
    QSize taille = image.size();
    if (taille.width() > rect.width() || taille.height() > rect.height()) taille.scale(rect.size(), Qt::KeepAspectRatio);
    p.drawImage(QRect(rect.x() + (rect.width() - taille.width()) / 2, rect.y() + (rect.height() - taille.height()) / 2,
                      taille.width(), taille.height()),
                image);
}

// One item, stage by stage; a stage that fails leaves the item as painted so far.
// colonne: the width of the menu's image column, 16 unless a picture is wider.
void DessinerItem(QPainter &p, const cMenuItems &objet, const TypeItemMenu &item, const QStyleOptionMenuItem &opt, int colonne) {
    const QRect r = opt.rect;
    const int enPlus = colonne - 16;  // what a wider column pushes the text along
    QString etape = QStringLiteral("getting attributes");
    try {
        const bool selectionne = opt.state & QStyle::State_Selected;
        const bool grise = !(opt.state & QStyle::State_Enabled) || (item.Etat & kEtatGrise);
        const bool coche = item.Etat & kEtatCoche;
        const bool survolSimple = etat().survolClavier || optRelief;

        etape = QStringLiteral("converting colors");
        const int menu = CouleurMenu();
        const bool surligne = selectionne && !grise;
        const QColor fond = versCouleur(surligne ? CouleurReelle(couleurSysteme(13)) : menu);

        etape = QStringLiteral("drawing back rect");
        if (surligne && optDegrade)
            Degrade(menu, etat().CouleurSelection, true, p, r);
        else
            p.fillRect(r, fond);
        const QRect boite(r.left() + 1, r.top() + 1, 19 + enPlus, r.height() - 2);
        const QImage image = objet.imageItem(item);
        if (!image.isNull() && surligne && !optDegrade) p.fillRect(boite, versCouleur(menu));

        if (item.Etat & kEtatSeparateur) {
            etape = QStringLiteral("drawing separator bars");
            const bool releve = item.Etat & kEtatRelief;
            const int milieu = r.top() + r.height() / 2;
            if (item.Texte.isEmpty()) {
                Bordure3D(p, QRect(r.left() + 2, milieu - 1, r.width() - 4, 2), releve);
                return;
            }
            const QRect zone = r.adjusted(1, 0, 0, 0);
            p.setFont(PolicesMenus(3));
            const int largeur = QFontMetrics(PolicesMenus(3)).horizontalAdvance(item.Texte);
            const int gauche = zone.left() + (zone.width() - largeur) / 2;
            p.setPen(systeme(13));
            p.drawText(QRect(gauche, zone.top(), largeur, zone.height()), Qt::AlignCenter | Qt::TextHideMnemonic, item.Texte);
            Bordure3D(p, QRect(zone.left() + 2, milieu - 1, gauche - zone.left() - 6, 2), releve);
            Bordure3D(p, QRect(gauche + largeur + 4, milieu - 1, zone.right() - gauche - largeur - 6, 2), releve);
            return;
        }

        const bool imageSimple = !selectionne && !optBarreAuto;
        if ((!image.isNull() || coche) && !imageSimple) {
            etape = QStringLiteral("drawing icon back button");
            if (coche) p.fillRect(boite, systeme(22));
            else if (optBarreAuto) p.fillRect(boite, versCouleur(menu));
        }
        // Sunken round a checked item's box, raised round a hovered one's.
        if ((!image.isNull() || coche) && (coche || surligne) && !(survolSimple && !coche)) {
            etape = QStringLiteral("drawing icon border");
            Bordure3D(p, boite, !coche);
        }
        if (coche && image.isNull()) {
            if (grise) {
                DessinerCoche(p, boite.translated(1, 1), systeme(14));
                DessinerCoche(p, boite, systeme(17));
            } else {
                DessinerCoche(p, boite, surligne ? systeme(14) : systeme(7));
            }
        }

        int slot = (item.Etat & kEtatDefaut) ? 2 : 1;
        if (optSoulignement && selectionne) slot += 3;
        if (item.Etat & kEtatEchantillon) {
            // A font list entry shows itself in its own font.
            QString t, bloc, rc;
            SepareLegende(item.Legende, t, bloc, rc);
            PoliceNommee(LireAttribut(bloc, QStringLiteral("LFont:")));
            slot = optSoulignement && selectionne ? 7 : 6;
        }
        const QFont &police = PolicesMenus(slot);
        p.setFont(police);
        const QRect zoneTexte(r.left() + 23 + enPlus, r.top(), r.width() - 23 - enPlus - 16, r.height());
        const int alignTexte = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextSingleLine;
        const int alignRaccourci = Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine;
        if (grise) {
            if (!selectionne) {
                p.setPen(systeme(14));
                p.drawText(zoneTexte.translated(1, 1), alignTexte, item.Texte);
                p.drawText(zoneTexte.translated(1, 1), alignRaccourci, item.Raccourci);
            }
            etape = QStringLiteral("Drawing disabled text");
            p.setPen(systeme(17));
        } else {
            p.setPen(surligne ? systeme(14) : systeme(7));
        }
        p.drawText(zoneTexte, alignTexte, item.Texte);
        if (!item.Raccourci.isEmpty()) p.drawText(zoneTexte, alignRaccourci, item.Raccourci);

        if (!image.isNull()) {
            etape = QStringLiteral("drawing icons");
            const int haut = qMin(colonne, r.height() - 2);
            const QRect cadre(boite.left() + 2, r.top() + (r.height() - haut) / 2, colonne, haut);
            if (grise) {
                DessinerImage(p, cadre, imageGrisee(image), item.FondImage);
            } else if (surligne && optBarreAuto) {
                // Two layers: the picture's shadow, and the picture lifted above it.
                DessinerImage(p, cadre.translated(1, 1), imageGrisee(image), item.FondImage);
                DessinerImage(p, cadre.translated(-1, -1), image, item.FondImage);
            } else {
                DessinerImage(p, cadre, image, item.FondImage);
            }
        }
        if (item.Etat & kEtatNuancier) {
            QString t, bloc, rc;
            SepareLegende(item.Legende, t, bloc, rc);
            const int couleur = LireCouleur(LireAttribut(bloc, QStringLiteral("LColor:")), -1);
            if (couleur != -1) {
                const QRect nuance(r.right() - 22, r.top() + 3, 16, r.height() - 6);
                p.fillRect(nuance, versCouleur(couleur));
                p.setPen(systeme(16));
                p.drawRect(nuance.adjusted(0, 0, -1, -1));
            }
        }
    } catch (...) {
        // Only this item stays as far as it got, and the menu goes on; the stage is
        // where a debugger finds it.
        (void)etape;
    }
}

// ---- The engine's style for the menus it prepared -------------------------------

class StyleMenus : public QProxyStyle {
public:
    StyleMenus() : QProxyStyle() {}

    int pixelMetric(PixelMetric m, const QStyleOption *o, const QWidget *w) const override {
        switch (m) {
        case PM_MenuPanelWidth: return 1;
        case PM_MenuHMargin:
        case PM_MenuVMargin: return 0;
        case PM_MenuDesktopFrameWidth: return 3;
        default: return QProxyStyle::pixelMetric(m, o, w);
        }
    }
    int styleHint(StyleHint h, const QStyleOption *o, const QWidget *w, QStyleHintReturn *r) const override {
        if (h == SH_Menu_Scrollable) return 0;  // a long menu wraps into columns
        if (h == SH_Menu_SupportsSections) return 0;
        return QProxyStyle::styleHint(h, o, w, r);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption *o, const QSize &taille, const QWidget *w) const override {
        auto *menu = qobject_cast<QMenu *>(const_cast<QWidget *>(w));
        const auto *opt = qstyleoption_cast<const QStyleOptionMenuItem *>(o);
        cMenuItems *objet = menu ? TrouverObjet(menu) : nullptr;
        if (type != CT_MenuItem || !opt || !objet) return QProxyStyle::sizeFromContents(type, o, taille, w);
        // Qt measures the visible actions in their order: the next one whose text this is.
        const QList<QAction *> actions = menu->actions();
        int &curseur = curseurs_[menu];
        const QString texte = opt->text;
        auto convient = [&](int i) {
            QAction *a = actions[i];
            return a->isVisible() && (a->text() == texte || a->text().section(u'\t', 0, 0) == texte.section(u'\t', 0, 0));
        };
        int trouve = -1;
        for (int i = curseur; i < actions.size() && trouve < 0; ++i)
            if (convient(i)) trouve = i;
        for (int i = 0; i < curseur && i < actions.size() && trouve < 0; ++i)
            if (convient(i)) trouve = i;
        if (trouve < 0) return QProxyStyle::sizeFromContents(type, o, taille, w);
        curseur = trouve + 1 < actions.size() ? trouve + 1 : 0;
        const TypeItemMenu *item = objet->itemAction(actions[trouve], menu);
        if (!item) return QProxyStyle::sizeFromContents(type, o, taille, w);
        // Qt drops an item of no width; an empty bar is as wide as its column anyway.
        return {qMax(1, item->Largeur + objet->padAction(actions[trouve], menu) + objet->largeurImages(menu) - 16), item->Hauteur};
    }

    void drawPrimitive(PrimitiveElement pe, const QStyleOption *o, QPainter *p, const QWidget *w) const override {
        if (pe == PE_PanelMenu && TrouverObjet(w)) {
            p->fillRect(o->rect, versCouleur(CouleurMenu()));
            return;
        }
        if (pe == PE_FrameMenu && TrouverObjet(w)) {
            Bordure3D(*p, o->rect, true);
            return;
        }
        QProxyStyle::drawPrimitive(pe, o, p, w);
    }

    void drawControl(ControlElement ce, const QStyleOption *o, QPainter *p, const QWidget *w) const override {
        auto *menu = qobject_cast<QMenu *>(const_cast<QWidget *>(w));
        cMenuItems *objet = menu ? TrouverObjet(menu) : nullptr;
        if (!objet) return QProxyStyle::drawControl(ce, o, p, w);
        if (ce == CE_MenuEmptyArea) {
            p->fillRect(o->rect, versCouleur(CouleurMenu()));
            peindreBarre(*p, *objet, menu);
            return;
        }
        const auto *opt = qstyleoption_cast<const QStyleOptionMenuItem *>(o);
        if (ce != CE_MenuItem || !opt) return QProxyStyle::drawControl(ce, o, p, w);
        QAction *action = menu->actionAt(opt->rect.center());
        const TypeItemMenu *item = action ? objet->itemAction(action, menu) : nullptr;
        if (!item) return QProxyStyle::drawControl(ce, o, p, w);
        p->save();
        DessinerItem(*p, *objet, *item, *opt, objet->largeurImages(menu));
        p->restore();
    }

    void oublier(QMenu *menu) { curseurs_.remove(menu); }

private:
    // The sidebar band: the panel's picture along the left edge, inside the frame.
    static void peindreBarre(QPainter &p, cMenuItems &objet, QMenu *menu) {
        TypePanneau *panneau = objet.GetPanelItem(menu);
        if (!panneau || panneau->indexBarre == 0) return;
        const TypeItemMenu *barre = objet.GetMenuItem(cMenuItems::idAction(menu->actions().value(0)), menu);
        if (!barre || (barre->Etat & kEtatBarreOtee)) return;
        const int cadre = 1;
        const QRect bande(cadre, cadre, panneau->largeurBarre, menu->height() - 2 * cadre);
        if (bande.height() > 0 && bande.height() != panneau->hauteurBarre) objet.rendreBarre(menu, bande.height());
        if (!panneau->barre.isNull()) p.drawPixmap(bande, panneau->barre);
    }

    mutable QHash<const QMenu *, int> curseurs_;
};

// ---- The moments of a menu's life ---------------------------------------------

void initMenuPopup(QMenu *menu);
void finBoucle(QMenu *menu);

class FiltreMenus : public QObject {
public:
    using QObject::QObject;

    // A menu of an attached window is followed from its first showing on.
    void suivre(QMenu *menu) {
        if (menu->property("korvaneSuivi").toBool()) return;
        menu->setProperty("korvaneSuivi", true);
        menu->installEventFilter(this);
        QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] { initMenuPopup(menu); });
        QObject::connect(menu, &QMenu::aboutToHide, menu, [menu] { finBoucle(menu); });
        QObject::connect(menu, &QMenu::hovered, menu, [menu](QAction *action) {
            cMenuItems *objet = TrouverObjet(menu);
            if (objet && objet->ShowTips()) emit objet->ShowTips()->MontrerConseil(objet->Tips(cMenuItems::idAction(action), menu));
        });
        QObject::connect(menu, &QMenu::triggered, menu, [menu](QAction *action) {
            // A command the engine doesn't know goes on to the application as it is. The
            // pick in a submenu reaches its parents too: only the action's own menu acts.
            if (!menu->actions().contains(action)) return;
            if (cMenuItems *objet = TrouverObjet(menu); objet && !action->menu())
                objet->MenuSelected(cMenuItems::idAction(action), menu, false);
        });
        QObject::connect(menu, &QObject::destroyed, this, [this, menu] {
            if (etat().style) etat().style->oublier(menu);
            if (etat().MenusOuverts) etat().MenusOuverts->remove(cleMenu(menu));
        });
        for (QAction *a : menu->actions())
            if (a->menu()) suivre(a->menu());
    }

protected:
    bool eventFilter(QObject *objet, QEvent *e) override {
        if (auto *menu = qobject_cast<QMenu *>(objet)) {
            if (e->type() == QEvent::KeyPress) etat().survolClavier = true;
            else if (e->type() == QEvent::MouseMove) etat().survolClavier = false;
            else if (e->type() == QEvent::MouseButtonRelease) cliquerBarre(menu, static_cast<QMouseEvent *>(e));
            else if (e->type() == QEvent::ActionAdded) {
                if (QAction *a = static_cast<QActionEvent *>(e)->action(); a && a->menu()) suivre(a->menu());
            } else if (e->type() == QEvent::ActionRemoved) {
                // A removed item takes its record with it: a library read again makes no heap of them.
                if (cMenuItems *o = TrouverObjet(menu)) o->oublierAction(static_cast<QActionEvent *>(e)->action(), menu);
            }
            return false;
        }
        if (e->type() == QEvent::ChildAdded)
            if (auto *menu = qobject_cast<QMenu *>(static_cast<QChildEvent *>(e)->child())) suivre(menu);
        return false;
    }

private:
    // The sidebar band is the first item: a click on it triggers its action.
    static void cliquerBarre(QMenu *menu, QMouseEvent *e) {
        cMenuItems *o = TrouverObjet(menu);
        TypePanneau *panneau = o ? o->GetPanelItem(menu) : nullptr;
        if (!panneau || panneau->indexBarre == 0 || menu->actions().isEmpty()) return;
        QAction *barre = menu->actions().first();
        const TypeItemMenu *item = o->itemAction(barre, menu);
        if (!item || (item->Etat & (kEtatBarreOtee | kEtatGrise)) || e->position().x() >= panneau->largeurBarre + 1) return;
        menu->hide();
        barre->trigger();
    }
};

void initMenuPopup(QMenu *menu) {
    EtatGlobal &e = etat();
    cMenuItems *objet = TrouverObjet(menu);
    if (!objet) return;
    if (!e.MenusOuverts) e.MenusOuverts = std::make_unique<QHash<QString, QPointer<QMenu>>>();  // the loop begins
    e.survolClavier = false;
    // Opened again in the same loop: already prepared.
    if (e.MenusOuverts->contains(cleMenu(menu))) return;
    if (objet->IsWindowList(menu, false)) e.MenusOuverts->insert(cleMenu(menu), menu);
}

void finBoucle(QMenu *menu) {
    EtatGlobal &e = etat();
    if (!e.MenusOuverts) return;
    // The loop ends with its outermost menu: no other prepared menu stays open.
    for (const QPointer<QMenu> &m : std::as_const(*e.MenusOuverts))
        if (m && m != menu && m->isVisible()) return;
    cMenuItems *objet = TrouverObjet(menu);
    if (objet && objet->ShowTips()) objet->ShowTips()->annoncerMenusFermes();
    const auto ouverts = std::move(e.MenusOuverts);
    for (const QPointer<QMenu> &m : std::as_const(*ouverts))
        if (m)
            if (cMenuItems *o = TrouverObjet(m)) o->UpdateMenuItems(m);
}

void Detacher(const QString &cle) {
    EtatGlobal &e = etat();
    cMenuItems *objet = e.ObjetsFenetres.value(cle);
    if (!objet) return;
    if (e.ObjetsFenetres.size() == 1) {
        // The last window: the fonts and the style go with it.
        e.ObjetsFenetres.clear();
        e.polices = false;
        e.policesSoulignees = false;
        e.PolicesMenus.fill(QFont());
        e.MenusOuverts.reset();
    } else {
        e.ObjetsFenetres.remove(cle);
    }
    delete objet;
}

}  // namespace

void preparerAffichage(QMenu *menu, int margeGauche) {
    EtatGlobal &e = etat();
    if (!e.style) e.style = new StyleMenus;
    if (menu->style() != e.style) menu->setStyle(e.style);
    menu->setSeparatorsCollapsible(false);
    menu->setContentsMargins(margeGauche, 0, 0, 0);
}

void suivreMenu(QMenu *menu) {
    EtatGlobal &e = etat();
    if (!e.filtre) e.filtre = new FiltreMenus(qApp);
    e.filtre->suivre(menu);
}

void AttacherMenus(QWidget *fenetre, const ListeImages *imageList, cTips *tipReceiver, int mode) {
    EtatGlobal &e = etat();
    if (!e.polices) creerPolices();
    if (optSoulignement) creerPolicesSoulignees();
    mode = qAbs(mode);
    if (mode == 1 && fenetre) {
        // A container: its first tool bar holds the menus.
        QWidget *barre = nullptr;
        for (QWidget *enfant : fenetre->findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
            if (enfant->inherits("QToolBar") || enfant->inherits("QMenuBar")) {
                barre = enfant;
                break;
            }
        fenetre = barre;
    }
    if (!fenetre) return;
    const QString cle = cleFenetre(fenetre);
    if (cMenuItems *objet = e.ObjetsFenetres.value(cle)) {
        if (mode == 3) objet->IsMenuLess = false;
        else if (mode == 4) objet->IsMenuLess = true;
        if (imageList || tipReceiver) objet->InitializeSubMenu(fenetre, imageList, tipReceiver, false, nullptr, objet->TipDefaut);
        return;
    }
    auto *objet = new cMenuItems;
    objet->IsMenuLess = mode == 4 || mode == 5;
    e.ObjetsFenetres.insert(cle, objet);
    objet->InitializeSubMenu(fenetre, imageList, tipReceiver, false, nullptr, QString());
    // Object first, then the hooks: nothing reaches a window without its object.
    if (!e.filtre) e.filtre = new FiltreMenus(qApp);
    fenetre->installEventFilter(e.filtre);
    for (QMenu *menu : fenetre->findChildren<QMenu *>()) e.filtre->suivre(menu);
    QObject::connect(fenetre, &QObject::destroyed, e.filtre, [cle] { Detacher(cle); });
    e.CleCourante = QStringLiteral("h0");
}

void ChoisirSoulignement(bool actif) {
    optSoulignement = actif;
    if (actif) creerPolicesSoulignees();
}
void ChoisirDegrade(bool actif) { optDegrade = actif; }
void ChoisirRelief(bool actif) { optRelief = actif; }
void ChoisirBarreAuto(bool actif) { optBarreAuto = actif; }
bool Soulignement() { return optSoulignement; }
bool DegradeActif() { return optDegrade; }
bool Relief() { return optRelief; }
bool BarreAuto() { return optBarreAuto; }

QString PoliceMenus() {
    static const QString nom = QApplication::font("QMenu").family();
    return nom;
}

const QFont &PolicesMenus(int slot) {
    EtatGlobal &e = etat();
    if (!e.polices) creerPolices();
    if ((slot == 4 || slot == 5) && !e.policesSoulignees) creerPolicesSoulignees();
    return e.PolicesMenus[size_t(qBound(0, slot, 7))];
}

bool policesCreees() { return etat().polices; }

void PoliceNommee(const QString &nom) {
    EtatGlobal &e = etat();
    if (!e.polices) creerPolices();
    if (e.nomPolice6 == nom) return;
    e.PolicesMenus[6] = QFont(nom, e.PolicesMenus[1].pointSize());
    e.PolicesMenus[6].setWeight(QFont::Normal);
    e.PolicesMenus[7] = e.PolicesMenus[6];
    e.PolicesMenus[7].setUnderline(true);
    e.nomPolice6 = nom;
}

cMenuItems *objetFenetre(const QWidget *fenetre) { return etat().ObjetsFenetres.value(cleFenetre(fenetre)); }
int nombreFenetresAttachees() { return int(etat().ObjetsFenetres.size()); }

QColor versCouleur(int couleur) {
    const int c = CouleurReelle(couleur);
    return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
}

int CouleurMenu() { return CouleurReelle(couleurSysteme(4)); }

void Degrade(int couleurA, int couleurB, bool horizontal, QPainter &p, const QRect &rect) {
    const int longueur = horizontal ? rect.width() : rect.height();
    if (longueur <= 0) return;
    const QScreen *ecran = QGuiApplication::primaryScreen();
    const int ecranPixels = ecran ? (horizontal ? ecran->size().width() : ecran->size().height()) : 1024;
    const int bande = ecranPixels / longueur < 5 ? 2 : 1;
    const int bandes = qMax(1, longueur / bande);
    const QColor a = versCouleur(horizontal ? couleurA : couleurB), b = versCouleur(horizontal ? couleurB : couleurA);
    const double pas[3] = {double(b.red() - a.red()) / bandes, double(b.green() - a.green()) / bandes,
                           double(b.blue() - a.blue()) / bandes};
    QRect r = horizontal ? QRect(rect.left(), rect.top(), bande, rect.height()) : QRect(rect.left(), rect.top(), rect.width(), bande);
    for (int i = 1; i <= bandes; ++i) {
        const QColor c(qBound(0, int(a.red() + pas[0] * i), 255), qBound(0, int(a.green() + pas[1] * i), 255),
                       qBound(0, int(a.blue() + pas[2] * i), 255));
        // The last band takes what the division left.
        QRect zone = r;
        if (i == bandes) zone = horizontal ? zone.adjusted(0, 0, rect.right() - zone.right(), 0) : zone.adjusted(0, 0, 0, rect.bottom() - zone.bottom());
        p.fillRect(zone, c);
        r.translate(horizontal ? bande : 0, horizontal ? 0 : bande);
    }
}

void Bordure3D(QPainter &p, const QRect &rect, bool raised, int largeur) {
    if (rect.width() <= 0 || rect.height() <= 0) return;
    const QColor clair = systeme(20), ombre = systeme(16);
    const QColor haut = raised ? clair : ombre, bas = raised ? ombre : clair;
    p.save();
    for (int i = 0; i < largeur; ++i) {
        const QRect r = rect.adjusted(i, i, -i, -i);
        p.fillRect(QRect(r.left(), r.top(), r.width(), 1), haut);
        p.fillRect(QRect(r.left(), r.top(), 1, r.height()), haut);
        p.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), bas);
        p.fillRect(QRect(r.right(), r.top(), 1, r.height()), bas);
    }
    p.restore();
}

void DessinerTransparent(QPainter &p, const QRect &dest, const QImage &source, int couleurMasque) {
    if (source.isNull()) return;
    QImage copie = source.convertToFormat(QImage::Format_ARGB32);
    const QRgb masque = couleurMasque < 0 ? copie.pixel(0, 0) : versCouleur(couleurMasque).rgb();
    for (int y = 0; y < copie.height(); ++y) {
        auto *ligne = reinterpret_cast<QRgb *>(copie.scanLine(y));
        for (int x = 0; x < copie.width(); ++x)
            if ((ligne[x] & 0xFFFFFF) == (masque & 0xFFFFFF)) ligne[x] = 0;
    }
    QSize taille = copie.size();
    if (taille.width() > dest.width() || taille.height() > dest.height()) taille.scale(dest.size(), Qt::KeepAspectRatio);
    p.save();
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(QRect(dest.x() + (dest.width() - taille.width()) / 2, dest.y() + (dest.height() - taille.height()) / 2,
                      taille.width(), taille.height()),
                copie);
    p.restore();
}

QString ComposerLignes(QStringList &lignes, bool premierePasse, const QFontMetrics &mesures, int largeurMax) {
    static const QString kToujours = QStringLiteral("<br!>"), kPeutEtre = QStringLiteral("<br>");
    if (lignes.isEmpty()) lignes.append(QString());
    for (qsizetype p; (p = lignes.last().indexOf(kToujours, 0, Qt::CaseInsensitive)) >= 0;) {
        const QString reste = lignes.last().mid(p + kToujours.size());
        lignes.last().truncate(p);
        lignes.append(reste);
    }
    if (!premierePasse) {
        bool coupee = false;
        for (int i = 0; i < lignes.size() && !coupee; ++i) {
            const qsizetype p = lignes[i].indexOf(kPeutEtre, 0, Qt::CaseInsensitive);
            if (p < 0) continue;
            lignes.insert(i + 1, lignes[i].mid(p + kPeutEtre.size()));
            lignes[i].truncate(p);
            coupee = true;
        }
        for (int i = 0; i < lignes.size() && !coupee; ++i) {
            QString vue = lignes[i];
            vue.replace(QStringLiteral("<br0>"), QStringLiteral(" "), Qt::CaseInsensitive);
            if (mesures.horizontalAdvance(vue) + 6 <= largeurMax) continue;
            // The blank nearest the middle, forwards or backwards; "<br0>" is no blank.
            const QString &l = lignes[i];
            const qsizetype milieu = l.size() / 2;
            qsizetype place = -1;
            for (qsizetype d = 0; d <= milieu + 1 && place < 0; ++d) {
                if (milieu + d < l.size() && l[milieu + d] == u' ') place = milieu + d;
                else if (milieu - d >= 0 && milieu - d < l.size() && l[milieu - d] == u' ') place = milieu - d;
            }
            if (place < 0) continue;  // no blank: the line stays whole
            lignes.insert(i + 1, l.mid(place + 1));
            lignes[i].truncate(place);
            coupee = true;
        }
        if (!coupee) return {};
    }
    QString joint = lignes.join(QStringLiteral("\r\n"));
    joint.replace(QStringLiteral("<br0>"), QStringLiteral(" "), Qt::CaseInsensitive);
    joint.replace(kPeutEtre, QStringLiteral(" "), Qt::CaseInsensitive);
    return joint;
}

QString barreParDefaut() {
    return QStringLiteral("{Sidebar|Text: |FColor:8388608|BColor:12615680|GColor:16776960|Font:Times New Roman|FSize:14|"
                          "MinFSize:9|Width:32|Align:Bot}");
}

}  // namespace modMenus
