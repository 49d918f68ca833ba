#pragma once
// The frameless window every Korvane window shares: a top strip, two edges and a
// bottom strip painted from the art, a tiled background, a close button, and a
// drag by the frame and by the labels.

#include <QPoint>
#include <QWidget>
#include <array>
#include <functional>

class BoutonImage;
class QLabel;

// A panel painted from one picture of the art, stretched or tiled, with an optional text.
class PanneauImage : public QWidget {
    Q_OBJECT
public:
    enum class Mode { Etire,
                      Mosaique };
    PanneauImage(const QString &art, Mode mode, QWidget *parent = nullptr);

    void definirTexte(const QString &texte);
    void definirArt(const QString &art) {
        art_ = art;
        update();
    }
    QString texte() const { return texte_; }
    void definirCouleurTexte(const QColor &c);
    // Where the text stands; a panel that holds other controls keeps it at the top.
    void definirAlignementTexte(Qt::Alignment a) {
        alignement_ = a;
        update();
    }
    // Room kept free at the right end, for a control laid over the panel; the text is cut before it.
    void definirMargeDroite(int marge) {
        margeDroite_ = marge;
        update();
    }
    // A plain colour in place of the picture.
    void definirCouleurFond(const QColor &c) {
        couleurFond_ = c;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override;

private:
    QString art_;
    Mode mode_;
    QString texte_;
    QColor couleurTexte_ = Qt::white;
    Qt::Alignment alignement_ = Qt::AlignVCenter | Qt::AlignLeft;
    QColor couleurFond_;
    int margeDroite_ = 0;
};

class FenetreCadre : public QWidget {
    Q_OBJECT
public:
    static constexpr int kHautEntete = 36;
    static constexpr int kHautBas = 26;
    static constexpr int kLargeBord = 6;

    explicit FenetreCadre(QWidget *parent = nullptr);

    // Frame parts, by their place; a dialog adds two of its own.
    enum PartieFond : int {
        FondHaut,     // top strip
        FondBande,    // a dialog's band, as the grid's title row
        FondDossier,  // a dialog's folder picture, on its band
        FondGauche,   // left edge
        FondDroit,    // right edge
        NbPartiesFond
    };
    std::array<PanneauImage *, NbPartiesFond> Fond{};
    PanneauImage *EnteteB = nullptr;     // bottom strip
    PanneauImage *FondBleu = nullptr;    // background of the content; children go here
    BoutonImage *Im_Commande = nullptr;  // close button, tool tip "Fermer"
    QLabel *entete = nullptr;            // heading on the top strip

    // Makes w a drag surface for the window (labels, decorations).
    void activerDeplacement(QWidget *w);
    // Sets the size of the content area; the frame adds its strips around it.
    void definirTailleContenu(const QSize &taille);
    // Shows the window modal (over its parent when it has one) and returns when it is closed.
    void executer();
    // Tests answer the modal windows: this runs on each one shown by executer, before it waits.
    static void definirPreparationModale(std::function<void(FenetreCadre *)> preparation);

    // The confirm button every dialog has, in the content area.
    BoutonImage *creerBoutonOK();
    // Places the window in the middle of the screen it is on.
    void centrer();

signals:
    void fermetureDemandee();  // Im_Commande clicked while pressed; it is released by the handler
    void fermee();             // the window was closed

protected:
    // Called when a drag of the window ends, for windows that remember their place.
    virtual void finDeplacement() {}
    void resizeEvent(QResizeEvent *) override;
    void closeEvent(QCloseEvent *e) override;
    // Escape closes a dialog as its close button does.
    void keyPressEvent(QKeyEvent *e) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    bool DeplacementEnCours = false;
    QPoint Deplacement;  // pointer position within the window when the drag began
};
