#pragma once
// The four export files of the account's tree, written from the grid's rows.
#include <QByteArray>
#include <QString>
#include <QStringView>

#include <array>
#include <vector>

class ModeleGrille;
namespace Exports {
enum Format { Html = 0,
              Texte = 1,
              Csv = 2,
              Xml = 3 };     // the order of the format choice and of the setting "Edition"
QString chemin(int format);  // edition/edition.htm, edition/edition.txt, edition/csv.txt, edition/edition.xml under Chemins::dossierProgramme(); empty for another number
// The four files removed: they hold every password in clear and don't outlive the
// session that wrote them.
void supprimerFichiers();
QString libelleCopie(int format);  // " Html", " Texte", " Csv", " Xml"; empty for another number
QString motifCopie(int format);    // "*.htm *.html", "*.txt", "*.csv", "*.xml" (blank-separated, as Qt's file dialog takes several patterns); empty for another number
QString NettoyerXml(QStringView texte);

// The rows the exports read (from row 2 on), taken from the grid in one quick pass:
// the texts are shared with the grid, not copied, and keep the values they had when
// taken. The files can then be written on another thread while the grid changes.
// With a limit, only the first rows: the start of each file, without its end.
class Instantane {
public:
    explicit Instantane(const ModeleGrille &grille, int limite = -1);
    int nbLignes() const { return int(lignes_.size()); }
    bool complet() const { return complet_; }
    bool dossier(int i) const { return lignes_[size_t(i)].dossier; }
    // Field k (0 to 7, columns 3 to 10) of row i; for a folder, 0 is its name as the grid shows it.
    QStringView champ(int i, int k) const {
        const Ligne &l = lignes_[size_t(i)];
        return QStringView(l.textes).mid(l.debut[size_t(k)], l.longueur[size_t(k)]);
    }

private:
    struct Ligne {
        QString textes;
        std::array<int, 8> debut{};
        std::array<int, 8> longueur{};
        bool dossier = false;
    };
    std::vector<Ligne> lignes_;
    bool complet_ = true;
};

// Where a written file may be cut for its preview, in bytes: piece i runs from
// bornes[i] to bornes[i + 1]. In the HTML file a piece is one row of the grid, what
// lies before the first is the head and after the last the tail; in the three others
// a piece is one line, CR LF included.
struct Decoupe {
    std::vector<qint64> bornes;
    int nbPieces() const { return bornes.empty() ? 0 : int(bornes.size()) - 1; }
};

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
// The order in which the four are written.
constexpr std::array<Format, 4> kOrdre{Texte, Csv, Html, Xml};
// A file's bytes in memory, and their cut when asked.
QByteArray contenu(int format, const Instantane &lignes, Decoupe *decoupe = nullptr);
// One file from rows taken before, on any thread, with its cut.
Decoupe creerFichier(int format, const Instantane &lignes);
}
