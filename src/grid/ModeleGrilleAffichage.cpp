// Colours, pictures, column widths, cell access and properties of the grid.
#include "ModeleGrille.h"

#include "grid/Colonnes.h"
#include "store/Reglages.h"

using grille::nombre;
using grille::Source;

namespace {

constexpr int kBlanc = 16777215;
constexpr int kMargeColonne = 67;  // twips left free in each field column

// Width shares of the field columns 3 to 10: Titre, Login, Mot de passe, Url,
// Fichier, Date de début, Date de fin, Remarques.
constexpr std::array<double, 8> kProportions = {0.2, 0.1, 0.1, 0.2, 0.1, 0.1, 0.1, 0.1};

}  // namespace

void ModeleGrille::ChargerParamCouleurs() {
    using Reglages::Cle;
    CouleurTitre = Reglages::lireNombre(Cle::CouleurTitre);
    CouleurSection = Reglages::lireNombre(Cle::CouleurSection);
    CouleurParent = Reglages::lireNombre(Cle::CouleurParent);
    CouleurFils = Reglages::lireNombre(Cle::CouleurFils);
    CouleurSelection = Reglages::lireNombre(Cle::CouleurSelection);
}

bool ModeleGrille::ChargerIconesDatabase() { return imgCONTENU.chargerBase(); }

void ModeleGrille::ReChargerIcones(const ListeImages &source) {
    imgCONTENU.vider();
    for (int i = 1; i <= source.nombre(); ++i) {
        const ListeImages::Entree *e = source.entree(i);
        imgCONTENU.ajouter(e->cle, e->image, e->tag);
    }
}

void ModeleGrille::Redimensionner(int largeurInterieure) {
    largeurInterieure_ = qMax(0, largeurInterieure);
    ProportionsColonnes = kProportions;
    calculerLargeurs();
    flxGrd.BackColorBkg = flxGrd.BackColor;
    // Saved colours apply to the rows added from now on; the cells already there keep theirs.
    ChargerParamCouleurs();
    if (redraw_) demanderAffichage();
}

void ModeleGrille::calculerLargeurs() {
    int nbCachees = 0;
    double sommeCachee = 0;
    std::array<bool, 8> visible{};
    for (int i = 0; i < 8; ++i) {
        visible[size_t(i)] = Reglages::colonneVisible(i);
        if (visible[size_t(i)]) continue;
        ++nbCachees;
        flxGrd.ColWidth(i + 3, 0);
        sommeCachee += ProportionsColonnes[size_t(i)];
    }
    // The hidden share is spread evenly over the columns that stay; with all of
    // them hidden there is nobody to spread it over.
    const double reste = nbCachees > 0 && nbCachees < 8 ? sommeCachee / (8 - nbCachees) : 0;
    const double largeurTwips = double(largeurInterieure_) * grille::kTwipsParPixel;
    for (int i = 0; i < 8; ++i)
        if (visible[size_t(i)])
            flxGrd.ColWidth(i + 3, qRound((ProportionsColonnes[size_t(i)] + reste) * largeurTwips - kMargeColonne));
}

void ModeleGrille::ReDessiner() {
    ChargerParamCouleurs();
    const int fond = Reglages::lireNombre(Reglages::Cle::Backcolor);
    flxGrd.BackColor = fond;
    flxGrd.BackColorBkg = fond;
    flxGrd.GridColor = fond;  // lines in the background colour: no lines
    Redraw(false);
    auto couleurLigne = [this](int ligne, int couleur) {
        for (int c = 0; c < grille::kColonnes; ++c) flxGrd.cellule(ligne, c).couleurTexte = couleur;
    };
    if (flxGrd.Rows() > 0) couleurLigne(0, CouleurTitre);
    if (flxGrd.Rows() > 1) couleurLigne(1, CouleurSection);
    for (int r = 2; r < flxGrd.Rows(); ++r) {
        if (IsLigneParent(r)) {
            couleurLigne(r, CouleurParent);
            continue;
        }
        couleurLigne(r, CouleurFils);
        // The icon follows column 13, so a changed icon or library shows here. A
        // number the library lacks paints no picture.
        flxGrd.cellule(r, Colonne::Icone).definirImage(Source::Contenu, nombre(vue(r, Colonne::Numero)));
    }
    calculerLargeurs();
    Redraw(true);
}

void ModeleGrille::Refresh() { Redraw(true); }

ModeleGrille::ImageCellule ModeleGrille::imageColonne1(int Ligne) {
    Redraw(false);  // stays off until the next operation turns it on
    if (!flxGrd.existe(Ligne, 1)) return {};
    const grille::Cellule &cel = flxGrd.cellule(Ligne, 1);
    return {cel.source, cel.image};
}

bool ModeleGrille::SetColumnInfos(int Ligne, int Colonne, const QVariant &Valeur) {
    Redraw(false);
    if (!flxGrd.existe(Ligne, Colonne)) return false;
    flxGrd.definirTexte(Ligne, Colonne, Valeur.toString());
    Redraw(true);
    return true;
}

void ModeleGrille::MajColumnInfos(int Ligne, int Colonne, const QVariant &Valeur) {
    SetColumnInfos(Ligne, Colonne, Valeur);
}

QString ModeleGrille::GetColumnInfos(int Ligne, int Colonne) {
    int largeur = 0, haut = 0, hauteur = 0;
    return GetColumnInfos(Ligne, Colonne, largeur, haut, hauteur);
}

QString ModeleGrille::GetColumnInfos(int Ligne, int Colonne, int &Largeur, int &Haut, int &Hauteur) {
    Redraw(false);
    // A cell that doesn't exist reads as empty; repainting then stays off until
    // a later operation turns it on.
    if (!flxGrd.existe(Ligne, Colonne)) return QString();
    Largeur = flxGrd.largeurPixels(Colonne);
    QString resultat = flxGrd.texte(Ligne, Colonne).toString();
    Haut = flxGrd.hautPixels(Ligne) - decalageVertical(Ligne);
    Hauteur = flxGrd.hauteurPixels(Ligne);
    Redraw(true);
    return resultat;
}

void ModeleGrille::Backcolor(int valeur) {
    backcolor_ = valeur;
    Refresh();
    flxGrd.BackColor = valeur == -1 ? kBlanc : valeur;  // -1: no colour of its own
}

void ModeleGrille::GridColor(int valeur) {
    gridColor_ = valeur;
    Refresh();
    flxGrd.GridColor = valeur == -1 ? kBlanc : valeur;
}

void ModeleGrille::Appearance(int valeur) {
    appearance_ = valeur != 0 ? 1 : 0;
    appliquerCadre();
    Redimensionner(largeurInterieure_);
}

void ModeleGrille::BorderStyle(int valeur) {
    borderStyle_ = valeur != 0 ? 1 : 0;
    appliquerCadre();
    Redimensionner(largeurInterieure_);
}

void ModeleGrille::Enabled(bool valeur) {
    enabled_ = valeur;
    appliquerEnabled();
}

void ModeleGrille::Redraw(bool valeur) {
    redraw_ = valeur;
    if (redraw_) demanderAffichage();
}
