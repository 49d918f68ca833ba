#include "ChoixMenus.h"

#include "menus/Legende.h"
#include "menus/cTips.h"
#include "store/Reglages.h"
#include "ui/fenetres/ChoixFichier.h"

#include <QComboBox>
#include <QListWidget>

namespace modMenus {

namespace {

struct MotChoix {
    QStringView mot;
    QStringView categorie;
};

constexpr MotChoix kMotsChoix[] = {
    {u"LColor:", u"Color"},
    {u"LMonth:", u"Month"},
    {u"LState:", u"State"},
    {u"LDay:", u"WeekDay"},
    {u"LDate:", u"DayOfMonth"},
    {u"LFont:", u"Font"},
    {u"LDrv:", u"Drive"},
};

void signaler(cTips *recepteur, const QString &identifiant, QStringView categorie, QString valeur) {
    if (recepteur) emit recepteur->ChoixListe(identifiant, categorie.toString(), valeur);
}

bool choisirDansListe(const QString &bloc, QWidget *fenetre) {
    auto *combo = qobject_cast<QComboBox *>(fenetre);
    auto *liste = qobject_cast<QListWidget *>(fenetre);
    if (!combo && !liste) return false;
    bool ok = false;
    const int index = LireAttribut(bloc, QStringLiteral("LIndex:")).toInt(&ok);
    const int nombre = combo ? combo->count() : liste->count();
    if (!ok || index < 0 || index >= nombre) return true;
    if (combo) {
        combo->setCurrentIndex(index);
        emit combo->activated(index);
    } else {
        liste->setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
        emit liste->itemActivated(liste->item(index));
    }
    return true;
}

}  // namespace

bool RouterChoix(const QString &legende, cTips *recepteur, QWidget *liste, QWidget *parent) {
    QString texte, bloc, raccourci;
    SepareLegende(legende, texte, bloc, raccourci);
    for (const MotChoix &m : kMotsChoix) {
        const QString valeur = LireAttribut(bloc, m.mot.toString());
        if (valeur.isEmpty()) continue;
        const QString identifiant = LireAttribut(bloc, QStringLiteral("lvID:"));
        if (m.mot == u"LColor:" && valeur.trimmed() == u"-1") {
            const int depart = LireCouleur(LireAttribut(bloc, QStringLiteral("LDefClr:")), 0);
            const std::optional<int> choisie = ChoixFichier::couleurConfirmee(parent, depart);
            if (!choisie) return true;
            Reglages::ecrire(Reglages::Cle::FontColor, *choisie);
            signaler(recepteur, identifiant, m.categorie, QString::number(*choisie));
            return true;
        }
        if (m.mot == u"LFont:") Reglages::ecrire(Reglages::Cle::FontName, valeur);
        signaler(recepteur, identifiant, m.categorie, valeur);
        return true;
    }
    return liste && choisirDansListe(bloc, liste);
}

}  // namespace modMenus
