// The owner-drawn menus at the size of a large icon library: the picker's menu of 500
// icons prepared, laid out and painted; a text sidebar rendered, and not rendered
// again when the same menu opens a second time.

#include "grid/ListeImages.h"
#include "menus/fenetres/cMenuItems.h"
#include "menus/fenetres/modMenus.h"
#include "Banc.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr int kIcones = 500;

const ListeImages &bibliotheque() {
    static ListeImages liste = [] {
        ListeImages l;
        for (int i = 1; i <= kIcones; ++i) {
            QImage image(32, 32, QImage::Format_ARGB32);
            image.fill(QColor::fromHsv(i % 360, 200, 220));
            l.ajouter(QStringLiteral("A %1").arg(i), image, QStringLiteral("Icône %1").arg(i));
        }
        return l;
    }();
    return liste;
}

// The picker's window: its sidebar picture and a menu of one item per icon.
struct Picker {
    QWidget fenetre;
    QMenu *menu = nullptr;
    Picker(const QString &barre) {
        auto *image = new QLabel(&fenetre);
        image->setObjectName(QStringLiteral("ImTool(1)"));
        QPixmap p(35, 128);
        p.fill(QColor(0x2e, 0x3f, 0x66));
        image->setPixmap(p);
        menu = new QMenu(&fenetre);
        menu->addAction(barre);
        for (int i = 0; i < kIcones; ++i) menu->addAction(QStringLiteral("  Icône %1{IMG:i %2}").arg(i).arg(i + 1));
    }
    void montrer() {
        menu->popup(QPoint(0, 0));
        menu->repaint();  // laid out and painted now
        QCoreApplication::processEvents();
    }
};

void BM_PreparerEtMontrerPicker500(benchmark::State &s) {
    modMenus::ChoisirRelief(false);
    modMenus::ChoisirDegrade(true);
    modMenus::ChoisirSoulignement(true);
    modMenus::ChoisirBarreAuto(true);
    for (auto _ : s) {
        s.PauseTiming();
        auto picker = std::make_unique<Picker>(QStringLiteral("{Sidebar|IMG:ImTool(1)|||Width:0|Tip:|}"));
        s.ResumeTiming();
        modMenus::AttacherMenus(&picker->fenetre, &bibliotheque(), nullptr, 0);
        picker->montrer();
        s.PauseTiming();
        picker->menu->hide();
        picker.reset();
        s.ResumeTiming();
    }
    s.counters["icones"] = kIcones;
}
BENCHMARK(BM_PreparerEtMontrerPicker500)->Unit(benchmark::kMillisecond);

// The rendering of a text sidebar alone, with its fitting loop.
void BM_BarreTexte(benchmark::State &s) {
    QWidget fenetre;
    auto *menu = new QMenu(&fenetre);
    menu->addAction(QStringLiteral(
        "{Sidebar|Text:Le gestionnaire<br>des mots de passe|FColor:16777215|BColor:6697728|"
        "GColor:12615680|Font:DejaVu Serif|FSize:14|MinFSize:9|Bold}"));
    for (int i = 0; i < 12; ++i) menu->addAction(QStringLiteral("Commande %1").arg(i));
    modMenus::AttacherMenus(&fenetre, nullptr, nullptr, 0);
    menu->popup(QPoint(0, 0));
    QCoreApplication::processEvents();
    cMenuItems *objet = modMenus::objetFenetre(&fenetre);
    const int hauteur = objet->GetPanelItem(menu)->hauteurBarre;
    menu->hide();
    // Opened again: the band drawn at the first opening is kept.
    menu->popup(QPoint(0, 0));
    QCoreApplication::processEvents();
    menu->hide();
    s.counters["rendus_apres_deux_ouvertures"] = objet->GetPanelItem(menu)->rendus;
    for (auto _ : s) objet->rendreBarre(menu, hauteur);
    s.counters["largeur"] = objet->GetPanelItem(menu)->largeurBarre;
}
BENCHMARK(BM_BarreTexte)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char **argv) { return Banc::lancer(argc, argv, Banc::Application::AvecFenetres); }
