#pragma once
// The dialog that adds a document to the folder selected in the main window: its
// eight fields as typed, an icon, a number free in all accounts. The same dialog,
// filled with a document, modifies that document: the form.

#include "FenetreDialogue.h"

#include <array>

class QCalendarWidget;
class QFrame;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

class FrmAjoutDoc : public FenetreDialogue {
    Q_OBJECT
public:
    static constexpr int kNbSaisies = 8;
    static constexpr int kDateDebut = 5;  // the two boxes the calendar serves
    static constexpr int kDateFin = 6;

    explicit FrmAjoutDoc(QWidget *parent = nullptr, MyCoolGrid *grille = nullptr);

    // The icon picker's choice: the icon's number in the library and its picture.
    void choisirIcone(int numero, const QPixmap &image);

    // Makes the dialog the form of a document: its eight fields, its icon (0 for none)
    // and that icon's picture. The remarks take a box of several lines.
    void modifier(const QStringList &champs, int icone, const QPixmap &image);
    bool modification() const { return modification_; }
    // The text of field i (0 to 7) as it stands, whichever box holds it.
    QString texte(int i) const;
    void definirTexte(int i, const QString &texte);

    std::array<QLineEdit *, kNbSaisies> Saisie{};    // fields 3 to 10 of the document, in order
    std::array<QLabel *, kNbSaisies + 1> Libelle{};  // their captions, then "Icône"
    enum : int { LibelleDossier,
                 LibelleEntete,
                 LibelleNomDossier,
                 NbLibelles };  // the folder's caption and name
    std::array<QLabel *, NbLibelles> L{};
    QLabel *Icone = nullptr;
    QFrame *ShapeIcone = nullptr;
    BoutonImage *MIcone = nullptr;
    BoutonImage *OK = nullptr;
    QPlainTextEdit *RemarquesLignes = nullptr;  // the remarks in the form, in place of Saisie[7]
    BoutonImage *Generer = nullptr;             // the password generator, beside the password box
    QFrame *PanCal = nullptr;
    QCalendarWidget *Calendrier = nullptr;  // made when a date box first asks for it

    // The chosen icon's number as text; empty until an icon is chosen (no icon).
    QString Tag;
    // The date box the calendar serves while it is up.
    int TagPanCal = -1;

    static constexpr int kMotDePasse = 2;

signals:
    // MIcone was clicked while pressed: the picker shows its choice now.
    void iconeDemandee();
    // A new document was written: its rowid in the base.
    void documentEcrit(qint64 rowid);
    // The document of the form was written: its fields 3 to 10 as the user typed
    // them, and 11 the icon.
    void documentModifie(const QList<QPair<int, QString>> &champs);

protected:
    void memoriserEtatInitial() override;
    bool modifie() const override;
    bool enregistrer() override;

private:
    void creerControles();
    void placerControles();
    void entreeSaisie(int indice);
    void afficherCalendrier(int indice);
    void clicCalendrier(const QDate &date);
    void clicMIcone();
    void clicOK();
    void clicGenerer();
    QWidget *boite(int i) const;
    // The stored forms of the fields to write, by index; false, the reason told, when one can't be.
    bool formesStockees(QList<QPair<int, QString>> &formes, QList<QPair<int, QString>> &textes);
    bool eventFilter(QObject *objet, QEvent *evenement) override;
    void keyPressEvent(QKeyEvent *e) override;

    bool modification_ = false;
    QStringList initiaux_;  // the fields as the dialog showed them
    QString tagInitial_;
};
