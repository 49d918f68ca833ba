#pragma once
// The common dialogs: open and save a file, choose a colour. Tests answer them in
// advance and read back what was asked.

#include <QString>
#include <QList>
#include <QStringList>

#include <optional>

class QWidget;

namespace ChoixFichier {

// The chosen path, or the empty text when the user cancelled. filtre is the
// description shown and the pattern, e.g. "Les bases de Korvane" and "*.kvx".
QString ouvrir(QWidget *parent, const QString &description, const QString &motif);
// The same for a file to write; a name typed without the pattern's suffix gets it.
QString enregistrer(QWidget *parent, const QString &description, const QString &motif);
// A file to open, with several filters, each "description (patterns)", the first shown first.
QString ouvrir(QWidget *parent, const QStringList &filtres);

// A colour (red in the low byte) chosen from initiale; a cancel gives initiale back.
int couleur(QWidget *parent, int initiale);
// The same, for a caller that must tell a cancel from a confirmed choice.
std::optional<int> couleurConfirmee(QWidget *parent, int initiale);

// Test hooks: once prepared, no dialog is shown; each call takes the next prepared
// answer (an empty one is a cancel, as is none left) and records its filters,
// joined by ";;" when there are several.
void preparerPourTests();
void prevoirReponses(const QStringList &chemins);
QStringList filtresDemandes();  // since the last call, then emptied
// Colours take the next prepared answer; -1, or none left, is a cancel.
void prevoirCouleurs(const QList<int> &couleurs);

}  // namespace ChoixFichier
