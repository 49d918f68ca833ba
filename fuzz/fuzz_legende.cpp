// libFuzzer entry: a caption and a key from the bytes, and the rules that must hold.
// The bytes before the first NUL are the key; without a NUL, the key is one of the
// usual ones and the bytes are the caption.

#include "menus/InvariantsLegende.h"
#include "menus/Legende.h"

#include <QByteArray>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *donnees, size_t taille) {
    static const QString cles[] = {"Bold", "Tip:", "FSize:", "IMG:", "Raised", "Text:", "lvColors:", "LIndex:", "a", ""};
    const QByteArray octets(reinterpret_cast<const char *>(donnees), qsizetype(taille));
    const qsizetype nul = octets.indexOf('\0');
    QString cle, legende;
    if (nul >= 0) {
        cle = QString::fromUtf8(octets.left(nul));
        legende = QString::fromUtf8(octets.mid(nul + 1));
    } else {
        cle = cles[taille % std::size(cles)];
        legende = QString::fromUtf8(octets);
    }
    const QString echec = verifierLegende(legende, cle);
    if (!echec.isEmpty()) {
        std::fprintf(stderr, "%s: [%s] [%s]\n", qPrintable(echec), qPrintable(legende), qPrintable(cle));
        std::abort();
    }
    modMenus::LireCouleur(legende, 0);
    return 0;
}
