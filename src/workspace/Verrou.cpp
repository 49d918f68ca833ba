#include "Verrou.h"

#include "store/Comptes.h"
#include "store/Reglages.h"
#include "store/Session.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusMessage>
#include <QKeyEvent>

#include <climits>

namespace {
constexpr qint64 kMinute = qint64{60} * 1000;

int delaiReglage() {
    const qint64 minutes = Reglages::lireNombre(Reglages::Cle::Verrouillage);
    return minutes <= 0 ? 0 : int(qMin<qint64>(minutes * kMinute, INT_MAX));
}

bool estSaisie(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
        return true;
    default:
        return false;
    }
}
}  // namespace

Verrou::Verrou(QObject *parent) : QObject(parent) {
    minuterie_.setSingleShot(true);
    connect(&minuterie_, &QTimer::timeout, this, &Verrou::finInactivite);
    QCoreApplication::instance()->installEventFilter(this);
    delai_ = delaiReglage();
    armer();
    ecouterBus();
}

Verrou::~Verrou() = default;

void Verrou::ecouterBus() {
    // Any sender, any path: desktops publish the screen saver under more than one.
    QDBusConnection session = QDBusConnection::sessionBus();
    if (session.isConnected())
        session.connect(QString(), QString(), QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("ActiveChanged"), this,
                        SLOT(ecranDeVeille(bool)));
    // logind's lock is sent to one session object: this program's, asked without waiting.
    QDBusConnection systeme = QDBusConnection::systemBus();
    if (!systeme.isConnected()) return;
    QDBusMessage appel = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
                                                        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("GetSessionByPID"));
    appel << quint32(QCoreApplication::applicationPid());
    auto *attente = new QDBusPendingCallWatcher(systeme.asyncCall(appel), this);
    connect(attente, &QDBusPendingCallWatcher::finished, this, [this, attente] {
        attente->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> reponse = *attente;
        if (reponse.isError()) return;
        QDBusConnection::systemBus().connect(QStringLiteral("org.freedesktop.login1"), reponse.value().path(),
                                             QStringLiteral("org.freedesktop.login1.Session"), QStringLiteral("Lock"), this,
                                             SLOT(sessionVerrouillee()));
    });
}

void Verrou::ecranDeVeille(bool actif) {
    if (actif) verrouiller();
}

void Verrou::sessionVerrouillee() { verrouiller(); }

void Verrou::verrouiller() {
    if (verrouille_) return;
    verrouille_ = true;
    minuterie_.stop();
    emit verrouillageDemande();
}

bool Verrou::motDePasseValide(const QString &pass) {
    const std::optional<Comptes::Compte> compte = Comptes::chercher(Comptes::cleLogin(Session::LoginCourant));
    return compte && compte->num == Session::NumCompteCourant && Comptes::motDePasseCorrect(*compte, pass);
}

bool Verrou::deverrouiller(const QString &pass) {
    if (!verrouille_) return true;
    if (!motDePasseValide(pass)) {
        ++echecs_;
        return false;
    }
    echecs_ = 0;
    verrouille_ = false;
    delai_ = delaiReglage();
    armer();
    return true;
}

void Verrou::definirDelaiInactivite(int millisecondes) {
    delai_ = qMax(0, millisecondes);
    armer();
}

void Verrou::armer() {
    derniereSaisie_.start();
    if (delai_ > 0 && !verrouille_)
        minuterie_.start(delai_);
    else
        minuterie_.stop();
}

void Verrou::finInactivite() {
    // Input only notes its time; the timer, when it ends, waits for what is left.
    const qint64 reste = delai_ - derniereSaisie_.elapsed();
    if (reste > 0) {
        minuterie_.start(int(reste));
        return;
    }
    verrouiller();
}

bool Verrou::eventFilter(QObject *objet, QEvent *evenement) {
    const QEvent::Type type = evenement->type();
    if (estSaisie(type)) derniereSaisie_.start();
    // Ctrl+L from any window, a modal one included, where the main window's shortcut can't reach.
    if (type == QEvent::KeyPress && !verrouille_) {
        const auto *touche = static_cast<QKeyEvent *>(evenement);
        if (touche->keyCombination() == QKeyCombination(Qt::ControlModifier, Qt::Key_L)) {
            verrouiller();
            return true;
        }
    }
    return QObject::eventFilter(objet, evenement);
}
