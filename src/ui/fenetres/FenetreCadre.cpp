#include "FenetreCadre.h"

#include "ui/Apparence.h"
#include "ui/Art.h"
#include "BoutonImage.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QPainter>

PanneauImage::PanneauImage(const QString &art, Mode mode, QWidget *parent)
    : QWidget(parent), art_(art), mode_(mode) {}

void PanneauImage::definirTexte(const QString &texte) {
    texte_ = texte;
    update();
}

void PanneauImage::definirCouleurTexte(const QColor &c) {
    couleurTexte_ = c;
    update();
}

void PanneauImage::paintEvent(QPaintEvent *) {
    QPainter p(this);
    bool peint = false;
    if (couleurFond_.isValid()) {
        p.fillRect(rect(), couleurFond_);
        peint = true;
    } else if (mode_ == Mode::Etire) {
        peint = Art::dessiner(p, art_, QRectF(rect()));
    } else {
        static QPixmap tuile;
        static QString tuileArt;
        if (tuileArt != art_) {
            tuile = Art::pixmap(art_, QSize(256, 256));
            tuileArt = art_;
        }
        if (!tuile.isNull()) {
            p.drawTiledPixmap(rect(), tuile);
            peint = true;
        }
    }
    if (!peint) p.fillRect(rect(), mode_ == Mode::Mosaique ? QColor(0xee, 0xf0, 0xf4) : QColor(0x26, 0x34, 0x55));
    if (!texte_.isEmpty()) {
        p.setPen(couleurTexte_);
        const QRect zone = rect().adjusted(8, 0, -8 - margeDroite_, 0);
        p.drawText(zone, int(alignement_), fontMetrics().elidedText(texte_, Qt::ElideRight, zone.width()));
    }
}

FenetreCadre::FenetreCadre(QWidget *parent) : QWidget(parent, Qt::Window | Qt::FramelessWindowHint) {
    setAttribute(Qt::WA_DeleteOnClose, false);
    Fond[FondHaut] = new PanneauImage(QStringLiteral("enteteh"), PanneauImage::Mode::Etire, this);
    Fond[FondGauche] = new PanneauImage(QStringLiteral("gauche"), PanneauImage::Mode::Etire, this);
    Fond[FondDroit] = new PanneauImage(QStringLiteral("droit"), PanneauImage::Mode::Etire, this);
    EnteteB = new PanneauImage(QStringLiteral("enteteb"), PanneauImage::Mode::Etire, this);
    FondBleu = new PanneauImage(QStringLiteral("Fond"), PanneauImage::Mode::Mosaique, this);
    for (int i : {FondHaut, FondGauche, FondDroit}) activerDeplacement(Fond[i]);
    activerDeplacement(EnteteB);
    activerDeplacement(FondBleu);

    entete = new QLabel(Fond[FondHaut]);
    entete->setObjectName(QStringLiteral("entete"));
    QFont f = entete->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() + 1);
    entete->setFont(f);
    entete->setStyleSheet(Apparence::kStyleSurBande);
    activerDeplacement(entete);

    Im_Commande = new BoutonImage(Fond[FondHaut]);
    Im_Commande->setObjectName(QStringLiteral("Im_Commande"));
    Im_Commande->definirArt(QStringLiteral("fermer"), QSize(20, 20));
    Im_Commande->setToolTip(QStringLiteral("Fermer"));
    connect(Im_Commande, &QAbstractButton::clicked, this, [this] {
        if (!Im_Commande->estEnfonce()) return;
        Im_Commande->relacher();
        emit fermetureDemandee();
    });
}

namespace {
std::function<void(FenetreCadre *)> &preparationModale() {
    static std::function<void(FenetreCadre *)> preparation;
    return preparation;
}
}  // namespace

void FenetreCadre::definirPreparationModale(std::function<void(FenetreCadre *)> preparation) {
    preparationModale() = std::move(preparation);
}

