#include "FrmAjoutDoc.h"

#include "FrmGenerateur.h"
#include "store/Arbre.h"
#include "store/Base.h"
#include "store/Cryptage.h"
#include "store/Def.h"
#include "store/Reglages.h"
#include "ui/Apparence.h"
#include "ui/Art.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/fenetres/Calendriers.h"
#include "ui/Chaines.h"
#include "ui/fenetres/LimiteSaisie.h"
#include "ui/fenetres/Messages.h"
#include "ui/fenetres/SaisieSecrete.h"

#include <QCalendarWidget>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <algorithm>

namespace {

// Geometry of the content, in pixels.
constexpr int kMarge = 12;
constexpr int kLargeurContenu = 480;
constexpr int kLargeurLibelle = 112;
constexpr int kGaucheSaisie = kMarge + kLargeurLibelle + 8;
constexpr int kLargeurSaisie = kLargeurContenu - kGaucheSaisie - kMarge;
constexpr int kHautBande = 30;
constexpr int kHautPremiereLigne = kMarge + kHautBande + 12;
constexpr int kPasLigne = 32;
constexpr int kHautLigne = 26;
constexpr int kHautRemarques = 4 * kPasLigne - (kPasLigne - kHautLigne);  // the form's remarks: four rows
constexpr int kCoteBoutonChamp = 26;                                      // a button beside a box
constexpr int kRemarques = 7;
constexpr int kCoteCadreIcone = 42;
constexpr int kCoteIcone = 32;
constexpr QSize kTailleCalendrier(284, 204);

// The picture of MIcone, in the colours of the artwork: a framed landscape.
QPixmap dessinerChoixIcone() {
    QPixmap image(24, 24);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Apparence::kEncre, 1.5));
    p.setBrush(QColor(0xff, 0xff, 0xff));
    p.drawRoundedRect(QRectF(2.75, 4.75, 18.5, 14.5), 2, 2);
    p.setPen(Qt::NoPen);
    p.setBrush(Apparence::kOr);
    p.drawEllipse(QPointF(8, 9.5), 2.2, 2.2);
    p.setBrush(Apparence::kMarine);
    p.drawPolygon(QPolygonF({QPointF(4, 18), QPointF(10, 12), QPointF(13, 15), QPointF(16, 11), QPointF(20, 18)}));
    return image;
}

const QPixmap &imageChoixIcone() {
    static const QPixmap image = dessinerChoixIcone();
    return image;
}

const char *const kCaptions[FrmAjoutDoc::kNbSaisies + 1] = {
    "Titre", "Login", "Mot de passe", "Url", "Fichier", "Date de début", "Date de fin", "Remarques", "Icône"};

}  // namespace

FrmAjoutDoc::FrmAjoutDoc(QWidget *parent, MyCoolGrid *grille) : FenetreDialogue(parent, grille) {
    setObjectName(QStringLiteral("FrmAjoutDoc"));
    creerControles();
    placerControles();
    centrer();
    chargerImagesStock();
}

void FrmAjoutDoc::modifier(const QStringList &champs, int icone, const QPixmap &image) {
    modification_ = true;
    L[LibelleEntete]->setText(QStringLiteral("Modification d'un document"));
    for (int i = 0; i < kNbSaisies; ++i) Saisie[i]->setText(champs.value(i));
    RemarquesLignes->setPlainText(champs.value(kRemarques));
    Saisie[kRemarques]->hide();
    RemarquesLignes->show();
    setTabOrder(Saisie[kRemarques - 1], RemarquesLignes);
    Tag.clear();
    Icone->clear();
    if (icone != 0) choisirIcone(icone, image);
    // The document as stored: what is put in the boxes from now on is a change.
    initiaux_.clear();
    for (int i = 0; i < kNbSaisies; ++i) initiaux_ << texte(i);
    tagInitial_ = Tag;
    placerControles();
    centrer();
}

void FrmAjoutDoc::definirTexte(int i, const QString &t) {
    if (i == kRemarques && modification_)
        RemarquesLignes->setPlainText(t);
    else
        Saisie[i]->setText(t);
}

