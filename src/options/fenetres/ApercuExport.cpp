#include "ApercuExport.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextFrame>
#include <QWheelEvent>

#include <cmath>

namespace {
constexpr int kMarge = 4;            // around the text, as a browser leaves it
constexpr int kPiecesGardees = 400;  // laid out pieces kept for the next paint
}  // namespace

ApercuExport::ApercuExport(QWidget *parent) : QAbstractScrollArea(parent), rendus_(kPiecesGardees) {
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setRange(0, 0);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ApercuExport::barreBougee);
}

void ApercuExport::montrer(const QString &chemin, const Exports::Decoupe &decoupe, bool html, bool garderPosition) {
    lire(std::make_unique<QFile>(chemin), QDir::toNativeSeparators(chemin), decoupe, html, garderPosition);
}

void ApercuExport::montrer(const QByteArray &octets, const Exports::Decoupe &decoupe, bool html) {
    auto tampon = std::make_unique<QBuffer>();
    tampon->setData(octets);
    lire(std::move(tampon), QString(), decoupe, html, false);
}

void ApercuExport::lire(std::unique_ptr<QIODevice> source, const QString &nom, const Exports::Decoupe &decoupe,
                        bool html, bool garderPosition) {
    rendus_.clear();
    source_ = std::move(source);
    if (decoupe.bornes.empty() || !source_->open(QIODevice::ReadOnly)) {
        montrerMessage(QStringLiteral("Le fichier %1 ne peut pas être lu.").arg(nom));
        return;
    }
    message_.clear();
    decoupe_ = decoupe;
    html_ = html;
    fond_ = palette().base();
    if (html_) {
        // Every row is drawn inside the file's own head and tail, which set the page's look.
        source_->seek(0);
        tete_ = QString::fromUtf8(source_->read(decoupe_.bornes.front()));
        source_->seek(decoupe_.bornes.back());
        queue_ = QString::fromUtf8(source_->readAll());
        QTextDocument page;
        page.setHtml(tete_ + queue_);
        if (const QBrush b = page.rootFrame()->frameFormat().background(); b.style() != Qt::NoBrush) fond_ = b;
    }
    recalculerFin();
    allerA(garderPosition ? position_ : Position{});
}

void ApercuExport::montrerMessage(const QString &texte) {
    rendus_.clear();
    source_.reset();
    decoupe_ = {};
    message_ = texte;
    fond_ = palette().base();
    recalculerFin();
    allerA({});
}

QTextDocument *ApercuExport::rendu(int piece) const {
    QTextDocument *d = rendus_.object(piece);
    if (!d) {
        d = new QTextDocument;
        d->setDocumentMargin(0);
        d->setDefaultFont(font());
        QTextOption option = d->defaultTextOption();
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        d->setDefaultTextOption(option);
        const qint64 debut = decoupe_.bornes[size_t(piece)];
        QByteArray octets;
        if (source_->seek(debut)) octets = source_->read(decoupe_.bornes[size_t(piece) + 1] - debut);
        if (html_) {
            d->setHtml(tete_ + QString::fromUtf8(octets) + queue_);
        } else {
            if (octets.endsWith("\r\n")) octets.chop(2);
            d->setPlainText(QString::fromUtf8(octets));
        }
        rendus_.insert(piece, d);
    }
    if (d->textWidth() != largeurTexte()) d->setTextWidth(largeurTexte());
    return d;
}

int ApercuExport::hauteur(int piece) const { return int(std::ceil(rendu(piece)->size().height())); }
int ApercuExport::largeurTexte() const { return std::max(1, viewport()->width() - 2 * kMarge); }
int ApercuExport::hauteurUtile() const { return std::max(1, viewport()->height() - 2 * kMarge); }

void ApercuExport::recalculerFin() {
    // From the last piece up, as many as one view holds.
    int reste = hauteurUtile();
    int i = nbPieces() - 1;
    while (i >= 0 && reste > hauteur(i)) reste -= hauteur(i--);
    fin_ = i < 0 ? Position{} : Position{i, hauteur(i) - reste};
    majBarre_ = true;
    verticalScrollBar()->setRange(0, fin_.piece + (fin_.decalage > 0 ? 1 : 0));
    verticalScrollBar()->setPageStep(std::max(1, nbPieces() - 1 - i));
    majBarre_ = false;
}

