#pragma once
// The options window: four pages behind tabs (exports, visible columns, interface
// colours, icon library). It is made once a login and only hidden when closed, so
// that a second opening finds it as it was left, exports included. The exports are
// written while the window is already up.

#include "dialogs/fenetres/FenetreDialogue.h"
#include "ui/fenetres/BoutonImage.h"

#include <array>

class ApercuExport;
class DelegueLibelle;
class EcritureExports;
class ListeImages;
class QCheckBox;
class QImage;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QRadioButton;

// A colour sample: a latching button that shows a back colour and a text colour
// (stored numbers, red in the low byte).
class Echantillon : public BoutonImage {
public:
    using BoutonImage::BoutonImage;
    int fond = 16777215;
    int texte = 0;

protected:
    void paintEvent(QPaintEvent *) override;
};

class FrmOptions : public FenetreDialogue {
    Q_OBJECT
public:
    // The grid of the main window, which the exports read and the colours repaint, and
    // its icon library, which the last page edits; either may be null (nothing read).
    FrmOptions(QWidget *parent, MyCoolGrid *grille, ListeImages *images);

    // The pages, in the order of their tabs.
    enum Page : int { PageExports,
                      PageColonnes,
                      PageCouleurs,
                      PageIcones,
                      NbPages };
    // The colour samples, in the order of their settings: the background and the
    // selection keep a back colour, the others a text colour.
    enum Couleur : int { CouleurFond,
                         CouleurTitre,
                         CouleurSection,
                         CouleurDossier,
                         CouleurDocument,
                         CouleurSelection,
                         NbCouleurs };
    // The labels: the heading, one a colour sample, the caption of the icon page.
    enum Libelle : int { LibelleFond,
                         LibelleEntete,
                         LibelleTitre,
                         LibelleSection,
                         LibelleDossier,
                         LibelleDocument,
                         LibelleSelection,
                         LibelleIcones,
                         NbLibelles };

    std::array<BoutonImage *, NbPages> Onglets{};
    std::array<PanneauImage *, NbPages> P{};
    std::array<QRadioButton *, 4> OExport{};
    ApercuExport *WB = nullptr;
    std::array<BoutonImage *, 1> Exp{};
    std::array<QCheckBox *, 8> Info{};
    std::array<BoutonImage *, 1> OInfo{};
    std::array<Echantillon *, NbCouleurs> OCoul{};
    std::array<QLabel *, NbLibelles> L{};
    std::array<BoutonImage *, 1> OInterface{};
    QListWidget *ListeIcones = nullptr;        // the main window's icon library, in its order
    std::array<BoutonImage *, 3> ValDivers{};  // "Ajouter", "Modifier", "Valider" of the icons

    // The list takes the main window's icon library again.
    void ChargerIcones();
    // Writes the whole library to the base; false, with the reason told, when it can't.
    bool MajIcones();

    int pageCourante() const;
    // Until the four export files, begun when the window was made, are written.
    void attendreExports();

signals:
    // The main window's icon library changed: a picture, a name, an icon added, or the save.
    void iconesModifiees();

protected:
    void hideEvent(QHideEvent *e) override;
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    // A page's command button: the theme's picture of the command and its caption.
    static BoutonImage *boutonTexte(QWidget *page, const QString &texte, const QString &icone);
    void creerPages();
    void clicOnglet(int index);
    void choisirExport(int index);
    void montrerExport(int index, bool garderPosition = false);
    void exportsEcrits();
    void clicExp();
    void clicOInfo();
    void clicCouleur(int index);
    void clicOInterface();
    void chargerCouleurs();
    void creerPageIcones();
    void clicValDivers(int index);
    void ajouterIcone();
    void modifierIcone();
    void validerIcones();
    // The picture of a file the user chooses, resampled for the library; null when
    // the user cancelled or the file was refused (and told why).
    QImage choisirImage();
    void renommerIcone(QListWidgetItem *item);
    // The library in memory changed (or was saved): said on the page, and signalled.
    void marquerIcones(bool enregistrees);
    int page_ = 0;
    EcritureExports *ecriture_ = nullptr;
    DelegueLibelle *delegueLibelle_ = nullptr;
    QLabel *etatIcones_ = nullptr;
    ListeImages *images_ = nullptr;
};
