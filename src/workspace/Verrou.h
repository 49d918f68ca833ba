#pragma once
// When the window locks, and how long a try at the password waits: Ctrl+L from any
// window of the program, a time without input (setting "Verrouillage", in minutes,
// 0 never), and the desktop session's own lock where its buses say so. The window
// side hides what the account shows and asks for its password.

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

class Verrou : public QObject {
    Q_OBJECT
public:
    static constexpr int kEssaisLibres = 5;  // wrong passwords in a row before each try waits

    explicit Verrou(QObject *parent = nullptr);
    ~Verrou() override;

    bool verrouille() const { return verrouille_; }
    // Locks now, once: verrouillageDemande is raised only by the first call.
    void verrouiller();
    // The password typed at the unlock: true opens the window again. A wrong one counts
    // towards the wait; a failure of the base throws Base::ErreurBase and counts nothing.
    bool deverrouiller(const QString &pass);
    // Seconds the next try must wait, after so many wrong passwords in a row.
    static int attentePour(int echecs) { return echecs < kEssaisLibres ? 0 : echecs - kEssaisLibres + 1; }
    int echecs() const { return echecs_; }

    // The time without input before the lock, read from the settings at each unlock;
    // tests set a short one. 0 or less: never.
    void definirDelaiInactivite(int millisecondes);
    int delaiInactivite() const { return delai_; }

    // The unlock's check of the password: the login's, for the session's account.
    static bool motDePasseValide(const QString &pass);

signals:
    void verrouillageDemande();

protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private slots:
    void ecranDeVeille(bool actif);
    void sessionVerrouillee();

private:
    void ecouterBus();
    void armer();
    void finInactivite();

    bool verrouille_ = false;
    int echecs_ = 0;
    int delai_ = 0;
    QTimer minuterie_;
    QElapsedTimer derniereSaisie_;
};
