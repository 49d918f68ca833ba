#pragma once
// One running copy of Korvane per user and program folder.

#include <QString>
#include <memory>

class QLockFile;

class InstanceUnique {
public:
    explicit InstanceUnique(const QString &dossierProgramme);
    ~InstanceUnique();
    // True when this copy is the only one; it then holds the lock until destroyed.
    bool acquerir();

private:
    std::unique_ptr<QLockFile> verrou_;
};
