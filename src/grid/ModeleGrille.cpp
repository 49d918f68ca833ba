// Rows of the tree and what a click does to them.
#include "ModeleGrille.h"

#include "grid/Colonnes.h"
using grille::nombre;
using grille::Source;

namespace {

constexpr int kHauteurTitre = 370;  // twips
constexpr int kHauteurSection = 340;
constexpr int kHauteurDossier = 370;
constexpr int kHauteurDocument = 240;

// Pictures of the fixed list.
constexpr int kImageDossier = 1;
constexpr int kImageFerme = 4;
constexpr int kImageOuvert = 5;
constexpr int kImageBandeSection = 7;
constexpr int kImageBandeTitre = 8;

const QString kParent = QStringLiteral("P");
const QString kFils = QStringLiteral("F");
const QString kOuvert = QStringLiteral("B");
const QString kFerme = QStringLiteral("A");

}  // namespace

ModeleGrille::ModeleGrille() {
    flxGrd.ColWidth(0, 270);
    flxGrd.ColWidth(1, 270);
    flxGrd.ColWidth(2, 50);
}

QString ModeleGrille::texte(int ligne, int colonne) const { return vue(ligne, colonne).toString(); }

QStringView ModeleGrille::vue(int ligne, int colonne) const {
    return flxGrd.existe(ligne, colonne) ? flxGrd.texte(ligne, colonne) : QStringView();
}

void ModeleGrille::ecrire(int ligne, int colonne, QStringView valeur) {
    if (flxGrd.existe(ligne, colonne)) flxGrd.definirTexte(ligne, colonne, valeur);
}

int ModeleGrille::ligneParent(int numero) const {
    return numero >= 0 && numero < NbParents && size_t(numero) < LignesParents.size() ? LignesParents[size_t(numero)] : -1;
}

void ModeleGrille::AddTitle(const QString &Titre) {
    Redraw(false);
    ++NbLignes;
    flxGrd.AddItem(0);
    flxGrd.RowHeight(0, kHauteurTitre);
    const QString t = Titre + QStringLiteral("  ");
    QStringView textes[grille::kColonnes];
    for (int c = 0; c < grille::kColonnes; ++c) {
        grille::Cellule &cel = flxGrd.cellule(0, c);
        cel.alignement = grille::GaucheHaut;
        cel.gras = true;
        cel.taillePolice = 11;
        cel.couleurTexte = CouleurTitre;
        textes[c] = t;
        cel.definirImage(Source::Titre, kImageBandeTitre);
    }
    flxGrd.definirTextes(0, 0, textes, grille::kColonnes);
    // Equal texts side by side show as one title across the row.
    flxGrd.MergeRow(0, true);
    Redraw(true);
}

void ModeleGrille::AddSection(const QStringList &Titres, int Image1, int Image2) {
    Redraw(false);
    ++NbLignes;
    flxGrd.AddItem(0);
    flxGrd.RowHeight(0, kHauteurSection);
    int indice = 0;
    for (int c = 0; c < grille::kColonnes; ++c) {
        grille::Cellule &cel = flxGrd.cellule(0, c);
        cel.couleurTexte = CouleurSection;
        if (c <= 2) {
            cel.alignement = grille::GaucheCentre;
            cel.definirImage(Source::Titre, kImageBandeSection);
            if (c > 0) cel.alignementImage = grille::CentreCentre;
        } else if (indice < Titres.size()) {
            ecrire(0, c, Titres[indice++]);
            // In the rows' weight: bold would cut "Date de début" in its column at the usual width.
            cel.gras = false;
            cel.definirImage(Source::Titre, kImageBandeSection);
        }
    }
    flxGrd.MergeRow(0, true);
    // Crosswise: each test reads one argument and the picture takes the other.
    if (Image1 > 0) flxGrd.cellule(0, 1).definirImage(Source::Titre, Image2);
    if (Image2 > 0) flxGrd.cellule(0, 2).definirImage(Source::Titre, Image1);
    Redraw(true);
}

