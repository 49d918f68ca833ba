#include "FrmGenerateur.h"

#include "ui/Apparence.h"
#include "ui/Art.h"
#include "ui/fenetres/BoutonImage.h"
#include "ui/Chaines.h"
#include "ui/fenetres/Messages.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QSlider>
#include <QSpinBox>

namespace {
constexpr int kLargeurContenu = 440;
constexpr int kMarge = 12;
constexpr int kCoteBouton = 28;
constexpr int kBitsPleins = 128;  // the bar is full from there on

// A strength in words and in colour, by bits of entropy.
struct Niveau {
    double bits;
    const char *nom;
    const char *couleur;
};
constexpr Niveau kNiveaux[] = {
    {0, "très faible", "#b3261e"}, {45, "faible", "#d9661f"}, {65, "moyenne", "#e0a526"}, {90, "forte", "#5a9a3b"}, {120, "très forte", "#2e7d32"}};

const char *const kNomsClasses[] = {"Minuscules (a-z)", "Majuscules (A-Z)", "Chiffres (0-9)", "Signes (!@#$%…)"};
}  // namespace

FrmGenerateur::FrmGenerateur(QWidget *parent) : FenetreCadre(parent) {
    setObjectName(QStringLiteral("FrmGenerateur"));
    setWindowTitle(Messages::kTitre);
    definirTailleContenu(QSize(kLargeurContenu, 252));
    entete->setText(QStringLiteral("Générateur de mots de passe"));
    EnteteB->definirTexte(Chaine(154).trimmed());
    connect(this, &FenetreCadre::fermetureDemandee, this, &QWidget::close);

    Mot = new QLineEdit(FondBleu);
    Mot->setObjectName(QStringLiteral("Mot"));
    Mot->setReadOnly(true);
    Mot->setEchoMode(QLineEdit::Password);
    QFont fixe = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixe.setPointSizeF(fixe.pointSizeF() + 1);
    Mot->setFont(fixe);
    Mot->setPlaceholderText(QStringLiteral("Cochez au moins une sorte de caractères."));

    Afficher = new BoutonImage(FondBleu);
    Afficher->setObjectName(QStringLiteral("Afficher"));
    connect(Afficher, &QAbstractButton::clicked, this, [this] { basculerAffichage(); });
    Autre = new BoutonImage(FondBleu);
    Autre->setObjectName(QStringLiteral("Autre"));
    Autre->definirImages(Art::iconeTheme(QStringLiteral("view-refresh"), 20));
    Autre->setToolTip(QStringLiteral("Tirer un autre mot de passe"));
    connect(Autre, &QAbstractButton::clicked, this, [this] {
        Autre->relacher();
        generer();
    });

    Force = new QProgressBar(FondBleu);
    Force->setObjectName(QStringLiteral("Force"));
    Force->setRange(0, kBitsPleins);
    Force->setTextVisible(false);
    Entropie = new QLabel(FondBleu);
    Entropie->setObjectName(QStringLiteral("Entropie"));
    Entropie->setStyleSheet(QStringLiteral("color: #1f2a44; background: transparent;"));

    auto *titreLongueur = new QLabel(QStringLiteral("Longueur  "), FondBleu);
    titreLongueur->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    titreLongueur->setStyleSheet(Apparence::kStyleEtiquette);
    activerDeplacement(titreLongueur);
    Longueur = new QSlider(Qt::Horizontal, FondBleu);
    Longueur->setObjectName(QStringLiteral("Longueur"));
    LongueurNombre = new QSpinBox(FondBleu);
    LongueurNombre->setObjectName(QStringLiteral("LongueurNombre"));
    for (auto *w : {static_cast<QWidget *>(Longueur), static_cast<QWidget *>(LongueurNombre)}) w->setFocusPolicy(Qt::StrongFocus);
    Longueur->setRange(Generateur::kLongueurMin, Generateur::kLongueurMax);
    LongueurNombre->setRange(Generateur::kLongueurMin, Generateur::kLongueurMax);
    Longueur->setValue(Generateur::kLongueurDefaut);
    LongueurNombre->setValue(Generateur::kLongueurDefaut);
    connect(Longueur, &QSlider::valueChanged, LongueurNombre, &QSpinBox::setValue);
    connect(LongueurNombre, &QSpinBox::valueChanged, this, [this](int n) {
        Longueur->setValue(n);
        // Enter in the box says its value again: the password shown stays.
        if (n != Mot->text().size()) generer();
    });

    for (int i = 0; i < 4; ++i) {
        Classes[i] = new QCheckBox(QString::fromUtf8(kNomsClasses[i]), FondBleu);
        Classes[i]->setObjectName(QStringLiteral("Classes%1").arg(i));
        Classes[i]->setChecked(true);
        Classes[i]->setStyleSheet(Apparence::kStyleChoix);
        connect(Classes[i], &QCheckBox::toggled, this, [this] { generer(); });
    }
    SansSosies = new QCheckBox(QStringLiteral("Exclure les caractères qui se ressemblent : 0 O o 1 l I |"), FondBleu);
    SansSosies->setObjectName(QStringLiteral("SansSosies"));
    SansSosies->setStyleSheet(Apparence::kStyleChoix);
    connect(SansSosies, &QCheckBox::toggled, this, [this] { generer(); });

    Utiliser = creerBoutonOK();
    Utiliser->setObjectName(QStringLiteral("Utiliser"));
    Utiliser->setText(QStringLiteral("Utiliser"));
    Utiliser->setToolTip(QStringLiteral("Mettre ce mot de passe dans le document"));
    connect(Utiliser, &QAbstractButton::clicked, this, [this] { clicUtiliser(); });

    const int largeurMot = kLargeurContenu - 2 * kMarge - 2 * (kCoteBouton + 4);
    Mot->setGeometry(kMarge, kMarge, largeurMot, kCoteBouton + 2);
    Afficher->setGeometry(kMarge + largeurMot + 4, kMarge + 1, kCoteBouton, kCoteBouton);
    Autre->setGeometry(kMarge + largeurMot + kCoteBouton + 8, kMarge + 1, kCoteBouton, kCoteBouton);
    Force->setGeometry(kMarge, 52, 150, 12);
    Entropie->setGeometry(kMarge + 162, 44, kLargeurContenu - 2 * kMarge - 162, 26);
    titreLongueur->setGeometry(kMarge, 82, 112, 26);
    Longueur->setGeometry(kMarge + 122, 82, kLargeurContenu - 2 * kMarge - 122 - 70, 26);
    LongueurNombre->setGeometry(kLargeurContenu - kMarge - 60, 82, 60, 26);
    for (int i = 0; i < 4; ++i) Classes[i]->setGeometry(kMarge + (i % 2) * 210, 122 + (i / 2) * 28, 200, 24);
    SansSosies->setGeometry(kMarge, 180, kLargeurContenu - 2 * kMarge, 24);
    Utiliser->setGeometry(kLargeurContenu - kMarge - 110, 212, 110, 32);

    setTabOrder(Mot, Longueur);
    setTabOrder(Longueur, LongueurNombre);
    setTabOrder(LongueurNombre, Classes[0]);
    for (int i = 1; i < 4; ++i) setTabOrder(Classes[i - 1], Classes[i]);
    setTabOrder(Classes[3], SansSosies);
    basculerAffichage();
    generer();
    centrer();
    Longueur->setFocus();
}

