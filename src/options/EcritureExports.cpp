#include "EcritureExports.h"

#include "store/Base.h"

#include <QStringList>
#include <QThread>

#include <thread>
#include <vector>

namespace {
constexpr int kLignesDuDebut = 300;  // more than a view holds
}

EcritureExports::EcritureExports(const ModeleGrille &grille, QObject *parent)
    : QObject(parent), debut_(grille, kLignesDuDebut) {
    // The rows are taken here, on the grid's thread; the thread reads only them.
    auto lignes = std::make_shared<const Exports::Instantane>(grille);
    // The four at once: while one file goes to the disk, the next is being made.
    fil_.reset(QThread::create([this, lignes] {
        std::array<QString, 4> erreurs;
        std::vector<std::thread> fils;
        fils.reserve(std::size(Exports::kOrdre));
        for (const Exports::Format format : Exports::kOrdre)
            fils.emplace_back([this, lignes, format, &erreurs] {
                try {
                    decoupes_[size_t(format)] = Exports::creerFichier(format, *lignes);
                } catch (const Base::ErreurBase &e) {
                    erreurs[size_t(format)] = e.message();
                }
            });
        for (std::thread &f : fils) f.join();
        QStringList messages;
        for (const Exports::Format format : Exports::kOrdre)
            if (!erreurs[size_t(format)].isEmpty()) messages << erreurs[size_t(format)];
        messages.removeDuplicates();
        erreur_ = messages.join(u'\n');
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