void ModeleGrille::AddParent(const QString &Nom, QVariant &Cle) {
    Redraw(false);
    const int ligne = flxGrd.Rows();
    flxGrd.definirRows(ligne + 1);
    grille::Cellule &etat = flxGrd.cellule(ligne, 0);
    etat.alignementImage = grille::CentreCentre;
    etat.definirImage(Source::Titre, kImageOuvert);
    grille::Cellule &nom = flxGrd.cellule(ligne, 1);
    nom.alignement = grille::GaucheCentre;
    nom.couleurTexte = CouleurParent;
    nom.definirImage(Source::Titre, kImageDossier);
    // The name repeated over the field columns merges into one wide cell.
    const QString numero = QString::number(NbParents), cle = Cle.toString();
    QStringView textes[grille::kColonnes];
    for (int i = 1; i <= 2 + nbColonnes_ && i < grille::kColonnes; ++i) textes[i] = Nom;
    textes[Colonne::Type] = kParent;
    textes[Colonne::Etat] = kOuvert;
    textes[Colonne::Numero] = numero;
    textes[Colonne::NumDossier] = cle;
    flxGrd.definirTextes(ligne, 0, textes, grille::kColonnes);
    flxGrd.MergeRow(ligne, true);
    flxGrd.RowHeight(ligne, kHauteurDossier);
    LignesParents.resize(size_t(NbParents) + 1);
    LignesParents[size_t(NbParents)] = ligne;
    Cle = NbParents;
    ++NbParents;
    ++NbLignes;
    Redraw(true);
}

void ModeleGrille::AddFils(const QStringList &Infos, int &Parent, int Icone, int Icone2, const QString &Cle1,
                           const QString &Cle2, const QString &Cle3) {
    if (Parent < 0 || size_t(Parent) >= LignesParents.size()) return;  // no such folder: nothing to add to
    Redraw(false);
    // Right below the folder: each new document comes above those added before.
    const int ligne = qBound(0, LignesParents[size_t(Parent)] + 1, flxGrd.Rows());
    flxGrd.AddItem(ligne);
    remplirFils(ligne, Infos, Parent, Icone, Icone2, Cle1, Cle2, Cle3);
    ++Parent;
    // The folders below moved down by one row.
    for (size_t k = size_t(Parent); k < LignesParents.size(); ++k) ++LignesParents[k];
    Redraw(true);
}

int ModeleGrille::ajouterFilsEnVrac(const QStringList &Infos, int Parent, int Icone, int Icone2, const QString &Cle1,
                                    const QString &Cle2, const QString &Cle3) {
    if (Parent < 0 || Parent >= NbParents) return -1;
    const int ligne = flxGrd.Rows();
    flxGrd.AddItem(ligne);
    remplirFils(ligne, Infos, Parent, Icone, Icone2, Cle1, Cle2, Cle3);
    return ligne;
}

void ModeleGrille::rangerFilsEnVrac(const std::vector<std::vector<int>> &ordreParDossier) {
    // The rows before the first folder, then each folder followed by its documents,
    // the last one given first, as AddFils puts each new one right below its folder.
    const int premierDossier = NbParents > 0 ? LignesParents[0] : flxGrd.Rows();
    std::vector<int> ordre;
    ordre.reserve(size_t(flxGrd.Rows()));
    for (int l = 0; l < premierDossier; ++l) ordre.push_back(l);
    for (int k = 0; k < NbParents; ++k) {
        const int dossier = LignesParents[size_t(k)];
        ordre.push_back(dossier);
        LignesParents[size_t(k)] = int(ordre.size()) - 1;
        if (size_t(k) < ordreParDossier.size())
            for (auto it = ordreParDossier[size_t(k)].rbegin(); it != ordreParDossier[size_t(k)].rend(); ++it) ordre.push_back(*it);
    }
    flxGrd.reordonner(ordre);
}

void ModeleGrille::oublierMarques() {
    effacerMarque();
    if (LigneGras > 0 && flxGrd.existe(LigneGras, 1)) flxGrd.cellule(LigneGras, 1).gras = false;
    LigneCourante = 0;
    ligneSel_ = 0;
    LigneMarquee = 0;
    LigneGras = 0;
    CouleurMarquee.clear();
}

