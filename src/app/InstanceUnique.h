#pragma once
// One running copy of Korvane per base: a lock file beside korvane.kvx, held with
// the system's file lock, whoever starts the copy and from whatever session.

#include <QString>

class InstanceUnique {
public:
    // cheminBase is the base to guard; its lock file is Base::cheminVerrou(cheminBase).
    explicit InstanceUnique(const QString &cheminBase);
    ~InstanceUnique();
    InstanceUnique(const InstanceUnique &) = delete;
    InstanceUnique &operator=(const InstanceUnique &) = delete;

    enum class Resultat {
        Tenu,       // this copy holds the base until destroyed
        Occupe,     // another copy holds it
        Impossible  // the lock can't be made or taken: raison() says why, in French
    };
    Resultat acquerir();
    QString raison() const { return raison_; }

private:
    QString cheminVerrou_;
    QString raison_;
    int descripteur_ = -1;
};