QString FrmAjoutDoc::texte(int i) const {
    return i == kRemarques && modification_ ? RemarquesLignes->toPlainText() : Saisie[i]->text();
}

QWidget *FrmAjoutDoc::boite(int i) const {
    if (i == kRemarques && modification_) return RemarquesLignes;
    return Saisie[i];
}

void FrmAjoutDoc::creerControles() {
    L[LibelleEntete] = entete;
    L[LibelleEntete]->setText(QStringLiteral("Ajout d'un document"));
    L[LibelleDossier] = new QLabel(QStringLiteral("Dossier"), FondBleu);
    L[LibelleDossier]->setObjectName(QStringLiteral("L0"));
    colorerLibelle(L[LibelleDossier], Reglages::lireNombre(Reglages::Cle::CouleurTitre), false);
    L[LibelleNomDossier] = new QLabel(FondBleu);
    L[LibelleNomDossier]->setObjectName(QStringLiteral("L2"));
    colorerLibelle(L[LibelleNomDossier], Reglages::couleurParentDialogue(), true);
    for (QLabel *l : L) activerDeplacement(l);

    for (int i = 0; i <= kNbSaisies; ++i) {
        Libelle[i] = new QLabel(QString::fromUtf8(kCaptions[i]) + QStringLiteral("  "), FondBleu);
        Libelle[i]->setObjectName(QStringLiteral("Libelle%1").arg(i));
        Libelle[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Libelle[i]->setStyleSheet(Apparence::kStyleEtiquette);
        Libelle[i]->installEventFilter(this);
    }
    for (int i = 0; i < kNbSaisies; ++i) {
        Saisie[i] = new QLineEdit(FondBleu);
        Saisie[i]->setObjectName(QStringLiteral("Saisie%1").arg(i));
        // What the box shows is what the field will hold.
        LimiteSaisie::limiter(Saisie[i], Def::kLongueurChamp);
        Saisie[i]->installEventFilter(this);
        connect(Saisie[i], &QLineEdit::returnPressed, this, [this] {
            OK->enfoncer();
            clicOK();
        });
        if (i > 0) setTabOrder(Saisie[i - 1], Saisie[i]);
    }
    // The password is typed hidden; the eye at the box's end shows it.
    SaisieSecrete::equiper(Saisie[2]);

    RemarquesLignes = new QPlainTextEdit(FondBleu);
    RemarquesLignes->setObjectName(QStringLiteral("RemarquesLignes"));
    RemarquesLignes->setTabChangesFocus(true);
    LimiteSaisie::limiter(RemarquesLignes, Def::kLongueurChamp);
    RemarquesLignes->installEventFilter(this);
    RemarquesLignes->hide();

    Generer = new BoutonImage(FondBleu);
    Generer->setObjectName(QStringLiteral("Generer"));
    Generer->definirImages(Art::iconeTheme(QStringLiteral("password-generator"), 22));
    Generer->setToolTip(QStringLiteral("Générer un mot de passe (Ctrl+G)"));
    connect(Generer, &QAbstractButton::clicked, this, [this] { clicGenerer(); });

    ShapeIcone = new QFrame(FondBleu);
    ShapeIcone->setObjectName(QStringLiteral("ShapeIcone"));
    ShapeIcone->setStyleSheet(QStringLiteral("#ShapeIcone { background: #ffffff; border: 1px solid #8c98b0; border-radius: 4px; }"));
    Icone = new QLabel(ShapeIcone);
    Icone->setObjectName(QStringLiteral("Icone"));
    Icone->setAlignment(Qt::AlignCenter);
    Icone->setStyleSheet(QStringLiteral("background: transparent;"));

    MIcone = new BoutonImage(FondBleu);
    MIcone->setObjectName(QStringLiteral("MIcone"));
    MIcone->definirImages(imageChoixIcone());
    MIcone->setText(QStringLiteral("Choisir l'icône"));
    MIcone->setToolTip(QStringLiteral("Choisir l'icône du document (Ctrl+I)"));
    connect(MIcone, &QAbstractButton::clicked, this, [this] { clicMIcone(); });

    OK = creerBoutonOK();
    connect(OK, &QAbstractButton::clicked, this, [this] { clicOK(); });

    PanCal = new QFrame(FondBleu);
    PanCal->setObjectName(QStringLiteral("PanCal"));
    PanCal->setStyleSheet(QStringLiteral("#PanCal { background: rgb(255, 204, 59); border: 1px solid #8e6410; border-radius: 4px; }"));
    // A click inside the panel is not a click on the background behind it.
    PanCal->setAttribute(Qt::WA_NoMousePropagation);
    auto *titreCalendrier = new QLabel(Chaine(963), PanCal);
    titreCalendrier->setObjectName(QStringLiteral("TitrePanCal"));
    titreCalendrier->setAlignment(Qt::AlignCenter);
    titreCalendrier->setStyleSheet(Apparence::kStyleLibelle);
    PanCal->resize(kTailleCalendrier);
    titreCalendrier->setGeometry(0, 0, kTailleCalendrier.width(), 24);
    PanCal->hide();
}

void FrmAjoutDoc::placerControles() {
    const int hautRemarques = modification_ ? kHautRemarques : kHautLigne;
    const int hautIcone = kHautPremiereLigne + (kNbSaisies - 1) * kPasLigne + hautRemarques + (kPasLigne - kHautLigne) - 2;
    definirTailleContenu(QSize(kLargeurContenu, hautIcone + kCoteCadreIcone + kMarge));
    Fond[FondBande]->setGeometry(kMarge, kMarge, kLargeurContenu - 2 * kMarge, kHautBande);
    Fond[FondDossier]->setGeometry(kMarge + 4, kMarge, 24, kHautBande);
    L[LibelleDossier]->setGeometry(kMarge + 32, kMarge, kGaucheSaisie - kMarge - 32, kHautBande);
    L[LibelleNomDossier]->setGeometry(kGaucheSaisie, kMarge + 4, kLargeurSaisie - 4, kHautBande - 8);
    for (int i = 0; i < kNbSaisies; ++i) {
        const int haut = kHautPremiereLigne + i * kPasLigne;
        Libelle[i]->setGeometry(kMarge, haut, kLargeurLibelle, kHautLigne);
        Saisie[i]->setGeometry(kGaucheSaisie, haut, kLargeurSaisie, kHautLigne);
    }
    RemarquesLignes->setGeometry(Saisie[kRemarques]->x(), Saisie[kRemarques]->y(), kLargeurSaisie, hautRemarques);
    // The generator at the end of the password's row, beside the box and its eye.
    QLineEdit *pass = Saisie[kMotDePasse];
    pass->setGeometry(pass->x(), pass->y(), kLargeurSaisie - kCoteBoutonChamp - 4, kHautLigne);
    Generer->setGeometry(kGaucheSaisie + kLargeurSaisie - kCoteBoutonChamp, pass->y(), kCoteBoutonChamp, kHautLigne);
    Libelle[8]->setGeometry(kMarge, hautIcone + (kCoteCadreIcone - kHautLigne) / 2, kLargeurLibelle, kHautLigne);
    ShapeIcone->setGeometry(kGaucheSaisie, hautIcone, kCoteCadreIcone, kCoteCadreIcone);
    Icone->setGeometry((kCoteCadreIcone - kCoteIcone) / 2, (kCoteCadreIcone - kCoteIcone) / 2, kCoteIcone, kCoteIcone);
    MIcone->setGeometry(kGaucheSaisie + kCoteCadreIcone + 10, hautIcone + 5, 150, 32);
    OK->setGeometry(kLargeurContenu - kMarge - 74, hautIcone + 5, 74, 32);
}

void FrmAjoutDoc::choisirIcone(int numero, const QPixmap &image) {
    Tag = QString::number(numero);
    Icone->setPixmap(image.isNull() ? QPixmap()
                                    : image.scaled(QSize(kCoteIcone, kCoteIcone) * image.devicePixelRatio(),
                                                   Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void FrmAjoutDoc::entreeSaisie(int indice) {
    if (indice == kDateDebut || indice == kDateFin)
        afficherCalendrier(indice);
    else
        PanCal->hide();
}

void FrmAjoutDoc::afficherCalendrier(int indice) {
    // Made at its first use: the calendar is the slowest part of the dialog to build.
    if (!Calendrier) {
        Calendrier = new QCalendarWidget(PanCal);
        Calendrier->setObjectName(QStringLiteral("Calendrier"));
        Calendriers::habiller(Calendrier);
        connect(Calendrier, &QCalendarWidget::clicked, this, [this](const QDate &d) { clicCalendrier(d); });
        connect(Calendrier, &QCalendarWidget::activated, this, [this](const QDate &d) { clicCalendrier(d); });
        Calendrier->setGeometry(3, 24, kTailleCalendrier.width() - 6, kTailleCalendrier.height() - 27);
    }
    TagPanCal = indice;
    // The box is free text: what is not a date opens the calendar on today.
    const QString texte = Saisie[indice]->text().trimmed();
    QDate date = Apparence::lireDate(texte);
    if (!date.isValid() || date < Calendrier->minimumDate() || date > Calendrier->maximumDate()) date = QDate::currentDate();
    Calendrier->setSelectedDate(date);
    Calendrier->setCurrentPage(date.year(), date.month());
    // Just above the box, from the left of its caption.
    PanCal->move(Libelle[indice]->x(), Saisie[indice]->y() - PanCal->height());
    PanCal->show();
    PanCal->raise();
}

void FrmAjoutDoc::clicCalendrier(const QDate &date) {
    if (TagPanCal != kDateDebut && TagPanCal != kDateFin) return;
    QLineEdit *boite = Saisie[TagPanCal];
    boite->setText(Apparence::ecrireDate(date));
    // The focus goes back to the box before the panel hides, so that it doesn't
    // wander to another box.
    boite->setFocus(Qt::OtherFocusReason);
    PanCal->hide();
}

void FrmAjoutDoc::clicMIcone() {
    PanCal->hide();
    if (MIcone->estEnfonce()) emit iconeDemandee();
    MIcone->relacher();
}

void FrmAjoutDoc::clicOK() {
    PanCal->hide();
    if (!OK->estEnfonce()) return;
    const bool fait = enregistrer();
    OK->relacher();
    if (fait) fermerEnregistre();
}

void FrmAjoutDoc::clicGenerer() {
    PanCal->hide();
    if (!Generer->estEnfonce()) return;
    Generer->relacher();
    const QString mot = FrmGenerateur::demander(this);
    if (mot.isEmpty()) return;
    Saisie[kMotDePasse]->setText(mot);
    Saisie[kMotDePasse]->setFocus(Qt::OtherFocusReason);
}

void FrmAjoutDoc::memoriserEtatInitial() {
    if (modification_) return;  // the form compares with the document as stored
    initiaux_.clear();
    for (int i = 0; i < kNbSaisies; ++i) initiaux_ << texte(i);
    tagInitial_ = Tag;
}

bool FrmAjoutDoc::modifie() const {
    for (int i = 0; i < kNbSaisies; ++i)
        if (texte(i) != initiaux_.value(i)) return true;
    return Tag != tagInitial_;
}

bool FrmAjoutDoc::formesStockees(QList<QPair<int, QString>> &formes, QList<QPair<int, QString>> &textes) {
    for (int i = 0; i < kNbSaisies; ++i) {
        const QString t = texte(i);
        // The form writes only what changed: a field left alone keeps its stored form.
        if (modification_ && t == initiaux_.value(i)) continue;
        const std::optional<QString> forme = ChampDuDialogue(t);
        if (!forme || forme->size() > Def::kLongueurChamp) {
            Messages::information(QStringLiteral("Le texte du champ « %1 » serait relu autrement qu'il n'est saisi. "
                                                 "Changez-en un caractère, puis recommencez.")
                                      .arg(QString::fromUtf8(kCaptions[i])));
            boite(i)->setFocus();
            return false;
        }
        formes.append({i + 3, *forme});
        textes.append({i + 3, t});
    }
    if (!modification_ || Tag != tagInitial_) {
        formes.append({11, Tag});
        textes.append({11, Tag});
    }
    return true;
}

bool FrmAjoutDoc::enregistrer() {
    if (texte(0).trimmed().isEmpty()) {
        Messages::information(QStringLiteral("Veuillez saisir le titre, svp !"));
        Saisie[0]->setFocus();
        return false;
    }
    QList<QPair<int, QString>> formes, textes;
    if (!formesStockees(formes, textes)) return false;
    qint64 rowid = 0;
    try {
        if (modification_) {
            if (formes.isEmpty()) return true;
            if (!ModifierDocument(formes)) {
                Messages::information(QStringLiteral("Aucun document n'est sélectionné : rien n'a été enregistré."));
                return false;
            }
        } else {
            const int num = ChercherNouveauNumDocument();
            QStringList champs;
            for (const auto &champ : formes) champs << champ.second;
            if (!EcrireDocument(num, champs, &rowid)) {
                Messages::information(QStringLiteral("Aucun dossier n'est sélectionné : le document n'a pas été enregistré."));
                return false;
            }
        }
    } catch (const Base::ErreurBase &e) {
        // Nothing was written; the dialog stays open with what was typed.
        Messages::information(e.message());
        return false;
    }
    if (modification_)
        emit documentModifie(textes);
    else
        emit documentEcrit(rowid);
    return true;
}

void FrmAjoutDoc::keyPressEvent(QKeyEvent *e) {
    // Escape first puts the calendar away, and only then closes the dialog.
    if (e->key() == Qt::Key_Escape && PanCal->isVisible()) {
        PanCal->hide();
        if (TagPanCal == kDateDebut || TagPanCal == kDateFin) Saisie[TagPanCal]->setFocus(Qt::OtherFocusReason);
        return;
    }
    // The keyboard's ways to the icon picker and the generator, as clicks on their buttons.
    if (e->key() == Qt::Key_I && e->modifiers() == Qt::ControlModifier) {
        MIcone->enfoncer();
        clicMIcone();
        return;
    }
    if (e->key() == Qt::Key_G && e->modifiers() == Qt::ControlModifier) {
        Generer->enfoncer();
        clicGenerer();
        return;
    }
    FenetreDialogue::keyPressEvent(e);
}

bool FrmAjoutDoc::eventFilter(QObject *objet, QEvent *evenement) {
    const QEvent::Type type = evenement->type();
    if (objet == RemarquesLignes) {
        // Enter makes a new line in the remarks; Ctrl+Enter stores, as Enter does elsewhere.
        if (type == QEvent::FocusIn) PanCal->hide();
        const auto *touche = type == QEvent::KeyPress ? static_cast<QKeyEvent *>(evenement) : nullptr;
        if (touche && (touche->key() == Qt::Key_Return || touche->key() == Qt::Key_Enter) &&
            touche->modifiers() & Qt::ControlModifier) {
            OK->enfoncer();
            clicOK();
            return true;
        }
        return FenetreDialogue::eventFilter(objet, evenement);
    }
    if (type == QEvent::FocusIn) {
        // Coming back to the window, or out of a context menu, is no entry in a box.
        const Qt::FocusReason raison = static_cast<QFocusEvent *>(evenement)->reason();
        if (raison != Qt::ActiveWindowFocusReason && raison != Qt::PopupFocusReason)
            for (int i = 0; i < kNbSaisies; ++i)
                if (objet == Saisie[i]) entreeSaisie(i);
    } else if (type == QEvent::MouseButtonPress) {
        if (objet == FondBleu || std::find(Libelle.begin(), Libelle.end(), objet) != Libelle.end()) PanCal->hide();
        // A click in a date box that already has the focus brings the calendar back.
        for (int i : {kDateDebut, kDateFin})
            if (objet == Saisie[i] && PanCal->isHidden()) afficherCalendrier(i);
    }
    return FenetreDialogue::eventFilter(objet, evenement);
}