void ModeleGrille::insererFils(int Ligne, const QStringList &Infos, int Parent, int Icone, int Icone2,
                               const QString &Cle1, const QString &Cle2, const QString &Cle3) {
    if (Parent < 0 || Parent >= NbParents) return;
    Ligne = qBound(LignesParents[size_t(Parent)] + 1, Ligne, flxGrd.Rows());
    flxGrd.AddItem(Ligne);
    remplirFils(Ligne, Infos, Parent, Icone, Icone2, Cle1, Cle2, Cle3);
    for (size_t k = size_t(Parent) + 1; k < LignesParents.size(); ++k) ++LignesParents[k];
}

void ModeleGrille::renommerParent(int Ligne, const QString &Nom) {
    if (!IsLigneParent(Ligne)) return;
    for (int i = 1; i <= 2 + nbColonnes_ && i < grille::kColonnes; ++i)
        if (i != Colonne::Type && i != Colonne::Etat && i != Colonne::Numero && i < Colonne::NumDossier) ecrire(Ligne, i, Nom);
}

void ModeleGrille::lignesFils(int numero, int &debut, int &fin) const {
    debut = ligneParent(numero) + 1;
    fin = numero + 1 < NbParents ? LignesParents[size_t(numero) + 1] - 1 : flxGrd.Rows() - 1;
}

void ModeleGrille::rangerDossiers(const std::vector<int> &ordre) {
    std::vector<int> lignes;
    lignes.reserve(size_t(flxGrd.Rows()));
    const int premier = NbParents > 0 ? LignesParents[0] : flxGrd.Rows();
    for (int l = 0; l < premier; ++l) lignes.push_back(l);
    for (const int k : ordre) {
        int debut = 0, fin = 0;
        lignesFils(k, debut, fin);
        for (int l = debut - 1; l <= fin; ++l) lignes.push_back(l);
    }
    flxGrd.reordonner(lignes);
    commeCharge();
}

void ModeleGrille::commeCharge() {
    // The folders counted again from the rows, each numbered by its place, and its
    // documents with it.
    LignesParents.clear();
    NbParents = 0;
    QString numero;
    for (int r = 2; r < flxGrd.Rows(); ++r) {
        if (IsLigneParent(r)) {
            numero = QString::number(NbParents++);
            LignesParents.push_back(r);
            if (vue(r, Colonne::Numero) != numero) ecrire(r, Colonne::Numero, numero);
        } else if (NbParents > 0 && vue(r, Colonne::Etat) != numero) {
            ecrire(r, Colonne::Etat, numero);
        }
    }
    if (LignesParents.empty()) LignesParents.assign(1, 0);
    NbLignes = flxGrd.Rows();
    // Every folder open, as a load adds them.
    for (int k = 0; k < NbParents; ++k) {
        const int ligne = LignesParents[size_t(k)];
        if (vue(ligne, Colonne::Etat) != kFerme) continue;
        OuvrirParent(ligne, k + 1 < NbParents ? LignesParents[size_t(k) + 1] + 1 : 0);
        ecrire(ligne, Colonne::Etat, kOuvert);
    }
}

void ModeleGrille::remplirFils(int ligne, const QStringList &Infos, int Parent, int Icone, int Icone2, const QString &Cle1,
                               const QString &Cle2, const QString &Cle3) {
    // The two line colours are read in turn but never painted; the turn is kept.
    (void)(AlternanceLigne ? lineColor2_ : lineColor1_);
    AlternanceLigne = !AlternanceLigne;
    QStringView textes[grille::kColonnes];
    for (int i = 0; i < Infos.size() && Colonne::PremierChamp + i < grille::kColonnes; ++i) {
        grille::Cellule &cel = flxGrd.cellule(ligne, Colonne::PremierChamp + i);
        cel.alignement = grille::GaucheCentre;
        textes[Colonne::PremierChamp + i] = Infos[i];
        cel.couleurTexte = CouleurFils;
    }
    if (Icone > 0) {
        grille::Cellule &icone = flxGrd.cellule(ligne, Colonne::Icone);
        icone.alignementImage = grille::CentreCentre;
        icone.definirImage(Source::Contenu, Icone);
    }
    const QString donnees[] = {kFils, QString::number(Parent), QString::number(Icone), QString::number(Icone2)};
    for (int i = 0; i < 4; ++i) {
        textes[Colonne::Type + i] = donnees[i];
        flxGrd.cellule(ligne, Colonne::Type + i).alignement = grille::GaucheCentre;
    }
    textes[Colonne::NumCompte] = Cle1;
    textes[Colonne::NumDocument] = Cle2;
    textes[Colonne::NumDossier] = Cle3;
    flxGrd.definirTextes(ligne, 0, textes, grille::kColonnes);
    ++NbLignes;
}

