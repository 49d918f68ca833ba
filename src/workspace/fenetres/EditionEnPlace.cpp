#include "EditionEnPlace.h"

#include "grid/Colonnes.h"
#include "grid/fenetres/MyCoolGrid.h"
#include "store/Base.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "ui/Apparence.h"
#include "ui/fenetres/Calendriers.h"
#include "ui/fenetres/LimiteSaisie.h"
#include "ui/fenetres/Messages.h"
#include "ui/fenetres/SaisieSecrete.h"
#include "workspace/fenetres/frmMain.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>

namespace {
constexpr int kPremiereSaisie = Colonne::PremierChamp;
constexpr int kDerniereSaisie = Colonne::DernierChamp;
constexpr int kDateDebut = Colonne::DateDebut;
constexpr int kDateFin = Colonne::DateFin;

bool estDate(int index) { return index == kDateDebut || index == kDateFin; }
}  // namespace

EditionEnPlace::EditionEnPlace(QWidget &fenetre, MyCoolGrid &grille, const int &ligneDocument)
    : QObject(&fenetre), fenetre_(fenetre), MG(grille), LigneDocument(ligneDocument) {
    PanCal = new PanneauImage(QStringLiteral("Fond"), PanneauImage::Mode::Mosaique, &fenetre);
    PanCal->setObjectName(QStringLiteral("PanCal"));
    PanCal->resize(270, 190);
    PanCal->definirAlignementTexte(Qt::AlignTop | Qt::AlignLeft);
    PanCal->definirCouleurTexte(Apparence::kEncre);
    PanCal->definirCouleurFond(Apparence::kAmbre);
    Calendrier = new QCalendarWidget(PanCal);
    Calendriers::habiller(Calendrier);
    Calendrier->setGeometry(1, 18, 268, 171);
    PanCal->hide();
}

void EditionEnPlace::creerSaisies() {
    for (int i = 0; i < kNbSaisies; ++i) {
        auto *s = new QLineEdit(&fenetre_);
        s->setObjectName(QStringLiteral("Saisie%1").arg(i));
        s->setFrame(false);
        // A document row is 16 pixels high: the box takes all of it for its text, the
        // boxes told apart by a rule between them and the row by its colour.
        s->setStyleSheet(QStringLiteral(
            "QLineEdit { background: rgb(255, 204, 59); color: black; border: none; "
            "border-right: 1px solid #9c6f10; padding: 0 2px; }"
            "QLineEdit:focus { background: rgb(255, 226, 140); }"));
        s->hide();
        s->installEventFilter(this);
        // Enciphered, a character takes three of the field's 255.
        LimiteSaisie::limiter(s, Def::kLongueurChamp / 3);
        Saisie[i] = s;
    }
    SaisieSecrete::equiper(Saisie[Colonne::MotDePasse]);
    for (int i : {kDateDebut, kDateFin}) Saisie[i]->setPlaceholderText(QStringLiteral("jj/mm/aaaa"));
    connect(Calendrier, &QCalendarWidget::clicked, this, [this](QDate jour) { choisirDate(jour); });
    connect(Calendrier, &QCalendarWidget::activated, this, [this](QDate jour) { choisirDate(jour); });
    Calendriers::vueJours(Calendrier)->installEventFilter(this);
    connect(MG.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { suivreDefilement(); });
}

void EditionEnPlace::RendreSaisieVisible(bool visible, int init, int rang) {
    Q_UNUSED(rang);
    if (init == 0 && !Saisie[0]) creerSaisies();
    MG.Redraw(false);
    // The boxes show the row's cells: setting their text also marks them unchanged.
    for (int i = 0; i < kNbSaisies; ++i) {
        masquageSaisie_ = true;
        Saisie[i]->setText(MG.GetColumnInfos(LigneDocument, i));
        Saisie[i]->setCursorPosition(0);
        masquageSaisie_ = false;
    }
    // The password box shows what the grid shows; its eye shows it for this edit.
    SaisieSecrete::montrer(Saisie[Colonne::MotDePasse], MG.motsDePasseVisibles());
    placerSaisies(visible);
    MG.Redraw(true);
}

