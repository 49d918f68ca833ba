#pragma once
// The icon picker: a window never shown, that owns the menu Icones listing the icon
// library with its pictures, drawn by the owner-drawn menus.

#include <QList>
#include <QWidget>

class QAction;
class QLabel;
class QMenu;
class ListeImages;
class cTips;

class FrmPop : public QWidget {
    Q_OBJECT
public:
    // images: the library of the main window, which the items' pictures read.
    explicit FrmPop(const ListeImages &images, QWidget *parent = nullptr);

    // Raised when the library changed, so that the next opening reads it again.
    static bool IconesModifiees;

    // The items, one per icon of the base, in the order of Num then Libelle.
    void ChargerIconesDatabase();
    // The engine ready for this window, with the library's pictures.
    void AfficherIcones();
    // The caption of an icon's item: its picture from the library by position, and its
    // name as typed ("Icône " + Num when it has none).
    static QString legendeIcone(const QString &libelle, int position, const QString &num);
    static const QString kAucuneIcone;  // the one line of an empty library

    // Shows the menu at pos and waits until it closes; a choice comes by iconeChoisie.
    void montrer(const QPoint &pos);

    QMenu *Icones = nullptr;
    QAction *Barre = nullptr;
    QList<QAction *> Icone;
    QLabel *ImTool = nullptr;  // ImTool(1), the picture of the sidebar
    cTips *myTips = nullptr;

signals:
    void iconeChoisie(int num);
    void barreCliquee();

private:
    const ListeImages &images_;
};