void ModeleGrille::DelParent(int Ligne) {
    flxGrd.RemoveItem(Ligne);
    if (redraw_) demanderAffichage();
}

void ModeleGrille::Clear() {
    flxGrd.Clear();
    NbLignes = 0;
    LignesParents.assign(1, 0);
    NbParents = 0;
    // The rows are gone, and the selection with them: a row number kept across a
    // reload would name another folder or document.
    LigneCourante = 0;
    ligneSel_ = 0;
    LigneMarquee = 0;
    LigneGras = 0;
    CouleurMarquee.clear();
    if (redraw_) demanderAffichage();
}

bool ModeleGrille::IsLigneParent(int Ligne) const { return vue(Ligne, Colonne::Type) == kParent; }

QString ModeleGrille::GetParentEtat(int Ligne) const { return texte(Ligne, Colonne::Etat); }

bool ModeleGrille::HasLigneFils(int Ligne) const {
    // Asked before a folder is deleted: the answer must hold whatever row the
    // grid last looked at, so that a folder with documents is never deleted.
    if (!flxGrd.existe(Ligne) || !flxGrd.existe(Ligne + 1)) return false;
    return vue(Ligne + 1, Colonne::Type) != kParent;
}

void ModeleGrille::SelectLine(int Ligne) {
    if (!flxGrd.existe(Ligne)) return;
    ligneSel_ = Ligne;
    logiqueClic();
}

void ModeleGrille::AllerALigne(int Ligne) {
    if (!flxGrd.existe(Ligne)) return;
    ligneSel_ = Ligne;
    logiqueClic(false);
}

int ModeleGrille::LigneVisibleVoisine(int Ligne, int sens) const {
    for (int r = Ligne + (sens < 0 ? -1 : 1); r >= 2 && r < flxGrd.Rows(); r += sens < 0 ? -1 : 1)
        if (flxGrd.RowHeight(r) > 0) return r;
    return -1;
}

void ModeleGrille::definirRowid(int Ligne, qint64 Rowid) {
    ecrire(Ligne, Colonne::Rowid, QString::number(Rowid));
}

int ModeleGrille::LigneDeCle(bool dossier, const QString &NumDossier, const QString &Num, const QString &Rowid) const {
    for (int r = 2; r < flxGrd.Rows(); ++r) {
        if (IsLigneParent(r) != dossier || vue(r, Colonne::NumDossier) != NumDossier) continue;
        if (!Rowid.isEmpty() && vue(r, Colonne::Rowid) != Rowid) continue;
        if (dossier || vue(r, Colonne::NumDocument) == Num) return r;
    }
    return -1;
}

void ModeleGrille::Expend(bool Fermer) {
    const QString aBasculer = Fermer ? kOuvert : kFerme;
    for (size_t k = 0; k < LignesParents.size(); ++k) {
        const int ligne = LignesParents[k];
        if (!flxGrd.existe(ligne) || vue(ligne, Colonne::Etat) != aBasculer) continue;
        ligneSel_ = ligne;
        logiqueClic();
    }
}

void ModeleGrille::logiqueClic(bool basculer) {
    // Rows noted before a Clear may be gone: each step on such a row does nothing.
    auto mettreGras = [this](int ligne, bool gras) {
        if (flxGrd.existe(ligne, 1)) flxGrd.cellule(ligne, 1).gras = gras;
    };
    const int ligne = ligneSel_;
    LigneCourante = ligne;
    Redraw(false);
    if (IsLigneParent(ligne)) {
        if (LigneGras > 0) mettreGras(LigneGras, false);
        mettreGras(ligne, true);
        LigneGras = LigneCourante;
        if (basculer) {
            basculerParent(ligne);
        } else {
            // The keyboard's folder is the only row that looks chosen.
            effacerMarque();
            LigneMarquee = 0;
        }
    } else {
        MarquerLigne();
        LigneMarquee = ligne;
        // The document's folder takes the bold mark.
        for (int r = ligne; r >= 2; --r) {
            if (!IsLigneParent(r)) continue;
            if (LigneGras > 0) mettreGras(LigneGras, false);
            LigneGras = r;
            mettreGras(r, true);
            break;
        }
    }
    Redraw(true);
    leverClick();
}

