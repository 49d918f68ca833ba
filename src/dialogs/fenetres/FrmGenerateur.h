#pragma once
// The password generator: a length, the classes of characters, the look-alikes left
// out or not, and the strength of what that gives. "Utiliser" hands the password over.

#include "dialogs/Generateur.h"
#include "ui/fenetres/FenetreCadre.h"

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QSlider;
class QSpinBox;

class FrmGenerateur : public FenetreCadre {
    Q_OBJECT
public:
    explicit FrmGenerateur(QWidget *parent = nullptr);

    // Shows the generator modal over parent: the password chosen with "Utiliser",
    // or the empty text when the generator was closed.
    static QString demander(QWidget *parent);

    Generateur::Options options() const;
    QString motChoisi() const { return choisi_; }

    QLineEdit *Mot = nullptr;  // the password drawn, as dots until shown
    BoutonImage *Afficher = nullptr;
    BoutonImage *Autre = nullptr;  // draws another one
    QSlider *Longueur = nullptr;
    QSpinBox *LongueurNombre = nullptr;
    std::array<QCheckBox *, 4> Classes{};  // small letters, capitals, digits, signs
    QCheckBox *SansSosies = nullptr;
    QProgressBar *Force = nullptr;
    QLabel *Entropie = nullptr;
    BoutonImage *Utiliser = nullptr;

private:
    void generer();
    void basculerAffichage();
    void clicUtiliser();
    void keyPressEvent(QKeyEvent *e) override;

    QString choisi_;
};
