#pragma once
// A latching picture button: a click leaves it pressed, and the handler that acts on
// it releases it. It shows another picture while the pointer is over it. A command
// button (definirCommande) is drawn as a raised button with its picture and caption,
// sunk while its command acts.

#include <QAbstractButton>
#include <QPixmap>

class QPainter;

class BoutonImage : public QAbstractButton {
    Q_OBJECT
public:
    explicit BoutonImage(QWidget *parent = nullptr);

    void definirImages(const QPixmap &repos, const QPixmap &survol = QPixmap());
    // A picture of the art, with its hover picture derived from it.
    void definirArt(const QString &nom, const QSize &taille);
    // A command: the icon theme's picture of that name, and its caption.
    void definirCommande(const QString &icone, const QString &texte);

    bool estEnfonce() const { return isChecked(); }
    void enfoncer() { setChecked(true); }
    void relacher() { setChecked(false); }
    bool estSurvole() const { return survole_; }

    QSize sizeHint() const override;

signals:
    void survolDebut();
    void survolFin();

protected:
    void paintEvent(QPaintEvent *) override;
    void enterEvent(QEnterEvent *) override;
    void leaveEvent(QEvent *) override;

private:
    void peindreCommande(QPainter &p);

    QPixmap repos_;
    QPixmap survol_Image_;
    bool survole_ = false;
    bool commande_ = false;
};
