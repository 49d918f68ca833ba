#pragma once
// The four export files written on a thread of their own, from the grid's rows as
// they were when the writing began, so that the window answers while a large tree
// goes to the disk. Each file is still written whole or not at all.

#include "Exports.h"

#include <QObject>
#include <QString>

#include <array>
#include <memory>

class QThread;

class EcritureExports : public QObject {
    Q_OBJECT
public:
    explicit EcritureExports(const ModeleGrille &grille, QObject *parent = nullptr);
    ~EcritureExports() override;  // waits for the files, so that none is cut short

    bool enCours() const { return !fait_; }
    // Until the files are written; terminee() has then been signalled.
    void attendre();
    // The cut of each file written; empty for a file the failure left unwritten.
    const Exports::Decoupe &decoupe(int format) const { return decoupes_[size_t(format)]; }
    // Why the writing stopped; empty when all four were written.
    const QString &erreur() const { return erreur_; }
    // The first rows, taken too: the start of each file can be shown while it is written.
    const Exports::Instantane &debut() const { return debut_; }

signals:
    void terminee();

private:
    void finir();
    Exports::Instantane debut_;
    std::unique_ptr<QThread> fil_;
    std::array<Exports::Decoupe, 4> decoupes_;
    QString erreur_;
    bool fait_ = false;
};
