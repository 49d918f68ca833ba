#include "Grille.h"

#include <algorithm>
#include <bit>

namespace grille {

Grille::Grille() { largeurs_.fill(kLargeurDefaut); }

void Grille::deplacerTrou(size_t position) {
    if (position < debutTrou_) {
        const size_t n = debutTrou_ - position;
        std::move_backward(stockage_.begin() + ptrdiff_t(position), stockage_.begin() + ptrdiff_t(debutTrou_),
                           stockage_.begin() + ptrdiff_t(finTrou_));
        debutTrou_ -= n;
        finTrou_ -= n;
    } else if (position > debutTrou_) {
        const size_t n = position - debutTrou_;
        std::move(stockage_.begin() + ptrdiff_t(finTrou_), stockage_.begin() + ptrdiff_t(finTrou_ + n),
                  stockage_.begin() + ptrdiff_t(debutTrou_));
        debutTrou_ += n;
        finTrou_ += n;
    }
}

void Grille::inserer(size_t position) {
    deplacerTrou(position);
    if (debutTrou_ == finTrou_) {
        // Full: twice the room, the gap in the middle where the insertion goes.
        const size_t apres = stockage_.size() - finTrou_;
        const size_t taille = std::max<size_t>(64, stockage_.size() * 2);
        std::vector<PtrLigne> nouveau(taille);
        std::move(stockage_.begin(), stockage_.begin() + ptrdiff_t(debutTrou_), nouveau.begin());
        std::move(stockage_.begin() + ptrdiff_t(finTrou_), stockage_.end(), nouveau.end() - ptrdiff_t(apres));
        stockage_.swap(nouveau);
        finTrou_ = taille - apres;
    }
    stockage_[debutTrou_++] = std::make_unique<Ligne>();
    arbreValide_ = false;
}

void Grille::definirRows(int total) {
    if (total < 0) total = 0;
    deplacerTrou(size_t(Rows()));
    while (Rows() > total) stockage_[--debutTrou_].reset();
    while (Rows() < total) inserer(size_t(Rows()));
    arbreValide_ = false;
}

void Grille::AddItem(int position) { inserer(size_t(std::clamp(position, 0, Rows()))); }

void Grille::RemoveItem(int l) {
    if (!existe(l)) return;
    deplacerTrou(size_t(l));
    stockage_[finTrou_++].reset();
    arbreValide_ = false;
}

QStringView Grille::texte(int l, int colonne) const {
    const Ligne &r = rangee(l);
    return QStringView(r.textes).mid(r.debut(colonne), r.longueurs[size_t(colonne)]);
}

void Grille::definirTexte(int l, int colonne, QStringView texte) {
    Ligne &r = rangee(l);
    texte = texte.left(kLongueurMax);
    const int debut = r.debut(colonne);
    const int ancienne = r.longueurs[size_t(colonne)];
    if (texte == QStringView(r.textes).mid(debut, ancienne)) return;
    // In place: a row whose texts change once changes them again (a folder closed
    // and opened), so the room it grows to is kept.
    r.textes.replace(debut, ancienne, texte.data(), texte.size());
    r.longueurs[size_t(colonne)] = quint16(texte.size());
}

void Grille::definirTextes(int l, int premiere, const QStringView *textes, int nombre) {
    Ligne &r = rangee(l);
    nombre = std::min(nombre, kColonnes - premiere);
    if (premiere < 0 || nombre <= 0) return;
    if (!r.textes.isEmpty() && nombre <= 2) {
        for (int i = 0; i < nombre; ++i) definirTexte(l, premiere + i, textes[i]);
        return;
    }
    // Rebuilt whole, in one allocation of the right size.
    QStringView anciens[kColonnes];
    for (int c = 0; c < kColonnes; ++c) anciens[c] = QStringView(r.textes).mid(r.debut(c), r.longueurs[size_t(c)]);
    for (int i = 0; i < nombre; ++i) anciens[premiere + i] = textes[i].left(kLongueurMax);
    qsizetype total = 0;
    for (const QStringView &t : anciens) total += t.size();
    QString nouveaux;
    nouveaux.reserve(total);
    for (int c = 0; c < kColonnes; ++c) {
        nouveaux.append(anciens[c]);
        r.longueurs[size_t(c)] = quint16(anciens[c].size());
    }
    r.textes = std::move(nouveaux);
}

void Grille::reordonner(const std::vector<int> &ancienne) {
    if (ancienne.size() != size_t(Rows())) return;
    deplacerTrou(size_t(Rows()));
    std::vector<PtrLigne> nouveau(stockage_.size());
    for (size_t i = 0; i < ancienne.size(); ++i) nouveau[i] = std::move(stockage_[size_t(ancienne[i])]);
    stockage_.swap(nouveau);
    arbreValide_ = false;
}

void Grille::RowHeight(int l, int twips) {
    if (twips < 0) twips = 0;
    const int avant = hauteurPixels(l);
    rangee(l).hauteur = twips;
    const int ecart = hauteurPixels(l) - avant;
    if (!arbreValide_ || ecart == 0) return;
    for (size_t i = size_t(l) + 1; i < arbre_.size(); i += i & (~i + 1)) arbre_[i] += ecart;
}

void Grille::construireArbre() const {
    const size_t n = size_t(Rows());
    arbre_.assign(n + 1, 0);
    for (size_t i = 1; i <= n; ++i) {
        arbre_[i] += hauteurPixels(int(i - 1));
        const size_t parent = i + (i & (~i + 1));
        if (parent <= n) arbre_[parent] += arbre_[i];
    }
    arbreValide_ = true;
}

int Grille::hautPixels(int l) const {
    if (!arbreValide_) construireArbre();
    if (l <= 0) return 0;
    if (l > Rows()) l = Rows();
    int somme = 0;
    for (size_t i = size_t(l); i > 0; i -= i & (~i + 1)) somme += arbre_[i];
    return somme;
}

int Grille::ligneAuPixel(int y) const {
    if (y < 0 || Rows() == 0) return -1;
    if (!arbreValide_) construireArbre();
    // The last row whose top is at or above y; rows of height 0 share their
    // top with the next row and are thus passed over.
    const size_t n = size_t(Rows());
    size_t position = 0;
    int reste = y;
    for (size_t pas = std::bit_floor(n); pas > 0; pas >>= 1) {
        if (position + pas <= n && arbre_[position + pas] <= reste) {
            position += pas;
            reste -= arbre_[position];
        }
    }
    return position < n ? int(position) : -1;
}

}  // namespace grille