QString FrmGenerateur::demander(QWidget *parent) {
    FrmGenerateur generateur(parent);
    generateur.executer();
    return generateur.motChoisi();
}

Generateur::Options FrmGenerateur::options() const {
    Generateur::Options o;
    o.longueur = LongueurNombre->value();
    o.minuscules = Classes[0]->isChecked();
    o.majuscules = Classes[1]->isChecked();
    o.chiffres = Classes[2]->isChecked();
    o.signes = Classes[3]->isChecked();
    o.sansSosies = SansSosies->isChecked();
    return o;
}

void FrmGenerateur::generer() {
    const Generateur::Options o = options();
    Mot->setText(Generateur::generer(o));
    Utiliser->setEnabled(!Mot->text().isEmpty());
    const double bits = Generateur::entropie(o);
    const Niveau *niveau = &kNiveaux[0];
    for (const Niveau &n : kNiveaux)
        if (bits >= n.bits) niveau = &n;
    Force->setValue(qMin(kBitsPleins, int(bits)));
    Force->setStyleSheet(QStringLiteral("QProgressBar { background: #ffffff; border: 1px solid #8c98b0; border-radius: 4px; }"
                                        "QProgressBar::chunk { background: %1; border-radius: 3px; }")
                             .arg(QString::fromLatin1(niveau->couleur)));
    Entropie->setText(Mot->text().isEmpty() ? QString()
                                            : QStringLiteral("Entropie : %1 bits, %2").arg(int(bits)).arg(QString::fromUtf8(niveau->nom)));
}

void FrmGenerateur::basculerAffichage() {
    // Shown while the button is down; dots otherwise, as every password on the screen.
    const bool montre = Afficher->estEnfonce();
    Mot->setEchoMode(montre ? QLineEdit::Normal : QLineEdit::Password);
    Afficher->definirImages(Art::iconeTheme(montre ? QStringLiteral("view-hidden") : QStringLiteral("view-visible"), 20));
    Afficher->setToolTip(montre ? QStringLiteral("Masquer le mot de passe") : QStringLiteral("Afficher le mot de passe"));
}

void FrmGenerateur::clicUtiliser() {
    if (!Utiliser->estEnfonce()) return;
    Utiliser->relacher();
    if (Mot->text().isEmpty()) return;
    choisi_ = Mot->text();
    close();
}

void FrmGenerateur::keyPressEvent(QKeyEvent *e) {
    if ((e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) && Utiliser->isEnabled()) {
        Utiliser->enfoncer();
        clicUtiliser();
        return;
    }
    FenetreCadre::keyPressEvent(e);
}
