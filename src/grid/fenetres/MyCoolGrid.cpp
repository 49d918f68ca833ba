#include "MyCoolGrid.h"

#include "ui/Apparence.h"
#include "grid/Colonnes.h"
#include "ui/Art.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QPainter>
#include <QScrollBar>

using grille::Cellule;
using grille::Source;

namespace {

constexpr int kCotePicto = 16;                   // pictures of the cells, in pixels
constexpr int kColonnesPeintes = Colonne::Type;  // the row's hidden data from there on
constexpr int kMarge = 3;

// The fixed pictures of title, section and folder rows, by number. The bands are
// stretched under their row; 3 and 6 have no picture.
struct ImageTitre {
    const char *art;
    QSize taille;
    bool bande;
};

const ImageTitre *imageTitreNumero(int numero) {
    // The title row's text is black and the section's white by default: the title
    // sits on the light band, the column titles on the dark one.
    static const ImageTitre kDossier{"grid_dossier", {16, 16}, false};
    static const ImageTitre kSection{"grid_section", {16, 16}, false};
    static const ImageTitre kFerme{"grid_ferme", {16, 16}, false};
    static const ImageTitre kOuvert{"grid_ouvert", {16, 16}, false};
    static const ImageTitre kBandeSection{"grid_bande_titre", {400, 24}, true};
    static const ImageTitre kBandeTitre{"grid_bande_section", {400, 20}, true};
    switch (numero) {
    case 1: return &kDossier;
    case 2: return &kSection;
    case 4: return &kFerme;
    case 5: return &kOuvert;
    case 7: return &kBandeSection;
    case 8: return &kBandeTitre;
    default: return nullptr;
    }
}

const ImageTitre *bande(const Cellule &cel) {
    if (cel.source != Source::Titre) return nullptr;
    const ImageTitre *image = imageTitreNumero(cel.image);
    return image && image->bande ? image : nullptr;
}

// Stored colours keep red in the low byte.
using Apparence::couleur;

}  // namespace

MyCoolGrid::MyCoolGrid(QWidget *parent) : QAbstractScrollArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    verticalScrollBar()->setSingleStep(grille::Grille::enPixels(grille::kHauteurDefaut));
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    appliquerCadre();
    Redimensionner(viewport()->width());
    ChargerIconesDatabase();
}

QString MyCoolGrid::texteSelection(CleGrille cle) const {
    switch (cle) {
    case CleGrille::NumDocument: return texte(LigneCourante, Colonne::NumDocument);
    case CleGrille::NumDossier: return texte(LigneCourante, Colonne::NumDossier);
    case CleGrille::Rowid: break;
    }
    return texte(LigneCourante, Colonne::Rowid);
}

void MyCoolGrid::definirMotsDePasseVisibles(bool visibles) {
    if (visibles == motsDePasseVisibles_) return;
    motsDePasseVisibles_ = visibles;
    viewport()->update();
}

QStringView MyCoolGrid::texteAffiche(int ligne, int colonne) const {
    static const QString kPoints(8, QChar(0x2022));
    const QStringView t = cellules().texte(ligne, colonne);
    // Eight dots for any password, so that its length does not show either; an empty one stays empty.
    if (colonne != Colonne::MotDePasse || motsDePasseVisibles_ || t.trimmed().isEmpty() || ligne < 2 || IsLigneParent(ligne))
        return t;
    return kPoints;
}

// Rows start inside the frame; those below the headings move up as the grid scrolls.
int MyCoolGrid::decalageVertical(int ligne) const {
    return (ligne >= 2 ? verticalScrollBar()->value() : 0) - viewport()->y();
}

int MyCoolGrid::hauteurEntetes() const { return cellules().hautPixels(qMin(2, cellules().Rows())); }

void MyCoolGrid::demanderAffichage() {
    // Operations come by the thousand during a load: one repaint for all of them.
    if (affichagePrevu_) return;
    affichagePrevu_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            affichagePrevu_ = false;
            actualiserDefilement();
            viewport()->update();
        },
        Qt::QueuedConnection);
}

void MyCoolGrid::actualiserDefilement() {
    QScrollBar *barre = verticalScrollBar();
    const int page = viewport()->height();
    barre->setPageStep(qMax(1, page - hauteurEntetes()));
    barre->setRange(0, qMax(0, cellules().hauteurTotalePixels() - page));
}

void MyCoolGrid::resizeEvent(QResizeEvent *evenement) {
    QAbstractScrollArea::resizeEvent(evenement);
    Redimensionner(viewport()->width());
    actualiserDefilement();
}

