#pragma once
// The main window, where the logged-in user works on the tree of folders and documents.

#include "grid/ListeImages.h"
#include "ui/fenetres/FenetreCadre.h"

#include <array>
#include <QKeyCombination>
#include <QPointer>
#include <functional>
#include <span>

class EditionEnPlace;
class FrmAjoutDoc;
class FrmVerrou;
class Verrou;
class FrmOptions;
class FrmPop;
class MyCoolGrid;
class QLabel;
class QTextBrowser;
class QTimer;
class QPushButton;

// The command buttons of the two bars, by what they do.
namespace Bouton {
enum Numero : int {
    Aucun = -1,  // a command that has no button
    NouveauCompte,
    OuvrirBase,
    EnregistrerBase,
    Exporter,  // hidden: the exports live in the options
    ModifierMotDePasse,
    Rechercher,
    Options,
    Aide,
    APropos,
    ChangerCompte,
    NouveauDossier,
    NouveauDocument,
    SupprimerDossier,
    SupprimerDocument,
    RenommerDossier,
    EditerDocument,  // in place, in the grid
    ModifierIcone,
    Nombre
};
}  // namespace Bouton

class frmMain : public FenetreCadre {
    Q_OBJECT
public:
    static constexpr int kTwips = 15;              // twips to the pixel
    static constexpr int kLargeurNormale = 15000;  // twips
    static constexpr int kHauteurNormale = 12000;
    static constexpr int kNbBoutons = Bouton::Nombre;

    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    // Loading of the tree (the grid is rebuilt whole).
    void ChargerMG();
    void ChargerTreeview(int numCompte);
    void MemoriserMG() {}  // the open state of folders is not kept across a reload
    void RaffraichirMG() {}
    // The whole tree read again from the base.
    void rechargerGrille();
    int rechargementsComplets() const { return rechargements_; }  // since the window opened
    // After a change the window wrote itself: the grid is put as a reload would leave
    // it, without reading the base again but for the row written (or reloaded whole
    // when that row can't be placed).
    void documentAjoute(qint64 rowid);
    void dossierEcrit(qint64 rowid);
    void dossierSupprime(int ligne);
    void documentSupprime(int ligne);
    // The selected document's fields written by its form (3 to 10, as the user typed
    // them, and 11 the icon): its row shows them, as after an edit in place.
    void documentModifie(const QList<QPair<int, QString>> &champs);

    // "Modifier le document": the selected document in the document dialog, every field
    // whatever columns are shown.
    static constexpr QKeyCombination kToucheFormulaire{Qt::CTRL | Qt::Key_E};
    void modifierDocument();

    // The lock: the account's documents hidden until its password is typed again, the
    // window then as it was left. Ctrl+L, the idle time, the desktop's own lock.
    static constexpr QKeyCombination kToucheVerrou{Qt::CTRL | Qt::Key_L};
    void verrouiller();
    Verrou &verrou() { return *verrou_; }
    FrmVerrou *fenetreVerrou() const;
    // The end of the account's session here: the files it left on disk go.
    void finirSession();

    // In-place editing of the selected document.
    EditionEnPlace *Edition = nullptr;

    MyCoolGrid *MG = nullptr;
    std::array<BoutonImage *, 3> Im_Commande{};  // close, minimise, maximise or restore
    std::array<PanneauImage *, 2> TbToolbar{};
    std::array<BoutonImage *, kNbBoutons> Boutons{};
    QWidget *PP = nullptr;
    QLabel *Heure = nullptr;
    QTextBrowser *WB = nullptr;
    QTimer *Timer1 = nullptr;
    ListeImages imgCONTENU;

    QString InfoEntete;
    QString NomDossierCourant;
    int LigneDocument = 9999;
    int nombreDossiers() const { return NbDossiers; }
    QString legendeEntete() const { return legendeEntete_; }  // caption of the top strip, as composed

    // The window's commands, in one table: the buttons run theirs, the row's menu lists
    // those marked for it that suit the selection, and each key runs the first command
    // of that key that suits it (or tells what to select). A key or the menu runs a
    // command through its button when it has one, as a click would.
    enum class Besoin { Rien,
                        Ligne,
                        Dossier,
                        Document };
    struct Commande {
        const char *legende;
        QKeyCombination touches;
        Besoin besoin;
        const char *manque;     // what to select first, when the selection doesn't suit
        Bouton::Numero bouton;  // its button in the bars, if any
        void (frmMain::*action)();
        bool dansMenu;                // listed in the row's menu
        int groupe;                   // the menu draws a line between groups
        const char *icone = nullptr;  // its picture in the menu, from the theme's action set
    };
    static std::span<const Commande> commandes();
    static QString texteTouches(QKeyCombination touches);  // as the desktop writes it ("Ctrl+Maj+N")
    // Runs the key as the window's shortcut does.
    void executerTouche(QKeyCombination touches);
    QPushButton *CompteARebours = nullptr;  // the clipboard's countdown, in the band

