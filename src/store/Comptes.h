#pragma once
// Accounts of the base: the rows of Compte.

#include <QList>
#include <QString>
#include <optional>

namespace Comptes {

struct Compte {
    int num = 0;
    QString login;  // null login reads as empty
    bool loginNul = false;
    QString passStocke;  // enciphered
};

// Key of a login: lower-cased, then trimmed of blanks at both ends.
QString cleLogin(const QString &login);

// All accounts, by number then login.
QList<Compte> lister();
// Max + 1 over the account numbers, 1 for an empty table.
int prochainNumero();
// The first account with this key (already lower-cased and trimmed), by number.
std::optional<Compte> chercher(const QString &cle);
// Whether passClair opens the account: the one check of the login and of the unlock.
bool motDePasseCorrect(const Compte &compte, const QString &passClair);
// Adds an account with its password as typed; it is stored enciphered.
void creer(int num, const QString &cle, const QString &passClair);
// Replaces the password of the account found by key; false when there is none.
bool changerMotDePasse(const QString &cle, const QString &passClair);

}  // namespace Comptes
