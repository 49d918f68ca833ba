#include "MyCoolGrid.h"

#include "ui/Art.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

using grille::Cellule;
using grille::Source;

namespace {

constexpr int kCotePicto = 16;       // pictures of the cells, in pixels
constexpr int kColonnesPeintes = 11;  // 11 to 19 hold the row's hidden data
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
QColor couleur(int valeur) { return QColor(valeur & 0xFF, (valeur >> 8) & 0xFF, (valeur >> 16) & 0xFF); }

}  // namespace

MyCoolGrid::MyCoolGrid(QWidget *parent) : QAbstractScrollArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    verticalScrollBar()->setSingleStep(grille::Grille::enPixels(grille::kHauteurDefaut));
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    appliquerCadre();
    Redimensionner(viewport()->width());
    ChargerIconesDatabase();
}

QString MyCoolGrid::texteSelection(int colonne) const { return texte(LigneCourante, colonne); }

// Rows start inside the frame, and move up as the grid scrolls.
int MyCoolGrid::decalageVertical() const { return verticalScrollBar()->value() - viewport()->y(); }

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
    barre->setPageStep(page);
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
        palette.setColor(QPalette::WindowText, QColor(0x8c, 0x98, 0xb0));
        setPalette(palette);
    }
}

void MyCoolGrid::SelectLine(int Ligne) {
    ModeleGrille::SelectLine(Ligne);
    if (!cellules().existe(Ligne) || cellules().hauteurPixels(Ligne) == 0) return;
    actualiserDefilement();
    QScrollBar *barre = verticalScrollBar();
    const int haut = cellules().hautPixels(Ligne);
    const int bas = haut + cellules().hauteurPixels(Ligne);
    if (haut < barre->value())
        barre->setValue(haut);
    else if (bas > barre->value() + viewport()->height())
        barre->setValue(bas - viewport()->height());
}

QPixmap MyCoolGrid::GetCellPicture(int Ligne) {
    const ImageCellule image = imageColonne1(Ligne);
    if (image.source == Source::Contenu) return QPixmap::fromImage(imagesContenu().image(image.numero));
    if (image.source == Source::Titre) {
        if (const ImageTitre *titre = imageTitreNumero(image.numero))
            return Art::pixmap(QString::fromLatin1(titre->art), titre->taille);
    }
    return {};
}

int MyCoolGrid::ligneSous(const QPoint &position) const {
    return cellules().ligneAuPixel(position.y() + verticalScrollBar()->value());
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
    if (evenement->button() == Qt::LeftButton) emit DblClick();
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
        icones_.assign(size_t(liste.nombre()), QPixmap());
        generationIcones_ = liste.generation();
    }
    // A number the library lacks, or a picture that didn't load, shows nothing.
    if (!liste.existe(numero) || liste.image(numero).isNull()) return {};
    QPixmap &pm = icones_[size_t(numero - 1)];
    if (pm.isNull()) {
        const qreal echelle = devicePixelRatioF();
        const int cote = qRound(kCotePicto * echelle);
        pm = QPixmap::fromImage(liste.image(numero).scaled(cote, cote, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        pm.setDevicePixelRatio(echelle);
    }
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
    int bords[kColonnesPeintes + 1] = {0};
    for (int c = 0; c < kColonnesPeintes; ++c) bords[c + 1] = bords[c] + g.largeurPixels(c);

    // From the row under the top of the area, row by row; rows of height 0 are
    // stepped over by the search, so a screen costs the same whatever the grid holds.
    const int decalage = verticalScrollBar()->value();
    const int largeur = viewport()->width();
    for (int ligne = g.ligneAuPixel(decalage + zone.top()); ligne >= 0;) {
        const int haut = g.hautPixels(ligne) - decalage;
        if (haut > zone.bottom()) break;
        const int hauteur = g.hauteurPixels(ligne);
        peindreLigne(p, ligne, QRect(0, haut, largeur, hauteur), bords);
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
        int fin = c;
        // Equal texts side by side show as one cell, with the first cell's look.
        if (fusion && !cel.texte.isEmpty())
            while (fin + 1 < kColonnesPeintes && g.cellule(ligne, fin + 1).texte == cel.texte) ++fin;
        // Cut at the right edge, so that the last column's text ends in an ellipsis in view.
        const QRect zone = QRect(rect.left() + bords[c], rect.top(), bords[fin + 1] - bords[c], rect.height()).intersected(rect);
        if (!zone.isEmpty()) peindreCellule(p, cel, zone, bandeLigne);
        c = fin + 1;
    }
}

void MyCoolGrid::peindreCellule(QPainter &p, const Cellule &cel, const QRect &rect, int bandeLigne) {
    const grille::Grille &g = cellules();
    p.save();
    p.setClipRect(rect);
    p.fillRect(rect, couleur(cel.couleurFond != 0 ? cel.couleurFond : g.BackColor));
    const ImageTitre *bandeCellule = bande(cel);
    if (const ImageTitre *b = bandeCellule ? bandeCellule : imageTitreNumero(bandeLigne))
        Art::dessiner(p, QString::fromLatin1(b->art), rect);

    // The picture, when it fits the cell: a sliver of one would read as a smudge.
    QRect zoneTexte = rect.adjusted(kMarge, 0, -kMarge, 0);
    QPixmap image;
    if (cel.source == Source::Contenu) image = icone(cel.image);
    else if (cel.source == Source::Titre && !bandeCellule) image = imageTitre(cel.image);
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
    QString texte = cel.texte;
    while (texte.endsWith(u' ')) texte.chop(1);
    if (!texte.isEmpty() && zoneTexte.width() > 0) {
        const Police &police = policePour(cel);
        p.setFont(police.police);
        p.setPen(couleur(cel.couleurTexte));
        if (police.mesures.horizontalAdvance(texte) > zoneTexte.width())
            texte = police.mesures.elidedText(texte, Qt::ElideRight, zoneTexte.width());
        // On its baseline: centred in height, or near the top when the cell asks for it.
        int x = zoneTexte.left();
        int y = zoneTexte.top() + (zoneTexte.height() + police.mesures.ascent() - police.mesures.descent()) / 2;
        if (cel.alignement == grille::GaucheHaut) {
            y = zoneTexte.top() + kMarge + police.mesures.ascent();
        } else if (cel.alignement == grille::CentreCentre) {
            x += (zoneTexte.width() - police.mesures.horizontalAdvance(texte)) / 2;
        }
        p.drawText(x, y, texte);
    }

    // Grid lines on the rows of data only; the bands draw their own edges.
    if (bandeLigne == 0 && !bandeCellule && g.GridColor != g.BackColor) {
        p.setPen(couleur(g.GridColor));
        p.drawLine(rect.topRight(), rect.bottomRight());
        p.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
    p.restore();
}
