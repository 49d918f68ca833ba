#pragma once
// Editing a document in its own row of the grid: a box over each field, the calendar
// of the two dates, and the writing of what the user changed, field by field.

#include <QObject>
#include <array>

class MyCoolGrid;
class PanneauImage;
class QCalendarWidget;
class QDate;
class QLineEdit;
class QWidget;

class EditionEnPlace : public QObject {
    Q_OBJECT
public:
    static constexpr int kNbSaisies = 11;  // a box per column of the row, the fields from 3

    // The boxes and the calendar live on the window, over the grid; the row edited is
    // the one ligneDocument names.
    EditionEnPlace(QWidget &fenetre, MyCoolGrid &grille, const int &ligneDocument);

    // The boxes filled from the row (made at the first call, init 0), shown or hidden.
    void RendreSaisieVisible(bool visible, int init, int rang);
    void RendreSaisieVisibleCalendrier(bool visible);
    // The boxes laid over the row's cells again, after the grid moved or resized.
    void placerSaisies(bool visible);
    // Ends the editing, storing first what the user changed; false, with the editing
    // still open and the reason told, when a changed value can't be stored.
    bool fermerSaisie();
    // Ends the editing and drops what was not stored yet.
    void annulerSaisie();
    // What the user typed in the row's boxes and has not stored, by column.
    QList<QPair<int, QString>> textesTapes() const;

    std::array<QLineEdit *, kNbSaisies> Saisie{};
    PanneauImage *PanCal = nullptr;
    QCalendarWidget *Calendrier = nullptr;
    bool SaisieVisible = false;

signals:
    // A title was stored: the band names the document again.
    void titreEcrit(int ligne);
    // Ctrl+E in a box: the document's form, with what the boxes hold.
    void formulaireDemande();

protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

private:
    void creerSaisies();
    bool enregistrerSaisies();
    bool enregistrerSaisie(int index);
    bool ecrireChamp(int index, const QString &texte);
    void entreeSaisie(int index);
    void revenirDuCalendrier(int index);
    void choisirDate(const QDate &jour);
    void suivreDefilement();
    int saisieVoisine(int index, int sens) const;

    QWidget &fenetre_;
    MyCoolGrid &MG;
    const int &LigneDocument;
    bool masquageSaisie_ = false;
    bool retourCalendrier_ = false;
};
