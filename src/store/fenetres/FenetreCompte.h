#pragma once
// What the windows of an account share: the login's title and bottom strip, the
// program's logo at the left, bold captions, password boxes where Enter presses OK.

#include "ui/fenetres/FenetreCadre.h"

#include <QList>

class QLabel;
class QLineEdit;

class FenetreCompte : public FenetreCadre {
    Q_OBJECT
public:
    BoutonImage *OK = nullptr;

protected:
    // The window of that object name, with a content area of that size, centred.
    FenetreCompte(const QString &nom, const QSize &contenu, QWidget *parent);

    // The program's logo, 64 pixels square, at the left of the content, top at y.
    QLabel *creerLogo(int y);
    // A bold caption of the content, that drags the window.
    QLabel *creerLibelle(const QString &texte);
    // A box that hides what is typed; Enter in it presses OK and runs clicOK.
    QLineEdit *creerMotDePasse(const QString &nom);
    // The box's whole text is selected when it takes the focus, to be typed over.
    void toutChoisirAuFocus(QLineEdit *boite);
    // OK, which runs clicOK when clicked.
    void creerOK();
    // What OK does; it acts only while OK reads as pressed.
    virtual void clicOK() = 0;

    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    QList<QLineEdit *> toutAuFocus_;
};
