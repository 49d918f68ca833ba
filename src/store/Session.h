#pragma once
// The session of the logged-in user, read by every window.

#include <QString>
#include <optional>

namespace Session {

inline int NumCompteCourant = 0;  // logged-in account; every query restricts on it
inline QString LoginCourant;      // login as the user typed it
inline QString PassCourant;       // plain password
// How the login window was opened: none at program start.
enum class Mode : int {
    Principale = 0,     // not opened: the main window is up
    NouveauCompte = 1,  // to create an account
    AutreCompte = 2,    // to change account, or after a base was opened
};
inline std::optional<Mode> ModeLogin;
// True from a successful login until the base under it is replaced: only then is
// there a main window to go back to.
inline bool Ouverte = false;

inline void reinitialiser() {
    NumCompteCourant = 0;
    LoginCourant.clear();
    PassCourant.clear();
    ModeLogin.reset();
    Ouverte = false;
}

// The base was replaced: the account numbers now name other people's accounts, so
// nothing of the session remains but the way back to the login window.
inline void fermerApresRemplacement() {
    reinitialiser();
    ModeLogin = Mode::AutreCompte;
}

}  // namespace Session