void EditionEnPlace::placerSaisies(bool visible) {
    SaisieVisible = visible;
    const int bord = MG.x() + MG.width();
    int gauche = MG.x();
    for (int i = 0; i < kNbSaisies; ++i) {
        QLineEdit *s = Saisie[i];
        int w = 0, y = 0, h = 0;
        MG.GetColumnInfos(LigneDocument, i, w, y, h);
        int largeur = qMax(0, w);
        const int hauteur = qMax(0, h);
        bool dedans = true;
        if (i == 0) {
            gauche = MG.x();
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
        s->setGeometry(gauche, MG.y() + y, largeur, hauteur);
        const bool montrer = dedans && visible && i >= kPremiereSaisie && hauteur > 0 && largeur > 0;
        s->setVisible(montrer);
        if (montrer) s->raise();
        masquageSaisie_ = false;
        gauche += largeur;
    }
}

void EditionEnPlace::RendreSaisieVisibleCalendrier(bool visible) {
    PanCal->setVisible(visible);
    if (visible) PanCal->raise();
    MG.Redraw(true);
}

bool EditionEnPlace::fermerSaisie() {
    if (SaisieVisible && !enregistrerSaisies()) return false;
    RendreSaisieVisible(false, 1, 0);
    RendreSaisieVisibleCalendrier(false);
    return true;
}

void EditionEnPlace::annulerSaisie() {
    // Refilled from the grid: what was not stored yet is dropped, the cells stay as they were.
    RendreSaisieVisible(false, 1, 0);
    RendreSaisieVisibleCalendrier(false);
    MG.setFocus();
}

bool EditionEnPlace::enregistrerSaisies() {
    for (int i = kPremiereSaisie; i <= kDerniereSaisie; ++i) {
        if (enregistrerSaisie(i)) continue;
        Saisie[i]->setFocus();
        return false;
    }
    return true;
}

bool EditionEnPlace::enregistrerSaisie(int index) {
    QLineEdit *s = Saisie[index];
    const int ligne = MG.LigneCourante;
    // Only what the user changed is written: an untouched field keeps its stored form.
    if (!s->isModified() || s->text() == MG.GetColumnInfos(ligne, index)) {
        s->setModified(false);
        return true;
    }
    QString texte = s->text();
    if (estDate(index) && !texte.trimmed().isEmpty()) {
        const QDate date = Apparence::lireDate(texte);
        if (!date.isValid()) {
            Messages::information(QStringLiteral("« %1 » n'est pas une date.\nTapez-la sous la forme jj/mm/aaaa, "
                                                 "ou choisissez-la dans le calendrier.")
                                      .arg(texte.trimmed()));
            return false;
        }
        texte = Apparence::ecrireDate(date);
    }
    // The cipher keeps only its alphabet: anything else would come back as garbage.
    // The form stores fields as typed, and keeps them.
    const QString refus = MessageHorsAlphabet(texte);
    if (!refus.isEmpty()) {
        Messages::information(refus + QStringLiteral("\nUtilisez « Modifier le document » (Ctrl+E) pour garder ces caractères."));
        return false;
    }
    return ecrireChamp(index, texte);
}

bool EditionEnPlace::ecrireChamp(int index, const QString &texte) {
    try {
        MajChampDocument(index, CrypterChamp(texte));
    } catch (const Base::ErreurBase &e) {
        // Nothing reached the base: the box keeps the text, so that the user may try again.
        Messages::information(e.message());
        return false;
    }
    MG.MajColumnInfos(MG.LigneCourante, index, texte);
    QLineEdit *s = Saisie[index];
    if (s->text() != texte) s->setText(texte);
    s->setModified(false);
    if (index == kPremiereSaisie) emit titreEcrit(MG.LigneCourante);
    return true;
}

void EditionEnPlace::entreeSaisie(int index) {
    if (!estDate(index)) {
        RendreSaisieVisibleCalendrier(false);
        return;
    }
    // Back from the calendar, the box takes the keyboard without opening it again.
    if (retourCalendrier_) return;
    QLineEdit *s = Saisie[index];
    const int S = s->width(), P = PanCal->width();
    const int d = P - S > 0 ? (P - S) / 2 : (S - P) / 2;
    PanCal->move(qBound(0, s->x() + S - P + d, qMax(0, fenetre_.width() - P)), qBound(0, s->y() + s->height(), qMax(0, fenetre_.height() - PanCal->height())));
    // An empty or unreadable date opens the calendar on today.
    const QDate date = Apparence::lireDate(s->text());
    Calendrier->setSelectedDate(date.isValid() ? date : QDate::currentDate());
    PanCal->setProperty("Tag", index);
    RendreSaisieVisibleCalendrier(true);
}

void EditionEnPlace::revenirDuCalendrier(int index) {
    RendreSaisieVisibleCalendrier(false);
    if (!estDate(index) || !Saisie[index]->isVisible()) return;
    retourCalendrier_ = true;
    Saisie[index]->setFocus(Qt::OtherFocusReason);
    retourCalendrier_ = false;
}

void EditionEnPlace::choisirDate(const QDate &jour) {
    const int index = PanCal->property("Tag").toInt();
    if (!estDate(index) || !SaisieVisible) return;
    const QString texte = Apparence::ecrireDate(jour);
    if (texte != MG.GetColumnInfos(MG.LigneCourante, index)) ecrireChamp(index, texte);
    revenirDuCalendrier(index);
}

void EditionEnPlace::suivreDefilement() {
    if (!SaisieVisible) return;
    RendreSaisieVisibleCalendrier(false);
    int w = 0, y = 0, h = 0;
    MG.GetColumnInfos(LigneDocument, kPremiereSaisie, w, y, h);
    const QWidget *vue = MG.viewport();
    if (y >= vue->y() + MG.hauteurEntetes() && y + h <= vue->y() + vue->height()) {
        placerSaisies(true);
        return;
    }
    // The row left the view: editing ends, storing what was typed. A value that
    // can't be stored brings the row back, with the box that holds it.
    if (!fermerSaisie()) MG.rendreVisible(LigneDocument);
}

int EditionEnPlace::saisieVoisine(int index, int sens) const {
    for (int n = 1; n < kNbSaisies; ++n) {
        const int i = kPremiereSaisie + ((index - kPremiereSaisie + sens * n) % 8 + 8) % 8;
        if (Saisie[i]->isVisible()) return i;
    }
    return index;
}

bool EditionEnPlace::eventFilter(QObject *objet, QEvent *evenement) {
    if (Calendrier && objet == Calendriers::vueJours(Calendrier) && evenement->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(evenement)->key() == Qt::Key_Escape) {
        revenirDuCalendrier(PanCal->property("Tag").toInt());
        return true;
    }
    int index = -1;
    for (int i = 0; i < kNbSaisies; ++i)
        if (objet == Saisie[i]) index = i;
    if (index < 0) return false;
    switch (evenement->type()) {
    case QEvent::FocusOut: {
        if (masquageSaisie_ || !SaisieVisible) break;
        const Qt::FocusReason raison = static_cast<QFocusEvent *>(evenement)->reason();
        const QWidget *vers = QApplication::focusWidget();
        // Another window or a menu taking the keyboard is not the user leaving the box;
        // a press in the grid stores the boxes itself, before it moves the selection;
        // the calendar serves the date box.
        if (raison == Qt::ActiveWindowFocusReason || raison == Qt::PopupFocusReason) break;
        if (vers && ((raison == Qt::MouseFocusReason && MG.isAncestorOf(vers)) || PanCal->isAncestorOf(vers))) break;
        if (!enregistrerSaisie(index)) {
            // The text stays in its box, and the box takes the keyboard back for correction.
            QLineEdit *s = Saisie[index];
            QTimer::singleShot(0, s, [s] { s->setFocus(); });
        }
        break;
    }
    case QEvent::FocusIn:
        entreeSaisie(index);
        break;
    case QEvent::KeyPress: {
        const auto *touche = static_cast<QKeyEvent *>(evenement);
        // Before the box takes it as its own key: the form, with what the boxes hold.
        if (touche->keyCombination() == frmMain::kToucheFormulaire) {
            emit formulaireDemande();
            return true;
        }
        switch (touche->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (fermerSaisie()) MG.setFocus();
            return true;
        case Qt::Key_Escape:
            annulerSaisie();
            return true;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            // The keyboard goes round the boxes of the row.
            Saisie[saisieVoisine(index, touche->key() == Qt::Key_Tab ? 1 : -1)]->setFocus(Qt::TabFocusReason);
            return true;
        case Qt::Key_Down:
            if (!estDate(index)) break;
            entreeSaisie(index);
            Calendrier->setFocus(Qt::OtherFocusReason);
            return true;
        default:
            break;
        }
        break;
    }
    default:
        break;
    }
    return false;
}
