#pragma once
// Protected accounts in tests: a low Argon2id cost, and an account protected with
// its key open in the session, as a login leaves it.

#include "store/Base.h"
#include "store/Protection.h"

#include <sodium.h>

namespace ProtectionTest {

// Lowers the cost of the derivations while it lives: the tests derive many keys.
struct CoutBas {
    CoutBas() { Protection::definirCout({crypto_pwhash_OPSLIMIT_MIN, crypto_pwhash_MEMLIMIT_MIN}); }
    ~CoutBas() { Protection::definirCout(Protection::coutParDefaut()); }
};

// The account's data key when passe opens it, else null.
inline std::unique_ptr<Protection::Cle> cleDe(int numCompte, const QString &passe) {
    Base::Connexion c;
    const auto e = Protection::lireEnveloppe(c, numCompte);
    return e ? Protection::ouvrirEnveloppe(*e, passe) : nullptr;
}

// Protects the account and opens its key for the session.
inline void protegerEtOuvrir(int numCompte, const QString &passe) {
    Protection::proteger(numCompte, passe);
    Protection::ouvrirSession(numCompte, cleDe(numCompte, passe));
}

}  // namespace ProtectionTest
