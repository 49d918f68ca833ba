#include "Apercu.h"

#include "grid/fenetres/MyCoolGrid.h"
#include "store/IconesStock.h"
#include "ui/Apparence.h"
#include "ui/Chaines.h"

#include <QCoreApplication>
#include <QPixmap>

namespace grille {

namespace {

struct Document {
    QStringList champs;
    int icone;
};

void ajouterDossier(MyCoolGrid &grille, const QString &nom, int cle, const QList<Document> &documents) {
    QVariant numero = cle;
    grille.AddParent(QStringLiteral(" ") + nom, numero);
    // Added in reverse, since each document comes in above those before it.
    for (qsizetype i = documents.size() - 1; i >= 0; --i) {
        int parent = numero.toInt();
        grille.AddFils(documents[i].champs, parent, documents[i].icone, 0, QStringLiteral("1"), QString::number(qsizetype(cle) * 10 + i),
                       QString::number(cle));
    }
}

}  // namespace

bool rendreApercu(const QString &cheminPng) {
    MyCoolGrid grille;
    if (grille.imagesContenu().nombre() == 0) {
        // No base at hand: the stock icons every new base starts with.
        ListeImages stock;
        const auto icones = IconesStock::icones();
        for (qsizetype i = 0; i < icones.size(); ++i)
            stock.ajouter(Apparence::cleIcone(int(i) + 1), QImage::fromData(icones[i].octets), icones[i].libelle);
        grille.ReChargerIcones(stock);
    }
    grille.resize(820, 330);

    QStringList titres;
    for (int n = 110; n <= 117; ++n) titres << Chaine(n);
    grille.NbColonnes(int(titres.size()) - 1);
    grille.AddSection(titres, 2, 2);
    grille.AddTitle(Chaine(118));
    ajouterDossier(grille, QStringLiteral("Banque"), 1,
                   {{{QStringLiteral("Banque en ligne"), QStringLiteral("m.durand"), QStringLiteral("Vx8!pq2r"),
                      QStringLiteral("https://banque.example"), QString(), QStringLiteral("01/02/2024"), QString(),
                      QStringLiteral("Code client au dos de la carte")},
                     1},
                    {{QStringLiteral("Carte bancaire"), QString(), QStringLiteral("4821"), QString(), QString(),
                      QStringLiteral("01/09/2023"), QStringLiteral("30/09/2027"), QStringLiteral("Code secret")},
                     3},
                    {{QStringLiteral("Impôts"), QStringLiteral("1 84 06 75"), QStringLiteral("Tr0p!Lourd"),
                      QStringLiteral("https://impots.example"), QString(), QString(), QString(), QString()},
                     6}});
    ajouterDossier(grille, QStringLiteral("Messagerie"), 2,
                   {{{QStringLiteral("Courriel personnel"), QStringLiteral("marie@example.org"), QStringLiteral("h7#Kd9"),
                      QString(), QString(), QString(), QString(), QString()},
                     4}});
    ajouterDossier(grille, QStringLiteral("Réseau"), 3,
                   {{{QStringLiteral("Poste du bureau"), QStringLiteral("mdurand"), QStringLiteral("Bureau-2024"),
                      QString(), QString(), QString(), QString(), QStringLiteral("Change tous les 90 jours")},
                     5},
                    {{QStringLiteral("Logiciel de compta"), QStringLiteral("admin"), QStringLiteral("c0mpt@"),
                      QString(), QStringLiteral("compta.lic"), QString(), QString(), QString()},
                     2}});

    grille.show();
    QCoreApplication::processEvents();
    grille.SelectLine(grille.ligneParent(1));  // closes "Messagerie"
    grille.SelectLine(grille.ligneParent(0) + 2);
    QCoreApplication::processEvents();
    return grille.grab().save(cheminPng, "PNG");
}

}  // namespace grille
