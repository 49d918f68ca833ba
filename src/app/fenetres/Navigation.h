#pragma once
// Which window stands: the login window or the main window, never both.

class FrmLogin;
class frmMain;

namespace Navigation {

// Opens the login window for Session::ModeLogin. A silent login at load goes
// straight on to the main window.
void afficherLogin();
// Opens a new main window for the logged-in session.
void afficherPrincipale();

FrmLogin *fenetreLogin();
frmMain *fenetrePrincipale();

// The end of the account's session (change of account, base replaced, quit): the
// export files it wrote go, the clipboard loses what it copied.
void finirSession();

// Closes whichever window stands (tests and the end of the program).
void fermerTout();

}  // namespace Navigation
