#pragma once
// A latching picture button: a click leaves it pressed, and the handler that acts on
// it releases it. It shows another picture while the pointer is over it.

#include <QAbstractButton>
#include <QPixmap>

class BoutonImage : public QAbstractButton {
    Q_OBJECT
public:
    explicit BoutonImage(QWidget *parent = nullptr);

    void definirImages(const QPixmap &repos, const QPixmap &survol = QPixmap());
    // A picture of the art, with its hover picture derived from it.
    void definirArt(const QString &nom, const QSize &taille);

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
    QPixmap repos_;
    QPixmap survol_Image_;
    bool survole_ = false;
};
