#include "ListeImages.h"

#include "store/Base.h"
#include "store/TableIcones.h"
#include "ui/Apparence.h"

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
    for (const Entree &e : entrees_) plusGrand = qMax(plusGrand, Apparence::numDeCle(e.cle));
    return plusGrand + 1;
}

QImage ListeImages::imageDeNum(int num) const { return image(numeroDeCle(Apparence::cleIcone(num))); }

int ListeImages::numeroDeCle(const QString &cle) const {
    for (int i = 0; i < nombre(); ++i)
        if (entrees_[i].cle == cle) return i + 1;
    return 0;
}

bool ListeImages::chargerBase() {
    vider();
    try {
        for (const TableIcones::Ligne &l : TableIcones::lire()) {
            QImage image;
            if (!image.loadFromData(l.ico)) image = QImage();
            ajouter(Apparence::cleIcone(l.num), image, l.libelle);
        }
        return true;
    } catch (const Base::ErreurBase &) {
        vider();
        return false;
    }
}