    // Tests drive the modal dialogs: this runs on each one once it is ready, before it waits.
    void definirPreparationDialogue(std::function<void(QWidget *)> preparation) { preparationDialogue_ = std::move(preparation); }

signals:
    // The login window is wanted in place of this one, for Session::ModeLogin.
    void loginDemande();

protected:
    void resizeEvent(QResizeEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    void keyPressEvent(QKeyEvent *e) override;
    void finDeplacement() override;

    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    void creerBoutons();
    void clicGrille();
    void ecrireBandeDocument(int r);  // the band names the document of row r and its folder
    void clicBouton(int index);
    static const Commande *commandeDuBouton(int index);
    // A command from the keyboard: as a click on its button, or why it can't run.
    void declencher(int index);
    void supprimerSelection();
    // The commands of the table.
    void nouveauCompte();
    void ouvrirBase();
    void enregistrerBaseSous();
    void modifierMotDePasseCompte();
    void rechercher();
    void ouvrirOptions();
    void afficherAide();
    void aPropos();
    void changerCompte();
    void nouveauDossier();
    void nouveauDocument();
    void supprimerDossier();
    void supprimerDocument();
    void renommerDossier();
    void modifierDansLaGrille();
    void copierMotDePasse();
    void copierLogin();
    void copierUrl();
    void ouvrirUrl();
    void basculerMotsDePasse();
    void quitter();
    void copierChamp(int colonne, bool secret, const QString &copie, const QString &vide);
    void annoncer(const QString &texte);  // in the band, for a few seconds
    void installerCommandes();
    void lancer(const Commande &c);
    Besoin selectionActuelle() const;
    static bool convient(Besoin besoin, Besoin selection);
    void menuLigne(const QPoint &position);
    void afficherCompteARebours(int secondes);
    // What the command needs selected first, as told to the user; empty when the selection suits.
    QString selectionManquante(const Commande *c) const;
    // After a reload, the selection goes back to the same folder or document by its
    // keys, or is cleared when it is gone.
    void restaurerSelection();
    void finirMiseAJour();
    // The selected document's row made visible, its folder opened if closed; false,
    // with the reason told, when it can't be.
    bool montrerDocumentCourant();
    void effacerSelection();
    // Shows a window modally over this one, handed first to the tests' preparation.
    void montrerModal(FenetreCadre &fenetre);
    void ouvrirDialogueDossier(const QString &nom, const QString &numero);
    void ouvrirDialogueDocument(const QString &dossier);
    void montrerDialogueDocument(FrmAjoutDoc &dialogue);
    bool garderEnfonce_ = false;  // the command leaves its button pressed
    bool chargementMuet_ = false;
    int rechargements_ = 0;  // a reload after a failure already told: no second message
    QPointer<FrmOptions> options_;
    Verrou *verrou_ = nullptr;
    QPointer<FrmVerrou> fenetreVerrou_;
    QList<QPointer<QWidget>> cacheesAuVerrou_;  // windows hidden by the lock, shown again after it
    QStringList messagesDuVerrou_;              // what the lock's storing had to say, told after it
    void installerVerrou();
    void cacherSession();
    void deverrouille();
    void quitterVerrou(bool changerCompte);
    // The icon picker, made at its first opening; its choice goes to the document
    // dialog when the grid's Tag says so, else to the selected document.
    FrmPop *pop_ = nullptr;
    QPointer<FrmAjoutDoc> dialogueDocument_;
    void ouvrirIcones(const QPoint &position);
    void changerIcone();
    void iconeChoisie(int num);

    // The folder or document the band names, by its keys in the base.
    struct CleSelection {
        bool valide = false;
        bool dossier = false;
        QString numDossier;
        QString num;
        QString rowid;
    };
    CleSelection selection_;
    std::function<void(QWidget *)> preparationDialogue_;
    void placerSelonReglages();
    void redimensionner();
    void clicFenetre(int index);
    void memoriserPosition();
    bool demanderQuitter();  // true when the user answered Yes
    void ChargerIconesDatabase();

    int NbDossiers = 0;
    QString legendeEntete_;
};
