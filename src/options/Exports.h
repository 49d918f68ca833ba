#pragma once
// The four export files of the account's tree, written from the grid's rows.
#include <QByteArray>
#include <QString>
class ModeleGrille;
namespace Exports {
enum Format { Html = 0, Texte = 1, Csv = 2, Xml = 3 };  // the order of the format choice and of the setting "Edition"
QString chemin(int format);          // edition/edition.htm, edition/edition.txt, edition/csv.txt, edition/edition.xml under Chemins::dossierProgramme(); empty for another number
QString libelleCopie(int format);    // " Html", " Texte", " Csv", " Xml"; empty for another number
QString motifCopie(int format);      // "*.htm *.html", "*.txt", "*.csv", "*.xml" (blank-separated, as Qt's file dialog takes several patterns); empty for another number
QString NettoyerXml(const QString &texte);
// The whole content of each file.
QByteArray contenuHtm(const ModeleGrille &grille);
QByteArray contenuTxt(const ModeleGrille &grille);
QByteArray contenuCsv(const ModeleGrille &grille);
QByteArray contenuXml(const ModeleGrille &grille);
// Each writes its file whole; all four together in the order Txt, Csv, Htm, Xml.
// A failure throws Base::ErreurBase naming the file; the file is then left as it was.
void CreerFicTxt(const ModeleGrille &grille);
void CreerFicCsv(const ModeleGrille &grille);
void CreerFicHtm(const ModeleGrille &grille);
void CreerFicXml(const ModeleGrille &grille);
void creerTout(const ModeleGrille &grille);
}
