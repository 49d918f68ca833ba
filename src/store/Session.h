#pragma once
// The session of the logged-in user, read by every window.

#include <QString>
#include <optional>

namespace Session {

inline int NumCompteCourant = 0;      // logged-in account; every query restricts on it
inline QString LoginCourant;          // login as the user typed it
inline QString PassCourant;           // plain password
// How the login window was opened: none at program start, 0 while the main window
// is up, 1 to create an account, 2 to change account or after a base was opened.
inline std::optional<int> ModeLogin;

inline void reinitialiser() {
    NumCompteCourant = 0;
    LoginCourant.clear();
    PassCourant.clear();
    ModeLogin.reset();
}

}  // namespace Session
