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