void ModeleGrille::basculerParent(int ligne) {
    const int numero = nombre(vue(ligne, Colonne::Numero));
    // The children end before the next folder's row, or with the grid.
    int limite = 0;
    if (numero >= 0 && size_t(numero) + 1 < LignesParents.size()) limite = LignesParents[size_t(numero) + 1] + 1;
    if (GetParentEtat(ligne) == kOuvert) {
        FermerParent(ligne, limite);
        ecrire(ligne, Colonne::Etat, kFerme);
    } else {
        OuvrirParent(ligne, limite);
        ecrire(ligne, Colonne::Etat, kOuvert);
    }
}

void ModeleGrille::FermerParent(int Ligne, int limite) {
    if (!flxGrd.existe(Ligne)) return;
    flxGrd.cellule(Ligne, 0).definirImage(Source::Titre, kImageFerme);
    const int dernier = qMin(limite != 0 ? limite - 2 : flxGrd.Rows() - 1, flxGrd.Rows() - 1);
    if (Ligne >= dernier) {
        // Nothing to hide: the folder keeps the open picture.
        flxGrd.cellule(Ligne, 0).definirImage(Source::Titre, kImageOuvert);
        return;
    }
    for (int r = Ligne + 1; r <= dernier; ++r) {
        flxGrd.RowHeight(r, 0);
        // The icon is parked as its number in columns 1 and 2 until the folder opens.
        const QString icone = QString::number(nombre(vue(r, Colonne::Numero)));
        const QStringView icones[] = {icone, icone};
        flxGrd.definirTextes(r, 1, icones, 2);
        for (int c = 1; c <= 2; ++c) flxGrd.cellule(r, c).effacerImage();
        for (int c = 0; c < grille::kColonnes; ++c) flxGrd.cellule(r, c).couleurTexte = flxGrd.BackColorBkg;
    }
    Refresh();
}

void ModeleGrille::OuvrirParent(int Ligne, int limite) {
    if (!flxGrd.existe(Ligne)) return;
    flxGrd.cellule(Ligne, 0).definirImage(Source::Titre, kImageOuvert);
    const int dernier = qMin(limite != 0 ? limite - 2 : flxGrd.Rows() - 1, flxGrd.Rows() - 1);
    for (int r = Ligne + 1; r <= dernier; ++r) {
        grille::Cellule &icone = flxGrd.cellule(r, 1);
        const int numero = nombre(flxGrd.texte(r, 1));
        if (numero > 0) icone.definirImage(Source::Contenu, numero);
        const QStringView vides[] = {QStringView(), QStringView()};
        flxGrd.definirTextes(r, 1, vides, 2);
        flxGrd.RowHeight(r, kHauteurDocument);
        for (int c = 0; c < grille::kColonnes; ++c) flxGrd.cellule(r, c).couleurTexte = CouleurFils;
    }
    Refresh();
}

void ModeleGrille::effacerMarque() {
    if (LigneMarquee > 0 && flxGrd.existe(LigneMarquee)) {
        const int ancienne = nombre(CouleurMarquee);
        for (int c = 3; c < grille::kColonnes; ++c) flxGrd.cellule(LigneMarquee, c).couleurFond = ancienne;
    }
}

void ModeleGrille::MarquerLigne() {
    const int ligne = ligneSel_;
    effacerMarque();
    if (!flxGrd.existe(ligne)) return;
    // A cell colour of 0 means "none of its own": pure black becomes the nearest
    // colour that still shows.
    if (CouleurSelection == 0) CouleurSelection = 1;
    // Only column 4's colour is kept, and given back to all the columns alike.
    CouleurMarquee = QString::number(flxGrd.cellule(ligne, 4).couleurFond);
    for (int c = 3; c < grille::kColonnes; ++c) flxGrd.cellule(ligne, c).couleurFond = CouleurSelection;
}
