#pragma once
// One running copy of Korvane per base: a lock file beside korvane.kvx, held with
// the system's file lock, whoever starts the copy and from whatever session.

#include <QString>

class InstanceUnique {
public:
    // cheminBase is the base to guard; its lock file is cheminBase + ".lock".
    explicit InstanceUnique(const QString &cheminBase);
    ~InstanceUnique();
    InstanceUnique(const InstanceUnique &) = delete;
    InstanceUnique &operator=(const InstanceUnique &) = delete;

    // False when another copy holds the base. True otherwise, and this copy then
    // holds it until destroyed; a folder where no lock file can be made holds no
    // lock, as nothing can be written there either.
    bool acquerir();

private:
    QString cheminVerrou_;
    int descripteur_ = -1;
};
