#pragma once
// The options window: four pages behind tabs (exports, visible columns, interface
// colours, icon library). It is made once and only hidden when closed, so that a
// second opening finds it as it was left, exports included.

#include "dialogs/FenetreDialogue.h"
#include "ui/BoutonImage.h"

#include <array>

class QCheckBox;
class QLabel;
class QRadioButton;
class QTextBrowser;

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
    explicit FrmOptions(frmMain *principale);

    std::array<BoutonImage *, 4> Onglets{};
    std::array<PanneauImage *, 4> P{};
    std::array<QRadioButton *, 4> OExport{};
    QTextBrowser *WB = nullptr;
    std::array<BoutonImage *, 1> Exp{};
    std::array<QCheckBox *, 8> Info{};
    std::array<BoutonImage *, 1> OInfo{};
    std::array<Echantillon *, 6> OCoul{};
    std::array<QLabel *, 8> L{};  // 1 the heading; 0 and 2 to 6 name the colours; 7 the icon page
    std::array<BoutonImage *, 1> OInterface{};

    int pageCourante() const;
    // The sample's colours as stored (red in the low byte).
    int couleurFond(int echantillon) const;
    int couleurTexte(int echantillon) const;

private:
    void creerPages();
    void clicOnglet(int index);
    void choisirExport(int index);
    void clicExp();
    void clicOInfo();
    void clicCouleur(int index);
    void clicOInterface();
    void chargerCouleurs();
    int page_ = 0;
};