void FenetreCadre::executer() {
    setWindowModality(parentWidget() ? Qt::WindowModal : Qt::ApplicationModal);
    show();
    activateWindow();
    if (preparationModale()) preparationModale()(this);
    QEventLoop boucle;
    connect(this, &FenetreCadre::fermee, &boucle, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &boucle, &QEventLoop::quit);
    const QPointer<FenetreCadre> fenetre(this);
    boucle.exec();
    if (!fenetre) return;
    // The keyboard goes back to the window underneath, even on a desktop that would
    // leave it to no window.
    if (QWidget *dessous = parentWidget() ? parentWidget()->window() : nullptr; dessous && dessous->isVisible())
        dessous->activateWindow();
}

void FenetreCadre::closeEvent(QCloseEvent *e) {
    QWidget::closeEvent(e);
    if (e->isAccepted()) emit fermee();
}

BoutonImage *FenetreCadre::creerBoutonOK() {
    auto *ok = new BoutonImage(FondBleu);
    ok->setObjectName(QStringLiteral("OK"));
    ok->definirCommande(QStringLiteral("dialog-ok"), QStringLiteral("OK"));
    ok->setToolTip(QStringLiteral("Valider"));
    return ok;
}

void FenetreCadre::activerDeplacement(QWidget *w) { w->installEventFilter(this); }

void FenetreCadre::definirTailleContenu(const QSize &taille) {
    resize(taille.width() + 2 * kLargeBord, taille.height() + kHautEntete + kHautBas);
}

void FenetreCadre::centrer() {
    const QScreen *ecran = screen() ? screen() : QGuiApplication::primaryScreen();
    if (!ecran) return;
    const QRect zone = ecran->availableGeometry();
    // Over the window it belongs to, kept on the screen.
    const QWidget *dessous = parentWidget() ? parentWidget()->window() : nullptr;
    const QPoint centre = dessous && dessous->isVisible() ? dessous->frameGeometry().center() : zone.center();
    QRect cible(centre - QPoint(width() / 2, height() / 2), size());
    cible.moveLeft(qBound(zone.left(), cible.left(), qMax(zone.left(), zone.right() + 1 - width())));
    cible.moveTop(qBound(zone.top(), cible.top(), qMax(zone.top(), zone.bottom() + 1 - height())));
    move(cible.topLeft());
}

void FenetreCadre::keyPressEvent(QKeyEvent *e) {
    if (e->key() == Qt::Key_Escape && windowModality() != Qt::NonModal && Im_Commande->isVisible()) {
        emit fermetureDemandee();
        return;
    }
    QWidget::keyPressEvent(e);
}

void FenetreCadre::resizeEvent(QResizeEvent *) {
    const int w = width(), h = height();
    Fond[FondHaut]->setGeometry(0, 0, w, kHautEntete);
    EnteteB->setGeometry(0, h - kHautBas, w, kHautBas);
    Fond[FondGauche]->setGeometry(0, kHautEntete, kLargeBord, h - kHautEntete - kHautBas);
    Fond[FondDroit]->setGeometry(w - kLargeBord, kHautEntete, kLargeBord, h - kHautEntete - kHautBas);
    FondBleu->setGeometry(kLargeBord, kHautEntete, w - 2 * kLargeBord, h - kHautEntete - kHautBas);
    if (Im_Commande->parentWidget() == Fond[FondHaut]) Im_Commande->setGeometry(w - 34, (kHautEntete - 28) / 2, 28, 28);
    entete->setGeometry(12, 0, w - 60, kHautEntete);
}

bool FenetreCadre::eventFilter(QObject *objet, QEvent *evenement) {
    switch (evenement->type()) {
    case QEvent::MouseButtonPress: {
        auto *m = static_cast<QMouseEvent *>(evenement);
        if (m->button() == Qt::LeftButton) {
            DeplacementEnCours = true;
            Deplacement = m->globalPosition().toPoint() - frameGeometry().topLeft();
        }
        break;
    }
    case QEvent::MouseMove:
        if (DeplacementEnCours) move(static_cast<QMouseEvent *>(evenement)->globalPosition().toPoint() - Deplacement);
        break;
    case QEvent::MouseButtonRelease:
        if (DeplacementEnCours) {
            DeplacementEnCours = false;
            finDeplacement();
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(objet, evenement);
}
