#pragma once
// The main window, where the logged-in user works on the tree of folders and documents.

#include "grid/ListeImages.h"
#include "ui/FenetreCadre.h"

#include <array>
#include <functional>

class MyCoolGrid;
class QCalendarWidget;
class QLabel;
class QTextBrowser;
class QTimer;
class QLineEdit;
class QDate;

class frmMain : public FenetreCadre {
    Q_OBJECT
public:
    static constexpr int kTwips = 15;          // twips to the pixel
    static constexpr int kLargeurNormale = 15000;  // twips
    static constexpr int kHauteurNormale = 12000;
    static constexpr int kNbBoutons = 17;

    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    // Loading of the tree (the grid is rebuilt whole).
    void ChargerMG();
    void ChargerTreeview(int numCompte);
    void MemoriserMG() {}     // the open state of folders is not kept across a reload
    void RaffraichirMG() {}

    // In-place editing of the selected document.
    static constexpr int kNbSaisies = 11;
    void RendreSaisieVisible(bool visible, int init, int rang);
    void RendreSaisieVisibleCalendrier(bool visible);
    std::array<QLineEdit *, kNbSaisies> Saisie{};

    MyCoolGrid *MG = nullptr;
    std::array<BoutonImage *, 3> Im_Commande{};  // close, minimise, maximise or restore
    std::array<PanneauImage *, 2> TbToolbar{};
    std::array<BoutonImage *, kNbBoutons> Boutons{};
    QWidget *PP = nullptr;
    QLabel *Heure = nullptr;
    QTextBrowser *WB = nullptr;
    PanneauImage *PanCal = nullptr;
    QCalendarWidget *Calendrier = nullptr;
    QTimer *Timer1 = nullptr;
    ListeImages imgCONTENU;
    ListeImages ImageList1;

    QString InfoEntete;
    QString NomDossierCourant;
    int LigneDocument = 9999;
    bool SaisieVisible = false;
    int nombreDossiers() const { return NbDossiers; }
    QString legendeEntete() const { return legendeEntete_; }  // caption of the top strip, as composed

    // Tests drive the modal dialogs: this runs on each one once it is ready, before it waits.
    void definirPreparationDialogue(std::function<void(QWidget *)> preparation) { preparationDialogue_ = std::move(preparation); }

protected:
    void resizeEvent(QResizeEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    void finDeplacement() override;

    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    void creerBoutons();
    void creerSaisies();
    void clicGrille();
    void clicBouton(int index);
    void commande(int index);
    void fermerSaisie();
    void rechargerGrille();
    void ouvrirDialogueDossier(const QString &nom, const QString &numero);
    void ouvrirDialogueDocument(const QString &dossier);
    void validerSaisie(int index);
    void entreeSaisie(int index);
    void choisirDate(const QDate &jour);
    bool filtrerSaisie(QObject *objet, QEvent *evenement);
    bool masquageSaisie_ = false;
    std::function<void(QWidget *)> preparationDialogue_;
    void placerSelonReglages();
    void redimensionner();
    void clicFenetre(int index);
    void memoriserPosition();
    bool demanderQuitter();  // true when the user answered Yes
    void ChargerIconesDatabase();
    void ChargerImageList1();

    int NbDossiers = 0;
    QString legendeEntete_;
};
