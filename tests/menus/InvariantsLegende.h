#pragma once
// What the rules of the caption language imply for any caption and any key, checked
// by the seeded random test and by the fuzzer. The empty text when they hold.

#include "menus/Legende.h"

#include <QString>

inline QString verifierLegende(const QString &legende, const QString &cle) {
    QString texte, bloc, raccourci;
    modMenus::SepareLegende(legende, texte, bloc, raccourci);
    const qsizetype tab = legende.indexOf(u'\t');
    const QString avant = tab < 0 ? legende : legende.left(tab);
    if (raccourci != (tab < 0 ? QString() : legende.mid(tab + 1))) return QStringLiteral("raccourci");
    if (!bloc.isEmpty() && !(bloc.startsWith(u'{') && bloc.endsWith(u'|'))) return QStringLiteral("forme du bloc");
    if (!bloc.isEmpty() && !avant.contains(bloc.chopped(1) + u'}')) return QStringLiteral("bloc hors de la légende");
    if (bloc.isEmpty() && texte != avant.trimmed()) return QStringLiteral("texte sans bloc");
    if (texte != texte.trimmed() || texte.contains(u'\t')) return QStringLiteral("blancs du texte");

    const QString valeur = modMenus::LireAttribut(bloc, cle);
    // A value ends before a "|"; only an empty key can take the delimiter itself.
    if (!cle.isEmpty() && valeur.contains(u'|')) return QStringLiteral("valeur avec |");
    // Without a tip to take out, an absent key is never found.
    if (!valeur.isEmpty() && !bloc.contains(QStringLiteral("tip:"), Qt::CaseInsensitive) &&
        !bloc.contains(cle, Qt::CaseInsensitive))
        return QStringLiteral("clé absente trouvée");
    modMenus::LireAttribut(legende, cle);  // any text at all, as a block
    QString copie = bloc;
    modMenus::ExtraireTexteBarre(copie);
    if (copie.size() > bloc.size()) return QStringLiteral("texte de barre");
    return {};
}
