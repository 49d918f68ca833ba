#include "StyleMenus.h"

#include "menus/fenetres/cMenuItems.h"
#include "menus/fenetres/PeintreMenus.h"
#include "menus/fenetres/RegistreMenus.h"

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>

namespace modMenus {

namespace {

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
        DessinerItem(*p, *item, objet->imageItem(*item), *opt, objet->largeurImages(menu));
        p->restore();
    }

    void oublier(const QMenu *menu) { curseurs_.remove(menu); }

private:
    // The sidebar band: the panel's picture along the left edge, inside the frame.
    static void peindreBarre(QPainter &p, cMenuItems &objet, QMenu *menu) {
        TypePanneau *panneau = objet.GetPanelItem(menu);
        if (!panneau || !panneau->itemBarre) return;
        const TypeItemMenu *barre = objet.GetMenuItem(cMenuItems::idAction(menu->actions().value(0)), menu);
        if (!barre || (barre->Etat & kEtatBarreOtee)) return;
        const int cadre = 1;
        const QRect bande(cadre, cadre, panneau->largeurBarre, menu->height() - 2 * cadre);
        if (bande.height() > 0 && bande.height() != panneau->hauteurBarre) objet.rendreBarre(menu, bande.height());
        if (!panneau->barre.isNull()) p.drawPixmap(bande, panneau->barre);
    }

    mutable QHash<const QMenu *, int> curseurs_;
};

// Made for the first menu prepared, and kept: every prepared menu uses it.
StyleMenus *unique = nullptr;

StyleMenus *style() {
    if (!unique) unique = new StyleMenus;
    return unique;
}

}  // namespace

void preparerAffichage(QMenu *menu, int margeGauche) {
    if (menu->style() != style()) menu->setStyle(style());
    menu->setSeparatorsCollapsible(false);
    menu->setContentsMargins(margeGauche, 0, 0, 0);
}

void oublierMenuStyle(const QMenu *menu) {
    if (unique) unique->oublier(menu);
}

}  // namespace modMenus