void MyCoolGrid::appliquerCadre() {
    if (BorderStyle() == 0) {
        setFrameStyle(QFrame::NoFrame);
    } else if (Appearance() != 0) {
        setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    } else {
        // A flat line in the slate of the artwork.
        setFrameStyle(QFrame::Box | QFrame::Plain);
        setLineWidth(1);
        QPalette palette = this->palette();
        palette.setColor(QPalette::WindowText, Apparence::kArdoise);
        setPalette(palette);
    }
}

void MyCoolGrid::SelectLine(int Ligne) {
    ModeleGrille::SelectLine(Ligne);
    rendreVisible(Ligne);
}

void MyCoolGrid::rendreVisible(int Ligne) {
    if (Ligne < 2 || !cellules().existe(Ligne) || cellules().hauteurPixels(Ligne) == 0) return;
    actualiserDefilement();
    QScrollBar *barre = verticalScrollBar();
    const int haut = cellules().hautPixels(Ligne);
    const int bas = haut + cellules().hauteurPixels(Ligne);
    if (haut - barre->value() < hauteurEntetes())
        barre->setValue(haut - hauteurEntetes());
    else if (bas - barre->value() > viewport()->height())
        barre->setValue(bas - viewport()->height());
}

QPixmap MyCoolGrid::GetCellPicture(int Ligne) {
    const ImageCellule image = imageColonne1(Ligne);
    if (image.source == Source::Contenu) return QPixmap::fromImage(imagesContenu().imageDeNum(image.numero));
    if (image.source == Source::Titre) {
        if (const ImageTitre *titre = imageTitreNumero(image.numero))
            return Art::pixmap(QString::fromLatin1(titre->art), titre->taille);
    }
    return {};
}

int MyCoolGrid::ligneSous(const QPoint &position) const {
    const int y = position.y();
    return cellules().ligneAuPixel(y < hauteurEntetes() ? y : y + verticalScrollBar()->value());
}

int MyCoolGrid::lignePage(int sens) const {
    const grille::Grille &g = cellules();
    if (LigneCourante < 2 || !g.existe(LigneCourante)) return PremiereLigneVisible();
    const int page = qMax(1, viewport()->height() - hauteurEntetes());
    const int y = qBound(g.hautPixels(2), g.hautPixels(LigneCourante) + sens * page, g.hauteurTotalePixels() - 1);
    const int ligne = g.ligneAuPixel(y);
    if (ligne >= 2) return ligne;
    return sens > 0 ? DerniereLigneVisible() : PremiereLigneVisible();
}

void MyCoolGrid::keyPressEvent(QKeyEvent *evenement) {
    const int courante = cellules().existe(LigneCourante) ? LigneCourante : 0;
    const bool choisie = courante >= 2;
    int cible = -1;
    switch (evenement->key()) {
    case Qt::Key_Down:
        cible = choisie ? LigneVisibleVoisine(courante, 1) : PremiereLigneVisible();
        break;
    case Qt::Key_Up:
        cible = choisie ? LigneVisibleVoisine(courante, -1) : PremiereLigneVisible();
        break;
    case Qt::Key_PageDown:
        cible = lignePage(1);
        break;
    case Qt::Key_PageUp:
        cible = lignePage(-1);
        break;
    case Qt::Key_Home:
        cible = PremiereLigneVisible();
        break;
    case Qt::Key_End:
        cible = DerniereLigneVisible();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        // On a folder, as a click: it opens or closes. Elsewhere, Enter asks to edit,
        // and the main window says what to select when there is no document.
        if (choisie && IsLigneParent(courante))
            SelectLine(courante);
        else if (evenement->key() != Qt::Key_Space)
            emit EditionDemandee();
        return;
    case Qt::Key_F2:
        emit EditionDemandee();
        return;
    case Qt::Key_F10:
        // Shift+F10 opens the row's menu, as the Menu key does.
        if (evenement->modifiers() == Qt::ShiftModifier) {
            QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(), QPoint(), Qt::ShiftModifier);
            contextMenuEvent(&menu);
        } else {
            QAbstractScrollArea::keyPressEvent(evenement);
        }
        return;
    case Qt::Key_Delete:
        emit SuppressionDemandee();
        return;
    default:
        QAbstractScrollArea::keyPressEvent(evenement);
        return;
    }
    if (cible < 2) return;
    if (cible != courante) AllerALigne(cible);
    rendreVisible(cible);
}

