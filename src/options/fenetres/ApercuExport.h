#pragma once
// The preview of an export file, however long: it reads from the file and lays out
// only the pieces on screen (rows of the HTML page, lines of the others), so that a
// tree of a hundred thousand documents shows as fast as a small one. The page is
// drawn as a browser would draw the whole file; text wraps at the width.

#include "options/Exports.h"

#include <QAbstractScrollArea>
#include <QBrush>
#include <QCache>
#include <QIODevice>

#include <memory>
#include <QTextDocument>

class ApercuExport : public QAbstractScrollArea {
public:
    explicit ApercuExport(QWidget *parent = nullptr);

    // The file, cut as it was written; html: its pieces are drawn as a page. With
    // garderPosition, the view stays on the piece it showed (the same file, now whole).
    void montrer(const QString &chemin, const Exports::Decoupe &decoupe, bool html, bool garderPosition = false);
    // The same from bytes in memory: the start of a file still being written.
    void montrer(const QByteArray &octets, const Exports::Decoupe &decoupe, bool html);
    // A line of its own in place of a file: while the files are written, or when one failed.
    void montrerMessage(const QString &texte);

    // What the preview shows now, as plain text, a line per piece.
    QString texteVisible() const;
    int nbPieces() const { return decoupe_.nbPieces(); }

protected:
    void paintEvent(QPaintEvent *) override;
    bool viewportEvent(QEvent *e) override;
    void wheelEvent(QWheelEvent *e) override;
    void keyPressEvent(QKeyEvent *e) override;
    void scrollContentsBy(int, int) override {}

private:
    // Where the view stands: the piece at the top, and how many of its pixels are above the view.
    struct Position {
        int piece = 0;
        int decalage = 0;
        bool operator<(const Position &p) const { return piece < p.piece || (piece == p.piece && decalage < p.decalage); }
    };
    QTextDocument *rendu(int piece) const;  // laid out at the width of the view; kept a while
    int hauteur(int piece) const;
    int largeurTexte() const;
    int hauteurUtile() const;
    void recalculerFin();  // the position that shows the last piece at the bottom, and the scroll bar
    void allerA(Position p);
    void defiler(int pixels);
    void barreBougee(int valeur);
    QList<int> piecesVisibles() const;

    void lire(std::unique_ptr<QIODevice> source, const QString &nom, const Exports::Decoupe &decoupe, bool html,
              bool garderPosition);
    std::unique_ptr<QIODevice> source_;  // the file, or the bytes of its start
    Exports::Decoupe decoupe_;
    QBrush fond_;  // the page's own background, or the view's
    bool html_ = false;
    QString tete_, queue_;  // of the HTML page, around each row
    QString message_;
    Position position_, fin_;
    bool majBarre_ = false;
    mutable QCache<int, QTextDocument> rendus_;
};