void ApercuExport::allerA(Position p) {
    if (fin_ < p) p = fin_;
    if (p.piece < 0) p = {};
    position_ = p;
    majBarre_ = true;
    QScrollBar *barre = verticalScrollBar();
    barre->setValue(!(position_ < fin_) ? barre->maximum() : position_.piece);
    majBarre_ = false;
    viewport()->update();
}

void ApercuExport::barreBougee(int valeur) {
    if (majBarre_) return;
    allerA(valeur >= verticalScrollBar()->maximum() ? fin_ : Position{valeur, 0});
}

void ApercuExport::defiler(int pixels) {
    Position p = position_;
    p.decalage += pixels;
    while (p.decalage < 0 && p.piece > 0) p.decalage += hauteur(--p.piece);
    p.decalage = std::max(0, p.decalage);
    while (p.piece < nbPieces() - 1 && p.decalage >= hauteur(p.piece)) p.decalage -= hauteur(p.piece++);
    allerA(p);
}

bool ApercuExport::viewportEvent(QEvent *e) {
    if (e->type() == QEvent::Resize) {
        recalculerFin();
        allerA(position_);
    }
    return QAbstractScrollArea::viewportEvent(e);
}

void ApercuExport::wheelEvent(QWheelEvent *e) {
    const int ligne = fontMetrics().lineSpacing();
    defiler(!e->pixelDelta().isNull() ? -e->pixelDelta().y()
                                      : -e->angleDelta().y() * QApplication::wheelScrollLines() * ligne / 120);
    e->accept();
}

void ApercuExport::keyPressEvent(QKeyEvent *e) {
    const int ligne = fontMetrics().lineSpacing();
    switch (e->key()) {
    case Qt::Key_Down: defiler(ligne); break;
    case Qt::Key_Up: defiler(-ligne); break;
    case Qt::Key_PageDown: defiler(std::max(ligne, hauteurUtile() - ligne)); break;
    case Qt::Key_PageUp: defiler(-std::max(ligne, hauteurUtile() - ligne)); break;
    case Qt::Key_Home: allerA({}); break;
    case Qt::Key_End: allerA(fin_); break;
    default: QAbstractScrollArea::keyPressEvent(e); return;
    }
    e->accept();
}

QList<int> ApercuExport::piecesVisibles() const {
    QList<int> pieces;
    for (int i = position_.piece, y = kMarge - position_.decalage; i < nbPieces() && y < viewport()->height(); ++i) {
        pieces << i;
        y += hauteur(i);
    }
    return pieces;
}

QString ApercuExport::texteVisible() const {
    if (!message_.isEmpty()) return message_;
    QStringList textes;
    for (int i : piecesVisibles()) textes << rendu(i)->toPlainText();
    return textes.join(u'\n');
}

void ApercuExport::paintEvent(QPaintEvent *) {
    QPainter p(viewport());
    p.fillRect(viewport()->rect(), fond_);
    if (!message_.isEmpty()) {
        p.setPen(palette().text().color());
        p.drawText(viewport()->rect().adjusted(kMarge, kMarge, -kMarge, -kMarge), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   message_);
        return;
    }
    int y = kMarge - position_.decalage;
    for (int i : piecesVisibles()) {
        QTextDocument *d = rendu(i);
        const int h = int(std::ceil(d->size().height()));
        // A page paints its background over all it is given: each row gets its own band.
        const QRectF bande(-kMarge, 0, viewport()->width(), h);
        p.save();
        p.translate(kMarge, y);
        p.setClipRect(bande);
        QAbstractTextDocumentLayout::PaintContext contexte;
        contexte.palette = palette();
        contexte.clip = bande;
        d->documentLayout()->draw(&p, contexte);
        p.restore();
        y += h;
    }
}