void MyCoolGrid::focusInEvent(QFocusEvent *evenement) {
    QAbstractScrollArea::focusInEvent(evenement);
    viewport()->update();
}

void MyCoolGrid::focusOutEvent(QFocusEvent *evenement) {
    QAbstractScrollArea::focusOutEvent(evenement);
    viewport()->update();
}

void MyCoolGrid::bordsColonnes(int *bords) const {
    bords[0] = 0;
    for (int c = 0; c < kColonnesPeintes; ++c) bords[c + 1] = bords[c] + cellules().largeurPixels(c);
}

QString MyCoolGrid::texteCoupe(const QPoint &position) {
    const grille::Grille &g = cellules();
    const int ligne = ligneSous(position);
    if (ligne < 0) return {};
    int bords[kColonnesPeintes + 1];
    bordsColonnes(bords);
    int c = 0;
    while (c < kColonnesPeintes && position.x() >= bords[c + 1]) ++c;
    if (c >= kColonnesPeintes) return {};
    // The run of equal texts that paints as one cell, as the painting merges it.
    int debut = c, fin = c;
    const QStringView texte = texteAffiche(ligne, c);
    if (g.MergeRow(ligne) && !texte.isEmpty()) {
        while (debut > 0 && texteAffiche(ligne, debut - 1) == texte) --debut;
        while (fin + 1 < kColonnesPeintes && texteAffiche(ligne, fin + 1) == texte) ++fin;
    }
    const Cellule &cel = g.cellule(ligne, debut);
    QString visible = texteAffiche(ligne, debut).toString();
    while (visible.endsWith(u' ')) visible.chop(1);
    if (visible.trimmed().isEmpty()) return {};
    int largeur = qMin(bords[fin + 1], viewport()->width()) - bords[debut] - 2 * kMarge;
    if (cel.source != Source::Aucune && !bande(cel)) largeur -= kCotePicto + kMarge + 1;
    return policePour(cel).mesures.horizontalAdvance(visible) > largeur ? visible.trimmed() : QString();
}

