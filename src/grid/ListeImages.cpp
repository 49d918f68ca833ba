#include "ListeImages.h"

#include "store/Base.h"

void ListeImages::vider() {
    entrees_.clear();
    ++generation_;
}

void ListeImages::ajouter(const QString &cle, const QImage &image, const QString &tag) {
    entrees_.append({cle, image, tag});
    ++generation_;
}

void ListeImages::remplacerImage(int numero, const QImage &image) {
    if (!existe(numero)) return;
    entrees_[numero - 1].image = image;
    ++generation_;
}

void ListeImages::definirTag(int numero, const QString &tag) {
    if (!existe(numero)) return;
    entrees_[numero - 1].tag = tag;
    ++generation_;
}

int ListeImages::numeroSuivant() const {
    int plusGrand = 0;
    for (const Entree &e : entrees_) plusGrand = qMax(plusGrand, e.cle.mid(2).toInt());
    return plusGrand + 1;
}

int ListeImages::numeroDeCle(const QString &cle) const {
    for (int i = 0; i < nombre(); ++i)
        if (entrees_[i].cle == cle) return i + 1;
    return 0;
}

bool ListeImages::chargerBase() {
    vider();
    try {
        Base::Connexion c;
        Base::Requete r(c, "SELECT Num, ico, Libelle FROM Icones ORDER BY Num ASC, Libelle ASC");
        while (r.suivante()) {
            QImage image;
            if (!image.loadFromData(r.octets(1))) image = QImage();
            ajouter(QStringLiteral("A %1").arg(r.texte(0)), image, r.texte(2));
        }
        return true;
    } catch (const Base::ErreurBase &) {
        vider();
        return false;
    }
}
