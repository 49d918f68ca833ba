#pragma once
// An ordered list of pictures, each with a key and a tag: the icon library as the
// grid and the main window hold it in memory. Pictures are numbered from 1, and a
// document names its icon by that number.

#include <QImage>
#include <QList>
#include <QString>

class ListeImages {
public:
    struct Entree {
        QString cle;   // "A " + Num
        QImage image;  // null when the stored bytes were no picture
        QString tag;   // Libelle
    };

    void vider();
    void ajouter(const QString &cle, const QImage &image, const QString &tag = QString());
    // The picture or the tag of an icon in place: its key and its number stay.
    void remplacerImage(int numero, const QImage &image);
    void definirTag(int numero, const QString &tag);
    int nombre() const { return int(entrees_.size()); }
    bool existe(int numero) const { return numero >= 1 && numero <= nombre(); }
    // nullptr for a number the list lacks.
    const Entree *entree(int numero) const { return existe(numero) ? &entrees_[numero - 1] : nullptr; }
    QImage image(int numero) const { return existe(numero) ? entrees_[numero - 1].image : QImage(); }
    // The number of the icon of this key ("A " + Num), 0 when the list has none.
    int numeroDeCle(const QString &cle) const;
    // The picture of the icon whose Num this is: a document names its icon by Num, and
    // the numbers of a base may have gaps. Null when the list has no such icon.
    QImage imageDeNum(int num) const;

    // Replaced by the Icones table of the base, in the order of Num then Libelle.
    // An icon whose bytes don't load keeps its place with a null picture, so that
    // the numbers of the icons after it stay right. False, and the list empty,
    // when the base can't be read.
    bool chargerBase();

    // The Num a new icon takes: one past the greatest of the keys, so that it comes
    // last in the order of Num and never meets a row of the base.
    int numeroSuivant() const;

    // Goes up at each change, for whoever keeps copies of the pictures.
    quint64 generation() const { return generation_; }

private:
    QList<Entree> entrees_;
    quint64 generation_ = 0;
};
