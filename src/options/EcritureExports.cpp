#include "EcritureExports.h"

#include "store/Base.h"

#include <QThread>

EcritureExports::EcritureExports(const ModeleGrille &grille, QObject *parent) : QObject(parent) {
    // The rows are taken here, on the grid's thread; the thread reads only them.
    auto lignes = std::make_shared<const Exports::Instantane>(grille);
    fil_.reset(QThread::create([this, lignes] {
        try {
            for (const Exports::Format format : Exports::kOrdre) decoupes_[size_t(format)] = Exports::creerFichier(format, *lignes);
        } catch (const Base::ErreurBase &e) {
            erreur_ = e.message();
        }
    }));
    connect(fil_.get(), &QThread::finished, this, &EcritureExports::finir);
    fil_->start();
}

EcritureExports::~EcritureExports() { fil_->wait(); }

void EcritureExports::attendre() {
    fil_->wait();
    finir();
}

void EcritureExports::finir() {
    if (fait_) return;
    fait_ = true;
    emit terminee();
}
