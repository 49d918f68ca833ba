#include "Generateur.h"

#include "store/Cryptage.h"

#include <QRandomGenerator>
#include <cmath>

namespace Generateur {

namespace {
enum Classe { Minuscules,
              Majuscules,
              Chiffres,
              Signes };

// The class of a character of the alphabet; -1 for the blank and the degree sign,
// which a password is better without.
int classeDe(QChar c) {
    if (c.unicode() >= 0x80 || c == u' ') return -1;
    if (c.isLower()) return Minuscules;
    if (c.isUpper()) return Majuscules;
    if (c.isDigit()) return Chiffres;
    return Signes;
}
}  // namespace

QStringList classes(const Options &options) {
    const bool choisies[] = {options.minuscules, options.majuscules, options.chiffres, options.signes};
    QString parClasse[4];
    for (const Cryptage::LigneCode &ligne : Cryptage::TableCodes()) {
        const QChar c(ligne.clair);
        const int classe = classeDe(c);
        if (classe < 0 || !choisies[classe] || (options.sansSosies && kSosies.contains(c))) continue;
        parClasse[classe] += c;
    }
    QStringList resultat;
    for (const QString &c : parClasse)
        if (!c.isEmpty()) resultat << c;
    return resultat;
}

double entropie(const Options &options) {
    const QStringList choisies = classes(options);
    if (choisies.isEmpty()) return 0;
    // Inclusion and exclusion over the classes that may be missing.
    const int n = int(choisies.size());
    double total = 0;
    for (int sansLes = 0; sansLes < (1 << n); ++sansLes) {
        qsizetype restants = 0;
        for (int k = 0; k < n; ++k)
            if (!(sansLes & (1 << k))) restants += choisies[k].size();
        const double compte = std::pow(double(restants), qBound(kLongueurMin, options.longueur, kLongueurMax));
        total += __builtin_popcount(unsigned(sansLes)) % 2 ? -compte : compte;
    }
    return total > 0 ? std::log2(total) : 0;
}

quint32 tirer(quint32 n, QRandomGenerator &source) {
    const quint64 plage = quint64(1) << 32;
    const quint64 limite = plage - plage % n;
    quint64 valeur = 0;
    do {
        valeur = source.generate();
    } while (valeur >= limite);
    return quint32(valeur % n);
}

QString generer(const Options &options, QRandomGenerator &source) {
    const QStringList choisies = classes(options);
    if (choisies.isEmpty()) return {};
    const QString jeu = choisies.join(QString());
    const int longueur = qBound(kLongueurMin, options.longueur, kLongueurMax);
    QString mot(longueur, Qt::Uninitialized);
    for (;;) {
        for (QChar &c : mot) c = jeu.at(tirer(quint32(jeu.size()), source));
        bool complet = true;
        for (const QString &classe : choisies) {
            bool presente = false;
            for (const QChar c : classe) presente = presente || mot.contains(c);
            complet = complet && presente;
        }
        // Drawn again whole rather than mended: every password that holds each class
        // stays as likely as any other.
        if (complet) return mot;
    }
}

QString generer(const Options &options) { return generer(options, *QRandomGenerator::system()); }

}  // namespace Generateur
