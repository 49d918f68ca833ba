// frmMain: editing a document in its own row, and the calendar of the two dates.

#include "frmMain.h"

#include "grid/MyCoolGrid.h"
#include "store/Base.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "ui/Messages.h"

#include <QCalendarWidget>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace {
constexpr int kDateDebut = 8;
constexpr int kDateFin = 9;
const QString kFormatDate = QStringLiteral("dd/MM/yyyy");

bool estDate(int index) { return index == kDateDebut || index == kDateFin; }
}  // namespace

void frmMain::creerSaisies() {
    for (int i = 0; i < kNbSaisies; ++i) {
        auto *s = new QLineEdit(this);
        s->setObjectName(QStringLiteral("Saisie%1").arg(i));
        s->setFrame(false);
        s->setStyleSheet(QStringLiteral("QLineEdit { background: rgb(255, 204, 59); color: black; border: 1px solid #9c6f10; padding: 0 2px; }"));
        s->hide();
        s->installEventFilter(this);
        Saisie[i] = s;
    }
    connect(Calendrier, &QCalendarWidget::clicked, this, [this](QDate jour) { choisirDate(jour); });
}

void frmMain::RendreSaisieVisible(bool visible, int init, int rang) {
    Q_UNUSED(rang);
    if (init == 0 && !Saisie[0]) creerSaisies();
    MG->Redraw(false);
    SaisieVisible = visible;
    const int bord = MG->x() + MG->width();
    int gauche = MG->x();
    for (int i = 0; i < kNbSaisies; ++i) {
        QLineEdit *s = Saisie[i];
        int w = 0, y = 0, h = 0;
        const QString texte = MG->GetColumnInfos(LigneDocument, i, w, y, h);
        s->setText(texte);
        s->setCursorPosition(0);
        int largeur = qMax(0, w);
        const int hauteur = qMax(0, h);
        bool dedans = true;
        if (i == 0) {
            gauche = MG->x();
            dedans = false;
        } else if (gauche + largeur >= bord) {
            // The box that crosses the grid's right edge is cut to fit; those beyond it stay hidden.
            if (bord - gauche > 0)
                largeur = bord - gauche;
            else {
                largeur = 0;
                dedans = false;
            }
        }
        s->setProperty("Tag", dedans ? QStringLiteral("V") : QString());
        // Hiding a box moves its focus: that is not the user leaving it.
        masquageSaisie_ = true;
        s->setGeometry(gauche, MG->y() + y, largeur, hauteur);
        const bool montrer = dedans && visible && i > 2 && hauteur > 0;
        s->setVisible(montrer);
        if (montrer) s->raise();
        masquageSaisie_ = false;
        gauche += largeur;
    }
    MG->Redraw(true);
}

void frmMain::RendreSaisieVisibleCalendrier(bool visible) {
    PanCal->setVisible(visible);
    if (visible) PanCal->raise();
    MG->Redraw(true);
}

void frmMain::validerSaisie(int index) {
    if (estDate(index) || masquageSaisie_) return;
    const int ligne = MG->LigneCourante;
    const QString texte = Saisie[index]->text();
    MG->MajColumnInfos(ligne, index, texte);
    try {
        MajChampDocument(index, CrypterChamp(texte));
    } catch (const Base::ErreurBase &e) {
        // The grid keeps the text: the user sees what did not reach the base, and may retry.
        Messages::information(e.message());
    }
}

void frmMain::entreeSaisie(int index) {
    if (!estDate(index)) {
        RendreSaisieVisibleCalendrier(false);
        return;
    }
    QLineEdit *s = Saisie[index];
    const int S = s->width(), P = PanCal->width();
    const int d = P - S > 0 ? (P - S) / 2 : (S - P) / 2;
    PanCal->move(qBound(0, s->x() + S - P + d, qMax(0, width() - P)), qBound(0, s->y() + s->height(), qMax(0, height() - PanCal->height())));
    // An empty or unreadable date opens the calendar on today.
    const QDate date = QDate::fromString(s->text().trimmed(), kFormatDate);
    Calendrier->setSelectedDate(date.isValid() ? date : QDate::currentDate());
    PanCal->setProperty("Tag", index);
    RendreSaisieVisibleCalendrier(true);
}

void frmMain::choisirDate(const QDate &jour) {
    const int index = PanCal->property("Tag").toInt();
    if (!estDate(index) || !Saisie[index]) return;
    const QString texte = jour.toString(kFormatDate);
    Saisie[index]->setText(texte);
    MG->MajColumnInfos(MG->LigneCourante, index, texte);
    try {
        MajChampDocument(index, CrypterChamp(texte));
    } catch (const Base::ErreurBase &e) {
        Messages::information(e.message());
    }
    RendreSaisieVisibleCalendrier(false);
}

bool frmMain::filtrerSaisie(QObject *objet, QEvent *evenement) {
    int index = -1;
    for (int i = 0; i < kNbSaisies; ++i)
        if (objet == Saisie[i]) index = i;
    if (index < 0) return false;
    switch (evenement->type()) {
    case QEvent::FocusOut:
        validerSaisie(index);
        break;
    case QEvent::FocusIn:
        entreeSaisie(index);
        break;
    case QEvent::KeyPress: {
        const int touche = static_cast<QKeyEvent *>(evenement)->key();
        if (touche == Qt::Key_Return || touche == Qt::Key_Enter) {
            validerSaisie(index);
            RendreSaisieVisible(false, 1, 0);
            RendreSaisieVisibleCalendrier(false);
            MG->setFocus();
            return true;
        }
        break;
    }
    default:
        break;
    }
    return false;
}