bool MyCoolGrid::viewportEvent(QEvent *evenement) {
    if (evenement->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(evenement);
    // A text cut by its column shows whole under the pointer.
    auto *aide = static_cast<QHelpEvent *>(evenement);
    const QString texte = texteCoupe(aide->pos());
    if (texte.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(aide->globalPos(), texte, viewport());
    return true;
}

void MyCoolGrid::mousePressEvent(QMouseEvent *evenement) {
    lignePressee_ = evenement->button() == Qt::LeftButton ? ligneSous(evenement->position().toPoint()) : -1;
}

void MyCoolGrid::mouseReleaseEvent(QMouseEvent *evenement) {
    // A click is a press and a release on the same row; space below the rows is no row.
    const int ligne = lignePressee_;
    lignePressee_ = -1;
    if (evenement->button() != Qt::LeftButton || ligne < 0 || ligneSous(evenement->position().toPoint()) != ligne)
        return;
    ModeleGrille::SelectLine(ligne);
}

void MyCoolGrid::mouseDoubleClickEvent(QMouseEvent *evenement) {
    lignePressee_ = -1;
    if (evenement->button() != Qt::LeftButton) return;
    emit DblClick();
    const QPoint position = evenement->position().toPoint();
    const int ligne = ligneSous(position), colonne = colonneSous(position);
    if (ligne >= 2 && colonne >= 0) emit DoubleClicCellule(ligne, colonne);
}

int MyCoolGrid::colonneSous(const QPoint &position) const {
    int bords[kColonnesPeintes + 1];
    bordsColonnes(bords);
    for (int c = 0; c < kColonnesPeintes; ++c)
        if (position.x() >= bords[c] && position.x() < bords[c + 1]) return c;
    return -1;
}

void MyCoolGrid::contextMenuEvent(QContextMenuEvent *evenement) {
    int ligne = LigneCourante;
    if (evenement->reason() == QContextMenuEvent::Mouse) {
        // The row under the pointer becomes the selection, as the keyboard moves it: a folder stays as it is.
        ligne = ligneSous(viewport()->mapFromGlobal(evenement->globalPos()));
        if (ligne < 2) return;
        if (ligne != LigneCourante) AllerALigne(ligne);
        emit MenuDemande(evenement->globalPos());
        return;
    }
    // From the keyboard, under the selected row, or at the top of the rows without one.
    QPoint point(viewport()->width() / 4, hauteurEntetes());
    if (ligne >= 2 && cellules().existe(ligne) && cellules().hauteurPixels(ligne) > 0) {
        rendreVisible(ligne);
        point.setY(cellules().hautPixels(ligne) + cellules().hauteurPixels(ligne) - verticalScrollBar()->value());
    }
    emit MenuDemande(viewport()->mapToGlobal(point));
}

QPixmap MyCoolGrid::imageTitre(int numero) {
    auto it = imagesTitre_.find(numero);
    if (it != imagesTitre_.end()) return *it;
    QPixmap pm;
    if (const ImageTitre *titre = imageTitreNumero(numero); titre && !titre->bande) {
        const qreal echelle = devicePixelRatioF();
        pm = Art::pixmap(QString::fromLatin1(titre->art), QSize(kCotePicto, kCotePicto) * echelle);
        pm.setDevicePixelRatio(echelle);
    }
    imagesTitre_.insert(numero, pm);
    return pm;
}

QPixmap MyCoolGrid::icone(int numero) {
    const ListeImages &liste = imagesContenu();
    if (liste.generation() != generationIcones_) {
        icones_.clear();
        generationIcones_ = liste.generation();
    }
    // The icon of that Num; a number the library lacks, or a picture that didn't load,
    // shows nothing.
    if (const auto it = icones_.constFind(numero); it != icones_.cend()) return *it;
    const QImage image = liste.imageDeNum(numero);
    QPixmap pm;
    if (!image.isNull()) {
        const qreal echelle = devicePixelRatioF();
        const int cote = qRound(kCotePicto * echelle);
        pm = QPixmap::fromImage(image.scaled(cote, cote, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        pm.setDevicePixelRatio(echelle);
    }
    icones_.insert(numero, pm);
    return pm;
}

const MyCoolGrid::Police &MyCoolGrid::policePour(const grille::Cellule &cel) {
    const int cle = (cel.taillePolice << 1) | (cel.gras ? 1 : 0);
    auto it = polices_.find(cle);
    if (it == polices_.end()) {
        QFont police = font();
        police.setBold(cel.gras);
        if (cel.taillePolice > 0) police.setPointSize(cel.taillePolice);
        it = polices_.insert(cle, Police{police, QFontMetrics(police)});
    }
    return *it;
}

void MyCoolGrid::changeEvent(QEvent *evenement) {
    if (evenement->type() == QEvent::FontChange) polices_.clear();
    QAbstractScrollArea::changeEvent(evenement);
}

void MyCoolGrid::paintEvent(QPaintEvent *evenement) {
    const grille::Grille &g = cellules();
    QPainter p(viewport());
    const QRect zone = evenement->rect();
    p.fillRect(zone, couleur(g.BackColorBkg));
    int bords[kColonnesPeintes + 1];
    bordsColonnes(bords);
    const int largeur = viewport()->width();
    const int entetes = hauteurEntetes();
    const int decalage = verticalScrollBar()->value();

    // The rows that scroll, below the headings; then the headings, which stay.
    const QRect defilee = zone & QRect(0, entetes, largeur, viewport()->height() - entetes);
    if (!defilee.isEmpty()) {
        p.save();
        p.setClipRect(defilee);
        peindreLignes(p, 2, g.Rows() - 1, decalage, defilee, bords);
        // Where the keyboard stands, while the grid has it.
        if (hasFocus() && LigneCourante >= 2 && g.existe(LigneCourante) && g.hauteurPixels(LigneCourante) > 0) {
            p.setPen(QPen(Apparence::kMarine, 1, Qt::DotLine));
            p.setBrush(Qt::NoBrush);
            p.drawRect(0, g.hautPixels(LigneCourante) - decalage, largeur - 1, g.hauteurPixels(LigneCourante) - 1);
        }
        p.restore();
    }
    const QRect fixe = zone & QRect(0, 0, largeur, entetes);
    if (!fixe.isEmpty()) peindreLignes(p, 0, 1, 0, fixe, bords);
}

void MyCoolGrid::peindreLignes(QPainter &p, int premiere, int derniere, int decalage, const QRect &zone, const int *bords) {
    // From the row under the top of the area, row by row; rows of height 0 are
    // stepped over by the search, so a screen costs the same whatever the grid holds.
    const grille::Grille &g = cellules();
    const int largeur = viewport()->width();
    for (int ligne = g.ligneAuPixel(decalage + zone.top()); ligne >= 0 && ligne <= derniere;) {
        const int haut = g.hautPixels(ligne) - decalage;
        if (haut > zone.bottom()) break;
        const int hauteur = g.hauteurPixels(ligne);
        if (ligne >= premiere) peindreLigne(p, ligne, QRect(0, haut, largeur, hauteur), bords);
        ligne = g.ligneAuPixel(decalage + haut + hauteur);
    }
}

void MyCoolGrid::peindreLigne(QPainter &p, int ligne, const QRect &rect, const int *bords) {
    const grille::Grille &g = cellules();
    // A band in the first cell runs under the whole row, between the pictures too.
    const Cellule &premiere = g.cellule(ligne, 0);
    const int bandeLigne = bande(premiere) ? premiere.image : 0;
    const bool fusion = g.MergeRow(ligne);
    for (int c = 0; c < kColonnesPeintes;) {
        const Cellule &cel = g.cellule(ligne, c);
        const QStringView texte = texteAffiche(ligne, c);
        int fin = c;
        // Equal texts side by side show as one cell, with the first cell's look.
        if (fusion && !texte.isEmpty())
            while (fin + 1 < kColonnesPeintes && texteAffiche(ligne, fin + 1) == texte) ++fin;
        // Cut at the right edge, so that the last column's text ends in an ellipsis in view.
        const QRect zone = QRect(rect.left() + bords[c], rect.top(), bords[fin + 1] - bords[c], rect.height()).intersected(rect);
        if (!zone.isEmpty()) peindreCellule(p, cel, texte, zone, bandeLigne);
        c = fin + 1;
    }
}

void MyCoolGrid::peindreCellule(QPainter &p, const Cellule &cel, QStringView texte, const QRect &rect, int bandeLigne) {
    const grille::Grille &g = cellules();
    p.save();
    p.setClipRect(rect, Qt::IntersectClip);
    p.fillRect(rect, couleur(cel.couleurFond != 0 ? cel.couleurFond : g.BackColor));
    const ImageTitre *bandeCellule = bande(cel);
    if (const ImageTitre *b = bandeCellule ? bandeCellule : imageTitreNumero(bandeLigne))
        Art::dessiner(p, QString::fromLatin1(b->art), rect);

    // The picture, when it fits the cell: a sliver of one would read as a smudge.
    QRect zoneTexte = rect.adjusted(kMarge, 0, -kMarge, 0);
    QPixmap image;
    if (cel.source == Source::Contenu)
        image = icone(cel.image);
    else if (cel.source == Source::Titre && !bandeCellule)
        image = imageTitre(cel.image);
    if (!image.isNull()) {
        const QSize taille = image.deviceIndependentSize().toSize();
        if (taille.width() <= rect.width()) {
            const int y = rect.top() + (rect.height() - taille.height()) / 2;
            if (cel.alignementImage == grille::CentreCentre) {
                p.drawPixmap(rect.left() + (rect.width() - taille.width()) / 2, y, image);
            } else {
                p.drawPixmap(rect.left() + 1, y, image);
                zoneTexte.setLeft(rect.left() + 1 + taille.width() + kMarge);
            }
        }
    }

    // Trailing blanks carry no ink, and would only push the ellipsis away.
    QStringView encre = texte;
    while (encre.endsWith(u' ')) encre.chop(1);
    if (!encre.isEmpty() && zoneTexte.width() > 0) {
        QString montre = encre.toString();
        const Police &police = policePour(cel);
        p.setFont(police.police);
        p.setPen(couleur(cel.couleurTexte));
        if (police.mesures.horizontalAdvance(montre) > zoneTexte.width())
            montre = police.mesures.elidedText(montre, Qt::ElideRight, zoneTexte.width());
        // On its baseline: centred in height, or near the top when the cell asks for it.
        int x = zoneTexte.left();
        int y = zoneTexte.top() + (zoneTexte.height() + police.mesures.ascent() - police.mesures.descent()) / 2;
        if (cel.alignement == grille::GaucheHaut) {
            y = zoneTexte.top() + kMarge + police.mesures.ascent();
        } else if (cel.alignement == grille::CentreCentre) {
            x += (zoneTexte.width() - police.mesures.horizontalAdvance(montre)) / 2;
        }
        p.drawText(x, y, montre);
    }

    // Grid lines on the rows of data only; the bands draw their own edges.
    if (bandeLigne == 0 && !bandeCellule && g.GridColor != g.BackColor) {
        p.setPen(couleur(g.GridColor));
        p.drawLine(rect.topRight(), rect.bottomRight());
        p.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
    p.restore();
}
