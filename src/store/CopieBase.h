#pragma once
// The base file copied whole: away to a file of the user's choice, or in from a
// chosen Korvane base. Each copy is whole or nothing: the target keeps what it had
// until the new content is complete.

#include <QString>

namespace CopieBase {

// Copies the base (korvane.kvx) to cible, which may not be the base, its .bak or its
// lock. Throws Base::ErreurBase with a French message.
void copier(const QString &cible);

// Replaces the base by the file at source, which must open as a Korvane base; the
// replaced base is kept beside it as korvane.kvx.bak. Throws Base::ErreurBase, the
// base untouched, when source is no Korvane base or a copy fails.
void remplacer(const QString &source);

// Any file copied whole to cible, or cible left as it was. Throws Base::ErreurBase.
void copierEntier(const QString &source, const QString &cible);

// True when both paths name the same file.
bool memeFichier(const QString &a, const QString &b);

// Where the replaced base is kept.
QString cheminSauvegarde();

// Installed, the base lives in the user's data folder. A base that a copy run from the
// executable's folder left there is copied in once, while the user's folder holds none;
// the original stays as it was. Returns what to tell the user, empty when there was
// nothing to do. Throws Base::ErreurBase when the copy fails, nothing created.
QString reprendreBaseVoisine();

}  // namespace CopieBase
